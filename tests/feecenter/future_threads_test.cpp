#include <gtest/gtest.h>

#include <cstddef>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "support/concurrent_readers.h"
#include "support/future_builders.h"

// Every kind's lookups and lists of futures while changes run on the strand. Each record proves itself: its rates are
// all made from one version number, so that a torn one shows.

namespace {

using namespace qmservice;

constexpr int kTorn = -1;
constexpr double kStep = 16;  ///< versions lie further apart than the rates of one record

constexpr uint64 kLoaded = 1;   ///< account changed by loads alone
constexpr uint64 kUpdated = 2;  ///< by updates of one instrument
constexpr uint64 kCustom = 3;   ///< by custom fees

/// The version that all the rates are made from; 0 when all are zero, as in a default.
int versionOf(const std::vector<double>& rates) {
    const int version = static_cast<int>(rates[0] / kStep);
    for (std::size_t i = 0; i < rates.size(); ++i) {
        const double expected = version == 0 ? 0 : version * kStep + static_cast<double>(i) + 1;
        if (rates[i] != expected) {
            return kTorn;
        }
    }
    return version;
}

/// The versions in one answer: the commission's and each margin's, 0 for an empty one.
struct Versions {
    int commission = 0;
    std::vector<int> margins;
};

Versions versionsOf(const CInstrumentFee& fee) {
    Versions versions;
    versions.commission = fee.commissionDetail ? versionOf(test::ratesOf(*fee.commissionDetail)) : 0;
    int hedgeFlag = '1';
    for (const auto& margin : fee.marginDetails) {
        const bool inSlot = !margin || margin->hedgeFlag == hedgeFlag;
        versions.margins.push_back(!inSlot ? kTorn : margin ? versionOf(test::ratesOf(*margin)) : 0);
        ++hedgeFlag;
    }
    return versions;
}

/// Each change stores its commission first and then its margins in order: seen in that order, versions fall by one at
/// most, once. A load stores its margins in one step.
std::string faultOf(const Versions& versions, uint64 account, bool defaultMargins) {
    std::vector<int> order{versions.commission};
    order.insert(order.end(), versions.margins.begin(), versions.margins.end());
    if (account == kCustom && versions.margins.size() == 3) {
        order = {versions.commission, versions.margins[0]};  // the other slots are never set
    }
    std::ostringstream seen;
    for (const int version : order) {
        seen << version << ' ';
    }
    bool legal =
        versions.margins.size() == 3 || (!defaultMargins && versions.margins.empty() && versions.commission == 1);
    for (std::size_t i = 0; i < order.size(); ++i) {
        legal = legal && order[i] != kTorn && order[i] <= order.front() && order[i] >= order.front() - 1;
        legal = legal && (i == 0 || order[i] <= order[i - 1]);
        legal = legal && (account != kLoaded || i < 2 || order[i] == order[1]);
    }
    return legal ? "" : "account " + std::to_string(account) + " saw versions " + seen.str();
}

class FutureThreadsTest : public test::FeeCenterTest {
protected:
    FutureThreadsTest() {
        for (const char* code : {"rb2605", "cu2605", "ag2605"}) {
            instruments.push_back(host.addInstrument("SHFE", code, 0, 2));
        }
        host.inSystemCategory = [](auto&&...) { return true; };
    }

    /// Posts one change of each sort.
    void post(int version) {
        const double base = version * kStep;
        const auto fee = [&](const auto& instrument) {
            return test::makeFutureFee(
                instrument, test::makeCommission(base),
                {test::makeMargin('1', base), test::makeMargin('2', base), test::makeMargin('3', base)});
        };
        std::vector<boost::shared_ptr<IData>> records;
        for (const auto& instrument : instruments) {
            records.push_back(fee(instrument));
            center.updateCustomFee(test::makeAccount(5, kUpdated), fee(instrument));
        }
        center.initFees(test::makeAccount(1, kLoaded), records);
        center.updateCustomFee(test::makeAccount(12, kCustom),
                               test::makeCustomFutureFee(
                                   {test::makeCustomCommission("5", base)},
                                   {test::makeCustomMargin("5", '1', base), test::makeCustomMargin("5", '2', base)}));
    }

    /// The newest versions that a reader has seen, by account and instrument: they never go back.
    using Newest = std::map<std::pair<uint64, std::string>, int>;

    std::string checkAnswer(const CInstrumentFee& fee, bool defaultMargins, Newest& newest) {
        const uint64 accountKey = fee.account->getHashKey(0);
        Versions versions = versionsOf(fee);
        if (!defaultMargins && versions.commission == 0 && fee.marginDetails.size() == 3 && fee.marginDetails[0] &&
            fee.marginDetails[0]->longMarginRatio == 0.01) {
            versions.margins = {0, 0, 0};  // the income-swap default
        }
        int& before = newest[{accountKey, fee.instrument->code}];
        if (versions.commission < before) {
            return "version " + std::to_string(versions.commission) + " after " + std::to_string(before);
        }
        before = versions.commission;
        return faultOf(versions, accountKey, defaultMargins);
    }

