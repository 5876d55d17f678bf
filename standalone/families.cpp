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

RateFamily stockFamily(const char* name, const char* title, qmservice::AccountKind account, InstrumentList list,
                       bool isConfigured) {
    return {name,
            title,
            "",
            name,
            RateRecords::kStock,
            {list, 0},
            {account},
            {account},
            isConfigured,
            true,
            ownColumns(records::stockRates<CStkExchangeRateLimit>)};
}

template <class Limit>
RateFamily connectFamily(const char* name, const char* title, RateRecords limits, qmservice::AccountKind account,
                         InstrumentList list) {
    return {name,
            title,
            "",
            name,
            limits,
            {list, 0},
            {account},
            {account},
            true,
            true,
            ownColumns(records::connectRates<Limit>)};
}

RateFamily futuresFamily(const char* name, const char* title, const char* itemTitle, RateRecords details,
                         RateFields rates) {
    return {name,
            title,
            itemTitle,
            "futures",
            details,
            kFuturesLists,
            {kFuturesAccount, kFutures5Account},
            {kFuturesAccount, kFutures5Account, kPrimeBrokerageAccount},
            false,
            false,
            std::move(rates)};
}

RateFamily optionFamily() {
    return {"option",
            "Stock option fee items",
            "Item",
            "option",
            RateRecords::kOption,
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
        stockFamily("stock", "Stock rates", kStockAccount, kStockList, true),
        stockFamily("credit", "Credit rates", kCreditAccount, kCreditList, false),
        stockFamily("neeq", "NEEQ rates", kNeeqAccount, kNeeqList, false),
        connectFamily<CCustomHGTExchangeRateLimit>("hgt", "Shanghai-Hong Kong connect rates", RateRecords::kHgt,
                                                   kHgtAccount, kHgtList),
        connectFamily<CCustomSgtExchangeRateLimit>("sgt", "Shenzhen-Hong Kong connect rates", RateRecords::kSgt,
                                                   kSgtAccount, kSgtList),
        optionFamily(),
        futuresFamily("commission", "Futures commission", "", RateRecords::kCommission, commissionFields()),
        futuresFamily("margin", "Futures margin", "Hedge flag", RateRecords::kMargin, marginFields()),
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
    static const std::vector<AccountKindInfo> all{{kFuturesAccount, "futures", "commission"},
                                                  {kStockAccount, "stock", "stock"},
                                                  {kCreditAccount, "credit", "credit"},
                                                  {kFutures5Account, "futures_5", "commission"},
                                                  {kOptionAccount, "option", "option"},
                                                  {kHgtAccount, "hgt", "hgt"},
                                                  {kIncomeSwapAccount, "income_swap", ""},
                                                  {kNeeqAccount, "neeq", "neeq"},
                                                  {kSgtAccount, "sgt", "sgt"},
                                                  {kPrimeBrokerageAccount, "prime_brokerage", ""},
                                                  {kIncomeSwapFuturesAccount, "income_swap_futures", ""}};
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
    return known == nullptr || *known->family == '\0' ? nullptr : &rateFamily(known->family);
}

}  // namespace standalone
