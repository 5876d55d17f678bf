#include "standalone/loader/error_log.h"

#include <algorithm>
#include <utility>

#include "standalone/loader/reading_order.h"
#include "standalone/text/escape.h"

namespace standalone::loader {
namespace {

template <class One, class Other>
bool comesBefore(const One& one, const Other& other) {
    return loader::comesBefore(one.file, one.line, other.file, other.line);
}

}  // namespace

void ErrorLog::add(const ErrorPlace& place, ErrorKind kind, const char* sentence) {
    add(place, kind, [&] { return std::string(sentence); });
}

void ErrorLog::add(const ErrorPlace& place, ErrorKind kind, const std::string& sentence) {
    add(place, kind, [&]() -> const std::string& { return sentence; });
}

bool ErrorLog::isAmongFirst(const ErrorPlace& place) const {
    return first.size() < kMostErrors || comesBefore(place, first.back());
}

void ErrorLog::keep(const ErrorPlace& place, ErrorKind kind, const std::string& message) {
    const auto behind = std::upper_bound(first.begin(), first.end(), place, comesBefore<ErrorPlace, LoadError>);
    first.insert(behind, {std::string(place.file), place.line, std::string(place.column), kind, printable(message)});
    if (first.size() <= kMostErrors) {
        return;
    }
    const LoadError last = std::move(first.back());
    first.pop_back();
    countOnly(last.file, last.line, last.kind);
}

void ErrorLog::countOnly(std::string_view file, std::size_t line, ErrorKind kind) {
    FurtherErrors& same = others[kind];
    if (same.count++ != 0 && !comesBefore(file, line, same.file, same.line)) {
        return;
    }
    same.kind = kind;
    same.file = file;
    same.line = line;
}

void ErrorLog::take(LoadErrors& result) {
    result.errorCount = first.size();
    for (auto& [kind, same] : others) {
        result.errorCount += same.count;
        result.further.push_back(std::move(same));
    }
    std::stable_sort(result.further.begin(), result.further.end(), comesBefore<FurtherErrors, FurtherErrors>);
    result.errors = std::move(first);
}

}  // namespace standalone::loader
