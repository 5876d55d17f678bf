#include "standalone/loader/lists.h"

#include <fmt/format.h>

#include <algorithm>
#include <vector>

#include "standalone/text/escape.h"
#include "standalone/text/wording.h"

namespace standalone::loader {
namespace {

std::vector<std::string> allNames() {
    std::vector<std::string> names;
    for (const NamedList& list : namedLists()) {
        names.emplace_back(list.name);
    }
    return names;
}

bool readList(TableCell& cell, std::string_view word, Lists& lists) {
    const auto found = std::find_if(namedLists().begin(), namedLists().end(),
                                    [&](const NamedList& list) { return list.name == word; });
    if (found == namedLists().end()) {
        return cell.refuse(ErrorKind::kWord, [&] {
            return fmt::format(" names the list {}, but {} was expected{}", inQuotes(word), oneOf(allNames()),
                               adviseOneOf(word, allNames()));
        });
    }
    lists.listMask |= found->bits.listMask;
    lists.types |= found->bits.types;
    return true;
}

}  // namespace

bool readLists(TableCell& cell, Lists& lists) {
    bool good = true;
    for (std::size_t start = cell.text.find_first_not_of(' '); start < cell.text.size();) {
        const std::size_t end = std::min(cell.text.find(' ', start), cell.text.size());
        good = readList(cell, cell.text.substr(start, end - start), lists) && good;
        start = cell.text.find_first_not_of(' ', end);
    }
    return good;
}

std::string listNames(const Lists& lists) {
    std::vector<std::string> names;
    for (const NamedList& list : namedLists()) {
        if (list.bits.overlap(lists)) {
            names.emplace_back(list.name);
        }
    }
    return oneOf(names);
}

}  // namespace standalone::loader
