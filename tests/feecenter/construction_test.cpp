#include <gtest/gtest.h>

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

TEST_F(ConstructionTest, FeeCentersShareNoTable) {
    OpenFeeCenter one("fees");
    const OpenFeeCenter other("fees");
    const auto instrument = host.addInstrument("SH", "600000");
    one.doInitStockFee(test::makeAccount(2, 7), {test::makeFee(instrument, test::makeLimit(0.1))});
    EXPECT_EQ(one.stockAccountTable.size(), 1U);
    EXPECT_TRUE(other.stockAccountTable.empty());
    EXPECT_TRUE(other.stockRateLimitPool.empty());
}

}  // namespace
