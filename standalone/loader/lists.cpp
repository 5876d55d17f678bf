#include "standalone/loader/lists.h"

#include <fmt/format.h>

#include <algorithm>
#include <vector>

#include "host/catalogue.h"

#include "standalone/text/escape.h"
#include "standalone/text/wording.h"

namespace standalone::loader {
namespace {

struct NamedList {
    const char* name;
    Lists bits;
};

/// The lists by their bits, each with the name of the family that it is for, then the types.
std::vector<NamedList> namedLists() {
    std::vector<NamedList> lists;
    for (const RateFamily& family : rateFamilies()) {
        if (family.lists.listMask != 0) {
            lists.push_back({family.name, family.lists});
        }
    }
    std::sort(lists.begin(), lists.end(),
              [](const NamedList& one, const NamedList& other) { return one.bits.listMask < other.bits.listMask; });
    lists.push_back({"futures", {0, qmservice::kFuturesType}});
    lists.push_back({"futures_extra", {0, qmservice::kFuturesExtraType}});
    return lists;
}

const std::vector<NamedList>& allLists() {
    static const std::vector<NamedList> lists = namedLists();
    return lists;
}

std::vector<std::string> allNames() {
    std::vector<std::string> names;
    for (const NamedList& list : allLists()) {
        names.emplace_back(list.name);
    }
    return names;
}

bool readList(TableCell& cell, std::string_view word, Lists& lists) {
    const auto found =
        std::find_if(allLists().begin(), allLists().end(), [&](const NamedList& list) { return list.name == word; });
    if (found == allLists().end()) {
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
    for (const NamedList& list : allLists()) {
        if ((list.bits.listMask & lists.listMask) != 0 || (list.bits.types & lists.types) != 0) {
            names.emplace_back(list.name);
        }
    }
    return oneOf(names);
}

}  // namespace standalone::loader
