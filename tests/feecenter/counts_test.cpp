#include <gtest/gtest.h>

#include <algorithm>
#include <boost/smart_ptr/make_shared.hpp>
#include <functional>
#include <limits>
#include <ostream>
#include <string>
#include <vector>

#include "host/services.h"
#include "support/builders.h"
#include "support/fee_center_fixture.h"
#include "support/future_builders.h"
#include "support/lock_scopes.h"
#include "support/scene.h"
#include "support/shortage.h"

// What each call costs in numbers that no machine changes: allocations, calls of the host, locks taken.

namespace {

using namespace qmservice;
using test::FakeHost;
using test::OpenFeeCenter;
using test::Scene;
using test::uint64;

constexpr uint64 kOwner = 7;

/// Tells the host that its key is asked for.
class CountedAccount : public test::KeyedAccount {
public:
    using KeyedAccount::KeyedAccount;

    [[nodiscard]] uint64 getHashKey(uint64 seed) const override {
        FakeHost::instance().called("getHashKey");
        return KeyedAccount::getHashKey(seed);
    }
};

boost::shared_ptr<CAccountInfo> accountOf(int kind) { return boost::make_shared<CountedAccount>(kind, kOwner); }

/// One account that has entries in every family: three instruments of each family's market, "a", "b" and "c", with ten
/// items for each option. Of "d" a limit is configured, of "e" one in another trade unit, of "f" nothing; no key or
/// name is so long that a std::string would allocate for it.
class Stage {
public:
    Stage() {
        host.categoryNumbers["5"] = 5;
        host.inSystemCategory = [](auto&&, auto&&, auto&&, int category) { return category == 5; };
        add("SH", kStockList, 0);
        add("NEEQ", kNeeqList, 0);
        add("SHO", kOptionList, 0);
        add("HK", kHgtList | kSgtList, 0);
        add("SF", 0, kFuturesType);
        configure("d", 100);
        configure("e", 200);
        fill();
    }
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;
    ~Stage() { host.reset(); }

    /// The account's record for the instrument "a" of the market.
    static Scene::Record recordOf(const std::string& market, double rate = 1) {
        return Scene::fullFee(FakeHost::instance().catalogue.at(test::instrumentKey(market, "a")), rate);
    }

    test::FreshHost freshHost;
    FakeHost& host = FakeHost::instance();
    OpenFeeCenter center;

private:
    void add(const char* market, int listMask, int types) {
        for (const char* code : {"a", "b", "c"}) {
            host.add(test::makeSceneInstrument(market, code), listMask, types);
        }
        for (const char* code : {"d", "e", "f"}) {
            host.add(test::makeSceneInstrument(market, code), 0, 0);
        }
    }

    void configure(const std::string& code, int unit) {
        const auto limit = test::makeLimit(0.3);
        limit->unitVolume = unit;
        host.rateLimits[{"SH", code}] = limit;
        host.hgtLimits[{"HK", code}] = boost::make_shared<CCustomHGTExchangeRateLimit>();
    }

