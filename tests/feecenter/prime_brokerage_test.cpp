#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "support/family_marks.h"

namespace {

using namespace qmservice;
using test::kAccount;

class PrimeBrokerageTest : public test::FeeCenterTest {
protected:
    /// The answer for an instrument of the market, at a unit volume of 100 by default.
    boost::shared_ptr<CInstrumentFee> find(const std::string& market, int tradeUnit = 100) {
        instrument = host.addInstrument(market, "1");
        return center.getPbFullFee(kAccount, test::instrumentKey(*instrument), tradeUnit);
    }

    void mark(const std::string& market) { test::markFamilies(center, kAccount, test::instrumentKey(market, "1")); }

    [[nodiscard]] bool called(const std::string& operation) const {
        return std::find(calls.begin(), calls.end(), operation) != calls.end();
    }

    std::vector<std::string> calls;
    boost::shared_ptr<CInstrument> instrument;
};

TEST_F(PrimeBrokerageTest, InstrumentUnknownToTheCatalogueHasNoFeeWhateverTheTablesHold) {
    mark("SH");
    EXPECT_FALSE(center.getPbFullFee(kAccount, test::instrumentKey("SH", "1"), 100));
}

TEST_F(PrimeBrokerageTest, EmptyFeeMemberReplacesNeitherAnUnknownInstrumentNorADroppedAnswer) {
    center.emptyFee = boost::make_shared<CInstrumentFee>();
    EXPECT_FALSE(center.getPbFullFee(kAccount, 4711, 100));
    for (const char* market : {"HK", "no such market"}) {
        const auto fee = find(market);
        EXPECT_NE(fee, center.emptyFee) << market;
        EXPECT_EQ(fee->sgtRateLimit, center.defaultSgtRateLimit) << market;
    }
}

TEST_F(PrimeBrokerageTest, StockFeeGetsTheOptionRateOfTheSameKey) {
    mark("SH");
    const auto fee = find("SH");
    EXPECT_EQ(fee->stkRateLimit, center.stockRateLimitPool.at(1));
    EXPECT_EQ(fee->stkOptionFeeRate->items.at("000"), center.stkOptionItemPool.at(1));
    EXPECT_EQ(test::describe(fee), test::kStockWithOption);
}

TEST_F(PrimeBrokerageTest, FuturesMarketWithoutRatesGetsTheFuturesDefaultNotTheFullOne) {
    for (const char* market : {"CFFEX", "SHFE"}) {
        const auto fee = find(market);
        EXPECT_EQ(fee->commissionDetail->instrumentId, "1") << market;
        EXPECT_EQ(fee->marginDetails.size(), 3U) << market;
        EXPECT_FALSE(fee->stkRateLimit) << market;
    }
}

TEST_F(PrimeBrokerageTest, ForeignMarketWithoutRatesGetsTheIncomeSwapDefault) {
    const auto fee = find("CMEO");
    EXPECT_EQ(fee->marginDetails.at(0)->longMarginRatio, 0.01);
    EXPECT_FALSE(fee->stkRateLimit);
}

TEST_F(PrimeBrokerageTest, ConnectMarketWithoutEntryGetsTheChannelsDefaultNotTheFullOne) {
    EXPECT_EQ(find("SSEHKEX")->hgtRateLimit, center.defaultHgtRateLimit);
    EXPECT_EQ(find("SZSEHKEX")->sgtRateLimit, center.defaultSgtRateLimit);
    EXPECT_EQ(test::describe(find("SSEHKEX")), "hgt 0;");
    EXPECT_EQ(test::describe(find("SZSEHKEX")), "sgt 0;");
}

TEST_F(PrimeBrokerageTest, HongKongGetsTheFullDefaultThoughBothChannelsHaveARate) {
    mark("HK");
    EXPECT_EQ(test::describe(find("HK")), test::kFullDefault);
}

TEST_F(PrimeBrokerageTest, HongKongAsksBothChannels) {
    host.onCall = [this](const std::string& operation) { calls.push_back(operation); };
    find("HK");
    EXPECT_TRUE(called("getHGTExchangeRateLimitPtr"));
    EXPECT_TRUE(called("getSgtExchangeRateLimitPtr"));
    EXPECT_FALSE(called("getRateLimitPtr"));
}

TEST_F(PrimeBrokerageTest, StockOptionRateIsTheOneOfAfterTheStockLookup) {
    instrument = host.addInstrument("SH", "1");
    const uint64 instrumentKey = test::instrumentKey(*instrument);
    host.onCall = [&](const std::string& operation) {
        if (operation == "getRateLimitPtr") {
            center.stkOptionItemPool[1] = boost::make_shared<CStockOptionFeeItem>();
            center.stkOptionAccountTable[kAccount][instrumentKey]["999"] = 1;
        }
    };
    const auto rate = center.getPbFullFee(kAccount, instrumentKey, 100)->stkOptionFeeRate;
    EXPECT_EQ(rate->items.count("999"), 1U);
}

TEST_F(PrimeBrokerageTest, HongKongChannelsConfiguredLimitsAreDroppedToo) {
    host.hgtLimits[{"HK", "1"}] = test::markedLimit<CCustomHGTExchangeRateLimit>(7);
    host.sgtLimits[{"HK", "1"}] = test::markedLimit<CCustomSgtExchangeRateLimit>(8);
    EXPECT_EQ(test::describe(find("HK")), test::kFullDefault);
}

/// A fee that a host cannot copy.
class UncopiedFee : public CInstrumentFee {
public:
    explicit UncopiedFee(const CInstrumentFee& fee) : CInstrumentFee(fee) {}

