#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/call_log.h"
#include "support/fee_center_fixture.h"

namespace {

using namespace qmservice;
using test::OpenFeeCenter;

class ConstructionTest : public ::testing::Test {
protected:
    ~ConstructionTest() override { host.reset(); }

    test::FreshHost freshHost;
    test::FakeHost& host = test::FakeHost::instance();
};

TEST_F(ConstructionTest, StrandIsTheEnginesStrandOfTheGivenName) {
    const OpenFeeCenter center("night desk");
    EXPECT_EQ(center.strand, host.strand("night desk"));
}

TEST_F(ConstructionTest, FeeCentersOfOneNameShareAStrand) {
    const OpenFeeCenter one("fees");
    const OpenFeeCenter other("fees");
    EXPECT_EQ(one.strand, other.strand);
}

TEST_F(ConstructionTest, FeeCentersOfDifferentNamesHaveDifferentStrands) {
    const OpenFeeCenter one("fees");
    const OpenFeeCenter other("fees2");
    EXPECT_NE(one.strand, other.strand);
}

TEST_F(ConstructionTest, NothingButTheStrandIsAskedOfTheHost) {
    const test::CallLog log(host);
    const OpenFeeCenter center;
    EXPECT_EQ(log.calls(), std::vector<std::string>{"getStrand"});
}

TEST_F(ConstructionTest, NothingIsQueued) {
    const OpenFeeCenter center;
    EXPECT_EQ(host.runJobs(), 0U);
}

TEST_F(ConstructionTest, PoolsStartEmpty) {
    const OpenFeeCenter center;
    EXPECT_TRUE(center.stockRateLimitPool.empty());
    EXPECT_TRUE(center.creditRateLimitPool.empty());
    EXPECT_TRUE(center.hgtRateLimitPool.empty());
    EXPECT_TRUE(center.sgtRateLimitPool.empty());
    EXPECT_TRUE(center.stkOptionItemPool.empty());
    EXPECT_TRUE(center.futureCommissionDetails.empty());
    EXPECT_TRUE(center.futureMarginDetails.empty());
    EXPECT_TRUE(center.neeqRateLimitPool.empty());
}

TEST_F(ConstructionTest, AccountTablesStartEmpty) {
    const OpenFeeCenter center;
    EXPECT_TRUE(center.stockAccountTable.empty());
    EXPECT_TRUE(center.creditAccountTable.empty());
    EXPECT_TRUE(center.hgtAccountTable.empty());
    EXPECT_TRUE(center.sgtAccountTable.empty());
    EXPECT_TRUE(center.stkOptionAccountTable.empty());
    EXPECT_TRUE(center.stkOptionBaseRateTable.empty());
    EXPECT_TRUE(center.futureCommissionKeys.empty());
    EXPECT_TRUE(center.futureMarginKeys.empty());
    EXPECT_TRUE(center.neeqAccountTable.empty());
}

TEST_F(ConstructionTest, FeeCentersShareNoTable) {
    OpenFeeCenter one("fees");
    const OpenFeeCenter other("fees");
    const auto instrument = host.addInstrument("SH", "600000");
    one.doInitStockFee(test::makeAccount(2, 7), {test::makeFee(instrument, test::makeLimit(0.1))});
    EXPECT_EQ(one.stockAccountTable.size(), 1U);
    EXPECT_TRUE(other.stockAccountTable.empty());
    EXPECT_TRUE(other.stockRateLimitPool.empty());
}

TEST_F(ConstructionTest, DestructionReleasesTheStrand) {
    boost::shared_ptr<boost::asio::io_service::strand> strand;
    long ownersBefore = 0;
    {
        const OpenFeeCenter center("fees");
        strand = center.strand;
        ownersBefore = strand.use_count();
    }
    EXPECT_EQ(strand.use_count(), ownersBefore - 1);
}

TEST_F(ConstructionTest, EmptyFeeStaysEmptyThroughLoadsUpdatesAndQueries) {
    OpenFeeCenter center;
    EXPECT_FALSE(center.emptyFee);

    const auto known = host.addInstrument("SH", "600000", 1);
    host.systemMembers.insert({5, {"SH", "600000"}});
    const auto stock = test::makeAccount(2, 7);
    center.initFees(stock, {test::makeFee(known, test::makeLimit(0.1))});
    center.updateCustomFee(stock, test::makeCustomFee(test::makeCustomLimit("5", 0.2)));
    host.runJobs();
    ASSERT_TRUE(center.getFee(stock, "SH", "600000"));
    center.getFee(stock, "SH", "unknown");
    center.getFee(test::makeAccount(4, 7), "SH", "600000");
    center.getFee(test::makeAccount(12, 7), "SH", "600000");
    EXPECT_FALSE(center.emptyFee);
}

}  // namespace
