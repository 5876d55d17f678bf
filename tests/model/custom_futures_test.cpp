#include "model/futures_fixture.h"

namespace model {
namespace {

using namespace qmservice;

class CustomFutures : public FuturesTest {
protected:
    static Ptr<CCustomCommissionRateDetail> customCommission(const std::string& category, double openByMoney) {
        return made<CCustomCommissionRateDetail>([&](auto& d) {
            d.categoryId = category;
            d.openRatioByMoney = openByMoney;
        });
    }

    static Ptr<CCustomMarginRateDetail> customMargin(const std::string& category, std::int32_t flag, double ratio) {
        return made<CCustomMarginRateDetail>([&](auto& d) {
            d.categoryId = category;
            d.hedgeFlag = flag;
            d.longMarginRatio = ratio;
        });
    }

    static Ptr<CCustomFutureInstrumentFee> custom(const std::vector<Ptr<CCustomCommissionRateDetail>>& commissions,
                                                  const std::vector<Ptr<CCustomMarginRateDetail>>& margins = {}) {
        return made<CCustomFutureInstrumentFee>([&](auto& fee) {
            fee.commissionDetails = commissions;
            fee.marginDetails = margins;
        });
    }

    void SetUp() override { facts.systemMembers.insert({7, {"SHFE", "rb2501"}}); }
};

TEST_F(CustomFutures, ChangeNothingWithoutDetails) {
    update(account, custom({}));
    EXPECT_TRUE(model.commissionTable.empty());
    EXPECT_TRUE(model.marginTable.empty());
}

TEST_F(CustomFutures, ApplyTheFirstMarginOnlyWhateverItsHedgeFlag) {
    update(account, custom({}, {customMargin("7", '1', 1), customMargin("7", '3', 3)}));
    const auto margins = ask(account, a)->marginDetails;
    ASSERT_EQ(margins.size(), 3U);
    EXPECT_EQ(margins[0]->longMarginRatio, 1);
    EXPECT_FALSE(margins[1]);
    EXPECT_FALSE(margins[2]);
}

TEST_F(CustomFutures, StopAtAMarginWithoutASlot) {
    update(account, custom({customCommission("7", 1)}, {customMargin("7", '4', 1), customMargin("7", '1', 1)}));
    EXPECT_TRUE(model.marginTable.empty());
    EXPECT_EQ(ask(account, a)->commissionDetail->openRatioByMoney, 1);
}

TEST_F(CustomFutures, NeedMoreCustomListsThanTheNumberOfTheCategory) {
    facts.inCustomCategory = [](const auto&, const auto&, const auto&) { return true; };
    const auto detail = customCommission("10005", 1);
    detail->customCategories = {{10005, {"rb2501"}}, {1, {}}, {2, {}}};
    update(account, custom({detail}));
    EXPECT_TRUE(model.commissionTable.empty());
}

TEST_F(CustomFutures, ShareTheStoredRecordOfEqualRates) {
    load(accountOf(1, "B"), {fee(a, commission(1, "rb"), {margin('2', 4)})});
    update(account, custom({customCommission("7", 1)}, {customMargin("7", '2', 4)}));
    EXPECT_EQ(ask(account, a)->commissionDetail, model.commissions.begin()->second);
    EXPECT_EQ(ask(account, a)->commissionDetail->instrumentId, "rb");
    EXPECT_EQ(ask(account, a)->marginDetails[1], model.margins.begin()->second);
    EXPECT_EQ(model.commissions.size(), 1U);
    EXPECT_EQ(model.margins.size(), 1U);
}

TEST_F(CustomFutures, TakeAnInstrumentOfBothTypesOnceAndTheTypesInKeyOrder) {
    facts.listed.clear();
    const auto later = instrument("SHFE", "rb2501", 0, 1024);
    later->productId = "of type 1024";
    instrument("SHFE", "rb2501", 0, 2)->productId = "of type 2";
    instrument("SHFE", "au2501", 0, 1024);
    instrument("SHFE", "zn2501", 0, 2);
    instrument("SHFE", "cu2501", 0, 4);
    facts.listed.push_back({nullptr, 0, 2});
    std::vector<std::string> asked;
    facts.inSystemCategory = [&](const auto&, const auto& code, const auto& product, int) {
        asked.push_back(code + product);
        return true;
    };
    update(account, custom({customCommission("7", 1)}));
    EXPECT_EQ(asked, (std::vector<std::string>{"au2501", "rb2501of type 2", "zn2501"}));
    EXPECT_EQ(listed(account).size(), 3U);
}

TEST_F(CustomFutures, PassOverEmptyDetails) {
    update(account, custom({nullptr, customCommission("7", 1)}, {nullptr, customMargin("7", '1', 2)}));
    EXPECT_EQ(ask(account, a)->commissionDetail->openRatioByMoney, 1);
    EXPECT_EQ(ask(account, a)->marginDetails[0]->longMarginRatio, 2);
}

TEST_F(CustomFutures, TakeMembersOfAGroup) {
    facts.systemMembers.clear();
    facts.groupMembers.insert({"SHFE", "rb2501"});
    const auto detail = customMargin("80001", '1', 2);
    update(account, custom({}, {detail}));
    EXPECT_TRUE(model.marginTable.empty());
    detail->groupCategories.push_back(boost::make_shared<CGroupCategorySubInfo>());
    update(account, custom({}, {detail}));
    EXPECT_EQ(ask(account, a)->marginDetails[0]->longMarginRatio, 2);
}

}  // namespace
}  // namespace model
