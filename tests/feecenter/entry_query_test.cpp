#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "host/services.h"
#include "support/call_log.h"
#include "support/fee_center_fixture.h"

namespace {

using namespace qmservice;
using test::makeAccount;

class EntryQueryTest : public test::FeeCenterTest {
protected:
    /// The catalogue answers `text`, hashed as it is, with a new instrument.
    boost::shared_ptr<CInstrument> known(const std::string& text) {
        auto instrument = boost::make_shared<CInstrument>();
        instrument->market = "HK";
        instrument->code = text;
        host.catalogue[utils::hash(text)] = instrument;
        return instrument;
    }

    /// The instrument of a connect account's answer; empty for no answer.
    boost::shared_ptr<CInstrument> asked(const std::string& stockKey) {
        const auto fee = center.getFee(makeAccount(7, 7), stockKey);
        return fee ? fee->instrument : boost::shared_ptr<CInstrument>();
    }

    int unitAsked(int kind, const std::string& stockKey) {
        return center.getFee(makeAccount(kind, 7), stockKey)->stkRateLimit->unitVolume;
    }
};

TEST_F(EntryQueryTest, ConnectKeysAreFoldedOntoTheHongKongKey) {
    const auto instrument = host.addInstrument("HK", "00700");
    EXPECT_EQ(asked("HK|00700"), instrument);
    EXPECT_EQ(asked("HGT|00700"), instrument);
    EXPECT_EQ(asked("SGT|00700"), instrument);
}

TEST_F(EntryQueryTest, TextFoundInsideTheCodeStillReplacesTheFirstThreeCharacters) {
    host.addInstrument("SH", "6HGT1");
    host.addInstrument("SH", "6SGT1");
    EXPECT_FALSE(asked("SH|6HGT1"));
    EXPECT_FALSE(asked("SH|6SGT1"));
    // "SH|" gives way to "HK", the bar with it.
    const auto hgt = known("HK6HGT1");
    const auto sgt = known("HK6SGT1");
    EXPECT_EQ(asked("SH|6HGT1"), hgt);
    EXPECT_EQ(asked("SH|6SGT1"), sgt);
}

TEST_F(EntryQueryTest, KeyOfBothTextsIsFoldedOnce) {
    const auto instrument = known("HK|SGT");
    EXPECT_EQ(asked("HGT|SGT"), instrument);
}

TEST_F(EntryQueryTest, StockAndCreditTakeTheTradeUnitOfTheKeyAsGiven) {
    host.addInstrument("HK", "00700");
    host.tradeUnits[{"HK", "00700"}] = 500;
    host.tradeUnits[{"HGT", "00700"}] = 300;
    for (const int kind : {2, 3}) {
        EXPECT_EQ(unitAsked(kind, "HGT|00700"), 300) << "account kind " << kind;
        EXPECT_EQ(unitAsked(kind, "HK|00700"), 500) << "account kind " << kind;
    }
}

// As two threads ask, here at a place that is the same in each run.
TEST_F(EntryQueryTest, QueryInTheMidstOfAnotherLeavesItsTradeUnitAsItIs) {
    host.addInstrument("SH", "688001");
    host.addInstrument("SZ", "000001");
    host.tradeUnits[{"SH", "688001"}] = 200;
    bool isInside = false;
    host.onCall = [&](const std::string& call) {
        if (call == "getTradeMinUnit" && !isInside) {
            isInside = true;
            EXPECT_EQ(unitAsked(2, "SZ|000001"), 100);
            isInside = false;
        }
    };
    EXPECT_EQ(unitAsked(2, "SH|688001"), 200);
}

TEST_F(EntryQueryTest, OtherKindsTakeTheTradeUnit100) {
    host.addInstrument("SH", "688001");
    host.tradeUnits[{"SH", "688001"}] = 200;
    for (const int kind : {8, 10, 12}) {
        EXPECT_EQ(unitAsked(kind, "SH|688001"), 100) << "account kind " << kind;
    }
}

TEST_F(EntryQueryTest, OtherKindsDoNotAskForATradeUnit) {
    host.addInstrument("SH", "688001");
    const test::CallLog log(host);
    for (const int kind : {1, 4, 5, 6, 7, 8, 10, 11, 12, 16}) {
        center.getFee(makeAccount(kind, 7), "SH|688001");
    }
    EXPECT_EQ(log.count("getTradeMinUnit"), 0U);
    EXPECT_GT(log.count("findInstrument"), 0U);
}

TEST_F(EntryQueryTest, UnknownInstrumentHasNoFeeEvenWithATableEntry) {
    const auto instrument = host.addInstrument("SH", "600000");
    const auto account = makeAccount(2, 7);
    center.doInitStockFee(account, {test::makeFee(instrument, test::makeLimit(0.1))});
    ASSERT_TRUE(center.getFee(account, "SH", "600000"));
    host.removeInstrument(*instrument);
    EXPECT_FALSE(center.getFee(account, "SH", "600000"));
}

TEST_F(EntryQueryTest, UnknownInstrumentIsEmptyWhateverTheEmptyFeeMemberHolds) {
    center.emptyFee = boost::make_shared<CInstrumentFee>();
    for (const int kind : {1, 2, 4, 12}) {
        EXPECT_FALSE(center.getFee(makeAccount(kind, 7), "SH|none")) << "kind " << kind;
    }
}

TEST_F(EntryQueryTest, InstrumentGoneBeforeThePrimeBrokerageLookupIsTheEmptyFeeMemberUnstamped) {
    center.emptyFee = boost::make_shared<CInstrumentFee>();
    for (const char* market : {"SH", "DCE", "HK", "XX"}) {
        host.addInstrument(market, "1");
        int finds = 0;
        host.onCall = [&](const std::string& operation) {
            if (operation == "findInstrument" && ++finds == 2) {
                host.catalogue.clear();
            }
        };
        EXPECT_EQ(center.getFee(makeAccount(12, 7), market, "1"), center.emptyFee) << market;
        EXPECT_EQ(finds, 2) << market;
        EXPECT_TRUE(center.emptyFee->isEqual(CInstrumentFee())) << market;
    }
}

TEST_F(EntryQueryTest, KindWithoutFeesIsAnsweredWithTheEmptyFeeMemberUnstamped) {
    host.addInstrument("SH", "600000");
    for (const int kind : {-1, 0, 4, 9, 13, 14, 15, 17}) {
        EXPECT_FALSE(center.getFee(makeAccount(kind, 7), "SH|600000")) << "kind " << kind;
    }
    center.emptyFee = boost::make_shared<CInstrumentFee>();
    for (const int kind : {-1, 0, 4, 9, 13, 14, 15, 17}) {
        EXPECT_EQ(center.getFee(makeAccount(kind, 7), "SH|600000"), center.emptyFee) << "kind " << kind;
        EXPECT_FALSE(center.emptyFee->account);
        EXPECT_FALSE(center.emptyFee->instrument);
    }
}

/// Answers by joined key with a fee of its own and remembers the key.
class OverridingFeeCenter : public test::OpenFeeCenter {
public:
    using OpenFeeCenter::getFee;

