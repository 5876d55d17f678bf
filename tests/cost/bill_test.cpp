#include "cost/bill.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "cost/support/tariffs.h"

namespace {

using namespace cost;       // NOLINT(google-build-using-namespace): what is tested
using namespace cost_test;  // NOLINT(google-build-using-namespace): what it is tested with

struct Charged {
    const char* name;
    Term term;
    const char* trade;
    const char* basis;
    const char* amount;
};

class Amount : public testing::TestWithParam<Charged> {};

TEST_P(Amount, IsRateTimesBasisWithinBoundsThenRounded) {
    const Bill bill = costOf(trade(GetParam().trade), tariff({GetParam().term}, {}));
    ASSERT_EQ(bill.items.size(), 1U);
    const BillItem& item = bill.items.front();
    EXPECT_EQ(item.basis.text(), GetParam().basis);
    EXPECT_EQ(item.amount.text(), GetParam().amount);
    EXPECT_EQ(item.value, *GetParam().term.rate);
    EXPECT_EQ(item.trades, 1U);
    EXPECT_EQ(bill.costs, item.amount);
}

INSTANTIATE_TEST_SUITE_P(
    , Amount,
    testing::Values(
        Charged{"Exact", levy("0.0000341", "turnover fill"), "buy 300@1488.57", "446571", "15.2280711"},
        Charged{"Rounded", levy("0.0000341", "turnover fill 0.01 half_up"), "buy 300@1488.57", "446571", "15.23"},
        Charged{"OfQuantity", levy("0.0005", "quantity fill"), "buy 300@1488.57", "300", "0.15"},
        Charged{"OfAnOrder", levy("0.5", "order order"), "buy 300@1488.57", "1", "0.5"},
        Charged{"OfADay", levy("2", "day day"), "buy 300@1488.57", "1", "2"},
        Charged{"BelowMinimum", levy("0.00025", "turnover order 0.01 half_up", "5"), "buy 100@4.73", "473", "5"},
        Charged{"AtMinimum", levy("0.00025", "turnover order 0.01 half_up", "5"), "buy 100@200", "20000", "5"},
        Charged{"AboveMinimum", levy("0.00025", "turnover order 0.01 half_up", "5"), "buy 100@202.40", "20240", "5.06"},
        Charged{"AboveMaximum", levy("0.00002", "turnover order 0.01 half_up", "2", "100"), "buy 100000@70", "7000000",
                "100"},
        Charged{"BetweenBounds", levy("0.00002", "turnover order 0.01 half_up", "2", "100"), "buy 100000@40", "4000000",
                "80"},
        Charged{"BoundsBeforeRounding", levy("0.00025", "turnover order 1 up", "4.2"), "buy 100@4.73", "473", "5"},
        Charged{"WholeDollarUp", levy("0.001", "turnover fill 1 up"), "sell 500@61.35", "30675", "31"},
        Charged{"WholeDollarAlready", levy("0.001", "turnover fill 1 up"), "sell 500@62", "31000", "31"}),
    [](const auto& row) { return row.param.name; });

TEST(Bill, HasNoMinimumOfARateOfZero) {
    const Term minimum = levy("0", "turnover order", "5");
    const Bill bill = costOf(trade("buy 300@1488.50"), tariff({minimum}, {}));
    EXPECT_TRUE(bill.items.empty());
    EXPECT_EQ(bill.costs, number("0"));
    EXPECT_EQ(bill.net.text(2), "-446550.00");
}

TEST(Bill, OfAPurchasePaysTurnoverAndCosts) {
    const Bill bill = costOf(trade("buy 300@1488.50"), allIn());
    EXPECT_EQ(itemsOf(bill), "commission 111.64, (handling_fee 15.23)");
    EXPECT_EQ(bill.turnover.text(2), "446550.00");
    EXPECT_EQ(bill.costs.text(2), "111.64");
    EXPECT_EQ(bill.net.text(2), "-446661.64");
    EXPECT_EQ(bill.currency, "CNY");
    EXPECT_FALSE(bill.margin);
}

TEST(Bill, OfASaleReceivesTurnoverLessCosts) {
    const Bill bill = costOf(trade("sell 300@1488.50"), allIn());
    EXPECT_EQ(itemsOf(bill), "commission 111.64, (handling_fee 15.23), stamp_duty 223.28");
    EXPECT_EQ(bill.costs.text(2), "334.92");
    EXPECT_EQ(bill.net.text(2), "446215.08");
}

TEST(Bill, SaysWhereEachItemComesFrom) {
    Term commission = term("stock", "commission", "both", "turnover order");
    commission.title = "Commission";
    Rates answered = rates({{"commission", "0.00025", ""}});
    answered.charges[0].level = "account";
    answered.charges[0].source = "fees/stock.csv:2";
    const Bill bill = costOf(trade("buy 300@1488.50"), tariff({commission, levy("1", "order order")}, answered));
    ASSERT_EQ(bill.items.size(), 2U);
    EXPECT_EQ(bill.items[0].term->name(), "Commission");
    EXPECT_EQ(bill.items[0].term->where, "charges.csv:2");
    EXPECT_EQ(bill.items[0].rate->level, "account");
    EXPECT_EQ(bill.items[0].rate->source, "fees/stock.csv:2");
    EXPECT_EQ(bill.items[1].term->name(), "levy");
    EXPECT_EQ(bill.items[1].rate, nullptr);
}

TEST(Bill, OutlivesItsTariff) {
    const Bill bill = [] { return costOf(trade("buy 300@1488.50"), allIn()); }();
    EXPECT_EQ(bill.items[1].term->charge, "handling_fee");
    EXPECT_EQ(bill.items[1].inside->charge, "commission");
    EXPECT_EQ(bill.items[1].rate->charge, "handling_fee");
}

TEST(OwnAmount, LeavesOutWhatIsDirectlyInside) {
    const Bill bill = costOf(trade("buy 300@1488.50"), allIn());
    EXPECT_EQ(ownAmount(bill, bill.items[0]).text(2), "96.41");
    EXPECT_EQ(ownAmount(bill, bill.items[1]).text(2), "15.23");
}

TEST(Bill, DoesNotAddWhatIsInsideAnInsideCharge) {
    Term commission = term("stock", "commission", "both", "turnover fill");
    Term handling = term("stock", "handling_fee", "both", "turnover fill");
    handling.inside = "commission";
    Term fund = term("stock", "fund", "both", "turnover fill");
    fund.inside = "handling_fee";
    const Bill bill =
        costOf(trade("buy 100@10"),
               tariff({commission, handling, fund},
                      rates({{"commission", "0.01", ""}, {"handling_fee", "0.005", ""}, {"fund", "0.001", ""}})));
    EXPECT_EQ(itemsOf(bill), "commission 10.00, (handling_fee 5.00), (fund 1.00)");
    EXPECT_EQ(bill.costs.text(), "10");
    EXPECT_EQ(ownAmount(bill, bill.items[0]).text(), "5");
}

TEST(Converted, MultipliesEveryAmountExactly) {
    const Bill bill = converted(costOf(trade("sell 300@1488.50"), allIn()), number("0.91235"), "USD");
    EXPECT_EQ(bill.currency, "USD");
    EXPECT_EQ(bill.items[0].amount.text(), "101.854754");
    EXPECT_EQ(bill.items[0].basis.text(2), "446550.00");
    EXPECT_EQ(bill.turnover.text(), "407409.8925");
    EXPECT_EQ(bill.costs.text(), "305.564262");
    EXPECT_EQ(bill.net.text(), "407104.328238");
}

}  // namespace
