#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "host/services.h"
#include "support/family_marks.h"

// Which family answers, for every kind of account and every market.

namespace {

using namespace qmservice;
using test::describe;
using test::kAccount;
using test::kCredit;
using test::kFullDefault;
using test::kFuture;
using test::kHgt;
using test::kIncomeSwap;
using test::kNeeq;
using test::kNone;
using test::kOption;
using test::kSgt;
using test::kStock;
using test::kStockWithOption;

/// Kinds whose family does not hang on the market.
const std::map<int, std::string> kKinds = {{-1, kNone},       {0, kNone},   {1, kFuture}, {2, kStock}, {3, kCredit},
                                           {4, kNone},        {5, kFuture}, {6, kOption}, {7, kHgt},   {9, kNone},
                                           {10, kNeeq},       {11, kSgt},   {13, kNone},  {14, kNone}, {15, kNone},
                                           {16, kIncomeSwap}, {17, kNone},  {18, kNone},  {19, kNone}, {20, kNone}};

struct Market {
    std::string name;
    std::string incomeSwap;      ///< kind 8
    std::string primeBrokerage;  ///< kind 12
};

const std::vector<Market> kMarkets = {
    {"SH", kStock, kStockWithOption},     {"SZ", kStock, kStockWithOption},     {"BJ", kStock, kStockWithOption},
    {"SSE", kStock, kStockWithOption},    {"SZSE", kStock, kStockWithOption},   {"NEEQ", kIncomeSwap, kNeeq},
    {"HK", kIncomeSwap, kFullDefault},    {"HGT", kIncomeSwap, kHgt},           {"SGT", kIncomeSwap, kSgt},
    {"SSEHKEX", kIncomeSwap, kHgt},       {"SZSEHKEX", kIncomeSwap, kSgt},      {"SHO", kIncomeSwap, kOption},
    {"SZO", kIncomeSwap, kOption},        {"SHFE", kIncomeSwap, kFuture},       {"SF", kIncomeSwap, kFuture},
    {"DCE", kIncomeSwap, kFuture},        {"DF", kIncomeSwap, kFuture},         {"CZCE", kIncomeSwap, kFuture},
    {"ZF", kIncomeSwap, kFuture},         {"GFEX", kIncomeSwap, kFuture},       {"GF", kIncomeSwap, kFuture},
    {"CFFEX", kIncomeSwap, kFuture},      {"IF", kIncomeSwap, kFuture},         {"INE", kIncomeSwap, kFuture},
    {"CMEO", kIncomeSwap, kIncomeSwap},   {"NYMEXO", kIncomeSwap, kIncomeSwap}, {"CBOTO", kIncomeSwap, kIncomeSwap},
    {"COMEXO", kIncomeSwap, kIncomeSwap}, {"WP", kIncomeSwap, kIncomeSwap},     {"WP.X", kIncomeSwap, kIncomeSwap},
    {"WPX", kIncomeSwap, kFullDefault},   {"", kIncomeSwap, kFullDefault},      {"XX", kIncomeSwap, kFullDefault},
    {"FOREIGN", kIncomeSwap, kIncomeSwap}};

class RoutingTest : public test::FeeCenterTest {
protected:
    RoutingTest() { host.foreignMarkets = {"FOREIGN"}; }

    static std::string expectedFor(int kind, const Market& market) {
        return kind == 8 ? market.incomeSwap : kind == 12 ? market.primeBrokerage : kKinds.at(kind);
    }

    /// An instrument of the market, found by the stock key, with a rate in every family's tables.
    boost::shared_ptr<CInstrument> addInstrument(const std::string& market, const std::string& stockKey) {
        auto instrument = boost::make_shared<CInstrument>();
        instrument->market = market;
        instrument->code = "1";
        host.catalogue[utils::hash(stockKey)] = instrument;
        test::markFamilies(center, kAccount, utils::hash(stockKey));
        return instrument;
    }

