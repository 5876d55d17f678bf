#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "support/bad_host.h"
#include "support/fee_center_test.h"
#include "support/operations.h"
#include "support/table_checks.h"
#include "support/tally.h"

// The host throws at every single call that an operation makes of it. What it threw leaves the call, the tables stay
// whole, no lock stays behind, and the same call gets through afterwards.

namespace {

using namespace qmservice;
using test::BadHost;
using test::differences;
using test::faultOf;
using test::instrumentKey;
using test::kBystander;
using test::kKnown;
using test::kNew;
using test::lossesOf;
using test::OpenFeeCenter;
using test::Operation;
using test::Scene;
using test::Subject;

constexpr BadHost::Throws kThrows[] = {BadHost::Throws::kError, BadHost::Throws::kInt};

const char* whatLeft(BadHost::Throws what) { return what == BadHost::Throws::kError ? "the error" : "the int"; }

/// A fee center with the scene's fees.
struct Prepared {
    explicit Prepared(const Scene& scene) {
        scene.prepare(center);
        BadHost::watchDefaults(center);
    }

    OpenFeeCenter center;
};

// Whether an entry is made of nothing but what it was before and what it is to become.

bool isMixOf(uint64 entry, uint64 before, uint64 after) { return entry == before || entry == after; }

bool isMixOf(const std::vector<uint64>& entry, const std::vector<uint64>& before, const std::vector<uint64>& after) {
    for (std::size_t i = 0; i < entry.size(); ++i) {
        const bool wasThere = i < before.size() && entry[i] == before[i];
        const bool isToBe = i < after.size() && entry[i] == after[i];
        if (!wasThere && !isToBe && entry[i] != test::kUnsetSlot) {
            return false;
        }
    }
    return entry.size() == before.size() || entry.size() == after.size();
}

using Items = std::map<std::string, uint64>;

bool isMixOf(const Items& entry, const Items& before, const Items& after) {
    return std::all_of(entry.begin(), entry.end(), [&](const auto& item) {
        return (before.count(item.first) != 0 && before.at(item.first) == item.second) ||
               (after.count(item.first) != 0 && after.at(item.first) == item.second);
    });
}

/// What the table keeps, or a value that no entry has.
template <class Table>
auto entryOf(const Table& table, uint64 account, uint64 instrument) {
    const auto found = table.find(account);
    const bool has = found != table.end() && found->second.count(instrument) != 0;
    return has ? found->second.at(instrument) : typename Table::mapped_type::mapped_type();
}

/// The families in which an entry is neither what it was nor what it is to be, nor made of both.
std::string strays(const OpenFeeCenter& center, const OpenFeeCenter& before, const OpenFeeCenter& after) {
    std::string families;
    const auto check = [&](const std::string& name, auto table) {
        for (const auto& account : center.*table) {
            for (const auto& entry : account.second) {
                if (!isMixOf(entry.second, entryOf(before.*table, account.first, entry.first),
                             entryOf(after.*table, account.first, entry.first))) {
                    families += name + " ";
                }
            }
        }
    };
    check("stock", &OpenFeeCenter::stockAccountTable);
    check("credit", &OpenFeeCenter::creditAccountTable);
    check("hgt", &OpenFeeCenter::hgtAccountTable);
    check("sgt", &OpenFeeCenter::sgtAccountTable);
    check("option", &OpenFeeCenter::stkOptionAccountTable);
    check("commission", &OpenFeeCenter::futureCommissionKeys);
    check("margin", &OpenFeeCenter::futureMarginKeys);
    check("neeq", &OpenFeeCenter::neeqAccountTable);
    return families;
}

class BadHostThrowsTest : public ::testing::TestWithParam<Operation> {
protected:
    BadHostThrowsTest() { test::stageOperations(scene); }
    ~BadHostThrowsTest() override { host.reset(); }

    std::string run(OpenFeeCenter& center, const Subject& subject) { return operation.run(scene, center, subject); }

    /// The accounts and instruments with which the operation takes different ways.
    [[nodiscard]] std::vector<Subject> subjects() const {
        std::vector<Subject> all;
        for (const uint64 account : {kKnown, kNew}) {
            all.push_back(subjectOf(scene, operation, account));
        }
        if (operation.kind == Operation::Kind::kLookup) {
            all.push_back(subjectOf(scene, operation, kKnown, 2));
        }
        return all;
    }

    /// Everything that the bystander is answered.
    std::string bystanderText(OpenFeeCenter& center) const {
        std::string text;
        for (const auto* queries : {&test::lookups(), &test::lists()}) {
            for (const auto& query : *queries) {
                for (std::size_t i = 0; i < scene.instruments.size(); ++i) {
                    text += query.run(scene, center, subjectOf(scene, query, kBystander, i)) + "\n";
                }
            }
        }
        return text;
    }

