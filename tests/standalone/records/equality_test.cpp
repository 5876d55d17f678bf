#include <gtest/gtest.h>

#include <limits>

#include "sample_records.h"

namespace records_test {
namespace {

using namespace qmservice;

TEST(Equality, ComparesRecordsBehindPointersByContents) {
    EXPECT_TRUE(wholeFee().isEqual(wholeFee()));
    auto other = wholeFee();
    other.account->accountName = "other";
    EXPECT_FALSE(other.isEqual(wholeFee()));
    other = wholeFee();
    other.instrument->openFee = 2;
    EXPECT_FALSE(other.isEqual(wholeFee()));
}

TEST(Equality, SeesAChangeInARecordDeepInside) {
    auto other = wholeFee();
    other.hgtRateLimit->groupCategories[0]->excluded = 1;
    EXPECT_FALSE(other.isEqual(wholeFee()));
    other = wholeFee();
    other.stkOptionFeeRate->items.at("C12")->fee5 = 3;
    EXPECT_FALSE(other.isEqual(wholeFee()));
    other = wholeFee();
    other.sgtRateLimit->customCategories.at(30001)[1] = "SZ000002";
    EXPECT_FALSE(other.isEqual(wholeFee()));
}

TEST(Equality, DistinguishesAnEmptyEntryFromNoneAndFromARecord) {
    CInstrumentFee none;
    CInstrumentFee empty;
    empty.marginDetails = {nullptr};
    CInstrumentFee record;
    record.marginDetails = {boost::make_shared<CMarginRateDetail>()};
    EXPECT_FALSE(none.isEqual(empty));
    EXPECT_FALSE(empty.isEqual(record));
    EXPECT_FALSE(record.isEqual(empty));
    EXPECT_TRUE(empty.isEqual(*empty.copy()));
}

TEST(Equality, DistinguishesMapsWithOtherKeys) {
    CCustomMarginRateDetail one;
    one.customCategories[30001] = {"SH600000"};
    CCustomMarginRateDetail other;
    other.customCategories[30002] = {"SH600000"};
    EXPECT_FALSE(one.isEqual(other));
}

TEST(Equality, NanEqualsNothingNotEvenItsOwnRecord) {
    CStkExchangeRateLimit limit;
    limit.rate3 = std::numeric_limits<double>::quiet_NaN();
    EXPECT_FALSE(limit.isEqual(limit));
    CInstrumentFee fee;
    fee.stkRateLimit = boost::make_shared<CStkExchangeRateLimit>(limit);
    EXPECT_FALSE(fee.isEqual(fee));
}

TEST(Equality, NegativeZeroEqualsZero) {
    CStkExchangeRateLimit limit;
    limit.rate3 = -0.0;
    EXPECT_TRUE(limit.isEqual(CStkExchangeRateLimit()));
}

TEST(Equality, TheTwoConnectChannelsAreDifferentClasses) {
    EXPECT_FALSE(CCustomHGTExchangeRateLimit().isEqual(CCustomSgtExchangeRateLimit()));
    EXPECT_FALSE(CAccountInfo().isEqual(CInstrument()));
}

}  // namespace
}  // namespace records_test