    template <class Find>
    void expectRouted(const Market& market, const boost::shared_ptr<CInstrument>& instrument, const Find& find) {
        for (int kind = -1; kind <= 20; ++kind) {
            const auto account = test::makeAccount(kind, kAccount);
            const auto fee = find(account);
            EXPECT_EQ(describe(fee), expectedFor(kind, market)) << "kind " << kind << ", market " << market.name;
            if (fee) {
                EXPECT_EQ(fee->account, account);
                EXPECT_EQ(fee->instrument, instrument);
            }
        }
    }
};

TEST_F(RoutingTest, QueryIsAnsweredByTheFamilyOfKindAndInstrumentsMarket) {
    for (const Market& market : kMarkets) {
        const auto instrument = addInstrument(market.name, "any key");
        expectRouted(market, instrument, [&](const auto& account) { return center.getFee(account, "any key"); });
    }
}

TEST_F(RoutingTest, QueryByMarketAndCodeIsRoutedAlikeAndTheChannelsFoldOntoHongKong) {
    const std::map<std::string, std::string> foldedMarkets = {{"HGT", "HK"}, {"SGT", "HK"}};
    for (Market market : kMarkets) {
        const auto folded = foldedMarkets.find(market.name);
        const bool isFolded = folded != foldedMarkets.end();
        const std::string recordMarket = isFolded ? folded->second : market.name;
        if (isFolded) {
            market.primeBrokerage = kFullDefault;  // that of the Hong Kong record
        }
        const auto instrument = addInstrument(recordMarket, recordMarket + "|1");
        expectRouted(market, instrument, [&](const auto& account) { return center.getFee(account, market.name, "1"); });
    }
}

TEST_F(RoutingTest, UnknownInstrumentHasNoFeeForAnyKind) {
    test::markFamilies(center, kAccount, test::instrumentKey("SH", "1"));
    for (int kind = -1; kind <= 20; ++kind) {
        EXPECT_FALSE(center.getFee(test::makeAccount(kind, kAccount), "SH", "1")) << kind;
    }
}

/// The instrument that each kind's list holds when every family's table holds one of its own; empty without a list.
const std::map<int, std::string> kLists = {{1, "future"}, {2, "stock"}, {3, "credit"}, {5, "future"},
                                           {6, "option"}, {7, "hgt"},   {10, "neeq"},  {11, "sgt"}};

/// What the list's one answer is. That of NEEQ accounts is the stock query's, which has no entry here.
const std::map<std::string, std::string> kListed = {{"future", kFuture},       {"stock", kStock}, {"credit", kCredit},
                                                    {"option", kOption},       {"hgt", kHgt},     {"sgt", kSgt},
                                                    {"neeq", "limit 0.00015;"}};

TEST_F(RoutingTest, ListIsThatOfTheKindsFamilyWhateverTheMarket) {
    for (const Market& market : kMarkets) {
        test::OpenFeeCenter families;
        const auto keyOf = [&](const char* code) {
            return test::instrumentKey(*host.addInstrument(market.name, code));
        };
        test::markFamilies(families, kAccount, 0);
        families.stockAccountTable[kAccount] = {{keyOf("stock"), 1}};
        families.creditAccountTable[kAccount] = {{keyOf("credit"), 1}};
        families.neeqAccountTable[kAccount] = {{keyOf("neeq"), 1}};
        families.hgtAccountTable[kAccount] = {{keyOf("hgt"), 1}};
        families.sgtAccountTable[kAccount] = {{keyOf("sgt"), 1}};
        families.stkOptionAccountTable[kAccount] = {{keyOf("option"), {{"000", 1}}}};
        families.futureCommissionKeys[kAccount] = {{keyOf("future"), 1}};
        for (int kind = -1; kind <= 20; ++kind) {
            std::vector<boost::shared_ptr<CInstrumentFee>> fees;
            const bool listed = families.getFees(test::makeAccount(kind, kAccount), fees);
            const auto expected = kLists.find(kind);
            ASSERT_EQ(listed, expected != kLists.end()) << "kind " << kind << ", market " << market.name;
            ASSERT_EQ(fees.size(), listed ? 1U : 0U) << "kind " << kind << ", market " << market.name;
            if (listed) {
                EXPECT_EQ(fees[0]->instrument->code, expected->second) << "kind " << kind;
                EXPECT_EQ(describe(fees[0]), kListed.at(expected->second)) << "kind " << kind;
            }
        }
    }
}

}  // namespace