    /// One round of every kind's queries about every account; what was wrong, else empty.
    std::string readOnce(Newest& newest) {
        for (const int kind : {1, 5, 8, 12, 16}) {
            const bool defaultMargins = kind != 8 && kind != 16;
            for (const uint64 accountKey : {kLoaded, kUpdated, kCustom}) {
                const auto account = test::makeAccount(kind, accountKey);
                std::vector<boost::shared_ptr<CInstrumentFee>> fees;
                const bool listed = center.getFees(account, fees);
                if (listed != (defaultMargins && kind != 12 && !fees.empty())) {
                    return "a list that does not fit its result";
                }
                for (const auto& instrument : instruments) {
                    fees.push_back(center.getFee(account, "SHFE", instrument->code));
                }
                for (const auto& fee : fees) {
                    const std::string fault = fee ? checkAnswer(*fee, defaultMargins, newest) : "no fee";
                    if (!fault.empty()) {
                        return "kind " + std::to_string(kind) + ": " + fault;
                    }
                }
            }
        }
        return "";
    }

    std::vector<boost::shared_ptr<CInstrument>> instruments;
};

TEST_F(FutureThreadsTest, CheckerAcceptsEveryStateOfChangesThatAreSteppedByHand) {
    Newest newest;
    EXPECT_EQ(readOnce(newest), "");
    for (int version = 1; version <= 3; ++version) {
        post(version);
        while (host.runOneJob()) {
            EXPECT_EQ(readOnce(newest), "");
        }
    }
    EXPECT_EQ(newest.size(), 9U);
    for (const auto& seen : newest) {
        EXPECT_EQ(seen.second, 3);
    }
}

TEST_F(FutureThreadsTest, CheckerRefusesTornAndMixedAnswers) {
    auto commission = test::makeCommission(2 * kStep);
    commission->closeRatioByVolume += kStep;
    EXPECT_EQ(versionOf(test::ratesOf(*commission)), kTorn);
    EXPECT_EQ(versionOf(test::ratesOf(*test::makeCommission(2 * kStep))), 2);
    EXPECT_NE(faultOf({kTorn, {2, 2, 2}}, kLoaded, true), "");
    EXPECT_NE(faultOf({2, {3, 3, 3}}, kLoaded, true), "");
    EXPECT_NE(faultOf({3, {1, 1, 1}}, kLoaded, true), "");
    EXPECT_NE(faultOf({3, {3, 2, 2}}, kLoaded, true), "");
    EXPECT_EQ(faultOf({3, {3, 2, 2}}, kUpdated, true), "");
    EXPECT_NE(faultOf({3, {2, 3, 2}}, kUpdated, true), "");
    EXPECT_NE(faultOf({3, {3, 3}}, kUpdated, true), "");
    EXPECT_EQ(faultOf({1, {}}, kUpdated, false), "");
    EXPECT_NE(faultOf({1, {}}, kUpdated, true), "");
    EXPECT_EQ(faultOf({3, {2, 0, 0}}, kCustom, true), "");
    EXPECT_NE(faultOf({3, {1, 0, 0}}, kCustom, true), "");
}

TEST_F(FutureThreadsTest, CheckerRefusesARateThatDoesNotFitTheOthers) {
    post(1);
    host.runJobs();
    Newest newest;
    ASSERT_EQ(readOnce(newest), "");
    center.futureCommissionDetails[99] = test::makeCommission(kStep);
    center.futureCommissionDetails[99]->closeRatioByVolume += 1;
    center.futureCommissionKeys[kUpdated][test::instrumentKey("SHFE", "cu2605")] = 99;
    EXPECT_NE(readOnce(newest), "");
}

TEST_F(FutureThreadsTest, CheckerRefusesAVersionThatGoesBack) {
    post(2);
    host.runJobs();
    Newest newest;
    ASSERT_EQ(readOnce(newest), "");
    post(1);
    host.runJobs();
    EXPECT_NE(readOnce(newest), "");
}

TEST_F(FutureThreadsTest, ReadersBesideTheStrandSeeWholeStatesOnly) {
    constexpr int kVersions = 200;
    constexpr std::size_t kReaders = 3;
    test::ConcurrentReaders readers(host, *center.strand);
    std::vector<Newest> newest(kReaders);
    std::vector<std::set<int>> seen(kReaders);  // of the account that is changed last
    const auto faults = readers.run(
        kVersions, kReaders, [&](int version) { post(version); },
        [&](std::size_t reader) {
            const std::string fault = readOnce(newest[reader]);
            seen[reader].insert(newest[reader][{kCustom, "rb2605"}]);
            return fault;
        });
    EXPECT_EQ(faults, std::vector<std::string>(kReaders));
    EXPECT_EQ(seen, std::vector<std::set<int>>(kReaders, test::versionsUpTo(kVersions)));
    for (const auto& last : newest) {
        for (const auto& version : last) {
            EXPECT_EQ(version.second, kVersions);
        }
    }
}

}  // namespace
