#include <gtest/gtest.h>

#include <string>

#include "support/family_marks.h"

// The market tests, seen through the lookups that use them: whole strings, and case counts.

namespace {

using test::describe;
using test::kAccount;
using test::kFullDefault;

class MarketsTest : public test::FeeCenterTest {
protected:
    void addMarket(const std::string& market) {
        host.addInstrument(market, "1");
        test::markFamilies(center, kAccount, test::instrumentKey(market, "1"));
    }

    std::string primeBrokerage(const std::string& market) {
        addMarket(market);
        return describe(center.getPbFullFee(kAccount, test::instrumentKey(market, "1"), 100));
    }

    std::string incomeSwap(const std::string& market) {
        addMarket(market);
        return describe(center.getFee(test::makeAccount(8, kAccount), market, "1"));
    }
};

TEST_F(MarketsTest, StockMarketsAreStockForPrimeBrokerageAndIncomeSwap) {
    for (const char* market : {"SH", "SZ", "BJ", "SSE", "SZSE"}) {
        EXPECT_EQ(primeBrokerage(market), test::kStockWithOption) << market;
        EXPECT_EQ(incomeSwap(market), test::kStock) << market;
    }
}

TEST_F(MarketsTest, TextsNearAStockMarketAreNone) {
    for (const std::string market : {"sh", "Sh", "SH ", " SH", "S", "SHH", "SSEX", "bj", "SZS", "SZSEE"}) {
        EXPECT_EQ(primeBrokerage(market), kFullDefault) << market;
        EXPECT_EQ(incomeSwap(market), test::kIncomeSwap) << market;
    }
    EXPECT_EQ(primeBrokerage(std::string("SH\0", 3)), kFullDefault);
}

TEST_F(MarketsTest, FuturesMarketsAreFuturesForPrimeBrokerage) {
    for (const char* market : {"DF", "DCE", "ZF", "CZCE", "SF", "SHFE", "GF", "GFEX", "IF", "CFFEX", "INE"}) {
        EXPECT_EQ(primeBrokerage(market), test::kFuture) << market;
    }
}

TEST_F(MarketsTest, TextsNearAFuturesMarketAreNone) {
    for (const char* market : {"dce", "DC", "DCEX", "SHF", "SHFEX", "CFFE", "if", "IFX", "INEX", "ZCE", "GFE"}) {
        EXPECT_EQ(primeBrokerage(market), kFullDefault) << market;
    }
}

TEST_F(MarketsTest, TextsNearAConnectOptionOrNeeqMarketAreNone) {
    for (const char* market : {"HGTX", "hgt", "SSEHKE", "SGTX", "SZSEHK", "HKX", "hk", "SHOX", "SZOO", "neeq", "NEE"}) {
        EXPECT_EQ(primeBrokerage(market), kFullDefault) << market;
    }
}

TEST_F(MarketsTest, ForeignMarketsAreIncomeSwapForPrimeBrokerage) {
    for (const char* market : {"CMEO", "NYMEXO", "CBOTO", "COMEXO", "WP"}) {
        EXPECT_EQ(primeBrokerage(market), test::kIncomeSwap) << market;
    }
}

TEST_F(MarketsTest, MarketThatBeginsWithTheForeignPrefixIsForeign) {
    for (const char* market : {"WP.", "WP.X", "WP.NASDAQ", "WP.."}) {
        EXPECT_EQ(primeBrokerage(market), test::kIncomeSwap) << market;
    }
}

TEST_F(MarketsTest, TextsNearAForeignMarketAreNone) {
    for (const char* market : {"WPX", "WPX.", "W", "W.P", "wp.", "wp", " WP.", "XWP.", "CME", "CMEOX", "COMEX", ""}) {
        EXPECT_EQ(primeBrokerage(market), kFullDefault) << market;
    }
}

TEST_F(MarketsTest, MarketThatTheHostCallsForeignIsForeign) {
    EXPECT_EQ(primeBrokerage("WPX"), kFullDefault);
    host.foreignMarkets = {"WPX", ""};
    EXPECT_EQ(primeBrokerage("WPX"), test::kIncomeSwap);
    EXPECT_EQ(primeBrokerage(""), test::kIncomeSwap);
    EXPECT_EQ(primeBrokerage("WPY"), kFullDefault);
}

}  // namespace
