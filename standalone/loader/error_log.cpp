#include "standalone/loader/error_log.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "standalone/loader/words.h"

namespace standalone::loader {
namespace {

/// By file, then line.
template <class One, class Other>
bool standsBefore(const One& one, const Other& other) {
    const std::string_view file = one.file;
    const std::string_view otherFile = other.file;
    return std::tie(file, one.line) < std::tie(otherFile, other.line);
}

}  // namespace

void ErrorLog::add(const ErrorPlace& place, ErrorKind kind, const char* sentence) {
    add(place, kind, [&] { return std::string(sentence); });
}

void ErrorLog::add(const ErrorPlace& place, ErrorKind kind, const std::string& sentence) {
    add(place, kind, [&]() -> const std::string& { return sentence; });
}

bool ErrorLog::isAmongFirst(const ErrorPlace& place) const {
    return first.size() < kMostErrors || standsBefore(place, first.back());
}

void ErrorLog::keep(const ErrorPlace& place, ErrorKind kind, const std::string& message) {
    const auto behind = std::upper_bound(first.begin(), first.end(), place, standsBefore<ErrorPlace, LoadError>);
    first.insert(behind, {std::string(place.file), place.line, std::string(place.column), kind, printable(message)});
    if (first.size() <= kMostErrors) return;
    const LoadError last = std::move(first.back());
    first.pop_back();
    countOnly(last.file, last.line, last.kind);
}

void ErrorLog::countOnly(std::string_view file, std::size_t line, ErrorKind kind) {
    FurtherErrors& same = others[kind];
    if (same.count++ != 0 && !standsBefore(ErrorPlace{file, line}, same)) return;
    same.kind = kind;
    same.file = file;
    same.line = line;
}

void ErrorLog::take(LoadResult& result) {
    result.errorCount = first.size();
    for (auto& [kind, same] : others) {
        result.errorCount += same.count;
        result.further.push_back(std::move(same));
    }
    std::stable_sort(result.further.begin(), result.further.end(), standsBefore<FurtherErrors, FurtherErrors>);
    result.errors = std::move(first);
}

}  // namespace standalone::loader
