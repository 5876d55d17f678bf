#include "feedesk/checking/finding.h"

#include <fmt/format.h>

#include <algorithm>
#include <tuple>

#include "standalone/text/numbers.h"

namespace feedesk::checking {
namespace {

template <class Item>
void append(std::vector<Item>& items, const std::vector<Item>& more) {
    items.insert(items.end(), more.begin(), more.end());
}

/// Leaves one of each, in order.
template <class Item>
void sortOut(std::vector<Item>& items) {
    std::sort(items.begin(), items.end());
    items.erase(std::unique(items.begin(), items.end()), items.end());
}

}  // namespace

std::string_view wordFor(Severity severity) {
    switch (severity) {
        case Severity::kNote:
            return "note";
        case Severity::kWarning:
            return "warning";
        case Severity::kError:
            break;
    }
    return "error";
}

Place Place::of(const std::string& text) {
    const std::size_t colon = text.rfind(':');
    const auto line =
        colon == std::string::npos ? std::nullopt : standalone::numberIn<std::size_t>(text.substr(colon + 1));
    return line ? Place{text.substr(0, colon), *line} : Place{text, 0};
}

std::string Place::text() const { return line == 0 ? file : fmt::format("{}:{}", file, line); }

bool operator==(const Place& one, const Place& other) { return one.file == other.file && one.line == other.line; }

bool operator<(const Place& one, const Place& other) {
    return std::tie(one.file, one.line) < std::tie(other.file, other.line);
}

void Findings::add(const Finding& finding) {
    const auto [entry, isNew] = all.emplace(Key(finding.places.front().file, finding.found, finding.remedy), finding);
    if (isNew) {
        return;
    }
    Finding& same = entry->second;
    same.count += finding.count;
    append(same.accounts, finding.accounts);
    append(same.places, finding.places);
}

std::vector<Finding> Findings::sorted() const {
    std::vector<Finding> ordered;
    for (const auto& [key, finding] : all) {
        ordered.push_back(finding);
        sortOut(ordered.back().places);
        sortOut(ordered.back().accounts);
    }
    std::stable_sort(ordered.begin(), ordered.end(), [](const Finding& one, const Finding& other) {
        return one.places.front() < other.places.front();
    });
    return ordered;
}

}  // namespace feedesk::checking