    /// The codes of the instruments for which the account's entries changed.
    [[nodiscard]] std::string changedCodes(const OpenFeeCenter& center, const OpenFeeCenter& before,
                                           uint64 account) const {
        std::string codes;
        for (const auto& instrument : scene.instruments) {
            const uint64 key = instrumentKey(*instrument);
            bool changed = false;
            test::forEachFamily(
                center, before, [&](const char*, const auto&, const auto& table, const auto&, const auto& tableBefore) {
                    changed = changed || entryOf(table, account, key) != entryOf(tableBefore, account, key);
                });
            codes += changed ? instrument->code : "";
        }
        return codes;
    }

    test::FreshHost freshHost;
    test::FakeHost& host = test::FakeHost::instance();
    Scene scene{{"A", "B", "C"}};
    BadHost bad{host};
    const Operation& operation = GetParam();
};

/// An operation that makes no call of the host, and what it then is that cannot fail.
bool callsNoHost(const Operation& operation) {
    return operation.name == "doInitStkOptionFee" || operation.name == "getStkOptionFee" ||
           operation.name == "getFeesOfKind12";
}

TEST_P(BadHostThrowsTest, EveryCallThatFailedLeavesThingsWholeAndIsRepeated) {
    Prepared before(scene);
    const std::string bystander = bystanderText(before.center);
    long faults = 0;
    for (const Subject& subject : subjects()) {
        Prepared expected(scene);
        std::string answer;
        const long calls = bad.callsOf([&] { answer = run(expected.center, subject); });
        const std::string allChanged = changedCodes(expected.center, before.center, subject.accountKey);
        std::string changedSoFar;
        for (long call = 0; call < calls; ++call) {
            for (const auto what : kThrows) {
                SCOPED_TRACE("account " + std::to_string(subject.accountKey) + " call " + std::to_string(call));
                Prepared fees(scene);
                ASSERT_EQ(bad.run([&] { run(fees.center, subject); }, call, what), whatLeft(what));
                ++faults;
                ASSERT_EQ(bad.calls(), call + 1) << "the operation went on";
                ASSERT_EQ(faultOf(fees.center), "");
                ASSERT_EQ(lossesOf(fees.center, before.center), "");
                ASSERT_EQ(strays(fees.center, before.center, expected.center), "");
                const std::string changed = changedCodes(fees.center, before.center, subject.accountKey);
                ASSERT_EQ(allChanged.compare(0, changed.size(), changed), 0) << "not in the order of the list";
                ASSERT_GE(changed.size(), changedSoFar.size());
                changedSoFar = changed;
                ASSERT_EQ(bystanderText(fees.center), bystander);
                ASSERT_EQ(run(fees.center, subject), answer);
                ASSERT_EQ(differences(fees.center, expected.center), "");
                ASSERT_EQ(faultOf(fees.center), "");
            }
        }
        // The last call is one for the last entry's key: all entries before it are stored by then.
        ASSERT_GE(changedSoFar.size() + 1, allChanged.size());
    }
    EXPECT_EQ(faults == 0, callsNoHost(operation));
    test::tally("faults injected", faults);
}

INSTANTIATE_TEST_SUITE_P(Operations, BadHostThrowsTest, ::testing::ValuesIn(test::allOperations()),
                         [](const auto& operation) { return operation.param.name; });

/// The same changes as jobs on the strand.
class BadHostJobTest : public BadHostThrowsTest {};

TEST_P(BadHostJobTest, JobThatFailedIsFollowedByTheNextOne) {
    constexpr uint64 kNext = 4;
    const auto next = test::makeAccount(2, kNext);
    long faults = 0;
    for (const Subject& subject : subjects()) {
        Prepared expected(scene);
        const long calls = bad.callsOf([&] { run(expected.center, subject); });
        expected.center.doInitStockFee(next, scene.records(90));
        for (long call = 0; call < calls; ++call) {
            for (const auto what : kThrows) {
                SCOPED_TRACE("account " + std::to_string(subject.accountKey) + " call " + std::to_string(call));
                Prepared fees(scene);
                operation.post(scene, fees.center, subject);
                fees.center.initFees(next, scene.records(90));
                ASSERT_EQ(bad.run([&] { host.runJobs(); }, call, what), whatLeft(what));
                ++faults;
                ASSERT_EQ(faultOf(fees.center), "");
                ASSERT_EQ(fees.center.stockAccountTable.count(kNext), 0U);
                host.runJobs();
                ASSERT_EQ(fees.center.stockAccountTable.at(kNext).size(), scene.instruments.size());
                operation.post(scene, fees.center, subject);
                host.runJobs();
                ASSERT_EQ(differences(fees.center, expected.center), "");
                ASSERT_EQ(faultOf(fees.center), "");
            }
        }
    }
    EXPECT_EQ(faults == 0, callsNoHost(operation));
    test::tally("faults injected", faults);
}

INSTANTIATE_TEST_SUITE_P(Changes, BadHostJobTest, ::testing::ValuesIn(test::changes()),
                         [](const auto& operation) { return operation.param.name; });

class BadHostTest : public test::FeeCenterTest {};

TEST_F(BadHostTest, EngineThatGivesNoStrandLeavesNoFeeCenter) {
    BadHost bad(host);
    const long calls = bad.callsOf([] { OpenFeeCenter built; });
    ASSERT_EQ(bad.calledNames(), (std::vector<std::string>{"RPCEngine::instance", "getStrand"}));
    for (long call = 0; call < calls; ++call) {
        for (const auto what : kThrows) {
            EXPECT_EQ(bad.run([] { OpenFeeCenter failed; }, call, what), whatLeft(what));
        }
    }
    OpenFeeCenter built;
    EXPECT_TRUE(built.strand);
    test::tally("faults injected", 2 * calls);
}

TEST_F(BadHostTest, CustomCategoryTestThatFailedIsRepeated) {
    Scene scene({"A", "B"});
    BadHost bad(host);
    host.categoryNumbers["10001"] = 10001;
    const auto fee = Scene::stockCustom(70, '0');
    auto& limit = *fee->rateLimits.front();
    limit.category = "10001";
    for (int number = 0; number < 10002; ++number) {
        limit.customCategories[number] = {"A", "B"};
    }
    for (const int kind : {2, 3, 6, 10}) {
        SCOPED_TRACE("kind " + std::to_string(kind));
        const auto change = [&](OpenFeeCenter& changed) {
            changed.updateCustomFee(test::makeAccount(kind, kNew), fee);
            host.runJobs();
        };
        OpenFeeCenter expected;
        const long calls = bad.callsOf([&] { change(expected); });
        const auto names = bad.calledNames();
        ASSERT_EQ(std::count(names.begin(), names.end(), "isStockInCustomCategory"), 2);
        for (long call = 0; call < calls; ++call) {
            if (names[static_cast<std::size_t>(call)] == "isStockInCustomCategory") {
                OpenFeeCenter fees;
                ASSERT_EQ(bad.run([&] { change(fees); }, call, BadHost::Throws::kError), "the error");
                ASSERT_EQ(faultOf(fees), "");
                change(fees);
                ASSERT_EQ(differences(fees, expected), "");
                test::tally("faults injected", 1);
            }
        }
    }
}

TEST_F(BadHostTest, CallsThatAreCountedAreAllThatTheHostAnswers) {
    Scene scene({"A", "B", "C"});
    test::stageOperations(scene);
    BadHost bad(host);
    std::set<std::string> names;
    for (const auto& operation : test::allOperations()) {
        for (const uint64 account : {kKnown, kNew}) {
            Prepared fees(scene);
            bad.callsOf([&] { operation.run(scene, fees.center, subjectOf(scene, operation, account)); });
            names.insert(bad.calledNames().begin(), bad.calledNames().end());
        }
    }
    // The custom category's test is missing: only ten thousand lists and more lead to it.
    EXPECT_EQ(names, (std::set<std::string>{"ConfigCollector::instance",
                                            "CppCategory::instance",
                                            "StockTypeCenter::instance",
                                            "TraderCenter::instance",
                                            "copy",
                                            "crc64",
                                            "findInstrument",
                                            "getAccountData",
                                            "getCategorId",
                                            "getCloseFee",
                                            "getCloseTodayFee",
                                            "getDataCenter",
                                            "getFeeType",
                                            "getHGTExchangeRateLimitPtr",
                                            "getHashKey",
                                            "getInstCenter",
                                            "getInstrumentList",
                                            "getInstrumentMap",
                                            "getOpenFee",
                                            "getRateLimitPtr",
                                            "getSgtExchangeRateLimitPtr",
                                            "getTradeMinUnit",
                                            "hash",
                                            "isSimulationPlatform",
                                            "isStockInCategoryForTS",
                                            "isStockInGroupCategory",
                                            "isWPMarket",
                                            "splitVoStockKey",
                                            "voStockKey"}));
}

}  // namespace
