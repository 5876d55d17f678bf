#include "model/futures_fixture.h"

namespace model {
namespace {

using namespace qmservice;

class FuturesTables : public FuturesTest {};

TEST_F(FuturesTables, ShareEqualRatesBetweenAccountsAndKeepTheFirstRecord) {
    const auto other = accountOf(5, "B");
    load(account, {fee(a, commission(1, "first"))});
    load(other, {fee(a, commission(1, "second"))});
    EXPECT_EQ(model.commissions.size(), 1U);
    EXPECT_EQ(ask(account, a)->commissionDetail, ask(other, a)->commissionDetail);
    EXPECT_EQ(ask(other, a)->commissionDetail->instrumentId, "first");
}

TEST_F(FuturesTables, AreLoadedWithFullCopies) {
    const auto detail = commission(1, "rb");
    const auto mode = margin('9', 1);
    mode->marginMode = 4;
    load(account, {fee(a, detail, {mode})});
    EXPECT_NE(ask(account, a)->commissionDetail, detail);
    EXPECT_TRUE(ask(account, a)->commissionDetail->isEqual(*detail));
    EXPECT_NE(ask(account, a)->marginDetails[0], mode);
    EXPECT_TRUE(ask(account, a)->marginDetails[0]->isEqual(*mode));
}

TEST_F(FuturesTables, AreChangedOnOneSideByALoadThatBringsOneSide) {
    load(account, {fee(a, commission(1), {margin('1', 1)})});
    load(account, {fee(a, nullptr, {margin('3', 2), margin('1', 3)})});
    EXPECT_EQ(ask(account, a)->commissionDetail->openRatioByMoney, 1);
    ASSERT_EQ(ask(account, a)->marginDetails.size(), 2U);
    EXPECT_EQ(ask(account, a)->marginDetails[0]->hedgeFlag, '3');
    load(account, {fee(a, commission(2))});
    EXPECT_EQ(ask(account, a)->commissionDetail->openRatioByMoney, 2);
    EXPECT_EQ(ask(account, a)->marginDetails.size(), 2U);
}

TEST_F(FuturesTables, PassOverEmptyMarginsOfALoad) {
    load(account, {fee(a, nullptr, {nullptr, margin('2', 1), nullptr})});
    ASSERT_EQ(ask(account, a)->marginDetails.size(), 1U);
    EXPECT_EQ(ask(account, a)->marginDetails[0]->longMarginRatio, 1);
}

TEST_F(FuturesTables, SkipRecordsOfAnotherClassOrWithoutAnInstrument) {
    load(account, {nullptr, account, fee(nullptr, commission(1)), fee(a, commission(2))});
    EXPECT_EQ(model.commissions.size(), 1U);
    EXPECT_EQ(listed(account).size(), 1U);
}

TEST_F(FuturesTables, PutAnUpdatesMarginIntoTheSlotOfItsHedgeFlag) {
    update(account, fee(a, commission(1, "rb"), {margin('3', 5)}));
    const auto margins = ask(account, a)->marginDetails;
    ASSERT_EQ(margins.size(), 3U);
    EXPECT_FALSE(margins[0]);
    EXPECT_FALSE(margins[1]);
    EXPECT_EQ(margins[2]->longMarginRatio, 5);
}

TEST_F(FuturesTables, TakeSparseCopiesFromAnUpdate) {
    const auto detail = commission(1, "rb");
    detail->commissionExtra1 = 8;
    const auto mode = margin('1', 1);
    mode->marginMode = 4;
    mode->marginExtra2 = 6;
    update(account, fee(a, detail, {mode}));
    CCommissionRateDetail expected(*detail);
    expected.instrumentId.clear();
    EXPECT_TRUE(ask(account, a)->commissionDetail->isEqual(expected));
    CMarginRateDetail expectedMargin(*mode);
    expectedMargin.marginMode = 0;
    EXPECT_TRUE(ask(account, a)->marginDetails[0]->isEqual(expectedMargin));
}

TEST_F(FuturesTables, AreLeftAloneByAnUpdateThatNamesNoInstrument) {
    update(account, fee(a, commission(1, ""), {margin('1', 1)}));
    update(account, fee(a, nullptr, {margin('1', 1)}));
    update(account, fee(nullptr, commission(1, "rb"), {margin('1', 1)}));
    EXPECT_TRUE(model.commissions.empty());
    EXPECT_TRUE(model.marginTable.empty());
}

TEST_F(FuturesTables, KeepTheMarginsUnderALoadOfNothingButEmptyDetails) {
    load(account, {fee(a, nullptr, {margin('1', 7)})});
    load(account, {fee(a, nullptr, {nullptr, nullptr})});
    const auto margins = ask(account, a)->marginDetails;
    ASSERT_EQ(margins.size(), 1U);
    EXPECT_EQ(margins[0]->longMarginRatio, 7);
}

TEST_F(FuturesTables, KeepTheLengthOfALoadedListUnderAnUpdate) {
    load(account, {fee(a, nullptr, {margin('3', 1), margin('1', 2)})});
    update(account, fee(a, commission(1, "rb"), {margin('2', 5), margin('3', 6)}));
    const auto margins = ask(account, a)->marginDetails;
    ASSERT_EQ(margins.size(), 2U);
    EXPECT_EQ(margins[0]->longMarginRatio, 1);
    EXPECT_EQ(margins[1]->longMarginRatio, 5);
    EXPECT_EQ(model.margins.size(), 3U);
}

TEST_F(FuturesTables, IgnoreAMarginWithoutASlotAndTakeThoseBesideIt) {
    update(account, fee(a, commission(1, "rb"), {margin('0', 1), margin('4', 1)}));
    EXPECT_TRUE(model.marginTable.empty());
    EXPECT_TRUE(model.margins.empty());
    update(account, fee(a, commission(1, "rb"), {margin('4', 1), nullptr, margin('2', 3), margin(-2147483647, 1)}));
    EXPECT_EQ(ask(account, a)->marginDetails[1]->longMarginRatio, 3);
    EXPECT_EQ(model.margins.size(), 1U);
}

}  // namespace
}  // namespace model