    boost::shared_ptr<CInstrumentFee> getFee(const boost::shared_ptr<CAccountInfo>& /*account*/,
                                             const std::string& stockKey) override {
        askedKey = stockKey;
        return answer;
    }

    std::string askedKey;
    boost::shared_ptr<CInstrumentFee> answer = boost::make_shared<CInstrumentFee>();
};

TEST_F(EntryQueryTest, QueryByMarketAndCodeHonoursAnOverrideOfTheQueryByKey) {
    OverridingFeeCenter overriding;
    IFeeCenter& exported = overriding;
    EXPECT_EQ(exported.getFee(makeAccount(2, 7), "SH", "600000"), overriding.answer);
    EXPECT_EQ(overriding.askedKey, "SH|600000");
    overriding.answer.reset();
    EXPECT_FALSE(exported.getFee(makeAccount(2, 7), "SH", "600000"));
}

TEST_F(EntryQueryTest, ListOfAKindWithoutListsIsFalseAndLeavesTheVectorUntouched) {
    const auto kept = boost::make_shared<CInstrumentFee>();
    for (const int kind : {-1, 0, 4, 8, 9, 12, 16, 17}) {
        std::vector<boost::shared_ptr<CInstrumentFee>> fees = {kept};
        EXPECT_FALSE(center.getFees(makeAccount(kind, 7), fees)) << "account kind " << kind;
        ASSERT_EQ(fees.size(), 1U);
        EXPECT_EQ(fees[0], kept);
    }
}

}  // namespace
