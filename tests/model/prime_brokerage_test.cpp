#include "model/futures_fixture.h"

namespace model {
namespace {

using namespace qmservice;

class PrimeBrokerage : public FuturesTest {
protected:
    /// The answer for an instrument of the market without rates of its own.
    Fee at(const std::string& market) { return ask(accountOf(12), instrument(market, "1")); }

    bool isFullDefault(const Fee& answer) const {
        return answer->stkRateLimit == model.stock.fallback &&
               answer->commissionDetail == model.defaultFutureFee->commissionDetail &&
               answer->marginDetails == model.defaultFutureFee->marginDetails &&
               answer->stkOptionFeeRate == model.defaultOptionRate && answer->hgtRateLimit == model.hgt.fallback &&
               answer->sgtRateLimit == model.sgt.fallback;
    }

    /// Which of the four fields besides futures are filled.
    static std::string filled(const Fee& answer) {
        return std::string(answer->stkRateLimit ? "stock " : "") + (answer->stkOptionFeeRate ? "option " : "") +
               (answer->hgtRateLimit ? "hgt " : "") + (answer->sgtRateLimit ? "sgt " : "") +
               (answer->commissionDetail ? "futures " : "");
    }
};

TEST_F(PrimeBrokerage, ChoosesTheFamilyByTheMarket) {
    const std::map<std::string, std::string> families{
        {"SH", "stock option "},   {"SZ", "stock option "}, {"BJ", "stock option "}, {"SSE", "stock option "},
        {"SZSE", "stock option "}, {"DF", "futures "},      {"DCE", "futures "},     {"ZF", "futures "},
        {"CZCE", "futures "},      {"SF", "futures "},      {"SHFE", "futures "},    {"GF", "futures "},
        {"GFEX", "futures "},      {"IF", "futures "},      {"CFFEX", "futures "},   {"INE", "futures "},
        {"HGT", "hgt "},           {"SSEHKEX", "hgt "},     {"SGT", "sgt "},         {"SZSEHKEX", "sgt "},
        {"SHO", "option "},        {"SZO", "option "},      {"NEEQ", "stock "},
    };
    for (const auto& [market, fields] : families) {
        // The keys of connect markets are folded, so the instrument is found under the Hong Kong key.
        const auto added = instrument(market, "1");
        facts.catalogue["HK|1"] = facts.catalogue["HKHKEX|1"] = added;
        EXPECT_EQ(filled(ask(accountOf(12), added)), fields) << market;
    }
}

TEST_F(PrimeBrokerage, CopiesTheFuturesDefaultOfAFuturesMarket) {
    const Fee answer = at("CFFEX");
    EXPECT_NE(answer->commissionDetail, model.defaultFutureFee->commissionDetail);
    EXPECT_EQ(answer->commissionDetail->instrumentId, "1");
    EXPECT_EQ(answer->marginDetails[0]->longMarginRatio, 0);
}

TEST_F(PrimeBrokerage, TakesTheIncomeSwapDefaultInForeignMarkets) {
    facts.foreignMarkets = {"LME"};
    for (const char* market : {"CMEO", "NYMEXO", "CBOTO", "COMEXO", "WP", "WP.X", "WP.", "LME"}) {
        EXPECT_EQ(at(market)->marginDetails[0]->longMarginRatio, 0.01) << market;
        EXPECT_FALSE(at(market)->stkRateLimit) << market;
    }
}

TEST_F(PrimeBrokerage, HearsWhetherAMarketIsForeignOnlyWhereItIsNoMarketOfAnotherFamily) {
    facts.foreignMarkets = {"SH", "DCE", "IF", "SHO", "HK", "NEEQ"};
    EXPECT_EQ(filled(at("SH")), "stock option ");
    EXPECT_EQ(at("DCE")->marginDetails[0]->longMarginRatio, 0);
    EXPECT_EQ(at("IF")->marginDetails[0]->longMarginRatio, 0);
    EXPECT_EQ(filled(at("SHO")), "option ");
    EXPECT_TRUE(isFullDefault(at("HK")));
    ASSERT_EQ(filled(at("NEEQ")), "futures ");
    EXPECT_EQ(at("NEEQ")->marginDetails[0]->longMarginRatio, 0.01);
}

TEST_F(PrimeBrokerage, GivesTheFullDefaultInEveryOtherMarket) {
    for (const char* market : {"HK", "WPX", "wp.X", "AWP.", "", "LME", "cffex", "SH "}) {
        const auto added = instrument(market, "1");
        const Fee answer = ask(accountOf(12), added);
        EXPECT_TRUE(isFullDefault(answer)) << market;
        EXPECT_EQ(answer->instrument, added);
        EXPECT_EQ(answer->stkRateLimit->unitVolume, 100);
    }
}

TEST_F(PrimeBrokerage, DropsTheConnectLimitsOfAHongKongInstrument) {
    const auto tencent = instrument("HK", "00700");
    load(accountOf(7),
         {feeOf(tencent, [](auto& f) { f.hgtRateLimit = customLimit<CCustomHGTExchangeRateLimit>("", 1); })});
    ASSERT_EQ(ask(accountOf(7), tencent)->hgtRateLimit->rate1, 1);
    EXPECT_TRUE(isFullDefault(ask(accountOf(12), tencent)));
}

TEST_F(PrimeBrokerage, SaysNothingOfAnUnknownInstrument) { EXPECT_FALSE(model.getFee(accountOf(12), "XX", "1")); }

TEST_F(PrimeBrokerage, PutsTheOptionRateOfTheAccountBesideItsStockLimit) {
    const auto share = instrument("SH", "510050", 32);
    facts.inSystemCategory = [](const auto&, const auto&, const auto&, int) { return true; };
    load(accountOf(2), {stockFee(share, limitOf(4))});
    update(accountOf(6), customFee(customLimit("x", 0)));
    const Fee answer = ask(accountOf(12), share);
    EXPECT_EQ(answer->stkRateLimit->rate1, 4);
    EXPECT_EQ(answer->stkOptionFeeRate->items, ask(accountOf(6), share)->stkOptionFeeRate->items);
    EXPECT_EQ(answer->stkOptionFeeRate->items.size(), 1U);
}

}  // namespace
}  // namespace model
