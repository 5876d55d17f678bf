#include "host/configuration.h"

#include <boost/shared_ptr.hpp>
#include <string>

#include "tests/standalone/sample.h"

namespace {

using qmservice::CCustomHGTExchangeRateLimit;
using qmservice::CCustomSgtExchangeRateLimit;
using qmservice::ConfigCollector;
using qmservice::CStkExchangeRateLimit;
using qmservice::getTradeMinUnit;
using sample::configured;

class ConfigurationTest : public sample::ServicesTest {
protected:
    ConfigurationTest() {
        market.markets = {sample::place("SH", 10), sample::place("HK", 500), sample::place("XX", 0)};
        market.instruments = {sample::listed("SH", "688001", qmservice::kStockList),
                              sample::listed("SH", "600000", qmservice::kStockList),
                              sample::listed("XX", "1", qmservice::kStockList)};
        market.instruments[0].tradeUnit = 200;
        market.stockLimits = {configured<CStkExchangeRateLimit>("SH", "600000", 0.5)};
        market.hgtLimits = {configured<CCustomHGTExchangeRateLimit>("HK", "00700", 0.25)};
        market.sgtLimits = {configured<CCustomSgtExchangeRateLimit>("HK", "00005", 0.125)};
        market.simulationPlatforms = {9001, -3};
        install();
    }
};

TEST_F(ConfigurationTest, TradeUnitIsTheInstrumentsOwn) { EXPECT_EQ(getTradeMinUnit("SH", "688001"), 200); }

TEST_F(ConfigurationTest, TradeUnitIsTheMarketsForAnInstrumentThatNamesNone) {
    EXPECT_EQ(getTradeMinUnit("SH", "600000"), 10);
}

TEST_F(ConfigurationTest, TradeUnitIsTheMarketsForAnUnknownInstrument) {
    EXPECT_EQ(getTradeMinUnit("HK", "00700"), 500);
}

TEST_F(ConfigurationTest, TradeUnitIsAHundredWhereNeitherNamesOne) {
    EXPECT_EQ(getTradeMinUnit("SZ", "000001"), 100);
    EXPECT_EQ(getTradeMinUnit("XX", "1"), 100);
    EXPECT_EQ(getTradeMinUnit("", ""), 100);
}

TEST_F(ConfigurationTest, TradeUnitTellsMarketAndCodeApart) {
    // The same letters, divided elsewhere.
    EXPECT_EQ(getTradeMinUnit("SH6", "88001"), 100);
    EXPECT_EQ(getTradeMinUnit("S", "H688001"), 100);
}

TEST_F(ConfigurationTest, TradeUnitsOfTheSameCodeInManyMarketsAreKeptApart) {
    for (int unit = 1; unit <= 2000; ++unit) {
        market.instruments.push_back(sample::listed("M" + std::to_string(unit), "1", qmservice::kStockList));
        market.instruments.back().tradeUnit = unit;
    }
    install();
    for (int unit = 1; unit <= 2000; ++unit) {
        ASSERT_EQ(getTradeMinUnit("M" + std::to_string(unit), "1"), unit);
    }
}

TEST_F(ConfigurationTest, LimitIsSharedWithTheConfiguration) {
    const auto configuration = ConfigCollector::instance();
    EXPECT_EQ(configuration->getRateLimitPtr("SH", "600000"), market.stockLimits[0].limit);
    EXPECT_EQ(configuration->getHGTExchangeRateLimitPtr("HK", "00700"), market.hgtLimits[0].limit);
    EXPECT_EQ(configuration->getSgtExchangeRateLimitPtr("HK", "00005"), market.sgtLimits[0].limit);
}

TEST_F(ConfigurationTest, LimitIsEmptyWhereNoneIsConfigured) {
    const auto configuration = ConfigCollector::instance();
    EXPECT_FALSE(configuration->getRateLimitPtr("SZ", "600000"));
    EXPECT_FALSE(configuration->getRateLimitPtr("HK", "00700"));
    EXPECT_FALSE(configuration->getHGTExchangeRateLimitPtr("HK", "00005"));
    EXPECT_FALSE(configuration->getSgtExchangeRateLimitPtr("HK", "00700"));
}

TEST_F(ConfigurationTest, KnowsTheSimulationPlatforms) {
    EXPECT_TRUE(ConfigCollector::instance()->isSimulationPlatform(9001));
    EXPECT_TRUE(ConfigCollector::instance()->isSimulationPlatform(-3));
    EXPECT_FALSE(ConfigCollector::instance()->isSimulationPlatform(9002));
    EXPECT_FALSE(ConfigCollector::instance()->isSimulationPlatform(0));
}

using ForeignMarketTest = sample::ServicesTest;

TEST_F(ForeignMarketTest, IsOneThatIsMarkedSo) {
    market.markets = {sample::place("SHFE", 1), sample::place("LME", 1, true)};
    install();
    const qmservice::StockTypeCenter* const markets = utils::CSingletonT<qmservice::StockTypeCenter>::instance();
    EXPECT_TRUE(markets->isWPMarket("LME"));
    EXPECT_FALSE(markets->isWPMarket("SHFE"));
    EXPECT_FALSE(markets->isWPMarket("LM"));
    EXPECT_FALSE(markets->isWPMarket(""));
}

}  // namespace
