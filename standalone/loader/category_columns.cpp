#include "standalone/loader/category_columns.h"

#include <fmt/format.h>

#include <functional>
#include <limits>

#include "host/categories.h"
#include "standalone/market_files.h"
#include "standalone/text/escape.h"

namespace standalone::loader {
namespace {

bool isMember(const CategoryRegister& categories, int category) {
    return categories.system.count(category) != 0 || categories.custom.count(category) != 0;
}

/// What a column of categories may name.
struct CategoryChoice {
    std::string kinds;
    bool groups;
    std::function<bool(int)> known;
};

/// A table that the folder lacks and that would hold the unknown category; empty when there is none.
std::string missingTable(const Load& load, int category, bool mayBeGroup) {
    const std::string table =
        mayBeGroup && qmservice::kGroupCategories.holds(category) ? files::kGroupCategories : files::kSystemCategories;
    return load.lacks(table) ? table : "";
}

void readCategory(const Load& load, TableCell& cell, const CategoryChoice& choice, bool complete, int& category) {
    int number = 0;
    if (!readInteger(cell, 1, std::numeric_limits<int>::max(), number)) {
        return;
    }
    if (choice.known(number)) {
        category = number;
    } else if (const std::string table = missingTable(load, number, choice.groups); !table.empty()) {
        cell.refuseWithout(table, "the category " + std::to_string(number));
    } else if (complete) {
        cell.refuseFound(ErrorKind::kUnknownCategory, "the number of a " + choice.kinds + " category of the folder",
                         [] { return "correct it or add the category"; });
    } else {
        cell.drop();
    }
}

/// A category that custom fees may name: `refuse` says why a category of the folder that is not `tested` never
/// matches.
RuleColumn feeCategoryColumn(const Load& load, const std::string& kinds, bool groups,
                             const std::function<bool(int)>& tested,
                             const std::function<void(TableCell&, int)>& refuse) {
    const CategoryRegister& all = load.categories;
    const CategoryChoice choice{kinds, groups,
                                [&all](int number) { return isMember(all, number) || all.groups.count(number) != 0; }};
    return {"category", ColumnNeed::kFilled, [=, &load, &all](RuleLine& line, TableCell& cell) {
                const bool complete = all.membersComplete && all.groupsComplete;
                int category = 0;
                readCategory(load, cell, choice, complete, category);
                if (category == 0) {
                    return;
                }
                if (tested(category)) {
                    line.category = category;
                } else if (complete) {
                    refuse(cell, category);
                } else {
                    cell.drop();
                }
            }};
}

/// A custom category has its members only as a part of a group: by itself the fee center does not look into it.
void refuseCustomCategory(TableCell& cell) {
    cell.refuse(ErrorKind::kUnusedCategory, [&] {
        return fmt::format(
            " holds {}, a custom category, which matches no instrument by itself; put it into a group of {} and name "
            "the group here",
            inQuotes(cell.text), files::kGroupCategories);
    });
}

void refuseAllButSystemCategory(TableCell& cell, const std::string& kind) {
    cell.refuse(ErrorKind::kUnusedCategory, [&] {
        return fmt::format(
            " holds {}, a {} category, but Shenzhen connect tests system categories alone; name a category of {}",
            inQuotes(cell.text), kind, files::kSystemCategories);
    });
}

}  // namespace

RuleColumn memberCategoryColumn(const Load& load) {
    const CategoryRegister& all = load.categories;
    const CategoryChoice choice{"system or custom", false, [&all](int number) { return isMember(all, number); }};
    return {"category", ColumnNeed::kFilled, [=, &load, &all](RuleLine& line, TableCell& cell) {
                readCategory(load, cell, choice, all.membersComplete, line.category);
            }};
}

RuleColumn categoryColumn(const Load& load) {
    const CategoryRegister& all = load.categories;
    return feeCategoryColumn(
        load, "system or group", true,
        [&all](int number) { return all.system.count(number) != 0 || all.groups.count(number) != 0; },
        [](TableCell& cell, int /*category*/) { refuseCustomCategory(cell); });
}

RuleColumn systemCategoryColumn(const Load& load) {
    const CategoryRegister& all = load.categories;
    return feeCategoryColumn(
        load, "system", false, [&all](int number) { return all.system.count(number) != 0; },
        [&all](TableCell& cell, int category) {
            refuseAllButSystemCategory(cell, all.groups.count(category) != 0 ? "group" : "custom");
        });
}

}  // namespace standalone::loader
