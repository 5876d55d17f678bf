#include <gtest/gtest.h>

#include <boost/weak_ptr.hpp>
#include <vector>

#include "support/fee_center_fixture.h"

namespace {

using namespace qmservice;
using test::makeCustomFee;
using test::makeCustomLimit;
using test::makeFee;
using test::makeLimit;

/// How initFees and updateCustomFee queue their work, seen through a stock account.
class EntryChangeTest : public test::FeeCenterTest {
protected:
    boost::shared_ptr<IData> record(double rate1) { return makeFee(instrument, makeLimit(rate1)); }

    /// A custom fee that reaches the instrument.
    static boost::shared_ptr<IData> custom(double rate1) { return makeCustomFee(makeCustomLimit("5", rate1)); }

    bool nothingStored() { return center.stockAccountTable.empty(); }

    /// What `change` queues keeps account and record alive until it has run, and no longer.
    template <class Change>
    void expectOwnedUntilRun(boost::shared_ptr<IData> fee, const Change& change) {
        auto owner = test::makeAccount(2, 8);
        const boost::weak_ptr<CAccountInfo> watchedAccount = owner;
        const boost::weak_ptr<IData> watchedFee = fee;
        change(owner, fee);
        owner.reset();
        fee.reset();
        EXPECT_FALSE(watchedAccount.expired());
        EXPECT_FALSE(watchedFee.expired());
        host.runJobs();
        EXPECT_EQ(center.stockAccountTable.count(8), 1U);
        EXPECT_TRUE(watchedAccount.expired());
        EXPECT_TRUE(watchedFee.expired());
    }

    /// The rate of the instrument now; the default is 0.00015.
    double rate() { return center.getFee(account, "SH", "600000")->stkRateLimit->rate1; }

    const boost::shared_ptr<CAccountInfo> account = test::makeAccount(2, 7);
    const boost::shared_ptr<CInstrument> instrument = host.addInstrument("SH", "600000", 1);
    const bool isMember = host.systemMembers.insert({5, {"SH", "600000"}}).second;
};

TEST_F(EntryChangeTest, LoadRunsAfterTheCall) {
    center.initFees(account, {record(0.1)});
    EXPECT_TRUE(nothingStored());
    EXPECT_EQ(host.runJobs(), 1U);
    EXPECT_EQ(rate(), 0.1);
}

TEST_F(EntryChangeTest, UpdateRunsAfterTheCall) {
    center.updateCustomFee(account, custom(0.2));
    EXPECT_TRUE(nothingStored());
    EXPECT_EQ(host.runJobs(), 1U);
    EXPECT_EQ(rate(), 0.2);
}

TEST_F(EntryChangeTest, LoadRunsAfterTheCallOnTheStrandItself) {
    bool storedInside = true;
    center.strand->post([&] {
        center.initFees(account, {record(0.1)});
        storedInside = !nothingStored();
    });
    host.runJobs();
    EXPECT_FALSE(storedInside);
    EXPECT_EQ(rate(), 0.1);
}

TEST_F(EntryChangeTest, UpdateRunsAfterTheCallOnTheStrandItself) {
    bool storedInside = true;
    center.strand->post([&] {
        center.updateCustomFee(account, custom(0.2));
        storedInside = !nothingStored();
    });
    host.runJobs();
    EXPECT_FALSE(storedInside);
    EXPECT_EQ(rate(), 0.2);
}

TEST_F(EntryChangeTest, QueryBeforeTheStrandRanDoesNotSeeTheRecords) {
    center.initFees(account, {record(0.1)});
    EXPECT_EQ(rate(), 0.00015);
    std::vector<boost::shared_ptr<CInstrumentFee>> fees;
    EXPECT_FALSE(center.getFees(account, fees));
    host.runJobs();
    EXPECT_EQ(rate(), 0.1);
    EXPECT_TRUE(center.getFees(account, fees));
}

TEST_F(EntryChangeTest, EmptyListQueuesNothingForAnyKind) {
    for (int kind = -1; kind <= 17; ++kind) {
        center.initFees(test::makeAccount(kind, 7), {});
        EXPECT_EQ(host.runJobs(), 0U) << "account kind " << kind;
    }
}

TEST_F(EntryChangeTest, EmptyListIsAcceptedWithAnEmptyAccount) {
    center.initFees({}, {});
    EXPECT_EQ(host.runJobs(), 0U);
}

TEST_F(EntryChangeTest, EmptyCustomFeeQueuesNothingForAnyKind) {
    for (int kind = -1; kind <= 17; ++kind) {
        center.updateCustomFee(test::makeAccount(kind, 7), {});
        EXPECT_EQ(host.runJobs(), 0U) << "account kind " << kind;
    }
}

TEST_F(EntryChangeTest, CustomFeeOfAnotherClassQueuesNothing) {
    center.updateCustomFee(account, record(0.1));
    center.updateCustomFee(account, makeCustomFee<CCustomHGTInstrumentFee>());
    EXPECT_EQ(host.runJobs(), 0U);
}

TEST_F(EntryChangeTest, CallerMayChangeItsVectorAfterTheCall) {
    std::vector<boost::shared_ptr<IData>> records = {record(0.1)};
    center.initFees(account, records);
    records[0] = record(0.9);
    records.clear();
    host.runJobs();
    EXPECT_EQ(rate(), 0.1);
}

TEST_F(EntryChangeTest, LaterLoadOverridesAnEarlierUpdate) {
    center.updateCustomFee(account, custom(0.2));
    center.initFees(account, {record(0.1)});
    host.runJobs();
    EXPECT_EQ(rate(), 0.1);
}

TEST_F(EntryChangeTest, LaterUpdateOverridesAnEarlierLoad) {
    center.initFees(account, {record(0.1)});
    center.updateCustomFee(account, custom(0.2));
    host.runJobs();
    EXPECT_EQ(rate(), 0.2);
}

TEST_F(EntryChangeTest, JobsRunInPostingOrder) {
    std::vector<double> seen;
    for (const int step : {1, 2, 3, 4, 5, 6}) {
        if (step % 2 == 0) {
            center.updateCustomFee(account, custom(step));
        } else {
            center.initFees(account, {record(step)});
        }
        center.strand->post([&] { seen.push_back(rate()); });
    }
    host.runJobs();
    EXPECT_EQ(seen, (std::vector<double>{1, 2, 3, 4, 5, 6}));
}

TEST_F(EntryChangeTest, LoadOwnsAccountAndRecordsUntilItHasRun) {
    expectOwnedUntilRun(record(0.1), [this](const auto& owner, const auto& fee) { center.initFees(owner, {fee}); });
}

TEST_F(EntryChangeTest, UpdateOwnsAccountAndRecordUntilItHasRun) {
    expectOwnedUntilRun(custom(0.2),
                        [this](const auto& owner, const auto& fee) { center.updateCustomFee(owner, fee); });
}

TEST_F(EntryChangeTest, JobSharesTheRecordsAndDoesNotCopyThem) {
    const auto limit = makeLimit(0.1);
    center.initFees(account, {makeFee(instrument, limit)});
    limit->rate1 = 0.3;
    host.runJobs();
    EXPECT_EQ(rate(), 0.3);
}

TEST_F(EntryChangeTest, FeeCentersOfDifferentNamesRunTheirJobsApart) {
    test::OpenFeeCenter other("other desk");
    other.initFees(account, {record(0.4)});
    center.initFees(account, {record(0.1)});
    host.runJobs();
    EXPECT_EQ(rate(), 0.1);
    EXPECT_EQ(other.getFee(account, "SH", "600000")->stkRateLimit->rate1, 0.4);
}

}  // namespace