    [[nodiscard]] boost::shared_ptr<IData> copy() const override { return {}; }
};

TEST_F(PrimeBrokerageTest, FullDefaultReplacesAFuturesDefaultWhoseCopyIsOfNoUse) {
    for (auto* fee : {&center.defaultFutureFee, &center.defaultIncomeSwapFutureFee}) {
        *fee = boost::make_shared<UncopiedFee>(**fee);
    }
    for (const char* market : {"DCE", "CMEO"}) {
        EXPECT_EQ(test::describe(find(market)), test::kFullDefault) << market;
    }
}

TEST_F(PrimeBrokerageTest, FullDefaultReplacesAFuturesInstrumentThatTheCatalogueForgotMeanwhile) {
    for (const char* market : {"DCE", "CMEO"}) {
        int finds = 0;
        host.onCall = [&](const std::string& operation) {
            if (operation == "findInstrument" && ++finds == 2) {
                host.catalogue.clear();
            }
        };
        const auto fee = find(market);
        EXPECT_EQ(finds, 2) << market;
        EXPECT_EQ(test::describe(fee), test::kFullDefault) << market;
        EXPECT_EQ(fee->instrument, instrument) << market;
    }
}

TEST_F(PrimeBrokerageTest, FullDefaultSharesEveryDefaultRecord) {
    const auto fee = find("XX");
    EXPECT_EQ(fee->instrument, instrument);
    EXPECT_FALSE(fee->account);
    EXPECT_EQ(fee->stkRateLimit, center.defaultStockRateLimit);
    EXPECT_EQ(fee->commissionDetail, center.defaultFutureFee->commissionDetail);
    EXPECT_EQ(fee->marginDetails, center.defaultFutureFee->marginDetails);
    EXPECT_EQ(fee->stkOptionFeeRate, center.defaultStkOptionFeeRate);
    EXPECT_EQ(fee->hgtRateLimit, center.defaultHgtRateLimit);
    EXPECT_EQ(fee->sgtRateLimit, center.defaultSgtRateLimit);
    EXPECT_EQ(fee->commissionDetail->instrumentId, "");
    EXPECT_NE(find("XX"), fee);
}

TEST_F(PrimeBrokerageTest, FullDefaultDoesNotAskForAConfiguredLimit) {
    host.rateLimits[{"XX", "1"}] = test::makeLimit(55);
    EXPECT_EQ(find("XX")->stkRateLimit, center.defaultStockRateLimit);
}

// A market that the host calls foreign as well: the earlier test in the order decides.

TEST_F(PrimeBrokerageTest, ForeignTestComesAfterTheOtherMarketsAndBeforeNeeq) {
    const std::pair<const char*, std::string> expected[] = {
        {"SH", test::kStockWithOption}, {"SHFE", test::kFuture},    {"IF", test::kFuture},   {"CFFEX", test::kFuture},
        {"INE", test::kFuture},         {"HGT", test::kHgt},        {"SSEHKEX", test::kHgt}, {"SGT", test::kSgt},
        {"SZSEHKEX", test::kSgt},       {"HK", test::kFullDefault}, {"SHO", test::kOption},  {"SZO", test::kOption},
        {"NEEQ", test::kIncomeSwap},    {"XX", test::kIncomeSwap}};
    for (const auto& row : expected) {
        host.foreignMarkets.insert(row.first);
        mark(row.first);
        EXPECT_EQ(test::describe(find(row.first)), row.second) << row.first;
    }
}

}  // namespace
