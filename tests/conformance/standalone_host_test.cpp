#include <gtest/gtest.h>

#include <boost/smart_ptr/make_shared.hpp>
#include <sstream>

#include "conformance/conformance.h"
#include "standalone/host.h"

// The standalone host keeps every promise.

namespace {

using namespace qmservice;

standalone::ListedInstrument listed(const char* market, const char* code, int lists, int types) {
    standalone::ListedInstrument instrument;
    instrument.record = boost::make_shared<CInstrument>();
    instrument.record->market = market;
    instrument.record->code = code;
    instrument.listMask = lists;
    instrument.types = types;
    instrument.tradeUnit = 1;
    return instrument;
}

TEST(StandaloneHostTest, KeepsEveryPromise) {
    standalone::Market market;
    market.instruments = {listed("SH", "600519", kStockList | kCreditList, 0),
                          listed("SHFE", "rb2610", 0, kFuturesType), listed("HK", "00700", kHgtList | kSgtList, 0)};
    market.markets.resize(1);
    market.markets[0].market = "CME";
    market.markets[0].foreign = true;
    market.stockLimits.resize(1);
    market.stockLimits[0].market = "SH";
    market.stockLimits[0].code = "600519";
    market.stockLimits[0].limit = boost::make_shared<CStkExchangeRateLimit>();
    market.accounts.resize(1);
    market.accounts[0].record = boost::make_shared<CAccountInfo>();
    market.accounts[0].record->accountId = "1000001";
    standalone::install(market);
    standalone::startEngine(2);

    conformance::Sample sample;
    sample.instruments = {{"SH", "600519", kStockList | kCreditList, 0},
                          {"SHFE", "rb2610", 0, kFuturesType},
                          {"HK", "00700", kHgtList | kSgtList, 0}};
    sample.accounts = {market.accounts[0].record};
    sample.crc64OfDigits = 0x995DC9BBDF1939FA;
    sample.engineOutlivesExceptions = true;
    std::ostringstream out;
    EXPECT_TRUE(conformance::report(sample, out));
    EXPECT_EQ(out.str(), std::to_string(conformance::promises().size()) + " promises kept, 0 broken, 0 not checked\n");

    standalone::stopEngine();
    standalone::uninstall();
}

}  // namespace
