#include <algorithm>
#include <boost/make_shared.hpp>
#include <map>
#include <utility>

#include "standalone/loader/category_columns.h"
#include "standalone/loader/rate_records.h"
#include "standalone/loader/rule_line.h"
#include "standalone/loader/tables.h"

namespace standalone::loader {
namespace {

using namespace qmservice;  // NOLINT(google-build-using-namespace): records

/// By account, then by number of the update.
using CustomFees = std::map<std::pair<std::size_t, int>, CustomFee>;

// What the limits of a class have besides category and rates.

template <class Limit>
void setOwnFields(Limit& /*limit*/, const RuleLine& /*line*/) {}

/// A fee item; a line of the other families that have limits of this class names none.
void setOwnFields(CCustomStkExchangeRateLimit& limit, const RuleLine& line) {
    if (line.item.empty()) return;
    limit.optionFirstKeyCode = static_cast<unsigned char>(line.item[0]);
    limit.optionSecondKeyCode = static_cast<unsigned char>(line.item[1]);
    limit.optionThirdKeyCode = static_cast<unsigned char>(line.item[2]);
}

void setOwnFields(CCustomMarginRateDetail& detail, const RuleLine& line) {
    detail.hedgeFlag = line.hedgeFlag;
    detail.marginMode = line.marginMode;
}

template <class Limit>
void setCategories(Limit& limit, const CategoryRegister& categories, int category) {
    limit.customCategories = categories.custom;
    const auto group = categories.groups.find(category);
    if (group == categories.groups.end()) return;
    for (const CGroupCategorySubInfo& part : group->second) {
        limit.groupCategories.push_back(boost::make_shared<CGroupCategorySubInfo>(part));
    }
}

// The kind of an account decides which tables it may stand in, so that all lines of an update are of one class.
template <class Fee>
Fee& feeOf(CustomFee& customFee) {
    if (!customFee.record) customFee.record = boost::make_shared<Fee>();
    return static_cast<Fee&>(*customFee.record);
}

template <class Records>
void addEntry(const Load& load, const ReadRule& read, CustomFees& fees) {
    const RuleLine& line = read.line;
    const auto limit = boost::make_shared<typename Records::CustomLimit>();
    (*limit).*Records::kCategory = std::to_string(line.category);
    setRates(*limit, Records::kCustomRates, line);
    setOwnFields(*limit, line);
    setCategories(*limit, load.categories, line.category);
    CustomFee& fee = fees[{*line.account, line.update}];
    (feeOf<typename Records::CustomFee>(fee).*Records::kEntries).push_back(limit);
    fee.entries.push_back(read.position);
}

bool isItemCharacter(char byte) {
    return (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z');
}

void readItem(RuleLine& line, TableCell& cell) {
    if (cell.text.size() == 3 && std::all_of(cell.text.begin(), cell.text.end(), isItemCharacter)) {
        readText(cell, line.item);
    } else {
        cell.refuseFound(ErrorKind::kName, "a fee item of three letters or digits, such as 000 or 0D1");
    }
}

std::vector<RuleColumn> keyColumns(const Load& load, const std::string& file, const Family& family) {
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

template <class Records>
void readFamily(Load& load, const Family& family, CustomFees& fees) {
    const std::string file = family.customTable();
    readRateTable(load, file, family, keyColumns(load, file, family), [&](const ReadRule& read) {
        if (read.whole) addEntry<Records>(load, read, fees);
    });
}

}  // namespace

// The commission details of a fee come before its margin details, as the families do.
void readCustomFees(Load& load) {
    CustomFees fees;
    for (const Family& family : families()) {
        visitRecords(family.records, [&](auto records) { readFamily<decltype(records)>(load, family, fees); });
    }
    for (auto& [key, fee] : fees) load.market.accounts[key.first].customFees.push_back(std::move(fee));
}

}  // namespace standalone::loader
