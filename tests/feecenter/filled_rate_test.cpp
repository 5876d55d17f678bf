#include <gtest/gtest.h>

#include <boost/smart_ptr/make_shared.hpp>
#include <map>
#include <string>

#include "support/fee_center_fixture.h"

// A host whose new stock-option rate already holds items: filled_rate/host/stock_records.h.

namespace qmservice {

CStockOptionFeeRate::CStockOptionFeeRate() {
    for (const auto& [key, fee] : std::map<std::string, double>{{"000", 7}, {"zz", 8}}) {
        items[key] = boost::make_shared<CStockOptionFeeItem>();
        items[key]->fee1 = fee;
    }
}

}  // namespace qmservice

namespace {

using namespace qmservice;

class FilledRateTest : public test::FeeCenterTest {
protected:
    /// A custom fee for the item that the three characters make.
    void apply(const std::string& characters, double fee1) {
        const auto limit = test::makeCustomLimit("all", 0);
        limit->optionFee1 = fee1;
        limit->optionFirstKeyCode = characters[0];
        limit->optionSecondKeyCode = characters[1];
        limit->optionThirdKeyCode = characters[2];
        center.doUpdateStkOptionCustomFee(test::makeAccount(6, 7), test::makeCustomFee(limit));
    }

    boost::shared_ptr<CStockOptionFeeRate> rate() {
        return center.getStkOptionFee(7, test::instrumentKey(*option))->stkOptionFeeRate;
    }

    using Fees = std::map<std::string, double>;

    /// fee1 of each item.
    static Fees feesOf(const CStockOptionFeeRate& rate) {
        Fees fees;
        for (const auto& [key, item] : rate.items) {
            fees[key] = item->fee1;
        }
        return fees;
    }

    const boost::shared_ptr<CInstrument> option = host.addInstrument("SHO", "10000001", 32);
    const bool allMatch = [this] {
        host.inSystemCategory = [](auto&&...) { return true; };
        return true;
    }();
};

TEST_F(FilledRateTest, StoredItemReplacesTheOneOfANewRateAndLeavesTheOthers) {
    apply("000", 1);
    apply("1D0", 2);
    EXPECT_EQ(feesOf(*rate()), (Fees{{"000", 1}, {"1D", 2}, {"zz", 8}}));
}

TEST_F(FilledRateTest, BaseRateIsTheOneOfANewRate) {
    apply("000", 1);
    EXPECT_EQ(rate()->baseRate, 0.4);
}

TEST_F(FilledRateTest, EachAnswerHasItsOwnItemsOfANewRate) {
    apply("111", 1);
    const auto first = rate();
    const auto second = rate();
    EXPECT_NE(first->items.at("zz"), second->items.at("zz"));
    EXPECT_EQ(first->items.at("111"), second->items.at("111"));
}

TEST_F(FilledRateTest, DefaultRateKeepsTheItemsOfANewRate) {
    const auto fees = feesOf(*rate());
    EXPECT_EQ(rate(), center.defaultStkOptionFeeRate);
    EXPECT_EQ(fees.size(), 11U);
    EXPECT_EQ(fees.at("000"), 7);
    EXPECT_EQ(fees.at("zz"), 8);
    EXPECT_EQ(fees.at("011"), 1.3);
    EXPECT_EQ(rate()->baseRate, 0.2);
}

}  // namespace
