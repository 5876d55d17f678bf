#include "standalone/families.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string>
#include <tuple>
#include <utility>

#include "cost/rates.h"
#include "host/catalogue.h"
#include "host/record_fields.h"

namespace standalone {
namespace {

using namespace qmservice;  // NOLINT(google-build-using-namespace): records, kinds and lists
using cost::Family;
using RateFields = std::vector<RateField>;

constexpr Lists kFuturesLists{0, kFuturesType | kFuturesExtraType};

/// The rates of a list of host/record_fields.h; their columns have the names of the fields.
template <class Rates>
RateFields ownColumns(const Rates& list) {
    RateFields fields;
    records::forEachOf(list, [&](const auto& rate) { fields.push_back({rate.name, rate.name}); });
    return fields;
}

/// The same with columns of other names, one for each rate.
template <class Rates>
RateFields withColumns(const Rates& list, std::array<const char*, std::tuple_size_v<Rates>> columns) {
    RateFields fields = ownColumns(list);
    for (std::size_t i = 0; i < columns.size(); ++i) {
        fields[i].column = columns[i];
    }
    return fields;
}

RateFields commissionFields() {
    return withColumns(records::commissionRates<CCommissionRateDetail>, cost::kCommissionNames);
}

RateFields marginFields() {
    RateFields fields = withColumns(records::marginRatios<CMarginRateDetail>, cost::kMarginNames);
    const RateFields extras = withColumns(records::marginExtras<CMarginRateDetail>, {"margin_extra1", "margin_extra2"});
    fields.insert(fields.end(), extras.begin(), extras.end());
    return fields;
}

/// The word of the family in which trades are charged; words of enumerations are literals.
const char* nameOf(cost::Family charged) { return cost::wordFor(charged).data(); }

/// Where an answer holds one limit for each instrument, which fee records and custom fees give to one kind of account.
RateFamily limitFamily(cost::Family charged, const char* title, RateRecords records, qmservice::AccountKind account,
                       InstrumentList list, RateFields rates) {
    return {nameOf(charged), title, "",   nameOf(charged), records, charged, {list, 0}, {account},
            {account},       true,  true, std::move(rates)};
}

RateFamily stockFamily(cost::Family charged, const char* title, qmservice::AccountKind account, InstrumentList list,
                       bool isConfigured) {
    RateFamily family = limitFamily(charged, title, RateRecords::kStock, account, list,
                                    ownColumns(records::stockRates<CStkExchangeRateLimit>));
    family.isConfigured = isConfigured;
    return family;
}

RateFamily futuresFamily(const char* name, const char* title, const char* itemTitle, RateRecords details,
                         RateFields rates) {
    return {name,
            title,
            itemTitle,
            "futures",
            details,
            Family::kFutures,
            kFuturesLists,
            {kFuturesAccount, kFutures5Account},
            {kFuturesAccount, kFutures5Account, kPrimeBrokerageAccount},
            false,
            false,
            std::move(rates)};
}

RateFamily optionFamily() {
    return {nameOf(Family::kOption),
            "Stock option fee items",
            "Item",
            nameOf(Family::kOption),
            RateRecords::kOption,
            Family::kOption,
            {kOptionList, 0},
            {},
            {kOptionAccount},
            false,
            true,
            ownColumns(records::optionFees<CStockOptionFeeItem>)};
}

std::vector<NamedList> listsByBits() {
    std::vector<NamedList> lists;
    for (const RateFamily& family : rateFamilies()) {
        if (family.lists.listMask != 0) {
            lists.push_back({family.name, family.lists});
        }
    }
    std::sort(lists.begin(), lists.end(),
              [](const NamedList& one, const NamedList& other) { return one.bits.listMask < other.bits.listMask; });
    lists.push_back({"futures", {0, kFuturesType}});
    lists.push_back({"futures_extra", {0, kFuturesExtraType}});
    return lists;
}

}  // namespace

const std::vector<NamedList>& namedLists() {
    static const std::vector<NamedList> lists = listsByBits();
    return lists;
}

const std::vector<RateFamily>& rateFamilies() {
    static const std::vector<RateFamily> all{
        stockFamily(Family::kStock, "Stock rates", kStockAccount, kStockList, true),
        stockFamily(Family::kCredit, "Credit rates", kCreditAccount, kCreditList, false),
        stockFamily(Family::kNeeq, "NEEQ rates", kNeeqAccount, kNeeqList, false),
        limitFamily(Family::kHgt, "Shanghai-Hong Kong connect rates", RateRecords::kHgt, kHgtAccount, kHgtList,
                    ownColumns(records::connectRates<CCustomHGTExchangeRateLimit>)),
        limitFamily(Family::kSgt, "Shenzhen-Hong Kong connect rates", RateRecords::kSgt, kSgtAccount, kSgtList,
                    ownColumns(records::connectRates<CCustomSgtExchangeRateLimit>)),
        optionFamily(),
        futuresFamily(kCommissionFamily, "Futures commission", "", RateRecords::kCommission, commissionFields()),
        futuresFamily(kMarginFamily, "Futures margin", "Hedge flag", RateRecords::kMargin, marginFields()),
    };
    return all;
}

const RateFamily& rateFamily(std::string_view name) {
    const auto found = std::find_if(rateFamilies().begin(), rateFamilies().end(),
                                    [&](const RateFamily& each) { return each.name == name; });
    if (found == rateFamilies().end()) {
        throw std::out_of_range("there is no family " + std::string(name));
    }
    return *found;
}

const RateFamily& rateFamilyOf(cost::Family charged) {
    return *std::find_if(rateFamilies().begin(), rateFamilies().end(),
                         [&](const RateFamily& each) { return each.charged == charged; });
}

std::vector<std::string> rateColumnNames(const Market& market, const RateFamily& family) {
    const auto named = market.rateNames.find(family.name);
    std::vector<std::string> names;
    if (named != market.rateNames.end()) {
        for (const NamedRate& rate : named->second) {
            names.push_back(rate.column);
        }
        return names;
    }
    for (const RateField& rate : family.rates) {
        names.emplace_back(rate.column);
    }
    return names;
}

const std::vector<AccountKindInfo>& accountKinds() {
    static const std::vector<AccountKindInfo> all{
        {kFuturesAccount, "futures", Family::kFutures},
        {kStockAccount, "stock", Family::kStock},
        {kCreditAccount, "credit", Family::kCredit},
        {kFutures5Account, "futures_5", Family::kFutures},
        {kOptionAccount, "option", Family::kOption},
        {kHgtAccount, "hgt", Family::kHgt},
        {kIncomeSwapAccount, "income_swap", std::nullopt},
        {kNeeqAccount, "neeq", Family::kNeeq},
        {kSgtAccount, "sgt", Family::kSgt},
        {kPrimeBrokerageAccount, "prime_brokerage", std::nullopt},
        {kIncomeSwapFuturesAccount, "income_swap_futures", std::nullopt},
    };
    return all;
}

const AccountKindInfo* findAccountKind(int kind) {
    const auto found = std::find_if(accountKinds().begin(), accountKinds().end(),
                                    [&](const AccountKindInfo& each) { return each.kind == kind; });
    return found == accountKinds().end() ? nullptr : &*found;
}

std::string accountKindName(int kind) {
    const AccountKindInfo* known = findAccountKind(kind);
    return known == nullptr ? std::to_string(kind) : known->name;
}

const RateFamily* tradedFamily(int kind) {
    const AccountKindInfo* known = findAccountKind(kind);
    return known == nullptr || !known->charged ? nullptr : &rateFamilyOf(*known->charged);
}

}  // namespace standalone
