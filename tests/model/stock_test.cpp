#include "model/model_fixture.h"

namespace model {
namespace {

using namespace qmservice;

/// The stock family, and what credit and NEEQ have of their own.
class StockModel : public ModelTest {
protected:
    Instrument a = instrument("SH", "A", 1);
    Instrument b = instrument("SH", "B", 1);
    Model::Account account = accountOf(2);
};

TEST_F(StockModel, SharesEqualLimitsOfEqualUnits) {
    load(account, {stockFee(a, limitOf(1)), stockFee(b, limitOf(1))});
    EXPECT_EQ(ask(account, a)->stkRateLimit, ask(account, b)->stkRateLimit);
    EXPECT_EQ(model.stock.pool.size(), 1U);
    facts.tradeUnits[{"SH", "B"}] = 200;
    load(account, {stockFee(b, limitOf(1))});
    EXPECT_EQ(ask(account, b)->stkRateLimit->unitVolume, 200);
    EXPECT_EQ(model.stock.pool.size(), 2U);
}

TEST_F(StockModel, PrefersTheConfiguredLimitAndCopiesIt) {
    const auto configured = facts.rateLimits[{"SH", "A"}] = limitOf(3);
    load(account, {stockFee(a, limitOf(1)), stockFee(b, limitOf(1))});
    EXPECT_EQ(ask(account, a)->stkRateLimit->rate1, 3);
    EXPECT_NE(ask(account, a)->stkRateLimit, configured);
    EXPECT_EQ(configured->unitVolume, 0);
    EXPECT_EQ(ask(account, b)->stkRateLimit->rate1, 1);
}

TEST_F(StockModel, SkipsBadRecords) {
    const Fee noInstrument = stockFee(nullptr, limitOf(1));
    load(account, {nullptr, account, noInstrument, stockFee(a, nullptr), stockFee(b, limitOf(2))});
    EXPECT_EQ(listed(account).size(), 1U);
    EXPECT_EQ(ask(account, b)->stkRateLimit->rate1, 2);
}

TEST_F(StockModel, KeepsEntriesThatALaterLoadDoesNotName) {
    load(account, {stockFee(a, limitOf(1)), stockFee(b, limitOf(1))});
    load(account, {stockFee(b, limitOf(2))});
    EXPECT_EQ(ask(account, a)->stkRateLimit->rate1, 1);
    EXPECT_EQ(ask(account, b)->stkRateLimit->rate1, 2);
}

TEST_F(StockModel, FallsBackToTheDefaultItselfOrToACopyWithTheUnit) {
    EXPECT_EQ(ask(account, a)->stkRateLimit, model.stock.fallback);
    facts.tradeUnits[{"SH", "A"}] = 200;
    const auto limit = ask(account, a)->stkRateLimit;
    EXPECT_EQ(limit->unitVolume, 200);
    EXPECT_EQ(limit->rate1, 0.00015);
    EXPECT_EQ(model.stock.fallback->unitVolume, 100);
}

TEST_F(StockModel, FallsBackToTheConfiguredLimitItselfOrToACopyWithTheUnit) {
    const auto configured = facts.rateLimits[{"SH", "A"}] = limitOf(3);
    EXPECT_NE(ask(account, a)->stkRateLimit, configured);
    EXPECT_EQ(ask(account, a)->stkRateLimit->unitVolume, 100);
    EXPECT_EQ(configured->unitVolume, 0);
    configured->unitVolume = 100;
    EXPECT_EQ(ask(account, a)->stkRateLimit, configured);
}

TEST_F(StockModel, GivesThePooledLimitWhateverUnitIsAsked) {
    load(account, {stockFee(a, limitOf(1))});
    facts.tradeUnits[{"SH", "A"}] = 200;
    EXPECT_EQ(ask(account, a)->stkRateLimit, model.stock.pool.begin()->second);
    EXPECT_EQ(ask(account, a)->stkRateLimit->unitVolume, 100);
}

TEST_F(StockModel, ListsOnlyWhatTheHostStillKnows) {
    EXPECT_FALSE(knows(account));
    load(account, {stockFee(a, limitOf(1)), stockFee(b, limitOf(2))});
    facts.catalogue.erase("SH|A");
    const auto fees = listed(account);
    ASSERT_EQ(fees.size(), 1U);
    EXPECT_EQ(fees[0]->instrument, b);
    EXPECT_EQ(fees[0]->account, account);
    facts.catalogue.clear();
    EXPECT_TRUE(knows(account));
    EXPECT_TRUE(listed(account).empty());
}

TEST_F(StockModel, TakesTheSixRatesOfTheFirstCustomLimitThatApplies) {
    facts.systemMembers.insert({7, {"SH", "A"}});
    const auto limit = customLimit("7", 1);
    limit->rate2 = 2;
    limit->rate3 = 3;
    limit->rate4 = 4;
    limit->rate5 = 5;
    limit->rate6 = 6;
    limit->unusedRate1 = limit->unusedRate2 = 99;
    update(account, customFee(customLimit("8", 9), limit, customLimit("7", 9)));
    const auto expected = made<CStkExchangeRateLimit>([](auto& l) {
        l.rate1 = 1, l.rate2 = 2, l.rate3 = 3, l.rate4 = 4, l.rate5 = 5, l.rate6 = 6;
        l.unitVolume = 100;
    });
    EXPECT_TRUE(ask(account, a)->stkRateLimit->isEqual(*expected));
    EXPECT_EQ(ask(account, b)->stkRateLimit, model.stock.fallback);
}

TEST_F(StockModel, ChangesNothingForACustomFeeWithoutLimits) {
    update(account, customFee());
    EXPECT_FALSE(knows(account));
}

TEST_F(StockModel, PassesOverEmptyLimitsAndEmptyInstruments) {
    facts.systemMembers.insert({7, {"SH", "A"}});
    facts.listed.insert(facts.listed.begin(), {nullptr, 1, 0});
    update(account, customFee(Ptr<CCustomStkExchangeRateLimit>(), customLimit("7", 1)));
    EXPECT_EQ(ask(account, a)->stkRateLimit->rate1, 1);
}

TEST_F(StockModel, KeepsTheFirstRecordOfOneContentText) {
    // A sixth rate of 1, and a sixth rate of 0.00000001 before eight zeros of option fees and key codes, read alike.
    load(account, {stockFee(a, made<CStkExchangeRateLimit>([](auto& l) { l.rate6 = 1; }))});
    facts.systemMembers.insert({7, {"SH", "B"}});
    const auto custom = customLimit("7", 0);
    custom->rate6 = 0.00000001;
    update(account, customFee(custom));
    EXPECT_EQ(model.stock.pool.count("00000100000000100"), 1U);
    EXPECT_EQ(ask(account, b)->stkRateLimit, ask(account, a)->stkRateLimit);
    EXPECT_EQ(ask(account, b)->stkRateLimit->rate6, 1);
}

TEST_F(StockModel, CreditHasTablesOfItsOwnAndItsOwnInstruments) {
    const auto margin = instrument("SH", "M", 8);
    facts.inSystemCategory = [](const auto&, const auto&, const auto&, int) { return true; };
    const auto credit = accountOf(3);
    load(account, {stockFee(a, limitOf(1))});
    EXPECT_FALSE(knows(credit));
    EXPECT_EQ(ask(credit, a)->stkRateLimit, model.credit.fallback);
    update(credit, customFee(customLimit("7", 5)));
    EXPECT_EQ(ask(credit, margin)->stkRateLimit->rate1, 5);
    EXPECT_EQ(ask(credit, a)->stkRateLimit, model.credit.fallback);
}

TEST_F(StockModel, NeeqListsTheAnswersOfTheStockFamily) {
    const auto share = instrument("NEEQ", "830001", 256);
    facts.inSystemCategory = [](const auto&, const auto&, const auto&, int) { return true; };
    const auto neeq = accountOf(10);
    EXPECT_FALSE(knows(neeq));
    update(neeq, customFee(customLimit("7", 5)));
    EXPECT_EQ(ask(neeq, a)->stkRateLimit, model.neeq.fallback);
    EXPECT_EQ(ask(neeq, share)->stkRateLimit->rate1, 5);
    ASSERT_EQ(listed(neeq).size(), 1U);
    EXPECT_EQ(listed(neeq)[0]->stkRateLimit, model.stock.fallback);
    load(account, {stockFee(share, limitOf(6))});
    EXPECT_EQ(listed(neeq)[0]->stkRateLimit->rate1, 6);
}

}  // namespace
}  // namespace model
