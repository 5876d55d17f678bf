#include "standalone/loader/rule_line.h"
#include "standalone/loader/tables.h"

namespace standalone::loader {
namespace {

std::vector<RuleColumn> feeTableColumns(const Load& load, const std::string& file, const RateFamily& family) {
    std::vector<RuleColumn> keys = feeKeyColumns(load, file, family);
    if (family.records != RateRecords::kMargin) {
        return keys;
    }
    return joined(std::move(keys), {hedgeFlagColumn(), marginModeColumn()});
}

void readFeeTable(Load& load, const RateFamily& family) {
    const std::string file = family.feeTable();
    readRateTable(load, file, family, feeTableColumns(load, file, family), [&](const ReadRule& read) {
        Places places = matchInstruments(load, file, read, family.lists);
        if (!read.whole || !places) {
            return;
        }
        load.accountLines[*read.line.account].fees.push_back(
            {load.contents.kept(family, read.line, read.position), std::move(places)});
    });
}

}  // namespace

void readFees(Load& load) {
    for (const RateFamily& family : rateFamilies()) {
        if (!family.feeAccounts.empty()) {
            readFeeTable(load, family);
        }
    }
}

}  // namespace standalone::loader
