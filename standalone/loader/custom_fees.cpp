#include <boost/make_shared.hpp>
#include <map>
#include <utility>

#include "standalone/loader/account_kinds.h"
#include "standalone/loader/category_columns.h"
#include "standalone/loader/rate_members.h"
#include "standalone/loader/rule_line.h"
#include "standalone/loader/tables.h"

namespace standalone::loader {
namespace {

using namespace qmservice;

/// By account, then by number of the update.
using CustomFees = std::map<std::pair<std::size_t, int>, CustomFee>;

/// What is particular to the custom fees of one table: a custom fee of class `Fee` takes an entry of class `Limit` a
/// line.
template <class Fee, class Limit, std::size_t count>
struct CustomFamily {
    const char* name;
    std::vector<int> accountKinds;
    std::vector<boost::shared_ptr<Limit>> Fee::*entries;
    std::string Limit::*category;
    const RateMembers<Limit, count>& rates;
    std::vector<RuleColumn> rateColumns;
    std::vector<RuleColumn> ownColumns;
    void (*setOwnFields)(Limit&, const RuleLine&);
    bool namedRates;  ///< market.toml names the rates
    RuleColumn (*categoryColumn)(const Load&) = loader::categoryColumn;
};

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

template <class Fee, class Limit, std::size_t count>
void addEntry(const Load& load, const CustomFamily<Fee, Limit, count>& family, const ReadRule& read, CustomFees& fees) {
    const RuleLine& line = read.line;
    const auto limit = boost::make_shared<Limit>();
    (*limit).*family.category = std::to_string(line.category);
    setRates(*limit, family.rates, line);
    if (family.setOwnFields != nullptr) family.setOwnFields(*limit, line);
    setCategories(*limit, load.categories, line.category);
    CustomFee& fee = fees[{*line.account, line.update}];
    (feeOf<Fee>(fee).*family.entries).push_back(limit);
    fee.entries.push_back(read.position);
}

template <class Fee, class Limit, std::size_t count>
void readFamily(Load& load, const CustomFamily<Fee, Limit, count>& family, CustomFees& fees) {
    const std::string file = "custom/" + std::string(family.name) + ".csv";
    if (!load.hasFile(file)) return;
    const std::vector<RuleColumn> keys{accountColumn(load, file, family.accountKinds),
                                       numberColumn("update", &RuleLine::update), family.categoryColumn(load)};
    readTable<RuleLine>(
        load, file, joined(joined(keys, family.ownColumns), family.rateColumns),
        [&](const ReadRule& read) {
            if (read.whole) addEntry(load, family, read, fees);
        },
        load.ratesComplete || !family.namedRates);
}

bool isItemCharacter(char byte) {
    return (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z');
}

void readItem(RuleLine& line, Cell& cell) {
    const bool good = cell.text.size() == 3 && isItemCharacter(cell.text[0]) && isItemCharacter(cell.text[1]) &&
                      isItemCharacter(cell.text[2]);
    if (good) {
        readText(cell, line.item);
    } else {
        cell.refuseFound(ErrorKind::kName, "a fee item of three letters or digits, such as 000 or 0D1");
    }
}

void setItem(CCustomStkExchangeRateLimit& limit, const RuleLine& line) {
    limit.optionFirstKeyCode = static_cast<unsigned char>(line.item[0]);
    limit.optionSecondKeyCode = static_cast<unsigned char>(line.item[1]);
    limit.optionThirdKeyCode = static_cast<unsigned char>(line.item[2]);
}

void setMarginFields(CCustomMarginRateDetail& detail, const RuleLine& line) {
    detail.hedgeFlag = line.hedgeFlag;
    detail.marginMode = line.marginMode;
}

void readStockFamilies(Load& load, CustomFees& fees) {
    using Stock = CustomFamily<CCustomStockInstrumentFee, CCustomStkExchangeRateLimit, 6>;
    using Option = CustomFamily<CCustomStockInstrumentFee, CCustomStkExchangeRateLimit, 5>;
    const auto entries = &CCustomStockInstrumentFee::rateLimits;
    const auto category = &CCustomStkExchangeRateLimit::category;
    const std::pair<const char*, int> kinds[] = {
        {"stock", kStockAccount}, {"credit", kCreditAccount}, {"neeq", kNeeqAccount}};
    for (const auto& [name, kind] : kinds) {
        readFamily(load,
                   Stock{name,
                         {kind},
                         entries,
                         category,
                         kStockRates<CCustomStkExchangeRateLimit>,
                         namedRates(load, name),
                         {},
                         nullptr,
                         true},
                   fees);
    }
    const RuleColumn item{"item", Need::kFilled, readItem};
    readFamily(load,
               Option{"option",
                      {kOptionAccount},
                      entries,
                      category,
                      kOptionFees,
                      namedRates(load, "option"),
                      {item},
                      setItem,
                      true},
               fees);
}

template <class Fee, class Limit>
void readConnectFamily(Load& load, const char* name, int accountKind, RuleColumn (*categories)(const Load&),
                       CustomFees& fees) {
    readFamily(load,
               CustomFamily<Fee, Limit, 14>{name,
                                            {accountKind},
                                            &Fee::rateLimits,
                                            &Limit::category,
                                            kConnectRates<Limit>,
                                            namedRates(load, name),
                                            {},
                                            nullptr,
                                            true,
                                            categories},
               fees);
}

// The commission details of a fee come before its margin details, so the tables are read in this order.
void readFuturesFamilies(Load& load, CustomFees& fees) {
    using Commission = CustomFamily<CCustomFutureInstrumentFee, CCustomCommissionRateDetail, 8>;
    using Margin = CustomFamily<CCustomFutureInstrumentFee, CCustomMarginRateDetail, 6>;
    const std::vector<int> kinds{kFuturesAccount, kFutures5Account, kPrimeBrokerageAccount};
    readFamily(load,
               Commission{"commission",
                          kinds,
                          &CCustomFutureInstrumentFee::commissionDetails,
                          &CCustomCommissionRateDetail::categoryId,
                          kCommissionRates<CCustomCommissionRateDetail>,
                          commissionRates(),
                          {},
                          nullptr,
                          false},
               fees);
    readFamily(load,
               Margin{"margin",
                      kinds,
                      &CCustomFutureInstrumentFee::marginDetails,
                      &CCustomMarginRateDetail::categoryId,
                      kMarginRates<CCustomMarginRateDetail>,
                      marginRates(),
                      {hedgeFlagColumn(), marginModeColumn()},
                      setMarginFields,
                      false},
               fees);
}

}  // namespace

void readCustomFees(Load& load) {
    CustomFees fees;
    readStockFamilies(load, fees);
    readConnectFamily<CCustomHGTInstrumentFee, CCustomHGTExchangeRateLimit>(load, "hgt", kHgtAccount, categoryColumn,
                                                                            fees);
    readConnectFamily<CCustomSgtInstrumentFee, CCustomSgtExchangeRateLimit>(load, "sgt", kSgtAccount,
                                                                            systemCategoryColumn, fees);
    readFuturesFamilies(load, fees);
    for (auto& [key, fee] : fees) load.market.accounts[key.first].customFees.push_back(std::move(fee));
}

}  // namespace standalone::loader
