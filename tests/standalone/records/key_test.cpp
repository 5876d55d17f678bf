#include <gtest/gtest.h>

#include <limits>

#include "sample_records.h"

namespace records_test {
namespace {

using namespace qmservice;

CInstrument instrumentOf(const std::string& market, const std::string& code) {
    CInstrument instrument;
    instrument.market = market;
    instrument.code = code;
    return instrument;
}

CCustomMarginRateDetail detailWithMembers(const std::map<int, std::vector<std::string>>& members) {
    CCustomMarginRateDetail detail;
    detail.customCategories = members;
    return detail;
}

TEST(Key, NegativeZeroHashesLikeZero) {
    CStkExchangeRateLimit limit;
    limit.rate3 = -0.0;
    EXPECT_EQ(limit.getHashKey(0), CStkExchangeRateLimit().getHashKey(0));
}

TEST(Key, NanHasAKeyOfItsOwn) {
    CStkExchangeRateLimit limit;
    limit.rate3 = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(limit.getHashKey(0), CStkExchangeRateLimit(limit).getHashKey(0));
    EXPECT_NE(limit.getHashKey(0), CStkExchangeRateLimit().getHashKey(0));
}

TEST(Key, FieldsThatHoldEachOthersValueDiffer) {
    CStkExchangeRateLimit one;
    one.rate1 = 1;
    CStkExchangeRateLimit other;
    other.rate2 = 1;
    EXPECT_NE(one.getHashKey(0), other.getHashKey(0));
}

TEST(Key, TextThatMovesFromOneFieldToTheNextChangesTheKey) {
    EXPECT_NE(instrumentOf("SH", "600000").getHashKey(0), instrumentOf("SH6", "00000").getHashKey(0));
    EXPECT_NE(instrumentOf("", "SH").getHashKey(0), instrumentOf("SH", "").getHashKey(0));
}

TEST(Key, ListsSplitDifferentlyDiffer) {
    const auto key = detailWithMembers({{1, {"ab", "c"}}}).getHashKey(0);
    EXPECT_NE(detailWithMembers({{1, {"a", "bc"}}}).getHashKey(0), key);
    EXPECT_NE(detailWithMembers({{1, {"abc"}}}).getHashKey(0), key);
    EXPECT_NE(detailWithMembers({{2, {"ab", "c"}}}).getHashKey(0), key);
    EXPECT_NE(detailWithMembers({{1, {}}}).getHashKey(0), detailWithMembers({}).getHashKey(0));
}

TEST(Key, EmptyEntriesCount) {
    CInstrumentFee none;
    CInstrumentFee empty;
    empty.marginDetails = {nullptr};
    EXPECT_NE(none.getHashKey(0), empty.getHashKey(0));
}

TEST(Key, PlaceOfAnEmptyEntryCounts) {
    CInstrumentFee first;
    first.marginDetails = {nullptr, boost::make_shared<CMarginRateDetail>()};
    CInstrumentFee last;
    last.marginDetails = {boost::make_shared<CMarginRateDetail>(), nullptr};
    EXPECT_NE(first.getHashKey(0), last.getHashKey(0));
}

TEST(Key, EntryThatMovesFromOneListToTheNextChangesTheKey) {
    CCustomFutureInstrumentFee one;
    one.commissionDetails = {nullptr};
    CCustomFutureInstrumentFee other;
    other.marginDetails = {nullptr};
    EXPECT_NE(one.getHashKey(0), other.getHashKey(0));
}

TEST(Key, MapEntryIsNotTakenForTheLengthOfTheListAfterIt) {
    CCustomMarginRateDetail map = detailWithMembers({{2, {}}});
    CCustomMarginRateDetail list;
    list.groupCategories = {nullptr, nullptr};
    EXPECT_NE(map.getHashKey(0), list.getHashKey(0));
}

TEST(Key, ChangesWithARecordDeepInside) {
    const auto key = wholeFee().getHashKey(0);
    EXPECT_EQ(wholeFee().getHashKey(0), key);
    auto other = wholeFee();
    other.hgtRateLimit->groupCategories[0]->excluded = 1;
    EXPECT_NE(other.getHashKey(0), key);
    other = wholeFee();
    other.stkOptionFeeRate->items.at("C12")->fee5 = 3;
    EXPECT_NE(other.getHashKey(0), key);
    other = wholeFee();
    other.account->accountId = "other";
    EXPECT_NE(other.getHashKey(0), key);
}

TEST(Key, DiffersBetweenClassesWithTheSameFields) {
    EXPECT_NE(CCustomHGTExchangeRateLimit().getHashKey(0), CCustomSgtExchangeRateLimit().getHashKey(0));
    EXPECT_NE(CCustomHGTInstrumentFee().getHashKey(0), CCustomSgtInstrumentFee().getHashKey(0));
}

}  // namespace
}  // namespace records_test
