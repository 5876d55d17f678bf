#include "standalone/loader/lists.h"

#include <algorithm>
#include <iterator>

#include "standalone/text/escape.h"
#include "standalone/text/wording.h"

namespace standalone::loader {
namespace {

using namespace qmservice;  // NOLINT(google-build-using-namespace): records, kinds and lists

struct NamedList {
    const char* name;
    Lists bits;
};

constexpr NamedList kLists[] = {{"stock", {kStockList, 0}},     {"credit", {kCreditList, 0}},
                                {"option", {kOptionList, 0}},   {"hgt", {kHgtList, 0}},
                                {"neeq", {kNeeqList, 0}},       {"sgt", {kSgtList, 0}},
                                {"futures", {0, kFuturesType}}, {"futures_extra", {0, kFuturesExtraType}}};

std::vector<std::string> allNames() {
    std::vector<std::string> names;
    for (const NamedList& list : kLists) names.emplace_back(list.name);
    return names;
}

bool readList(Cell& cell, std::string_view word, Lists& lists) {
    const auto* found =
        std::find_if(std::begin(kLists), std::end(kLists), [&](const NamedList& list) { return list.name == word; });
    if (found == std::end(kLists)) {
        return cell.refuse(ErrorKind::kWord, [&] {
            return " names the list " + inQuotes(word) + ", but " + oneOf(allNames()) + " was expected" +
                   mendByOneOf(word, allNames());
        });
    }
    lists.kindMask |= found->bits.kindMask;
    lists.types |= found->bits.types;
    return true;
}

}  // namespace

bool readLists(Cell& cell, Lists& lists) {
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
    for (const NamedList& list : kLists) {
        if ((list.bits.kindMask & lists.kindMask) != 0 || (list.bits.types & lists.types) != 0) {
            names.emplace_back(list.name);
        }
    }
    return oneOf(names);
}

}  // namespace standalone::loader
