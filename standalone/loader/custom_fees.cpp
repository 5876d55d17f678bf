#include <utility>

#include "standalone/loader/category_columns.h"
#include "standalone/loader/rule_line.h"
#include "standalone/loader/tables.h"

namespace standalone::loader {
namespace {

void readItem(RuleLine& line, TableCell& cell) {
    if (isItem(cell.text)) {
        readText(cell, line.item);
    } else {
        cell.refuseFound(ErrorKind::kName, "a fee item of three letters or digits, such as 000 or 0D1");
    }
}

std::vector<RuleColumn> customTableColumns(const Load& load, const std::string& file, const RateFamily& family) {
    const bool isSgt = family.records == RateRecords::kSgt;
    std::vector<RuleColumn> keys{accountColumn(load, file, family.customAccounts),
                                 numberColumn("update", &RuleLine::update),
                                 isSgt ? systemCategoryColumn(load) : categoryColumn(load)};
    if (family.records == RateRecords::kOption) {
        keys.push_back({"item", ColumnNeed::kFilled, readItem});
    } else if (family.records == RateRecords::kMargin) {
        keys = joined(std::move(keys), {hedgeFlagColumn(), marginModeColumn()});
    }
    return keys;
}

void readCustomTable(Load& load, const RateFamily& family) {
    const std::string file = family.customTable();
    readRateTable(load, file, family, customTableColumns(load, file, family), [&](const ReadRule& read) {
        if (!read.whole) {
            return;
        }
        load.accountLines[*read.line.account].customFees.push_back(
            load.contents.kept(family, read.line, read.position));
    });
}

}  // namespace

// The commission details of a fee come before its margin details, as the families do.
void readCustomFees(Load& load) {
    for (const RateFamily& family : rateFamilies()) {
        readCustomTable(load, family);
    }
}

}  // namespace standalone::loader
