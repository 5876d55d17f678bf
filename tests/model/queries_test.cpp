#include "model/model_fixture.h"

namespace model {
namespace {

using namespace qmservice;

class Queries : public ModelTest {};

TEST_F(Queries, TakeTheTwoConnectKeysForTheHongKongKey) {
    const auto tencent = instrument("HK", "00700");
    for (const char* market : {"HGT", "SGT", "HK"}) {
        const Fee fee = model.getFee(accountOf(7), market, "00700");
        ASSERT_TRUE(fee) << market;
        EXPECT_EQ(fee->instrument, tencent);
    }
}

TEST_F(Queries, FoldTheStartOfAKeyWhereverTheChannelStands) {
    const auto odd = instrument("HK", "X");
    facts.catalogue["HKHGT1"] = odd;
    EXPECT_EQ(model.getFee(accountOf(7), "SH|HGT1")->instrument, odd);
    facts.catalogue["HK|SGT1"] = instrument("HK", "Y");
    EXPECT_TRUE(model.getFee(accountOf(7), "ABC|SGT1"));
}

TEST_F(Queries, LeaveAKeyThatIsShorterThanAChannelsNameAlone) {
    const auto odd = instrument("HK", "X");
    facts.catalogue["GT"] = odd;
    facts.catalogue[""] = odd;
    EXPECT_TRUE(model.getFee(accountOf(7), "GT"));
    EXPECT_TRUE(model.getFee(accountOf(7), ""));
}

TEST_F(Queries, AskTheHostForTheTradeUnitOfStockAndCreditAccountsOnly) {
    const auto stock = instrument("SH", "688001");
    facts.tradeUnits[{"SH", "688001"}] = 200;
    EXPECT_EQ(ask(accountOf(2), stock)->stkRateLimit->unitVolume, 200);
    EXPECT_EQ(ask(accountOf(3), stock)->stkRateLimit->unitVolume, 200);
    for (const int kind : {8, 10, 12}) {
        EXPECT_EQ(ask(accountOf(kind), stock)->stkRateLimit->unitVolume, 100) << kind;
    }
}

TEST_F(Queries, SplitTheKeyAsItWasGivenForTheTradeUnit) {
    instrument("HK", "00700");
    facts.tradeUnits[{"HGT", "00700"}] = 500;
    facts.tradeUnits[{"HK", "00700"}] = 300;
    EXPECT_EQ(model.getFee(accountOf(2), "HGT|00700")->stkRateLimit->unitVolume, 500);
}

TEST_F(Queries, SendAnIncomeSwapAccountToStocksOrFuturesByMarket) {
    for (const char* market : {"SH", "SZ", "BJ", "SSE", "SZSE"}) {
        EXPECT_EQ(ask(accountOf(8), instrument(market, "1"))->stkRateLimit, model.stock.fallback) << market;
    }
    for (const char* market : {"SHFE", "sh", "", "HK"}) {
        const Fee fee = ask(accountOf(8), instrument(market, "1"));
        EXPECT_FALSE(fee->stkRateLimit) << market;
        ASSERT_EQ(fee->marginDetails.size(), 3U);
        EXPECT_EQ(fee->marginDetails[0]->longMarginRatio, 0.01);
    }
}

TEST_F(Queries, AnswerElevenKindsOfAccounts) {
    const auto future = instrument("SHFE", "rb2501");
    std::vector<int> kinds;
    for (int kind = -1; kind <= 20; ++kind) {
        if (ask(accountOf(kind), future)) {
            kinds.push_back(kind);
        }
    }
    EXPECT_EQ(kinds, (std::vector<int>{1, 2, 3, 5, 6, 7, 8, 10, 11, 12, 16}));
}

TEST_F(Queries, ListNothingForKindsWithoutAList) {
    const auto future = instrument("SHFE", "rb2501", 0, 2);
    facts.systemMembers.insert({1, {"SHFE", "rb2501"}});
    const auto custom = made<CCustomFutureInstrumentFee>([](auto& fee) {
        fee.commissionDetails = {made<CCustomCommissionRateDetail>([](auto& d) { d.categoryId = "1"; })};
    });
    update(accountOf(12), custom);
    for (const int kind : {8, 12, 16}) {
        EXPECT_TRUE(ask(accountOf(kind), future)->commissionDetail) << kind;
        EXPECT_FALSE(knows(accountOf(kind))) << kind;
    }
    EXPECT_TRUE(knows(accountOf(1)));
}

TEST_F(Queries, SayNothingOfAnInstrumentTheHostDoesNotKnow) {
    const auto stock = instrument("SH", "600000");
    load(accountOf(2), {stockFee(stock, limitOf(1))});
    facts.catalogue.clear();
    EXPECT_FALSE(ask(accountOf(2), stock));
}

TEST_F(Queries, GiveARecordOfItsOwnWithTheAccountAndTheInstrument) {
    const auto stock = instrument("SH", "600000");
    const auto account = accountOf(2);
    const Fee first = ask(account, stock);
    const Fee second = ask(account, stock);
    EXPECT_NE(first, second);
    EXPECT_EQ(first->account, account);
    EXPECT_EQ(first->instrument, stock);
}

}  // namespace
}  // namespace model
