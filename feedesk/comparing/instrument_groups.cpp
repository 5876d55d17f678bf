#include "feedesk/comparing/instrument_groups.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <tuple>

#include "feedesk/instruments/instrument_text.h"
#include "feedesk/text/numbers.h"

namespace feedesk {
namespace {

constexpr std::size_t kMostShown = 3;
constexpr std::size_t kMostPatterns = 4;

using NameList = std::vector<ListedName>;
using Range = std::pair<NameList::const_iterator, NameList::const_iterator>;

/// Patterns for those of a sorted list that are meant.
class Patterns {
public:
    /// The range is of one market, and its codes begin with the same `length` characters.
    void cover(const Range& range, std::size_t length) {
        const auto isMeant = [](const ListedName& name) { return name.isMeant; };
        if (std::none_of(range.first, range.second, isMeant)) {
            return;
        }
        const ListedName& first = *range.first;
        if (range.second - range.first == 1) {
            found.push_back(instrumentText(first.market, first.code));
        } else if (std::all_of(range.first, range.second, isMeant)) {
            found.push_back(instrumentText(first.market, first.code.substr(0, length) + "*"));
        } else {
            split(range, length);
        }
    }

    std::vector<std::string> found;

private:
    void split(const Range& range, std::size_t length) {
        for (auto begin = range.first; begin != range.second;) {
            const auto next = [length](const ListedName& name) { return name.code.substr(0, length + 1); };
            const auto end =
                std::find_if(begin, range.second, [&](const ListedName& name) { return next(name) != next(*begin); });
            cover({begin, end}, length + 1);
            begin = end;
        }
    }
};

std::vector<std::string> patternsFor(const NameList& sorted) {
    Patterns patterns;
    for (auto begin = sorted.begin(); begin != sorted.end();) {
        const auto end =
            std::find_if(begin, sorted.end(), [&](const ListedName& name) { return name.market != begin->market; });
        patterns.cover({begin, end}, 0);
        begin = end;
    }
    return patterns.found;
}

}  // namespace

std::string firstFew(const std::vector<std::string>& names) {
    if (names.size() <= kMostShown + 1) {
        return fmt::format("{}", fmt::join(names, ", "));
    }
    return fmt::format("{} and {} more", fmt::join(names.begin(), names.begin() + kMostShown, ", "),
                       grouped(names.size() - kMostShown));
}

std::string instrumentGroup(std::vector<ListedName> list) {
    std::sort(list.begin(), list.end(), [](const ListedName& one, const ListedName& other) {
        return std::tie(one.market, one.code) < std::tie(other.market, other.code);
    });
    std::vector<std::string> names;
    for (const ListedName& name : list) {
        if (name.isMeant) {
            names.push_back(instrumentText(name.market, name.code));
        }
    }
    const std::vector<std::string> patterns = patternsFor(list);
    if (names.size() <= kMostShown || patterns.size() > kMostPatterns || patterns.size() == names.size()) {
        return firstFew(names);
    }
    return fmt::format("{} ({})", fmt::join(patterns, ", "), counted(names.size(), "instrument"));
}

}  // namespace feedesk
