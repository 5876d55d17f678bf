#include <boost/make_shared.hpp>
#include <map>
#include <set>
#include <utility>

#include "standalone/loader/expand.h"
#include "standalone/loader/rate_records.h"

namespace standalone::loader {
namespace {

using namespace qmservice;  // NOLINT(google-build-using-namespace): records

/// By number of the update.
using CustomFees = std::map<int, CustomFee>;

// What the limits of a class have besides category and rates.

template <class Limit>
void setOwnFields(Limit& /*limit*/, const LineCells& /*line*/) {}

/// A fee item; a line of the other families that have limits of this class names none.
void setOwnFields(CCustomStkExchangeRateLimit& limit, const LineCells& line) {
    if (line.item.empty()) {
        return;
    }
    limit.optionFirstKeyCode = static_cast<unsigned char>(line.item[0]);
    limit.optionSecondKeyCode = static_cast<unsigned char>(line.item[1]);
    limit.optionThirdKeyCode = static_cast<unsigned char>(line.item[2]);
}

void setOwnFields(CCustomMarginRateDetail& detail, const LineCells& line) {
    detail.hedgeFlag = line.hedgeFlag;
    detail.marginMode = line.marginMode;
}

template <class Limit>
void setCategories(Limit& limit, const CategoryRegister& categories, int category) {
    limit.customCategories = categories.custom;
    const auto group = categories.groups.find(category);
    if (group == categories.groups.end()) {
        return;
    }
    for (const CGroupCategorySubInfo& part : group->second) {
        limit.groupCategories.push_back(boost::make_shared<CGroupCategorySubInfo>(part));
    }
}

// The kind of an account decides which tables it may stand in, so that all lines of an update are of one class.
template <class Fee>
Fee& feeOf(CustomFee& customFee) {
    if (!customFee.record) {
        customFee.record = boost::make_shared<Fee>();
    }
    return static_cast<Fee&>(*customFee.record);
}

template <class Records>
void addEntry(const CategoryRegister& categories, const KeptLine& kept, CustomFees& fees) {
    const LineCells& line = *kept.line;
    const auto limit = boost::make_shared<typename Records::CustomLimit>();
    (*limit).*Records::kCategory = std::to_string(line.category);
    setRates(*limit, Records::kCustomRates, kept);
    setOwnFields(*limit, line);
    setCategories(*limit, categories, line.category);
    CustomFee& fee = fees[line.update];
    (feeOf<typename Records::CustomRecord>(fee).*Records::kEntries).push_back(limit);
    fee.entries.push_back(kept.position);
}

}  // namespace

std::vector<CustomFee> expandCustomFees(const CheckedFolder& folder, cost::Date day, std::size_t account) {
    CustomFees fees;
    forEachInForce(folder.accountLines[account].customFees, day, [&](const KeptLine& kept) {
        visitRecords(kept.line->family->records,
                     [&](auto records) { addEntry<decltype(records)>(folder.categories, kept, fees); });
    });
    std::vector<CustomFee> made;
    made.reserve(fees.size());
    for (auto& [update, fee] : fees) {
        made.push_back(std::move(fee));
    }
    return made;
}

std::size_t countCustomFees(const CheckedFolder& folder, cost::Date day, std::size_t account) {
    std::set<int> updates;
    forEachInForce(folder.accountLines[account].customFees, day,
                   [&](const KeptLine& kept) { updates.insert(kept.line->update); });
    return updates.size();
}

}  // namespace standalone::loader
