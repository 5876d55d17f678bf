// What a good folder becomes: every field of every table.

#include "fixture.h"
#include "host/keys.h"

namespace standalone {
namespace {

using namespace qmservice;
using ::testing::ElementsAre;
using ::testing::Pair;

using LoaderContent = LoaderTest;

template <class Rates>
std::vector<double> stockRates(const Rates& rates) {
    return {rates.rate1, rates.rate2, rates.rate3, rates.rate4, rates.rate5, rates.rate6};
}

template <class Rates>
std::vector<double> connectRates(const Rates& r) {
    return {r.rate1, r.rate2, r.rate3,  r.rate4,  r.rate5,  r.rate6,  r.rate7,
            r.rate8, r.rate9, r.rate10, r.rate11, r.rate12, r.rate13, r.rate14};
}

template <class Detail>
std::vector<double> commissionRates(const Detail& d) {
    return {d.openRatioByMoney,       d.openRatioByVolume,       d.closeRatioByMoney, d.closeRatioByVolume,
            d.closeTodayRatioByMoney, d.closeTodayRatioByVolume, d.commissionExtra1,  d.commissionExtra2};
}

template <class Detail>
std::vector<double> marginRates(const Detail& d) {
    return {d.longMarginRatio,  d.longMarginRatioByVolume,
            d.shortMarginRatio, d.shortMarginRatioByVolume,
            d.marginExtra1,     d.marginExtra2};
}

std::vector<std::string> places(const Market& market, const std::vector<Position>& positions) {
    std::vector<std::string> texts;
    for (const Position position : positions) {
        texts.push_back(market.where(position));
    }
    return texts;
}

const ListedInstrument& instrumentOf(const Market& market, const std::string& code) {
    for (const ListedInstrument& instrument : market.instruments) {
        if (instrument.record->code == code) {
            return instrument;
        }
    }
    throw std::runtime_error("no instrument " + code);
}

// Joined so that a row of zeros need not be written out: the rates at both ends, the others 0.
std::vector<double> ends(std::size_t count, double first, double last) {
    std::vector<double> rates(count, 0.0);
    rates.front() = first;
    rates.back() = last;
    return rates;
}

TEST_F(LoaderContent, MarketTomlGivesTitleEngineAndPlatforms) {
    const Market market = loadGood();
    EXPECT_EQ(market.folder, folder.string());
    EXPECT_EQ(market.title, "Test market");
    EXPECT_EQ(market.engineThreads, 3);
    EXPECT_THAT(market.simulationPlatforms, ElementsAre(9001, 9002));
}

TEST_F(LoaderContent, OptionalTablesOfMarketTomlHaveDefaults) {
    replace("market.toml", "[engine]\nthreads = 3\n", "");
    replace("market.toml", "[platforms]\nsimulation = [9001, 9002]\n", "");
    const Market market = loadGood();
    EXPECT_EQ(market.engineThreads, 2);
    EXPECT_TRUE(market.simulationPlatforms.empty());
}

TEST_F(LoaderContent, MarketsKeepTheOrderOfTheFile) {
    const Market market = loadGood();
    ASSERT_EQ(market.markets.size(), 4U);
    EXPECT_EQ(market.markets[0].market, "SH");
    EXPECT_EQ(market.markets[0].title, "Shanghai");
    EXPECT_EQ(market.markets[0].tradeUnit, 100);
    EXPECT_FALSE(market.markets[0].foreign);
    EXPECT_EQ(market.markets[1].market, "HK");
    EXPECT_EQ(market.markets[2].market, "SHFE");
    EXPECT_EQ(market.markets[3].market, "CME");
    EXPECT_EQ(market.markets[3].tradeUnit, 2);
    EXPECT_TRUE(market.markets[3].foreign);
}

TEST_F(LoaderContent, RateNamesListEveryFieldOfEveryFamily) {
    const Market market = loadGood();
    ASSERT_EQ(market.rateNames.size(), 6U);
    for (const auto& [family, count] : {std::pair("stock", 6U), std::pair("credit", 6U), std::pair("neeq", 6U),
                                        std::pair("hgt", 14U), std::pair("sgt", 14U), std::pair("option", 5U)}) {
        EXPECT_EQ(market.rateNames.at(family).size(), count) << family;
    }
    const NamedRate& named = market.rateNames.at("stock")[5];
    EXPECT_EQ(named.field, "rate6");
    EXPECT_EQ(named.column, "stamp_duty");
    EXPECT_EQ(named.title, "Stamp duty");
    EXPECT_EQ(named.unit, RateUnit::kYuan);
    const NamedRate& own = market.rateNames.at("stock")[1];
    EXPECT_EQ(own.field, "rate2");
    EXPECT_EQ(own.column, "rate2");
    EXPECT_EQ(own.title, "rate2");
    EXPECT_EQ(own.unit, RateUnit::kFraction);
    EXPECT_EQ(market.rateNames.at("option")[0].title, "handling");
    EXPECT_EQ(market.rateNames.at("option")[4].column, "fee5");
}

TEST_F(LoaderContent, InstrumentsAreInTheOrderOfFilesAndLines) {
    const Market market = loadGood();
    std::vector<std::string> found;
    for (const ListedInstrument& instrument : market.instruments) {
        found.push_back(instrument.record->code + "@" + market.where(instrument.position));
    }
    EXPECT_THAT(found,
                ElementsAre("600000@instruments/a.csv:2", "600001@instruments/a.csv:3", "688001@instruments/a.csv:4",
                            "430001@instruments/a.csv:5", "00700@instruments/a.csv:6", "10001@instruments/a.csv:7",
                            "cu2601@instruments/b.csv:2", "cu2602@instruments/b.csv:3", "ES@instruments/b.csv:4"));
}

TEST_F(LoaderContent, InstrumentTakesItsColumns) {
    const Market market = loadGood();
    const CInstrument& future = *instrumentOf(market, "cu2601").record;
    EXPECT_EQ(future.market, "SHFE");
    EXPECT_EQ(future.name, "Copper Jan");
    EXPECT_EQ(future.productId, "cu");
    EXPECT_EQ(future.volumeMultiple, 5.0);
    EXPECT_EQ(future.priceTick, 10.0);
    EXPECT_EQ(future.feeType, 2);
    EXPECT_EQ(future.openFee, 0.5);
    EXPECT_EQ(future.closeFee, 0.25);
    EXPECT_EQ(future.closeTodayFee, 0.0);
}

TEST_F(LoaderContent, ExchangeFeesThatAreNotGivenAreNotSet) {
    const Market market = loadGood();
    const CInstrument& perLot = *instrumentOf(market, "cu2602").record;
    EXPECT_EQ(perLot.feeType, 1);
    EXPECT_EQ(perLot.openFee, 3.0);
    EXPECT_EQ(perLot.closeFee, -1.0);
    EXPECT_EQ(perLot.closeTodayFee, -1.0);
    const CInstrument& stock = *instrumentOf(market, "600000").record;
    EXPECT_EQ(stock.feeType, 0);
    EXPECT_EQ(stock.openFee, -1.0);
}

TEST_F(LoaderContent, ListsBecomeKindsAndTypes) {
    const Market market = loadGood();
    const auto bits = [&](const std::string& code) {
        const ListedInstrument& instrument = instrumentOf(market, code);
        return std::pair(instrument.listMask, instrument.types);
    };
    EXPECT_EQ(bits("600000"), std::pair(1 | 8, 0));
    EXPECT_EQ(bits("600001"), std::pair(1, 0));
    EXPECT_EQ(bits("430001"), std::pair(256, 0));
    EXPECT_EQ(bits("00700"), std::pair(128 | 16384, 0));
    EXPECT_EQ(bits("10001"), std::pair(32, 0));
    EXPECT_EQ(bits("cu2601"), std::pair(0, 2));
    EXPECT_EQ(bits("ES"), std::pair(0, 1024));
}

TEST_F(LoaderContent, InstrumentMayBeInNoList) {
    append("instruments/a.csv", "SH,900001,Loner,,,,,\n");
    const Market market = loadGood();
    EXPECT_EQ(instrumentOf(market, "900001").listMask, 0);
    EXPECT_EQ(instrumentOf(market, "900001").types, 0);
}

TEST_F(LoaderContent, QuantityStepIsTheInstrumentsOrElseTheMarkets) {
    replace("market.toml", "trade_unit = 100\n", "trade_unit = 100\nquantity_step = 10\n");
    write("instruments/c.csv", "market,code,name,lists,quantity_step\nSH,600009,Port,stock,1\nHK,00009,Land,hgt,\n");
    const Market market = loadGood();
    EXPECT_EQ(instrumentOf(market, "600000").quantityStep, 10);
    EXPECT_EQ(instrumentOf(market, "600009").quantityStep, 1);
    EXPECT_EQ(instrumentOf(market, "00009").quantityStep, 0);
}

TEST_F(LoaderContent, TradeUnitIsTheInstrumentsOrElseTheMarkets) {
    const Market market = loadGood();
    EXPECT_EQ(instrumentOf(market, "600000").tradeUnit, 100);
    EXPECT_EQ(instrumentOf(market, "600001").tradeUnit, 200);
    EXPECT_EQ(instrumentOf(market, "00700").tradeUnit, 500);
    EXPECT_EQ(instrumentOf(market, "ES").tradeUnit, 2);
}

TEST_F(LoaderContent, AccountTakesItsColumns) {
    const Market market = loadGood();
    const Account& account = accountOf(market, "S1");
    EXPECT_EQ(account.record->accountName, "Stock");
    EXPECT_EQ(account.record->platformId, 9001);
    EXPECT_EQ(market.where(account.position), "accounts.csv:2");
    EXPECT_EQ(accountOf(market, "C1").record->platformId, 0);
    EXPECT_EQ(accountOf(market, "X1").record->platformId, -7);
}

TEST_F(LoaderContent, KindWordsBecomeAccountTypes) {
    const Market market = loadGood();
    std::vector<int> kinds;
    for (const Account& account : market.accounts) {
        kinds.push_back(account.record->accountType);
    }
    EXPECT_THAT(kinds, ElementsAre(2, 3, 10, 7, 11, 1, 5, 6, 8, 12, 16));
}

TEST_F(LoaderContent, StockLineBecomesARecordPerInstrumentWithOneLimit) {
    const Market market = loadGood();
    const Account& account = accountOf(market, "S1");
    EXPECT_THAT(codesOf(account), ElementsAre("SH 600000", "SH 600001", "SH 600001"));
    const FeeRecord& fee = account.fees[0];
    EXPECT_EQ(fee.record->account, account.record);
    EXPECT_EQ(fee.record->instrument, instrumentOf(market, "600000").record);
    EXPECT_EQ(market.where(fee.position), "fees/stock.csv:2");
    EXPECT_THAT(stockRates(*fee.record->stkRateLimit), ElementsAre(0.0001, 0.0002, 0.0003, 0.0004, 0.0005, 0.0006));
    EXPECT_EQ(fee.record->stkRateLimit, account.fees[1].record->stkRateLimit);
    EXPECT_FALSE(fee.record->hgtRateLimit || fee.record->sgtRateLimit || fee.record->commissionDetail);
    EXPECT_TRUE(fee.record->marginDetails.empty());
}

TEST_F(LoaderContent, LaterLineForAnInstrumentComesLater) {
    const Market market = loadGood();
    const FeeRecord& last = accountOf(market, "S1").fees[2];
    EXPECT_EQ(market.where(last.position), "fees/stock.csv:3");
    EXPECT_EQ(last.record->stkRateLimit->rate1, 0.5);
    EXPECT_EQ(last.record->stkRateLimit->rate6, 0.0);
}

TEST_F(LoaderContent, CreditAndNeeqLinesTakeTheInstrumentsOfTheirLists) {
    const Market market = loadGood();
    EXPECT_THAT(codesOf(accountOf(market, "C1")), ElementsAre("SH 600000", "SH 688001"));
    EXPECT_EQ(stockRates(*accountOf(market, "C1").fees[0].record->stkRateLimit), ends(6, 0.11, 0.66));
    EXPECT_THAT(codesOf(accountOf(market, "N1")), ElementsAre("SH 430001"));
    EXPECT_EQ(stockRates(*accountOf(market, "N1").fees[0].record->stkRateLimit), ends(6, 0.12, 0.67));
}

TEST_F(LoaderContent, ConnectLinesFillTheirChannelsLimit) {
    const Market market = loadGood();
    const CInstrumentFee& hgt = *accountOf(market, "H1").fees.at(0).record;
    EXPECT_THAT(connectRates(*hgt.hgtRateLimit), ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14));
    EXPECT_FALSE(hgt.sgtRateLimit || hgt.stkRateLimit);
    const CInstrumentFee& sgt = *accountOf(market, "G1").fees.at(0).record;
    EXPECT_EQ(connectRates(*sgt.sgtRateLimit), ends(14, 21, 34));
    EXPECT_FALSE(sgt.hgtRateLimit || sgt.stkRateLimit);
}

TEST_F(LoaderContent, FuturesRecordJoinsLastCommissionAndLastMarginOfEachFlag) {
    const Market market = loadGood();
    const Account& account = accountOf(market, "F1");
    ASSERT_THAT(codesOf(account), ElementsAre("SHFE cu2601", "SHFE cu2602"));
    const FeeRecord& fee = account.fees[0];
    EXPECT_EQ(fee.record->commissionDetail->instrumentId, "cu2601");
    EXPECT_THAT(commissionRates(*fee.record->commissionDetail), ElementsAre(1, 2, 3, 4, 5, 6, 7, 8));
    EXPECT_EQ(market.where(fee.position), "fees/commission.csv:2");
    ASSERT_EQ(fee.record->marginDetails.size(), 2U);
    EXPECT_EQ(fee.record->marginDetails[0]->hedgeFlag, '1');
    EXPECT_EQ(fee.record->marginDetails[0]->longMarginRatio, 0.12);
    EXPECT_EQ(fee.record->marginDetails[1]->hedgeFlag, '3');
    EXPECT_EQ(fee.record->marginDetails[1]->marginMode, 5);
    EXPECT_THAT(marginRates(*fee.record->marginDetails[1]), ElementsAre(0.1, 0.2, 0.3, 0.4, 0.6, 0.7));
    EXPECT_THAT(places(market, fee.margins), ElementsAre("fees/margin.csv:4", "fees/margin.csv:2"));
}

TEST_F(LoaderContent, FuturesRecordMayLackMarginOrCommission) {
    const Market market = loadGood();
    const FeeRecord& noMargin = accountOf(market, "F1").fees[1];
    EXPECT_EQ(noMargin.record->commissionDetail->instrumentId, "cu2602");
    EXPECT_EQ(noMargin.record->commissionDetail->openRatioByMoney, 9);
    EXPECT_TRUE(noMargin.record->marginDetails.empty());
    EXPECT_EQ(market.where(noMargin.position), "fees/commission.csv:3");
    const FeeRecord& noCommission = accountOf(market, "F5").fees.at(0);
    EXPECT_FALSE(noCommission.record->commissionDetail);
    EXPECT_EQ(noCommission.record->instrument->code, "ES");
    EXPECT_EQ(market.where(noCommission.position), "fees/margin.csv:5");
}

TEST_F(LoaderContent, MarginLineSharesItsDetailAndTheNextLineHasItsOwn) {
    write("fees/margin.csv", "account,market,code,hedge_flag,long_by_money\nF1,SHFE,*,1,0.1\nF5,SHFE,*,1,0.2\n");
    const Market market = loadGood();
    const Account& first = accountOf(market, "F1");
    EXPECT_EQ(first.fees[0].record->marginDetails[0], first.fees[1].record->marginDetails[0]);
    EXPECT_EQ(first.fees[0].record->marginDetails[0]->longMarginRatio, 0.1);
    EXPECT_EQ(accountOf(market, "F5").fees[0].record->marginDetails[0]->longMarginRatio, 0.2);
}

TEST_F(LoaderContent, ProductNarrowsALine) {
    write("fees/stock.csv", "account,market,code,product,commission\nS1,SH,*,STAR,0.1\n");
    EXPECT_THAT(codesOf(accountOf(loadGood(), "S1")), ElementsAre("SH 688001"));
}

TEST_F(LoaderContent, PatternMatchesTheWholeCode) {
    write("fees/stock.csv", "account,market,code,commission\nS1,SH,6*01,0.1\nS1,SH,*8*,0.1\nS1,SH,600000*,0.1\n");
    EXPECT_THAT(codesOf(accountOf(loadGood(), "S1")), ElementsAre("SH 600001", "SH 688001", "SH 688001", "SH 600000"));
}

TEST_F(LoaderContent, ConfiguredStockLimitHasItsUnitOrTheInstruments) {
    const Market market = loadGood();
    ASSERT_EQ(market.stockLimits.size(), 2U);
    EXPECT_EQ(market.stockLimits[0].market, "SH");
    EXPECT_EQ(market.stockLimits[0].code, "600000");
    EXPECT_EQ(stockRates(*market.stockLimits[0].limit), ends(6, 0.001, 0.002));
    EXPECT_EQ(market.stockLimits[0].limit->unitVolume, 100);
    EXPECT_EQ(market.where(market.stockLimits[0].position), "configured/stock.csv:2");
    EXPECT_EQ(market.stockLimits[1].limit->unitVolume, 50);
}

TEST_F(LoaderContent, ConfiguredConnectLimitHasTheInstrumentsUnit) {
    const Market market = loadGood();
    ASSERT_EQ(market.hgtLimits.size(), 1U);
    EXPECT_EQ(connectRates(*market.hgtLimits[0].limit), ends(14, 0.1, 0.14));
    EXPECT_EQ(market.hgtLimits[0].limit->tradeMinUnit, 500);
    ASSERT_EQ(market.sgtLimits.size(), 1U);
    EXPECT_EQ(connectRates(*market.sgtLimits[0].limit), ends(14, 0.2, 0.24));
    EXPECT_EQ(market.sgtLimits[0].limit->tradeMinUnit, 500);
    EXPECT_EQ(market.where(market.sgtLimits[0].position), "configured/sgt.csv:2");
}

TEST_F(LoaderContent, CategoryRulesTakeTheirColumns) {
    const Market market = loadGood();
    ASSERT_EQ(market.categories.size(), 3U);
    const CategoryRule& first = market.categories[0];
    EXPECT_EQ(first.category, 10);
    EXPECT_EQ(first.name, "Main board");
    EXPECT_EQ(first.market, "SH");
    EXPECT_EQ(first.code, "60*");
    EXPECT_EQ(first.product, "MAIN");
    EXPECT_EQ(market.where(first.position), "categories.csv:2");
    const CategoryRule& any = market.categories[2];
    EXPECT_EQ(any.market + any.code + any.product, "");
}

TEST_F(LoaderContent, CustomFeesComeInOrderOfUpdateWithEntriesInOrderOfLines) {
    const Market market = loadGood();
    const std::vector<CustomFee>& fees = accountOf(market, "S1").customFees;
    ASSERT_EQ(fees.size(), 2U);
    EXPECT_THAT(places(market, fees[0].entries), ElementsAre("custom/stock.csv:3"));
    EXPECT_THAT(places(market, fees[1].entries), ElementsAre("custom/stock.csv:2", "custom/stock.csv:4"));
    const auto& second = dynamic_cast<const CCustomStockInstrumentFee&>(*fees[1].record);
    ASSERT_EQ(second.rateLimits.size(), 2U);
    EXPECT_EQ(second.rateLimits[0]->category, "20");
    EXPECT_THAT(stockRates(*second.rateLimits[0]), ElementsAre(0.1, 0.2, 0.3, 0.4, 0.5, 0.6));
    EXPECT_EQ(second.rateLimits[0]->unusedRate1, 0.0);
    EXPECT_EQ(second.rateLimits[0]->unusedRate2, 0.0);
    EXPECT_EQ(second.rateLimits[0]->optionFirstKeyCode, 0);
    EXPECT_EQ(second.rateLimits[1]->category, "70001");
}

TEST_F(LoaderContent, CustomEntriesHoldEveryCustomCategory) {
    const Market market = loadGood();
    const auto& fee = dynamic_cast<const CCustomStockInstrumentFee&>(*accountOf(market, "S1").customFees[0].record);
    using utils::voStockKey;
    EXPECT_THAT(fee.rateLimits[0]->customCategories,
                ElementsAre(Pair(10001, ElementsAre(voStockKey("SH", "600001"), voStockKey("SH", "600000"))),
                            Pair(10002, ElementsAre(voStockKey("HK", "00700")))));
    EXPECT_TRUE(fee.rateLimits[0]->groupCategories.empty());
}

TEST_F(LoaderContent, GroupEntryHoldsPartsOfItsOwn) {
    append("custom/stock.csv", "S1,3,70001,0.8,,,,,\n");
    const Market market = loadGood();
    const std::vector<CustomFee>& fees = accountOf(market, "S1").customFees;
    const auto& one = dynamic_cast<const CCustomStockInstrumentFee&>(*fees[1].record).rateLimits[1]->groupCategories;
    const auto& two = dynamic_cast<const CCustomStockInstrumentFee&>(*fees[2].record).rateLimits[0]->groupCategories;
    ASSERT_EQ(one.size(), 2U);
    EXPECT_EQ(one[0]->category, 10);
    EXPECT_EQ(one[0]->excluded, 0);
    EXPECT_EQ(one[1]->category, 10002);
    EXPECT_EQ(one[1]->excluded, 1);
    ASSERT_EQ(two.size(), 2U);
    EXPECT_NE(one[0], two[0]);
}

TEST_F(LoaderContent, WithoutCustomCategoriesTheMapIsEmpty) {
    remove("custom_categories.csv");
    replace("group_categories.csv", "70001,10002,exclude\n", "");
    const Market market = loadGood();
    const auto& fee = dynamic_cast<const CCustomStockInstrumentFee&>(*accountOf(market, "S1").customFees[0].record);
    EXPECT_TRUE(fee.rateLimits[0]->customCategories.empty());
}

TEST_F(LoaderContent, CreditAndNeeqCustomFeesAreOfTheStockClass) {
    const Market market = loadGood();
    const auto& credit =
        dynamic_cast<const CCustomStockInstrumentFee&>(*accountOf(market, "C1").customFees.at(0).record);
    EXPECT_EQ(stockRates(*credit.rateLimits.at(0)), ends(6, 0.21, 0.26));
    const auto& neeq = dynamic_cast<const CCustomStockInstrumentFee&>(*accountOf(market, "N1").customFees.at(0).record);
    EXPECT_EQ(stockRates(*neeq.rateLimits.at(0)), ends(6, 0.31, 0.36));
}

TEST_F(LoaderContent, OptionCustomFeeHasItemAndFees) {
    const Market market = loadGood();
    EXPECT_TRUE(accountOf(market, "O1").fees.empty());
    const auto& fee = dynamic_cast<const CCustomStockInstrumentFee&>(*accountOf(market, "O1").customFees.at(0).record);
    const CCustomStkExchangeRateLimit& limit = *fee.rateLimits.at(0);
    EXPECT_EQ(limit.category, "20");
    EXPECT_EQ(limit.optionFirstKeyCode, '0');
    EXPECT_EQ(limit.optionSecondKeyCode, 'D');
    EXPECT_EQ(limit.optionThirdKeyCode, '1');
    const std::vector<double> fees{limit.optionFee1, limit.optionFee2, limit.optionFee3, limit.optionFee4,
                                   limit.optionFee5};
    EXPECT_THAT(fees, ElementsAre(1, 2, 3, 4, 5));
    EXPECT_EQ(limit.rate1, 0.0);
}

TEST_F(LoaderContent, ConnectCustomFeesAreOfTheirChannelsClass) {
    const Market market = loadGood();
    const auto& hgt = dynamic_cast<const CCustomHGTInstrumentFee&>(*accountOf(market, "H1").customFees.at(0).record);
    EXPECT_EQ(connectRates(*hgt.rateLimits.at(0)), ends(14, 0.41, 0.54));
    EXPECT_EQ(hgt.rateLimits[0]->category, "20");
    EXPECT_EQ(hgt.rateLimits[0]->customCategories.size(), 2U);
    const auto& sgt = dynamic_cast<const CCustomSgtInstrumentFee&>(*accountOf(market, "G1").customFees.at(0).record);
    EXPECT_EQ(connectRates(*sgt.rateLimits.at(0)), ends(14, 0.61, 0.74));
}

TEST_F(LoaderContent, FuturesCustomFeeJoinsCommissionAndMargin) {
    const Market market = loadGood();
    const CustomFee& custom = accountOf(market, "F1").customFees.at(0);
    const auto& fee = dynamic_cast<const CCustomFutureInstrumentFee&>(*custom.record);
    ASSERT_EQ(fee.commissionDetails.size(), 1U);
    EXPECT_EQ(fee.commissionDetails[0]->categoryId, "20");
    EXPECT_THAT(commissionRates(*fee.commissionDetails[0]), ElementsAre(1, 2, 3, 4, 5, 6, 7, 8));
    ASSERT_EQ(fee.marginDetails.size(), 1U);
    EXPECT_EQ(fee.marginDetails[0]->categoryId, "70001");
    EXPECT_EQ(fee.marginDetails[0]->hedgeFlag, '3');
    EXPECT_EQ(fee.marginDetails[0]->marginMode, 5);
    EXPECT_THAT(marginRates(*fee.marginDetails[0]), ElementsAre(0.1, 0.2, 0.3, 0.4, 0.6, 0.7));
    EXPECT_EQ(fee.marginDetails[0]->groupCategories.size(), 2U);
    EXPECT_THAT(places(market, custom.entries), ElementsAre("custom/commission.csv:2", "custom/margin.csv:2"));
}

TEST_F(LoaderContent, PrimeBrokerageTakesFuturesCustomFees) {
    const Market market = loadGood();
    const auto& fee = dynamic_cast<const CCustomFutureInstrumentFee&>(*accountOf(market, "P1").customFees.at(0).record);
    EXPECT_EQ(fee.commissionDetails.at(0)->openRatioByMoney, 9);
    EXPECT_TRUE(accountOf(market, "P1").fees.empty());
}

TEST_F(LoaderContent, ByteOrderMarkAndCrlfDoNotCount) {
    write("accounts.csv",
          "\xEF\xBB\xBF"
          "account,name,kind\r\nS1,Stock,stock\r\n");
    for (const std::string name : {"fees", "custom"}) {
        remove(name);
    }
    const Market market = loadGood();
    ASSERT_EQ(market.accounts.size(), 1U);
    EXPECT_EQ(market.accounts[0].record->accountType, 2);
}

TEST_F(LoaderContent, MarketTomlMayHaveAByteOrderMarkAndCrlf) {
    write("market.toml",
          "\xEF\xBB\xBF"
          "format = 1\r\ntitle = \"T\"\r\n[markets.SH]\r\ntitle = \"S\"\r\ntrade_unit = 7\r\n");
    for (const std::string name : {"fees", "custom", "configured", "categories.csv", "custom_categories.csv",
                                   "group_categories.csv", "instruments/b.csv"}) {
        remove(name);
    }
    replace("instruments/a.csv", "HK,00700,Net,hgt sgt,,500,,\n", "");
    EXPECT_EQ(loadGood().markets.at(0).tradeUnit, 7);
}

TEST_F(LoaderContent, QuotedCellKeepsCommasQuotesSpacesAndLineBreaks) {
    append("accounts.csv", "Q1,\" a,\"\"b\"\"\r\nc \",stock,\nQ2,  spaced  ,stock,\n");
    const Market market = loadGood();
    EXPECT_EQ(accountOf(market, "Q1").record->accountName, " a,\"b\"\nc ");
    EXPECT_EQ(accountOf(market, "Q2").record->accountName, "spaced");
}

TEST_F(LoaderContent, LineNumbersCountBlankLinesAndQuotedLineBreaks) {
    append("accounts.csv", "\nQ1,\"two\nlines\",stock,\n  \nQ2,Name,stock,\n");
    const Market market = loadGood();
    EXPECT_EQ(market.where(accountOf(market, "Q1").position), "accounts.csv:14");
    EXPECT_EQ(market.where(accountOf(market, "Q2").position), "accounts.csv:17");
}

TEST_F(LoaderContent, LastLineNeedsNoLineEnd) {
    append("accounts.csv", "Q1,Last,stock,");
    EXPECT_EQ(accountOf(loadGood(), "Q1").record->accountName, "Last");
}

TEST_F(LoaderContent, TableOfAHeaderAloneHasNoLines) {
    write("fees/stock.csv", "account,market,code,commission\n");
    EXPECT_TRUE(accountOf(loadGood(), "S1").fees.empty());
}

TEST_F(LoaderContent, ColumnsMayBeInAnyOrder) {
    write("fees/stock.csv", "stamp_duty,code,market,account\n0.5,600000,SH,S1\n");
    EXPECT_EQ(accountOf(loadGood(), "S1").fees.at(0).record->stkRateLimit->rate6, 0.5);
}

TEST_F(LoaderContent, NumbersMayHaveExponentAndSign) {
    write("fees/stock.csv", "account,market,code,commission,rate2,rate3\nS1,SH,600000,1e-5,-1,2.5E-4\n");
    const Market market = loadGood();
    const CStkExchangeRateLimit& limit = *accountOf(market, "S1").fees.at(0).record->stkRateLimit;
    EXPECT_EQ(limit.rate1, 0.00001);
    EXPECT_EQ(limit.rate2, -1.0);
    EXPECT_EQ(limit.rate3, 0.00025);
}

}  // namespace
}  // namespace standalone