    void fill() {
        for (const char* code : {"a", "b", "c"}) {
            const auto record = [&](const char* market) {
                return std::vector<Scene::Record>{
                    Scene::fullFee(host.catalogue.at(test::instrumentKey(market, code)), 1)};
            };
            center.doInitStockFee(accountOf(kStockAccount), record("SH"));
            center.doInitCreditFee(accountOf(kCreditAccount), record("SH"));
            center.doInitNeeqFee(accountOf(kNeeqAccount), record("NEEQ"));
            center.doInitHgtFee(accountOf(kHgtAccount), record("HK"));
            center.doInitSgtFee(accountOf(kSgtAccount), record("HK"));
            center.doInitFutureFee(accountOf(kFuturesAccount), record("SF"));
        }
        for (std::int32_t third = '0'; third <= '9'; ++third) {
            center.doUpdateStkOptionCustomFee(accountOf(kOptionAccount), Scene::stockCustom(1, third));
        }
    }
};

using Call = std::function<void()>;

struct Row {
    const char* name;
    long allocations;
    int hostCalls;
    int locks;
    /// Gets everything ready and returns the call, which may be made again and again.
    std::function<Call(Stage&)> prepare;
};

void PrintTo(const Row& row, std::ostream* out) { *out << row.name; }

/// A query by key.
std::function<Call(Stage&)> ask(int kind, const char* key) {
    return [kind, key](Stage& stage) {
        return [&stage, account = accountOf(kind), text = std::string(key)] { stage.center.getFee(account, text); };
    };
}

std::function<Call(Stage&)> list(int kind) {
    return [kind](Stage& stage) {
        return [&stage, account = accountOf(kind)] {
            std::vector<boost::shared_ptr<CInstrumentFee>> fees;
            stage.center.getFees(account, fees);
        };
    };
}

using Load = void (OpenFeeCenter::*)(const boost::shared_ptr<CAccountInfo>&, const std::vector<Scene::Record>&);

/// The load of one record that is stored already.
std::function<Call(Stage&)> loadAgain(int kind, Load load, const char* market) {
    return [kind, load, market](Stage& stage) {
        return
            [&stage, load, account = accountOf(kind), records = std::vector<Scene::Record>{Stage::recordOf(market)}] {
                (stage.center.*load)(account, records);
            };
    };
}

/// The load of a record of rates that are not pooled yet, for an instrument that has an entry.
Call loadNewRates(Stage& stage) {
    std::vector<std::vector<Scene::Record>> loads;
    for (int n = 0; n < 6; ++n) {
        loads.push_back({Stage::recordOf("SH", 10 + n)});
    }
    return [&stage, account = accountOf(kStockAccount), loads, next = std::size_t{0}]() mutable {
        stage.center.doInitStockFee(account, loads.at(next++));
    };
}

Call updateStocks(Stage& stage) {
    return [&stage, account = accountOf(kStockAccount), fee = Scene::stockCustom(2, '0')] {
        stage.center.doUpdateStockCustomFee(account, fee);
    };
}

Call updateOptions(Stage& stage) {
    return [&stage, account = accountOf(kOptionAccount), fee = Scene::stockCustom(1, '0')] {
        stage.center.doUpdateStkOptionCustomFee(account, fee);
    };
}

Call updateFutures(Stage& stage) {
    const auto fee =
        test::makeCustomFutureFee({test::makeCustomCommission("5", 3)},
                                  {test::makeCustomMargin("5", '1', 3), test::makeCustomMargin("5", '2', 3)});
    return [&stage, account = accountOf(kFuturesAccount), fee] { stage.center.doUpdateFutureCustomFee(account, fee); };
}

Call askByMarketAndCode(Stage& stage) {
    return [&stage, account = accountOf(kStockAccount), market = std::string("SH"), code = std::string("a")] {
        stage.center.getFee(account, market, code);
    };
}

// Worked out from the steps that are required, not from a run.
//
// Allocations of a query: one for the answer, and one more for each of: the list of a futures answer's margins; an
// option's rate and each of its items; the copy of a limit whose trade unit is another; the answers that prime
// brokerage asks for and drops. The default futures fee is copied by the host, in six: fee, list, commission, three
// margins. A list takes two, for the keys and for the caller's vector, besides its answers. A load takes none for what
// is stored, but a futures load its list of keys; new rates take the record and its place in the pool. An update takes
// none: the three are the host's, for the three instruments that it hands out.
//
// Calls of the host: five for every query (getHashKey, hash; TraderCenter::instance, getInstCenter, findInstrument);
// three more each time that a lookup asks for the instrument; for stocks and credit two for the trade unit (split,
// getTradeMinUnit); for a connect key a second hash; for a configured limit two (ConfigCollector::instance and the
// limit's own); for the account's data three (TraderCenter::instance, getDataCenter, getAccountData). A list: one, and
// three for each entry besides what its lookup calls. What is stored takes its key (voStockKey, hash), for limits the
// trade unit, for stocks the two of a configured limit when loaded, and one crc64 for each value of the content key:
// 7 of a stock's limit, 15 of a custom one and of a connect limit, 9 of a commission, 8 of a margin. An update takes
// getHashKey and the list's three (futures: four, of two maps), and for each instrument and test two
// (CppCategory::instance, isStockInCategoryForTS), for options two more for the category's name.
//
// Locks: one for a family's lookup, two for options, whose tables have a lock of their own; one for the keys of a list
// (options: two); one for each entry that is written (options: two).
const Row kRows[] = {
    {"StockHit", 1, 5 + 2, 1, ask(kStockAccount, "SH|a")},
    {"StockHitByMarketAndCode", 1, 1 + 5 + 2, 1, askByMarketAndCode},
    {"StockConfigured", 1, 5 + 2 + 3 + 2, 1, ask(kStockAccount, "SH|d")},
    {"StockConfiguredInAnotherUnit", 2, 5 + 2 + 3 + 2, 1, ask(kStockAccount, "SH|e")},
    {"StockDefault", 1, 5 + 2 + 3 + 2, 1, ask(kStockAccount, "SH|f")},
    {"StockUnknown", 0, 5 + 2, 0, ask(kStockAccount, "SH|z")},
    {"KindWithoutFamily", 0, 5, 0, ask(9, "SH|a")},
    {"CreditHit", 1, 5 + 2, 1, ask(kCreditAccount, "SH|a")},
    {"NeeqHit", 1, 5, 1, ask(kNeeqAccount, "NEEQ|a")},
    {"OptionHitWithTenItems", 1 + 1 + 10, 5, 2, ask(kOptionAccount, "SHO|a")},
    {"OptionDefault", 1, 5, 2, ask(kOptionAccount, "SHO|f")},
    {"HgtHit", 1, 5 + 1, 1, ask(kHgtAccount, "HGT|a")},
    {"HgtConfigured", 1, 5 + 1 + 3 + 2, 1, ask(kHgtAccount, "HGT|d")},
    {"HgtDefault", 1, 5 + 1 + 3 + 2, 1, ask(kHgtAccount, "HGT|f")},
    {"SgtHit", 1, 5 + 1, 1, ask(kSgtAccount, "SGT|a")},
    {"FuturesHitWithThreeMargins", 1 + 1, 5 + 3, 1, ask(kFuturesAccount, "SF|a")},
    {"FuturesDefault", 6, 5 + 3 + 3, 1, ask(kFuturesAccount, "SF|f")},
    {"IncomeSwapStockHit", 1, 5, 1, ask(kIncomeSwapAccount, "SH|a")},
    {"IncomeSwapFuturesHit", 1 + 1, 5 + 3, 1, ask(kIncomeSwapFuturesAccount, "SF|a")},
    {"PrimeStockHit", 1 + 1, 5 + 3, 1 + 2, ask(kPrimeBrokerageAccount, "SH|a")},
    {"PrimeFuturesHit", 1 + 1, 5 + 3 + 3, 1, ask(kPrimeBrokerageAccount, "SF|a")},
    {"PrimeHongKong", 1 + 1 + 2, 5 + 3, 1 + 1, ask(kPrimeBrokerageAccount, "HK|a")},

    {"StockList", 2 + 3, 1 + 3 * 3, 1 + 3, list(kStockAccount)},
    {"NeeqListAnsweredByStocks", 2 + 3, 1 + 3 * (3 + 3 + 2), 1 + 3, list(kNeeqAccount)},
    {"OptionList", 2 + 3 * 12, 1 + 3 * 3, 2 + 3 * 2, list(kOptionAccount)},
    {"HgtList", 2 + 3, 1 + 3 * 3, 1 + 3, list(kHgtAccount)},
    {"FuturesList", 2 + 3 * 2, 1 + 3 * (3 + 3), 1 + 3, list(kFuturesAccount)},

    {"StockLoadAgain", 0, 1 + 2 + 2 + 1 + 7, 1, loadAgain(kStockAccount, &OpenFeeCenter::doInitStockFee, "SH")},
    {"StockLoadOfNewRates", 1 + 1, 1 + 2 + 2 + 1 + 7, 1, loadNewRates},
    {"HgtLoadAgain", 0, 1 + 2 + 1 + 15, 1, loadAgain(kHgtAccount, &OpenFeeCenter::doInitHgtFee, "HK")},
    {"FuturesLoadAgain", 1, 1 + 2 + 9 + 3 * 8, 2, loadAgain(kFuturesAccount, &OpenFeeCenter::doInitFutureFee, "SF")},
    {"StockUpdateAgain", 3, 1 + 3 + 3 * (2 + 2 + 1 + 15), 3, updateStocks},
    {"OptionUpdateAgain", 3, 1 + 3 + 3 * (2 + 2 + 2 + 1 + 15), 3 * 2, updateOptions},
    {"FuturesUpdateAgain", 3, 1 + 4 + 3 * (2 + 2 + 9 + 2 + 2 + 8), 3 * 2, updateFutures},
};

class CountsTest : public ::testing::TestWithParam<Row> {
protected:
    /// The second call is the first that is counted: what an "again" stores is there from then on.
    CountsTest() { call(); }

    Stage stage;
    Call call = GetParam().prepare(stage);
};

TEST_P(CountsTest, CallAllocatesSoOften) {
    test::Shortage& allocations = test::Shortage::ofThisThread();
    allocations.begin(std::numeric_limits<long>::max(), false);
    call();
    const long made = allocations.made();
    allocations.end();
    EXPECT_EQ(made, GetParam().allocations);
}

TEST_P(CountsTest, CallAsksTheHostSoOften) {
    int calls = 0;
    stage.host.onCall = stage.host.onKeyCall = stage.host.onInstance = [&](const std::string&) { ++calls; };
    call();
    EXPECT_EQ(calls, GetParam().hostCalls);
}

TEST_P(CountsTest, CallTakesSoManyLocks) {
    int locks = 0;
    const test::LockScopes scopes(stage.center,
                                  [&](const std::string&, const std::string& hold) { locks += hold.empty() ? 0 : 1; });
    call();
    EXPECT_EQ(locks, GetParam().locks);
}

INSTANTIATE_TEST_SUITE_P(Calls, CountsTest, ::testing::ValuesIn(kRows),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
