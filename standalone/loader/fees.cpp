#include <boost/make_shared.hpp>

#include "standalone/loader/account_kinds.h"
#include "standalone/loader/futures_fees.h"
#include "standalone/loader/rate_members.h"
#include "standalone/loader/rule_line.h"
#include "standalone/loader/tables.h"

namespace standalone::loader {
namespace {

using namespace qmservice;  // NOLINT(google-build-using-namespace): records, kinds and lists

/// What is particular to the fee table of one family. `Limit` is the class of its rates, `slot` their place in a
/// record.
template <class Limit, std::size_t count>
struct FeeFamily {
    const char* name;
    int accountKind;
    Lists lists;
    const RateMembers<Limit, count>& rates;
    boost::shared_ptr<Limit> CInstrumentFee::*slot;
};

template <class Limit, std::size_t count>
void addFees(Load& load, const FeeFamily<Limit, count>& family, const ReadRule& read,
             const std::vector<std::size_t>& places) {
    const auto limit = boost::make_shared<Limit>();
    setRates(*limit, family.rates, read.line);
    Account& account = load.market.accounts[*read.line.account];
    for (const std::size_t place : places) {
        const auto fee = boost::make_shared<CInstrumentFee>();
        fee->account = account.record;
        fee->instrument = load.market.instruments[place].record;
        (*fee).*family.slot = limit;
        account.fees.push_back({fee, read.position, {}});
    }
}

template <class Limit, std::size_t count>
void readFamily(Load& load, const FeeFamily<Limit, count>& family) {
    const std::string file = "fees/" + std::string(family.name) + ".csv";
    if (!load.hasFile(file)) return;
    const std::vector<RuleColumn> keys{accountColumn(load, file, {family.accountKind}),
                                       marketColumn(load, Need::kFilled), codeColumn(Need::kFilled), productColumn()};
    readTable<RuleLine>(
        load, file, joined(keys, namedRates(load, family.name)),
        [&](const ReadRule& read) {
            const std::vector<std::size_t> places = matchInstruments(load, file, read, family.lists);
            if (read.whole) addFees(load, family, read, places);
        },
        load.ratesComplete);
}

}  // namespace

void readFees(Load& load) {
    using Stock = FeeFamily<CStkExchangeRateLimit, 6>;
    using Hgt = FeeFamily<CCustomHGTExchangeRateLimit, 14>;
    using Sgt = FeeFamily<CCustomSgtExchangeRateLimit, 14>;
    const auto& stockRates = kStockRates<CStkExchangeRateLimit>;
    const auto stockSlot = &CInstrumentFee::stkRateLimit;
    readFamily(load, Stock{"stock", kStockAccount, {kStockList, 0}, stockRates, stockSlot});
    readFamily(load, Stock{"credit", kCreditAccount, {kCreditList, 0}, stockRates, stockSlot});
    readFamily(load, Stock{"neeq", kNeeqAccount, {kNeeqList, 0}, stockRates, stockSlot});
    readFamily(load, Hgt{"hgt",
                         kHgtAccount,
                         {kHgtList, 0},
                         kConnectRates<CCustomHGTExchangeRateLimit>,
                         &CInstrumentFee::hgtRateLimit});
    readFamily(load, Sgt{"sgt",
                         kSgtAccount,
                         {kSgtList, 0},
                         kConnectRates<CCustomSgtExchangeRateLimit>,
                         &CInstrumentFee::sgtRateLimit});
    readFuturesFees(load);
}

}  // namespace standalone::loader
