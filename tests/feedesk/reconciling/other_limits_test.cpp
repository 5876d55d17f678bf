#include <gtest/gtest.h>

#include <string>

#include "tests/feedesk/support/statement_folder.h"

// Another minimum or maximum of a charge, and where the amounts say something else.

namespace feedesk::test {
namespace {

struct LimitCase {
    const char* name;
    const char* lines;
    const char* reported;
};

/// 600519 pays 0.025 % commission, at least 5, 600000 pays 0.01 %; 000001 pays 0.02 %, without a minimum.
class OtherLimits : public testing::TestWithParam<LimitCase> {
protected:
    OtherLimits() {
        folder.write("charges.csv",
                     "family,market,charge,side,basis,minimum,per,rounding,currency,source,checked\n"
                     "stock,SH,commission,both,turnover,5,order,0.01 half_up,CNY,test,2024-01-02\n"
                     "stock,SZ,commission,both,turnover,,order,0.01 half_up,CNY,test,2024-01-02\n");
        folder.write("fees/stock.csv",
                     "account,market,code,commission,transfer_fee,stamp_duty,from,until\n"
                     "S100,SH,600519,0.00025,0,0,,\n"
                     "S100,SZ,*,0.0002,0,0,,\n");
    }

    StatementFolder folder;
};

TEST_P(OtherLimits, AreNamedWhereTheStatementShowsThem) {
    const Outcome outcome = folder.reconcileLines(GetParam().lines);
    const std::string text = unfolded(outcome.out);
    EXPECT_NE(text.find(GetParam().reported), std::string::npos) << GetParam().reported << '\n' << outcome.out;
}

// The cells: day, code, side, quantity, price, commission, stamp duty, transfer fee, order, fills, net.
INSTANTIATE_TEST_SUITE_P(
    Of, OtherLimits,
    testing::Values(
        // 35100 x 0.00025 = 8.78.
        LimitCase{"AMinimumAboveTheFoldersCharge", "20240102,600519,买,100,351,10.00,0,0,,1,-35110.00\n",
                  "Line 2: a least commission of 10 and not 5 (charges.csv:2); also fits: the commission 0.000285"},
        LimitCase{"AMinimumBesideOrdersAboveIt",
                  "20240102,600519,买,100,351,10.00,0,0,,1,-35110.00\n"
                  "20240103,600519,买,100,291,10.00,0,0,,1,-29110.00\n"
                  "20240104,600519,买,100,1000,25.00,0,0,,1,-100025.00\n",
                  "Lines 2, 3: a least commission of 10 and not 5 (charges.csv:2)"},
        // 1000 x 0.0002 = 0.20 and 2000 x 0.0002 = 0.40.
        LimitCase{"AMinimumWhereThereIsNone",
                  "20240102,000001,买,100,10,5.00,0,0,,1,-1005.00\n"
                  "20240103,000001,买,100,20,5.00,0,0,,1,-2005.00\n",
                  "Lines 2, 3: a least commission of 5, where charges.csv:3 has none"},
        // 4000 x 0.00025 = 1.00, which is no minimum.
        LimitCase{
            "AMinimumThatOneOfTheOrdersPaysByItsRate",
            "20240102,600519,买,100,10,1.00,0,0,,1,-1001.00\n"
            "20240103,600519,买,100,40,1.00,0,0,,1,-4001.00\n",
            "Lines 2, 3: a least commission of 1 and not 5 (charges.csv:2); also fits line 3: no least commission "
            "and not 5 (charges.csv:2)"},
        LimitCase{"AMinimumThatTheNextOrderDoesNotPay",
                  "20240102,600519,买,100,10,1.00,0,0,,1,-1001.00\n"
                  "20240103,600519,买,100,10,5.00,0,0,,1,-1005.00\n",
                  "Line 2: a least commission of 1 and not 5 (charges.csv:2)"},
        LimitCase{"NoMinimumThatNobodyHasOfOneOrder",
                  "20240102,600519,买,100,10,1.37,0,0,,1,-1001.37\n"
                  "20240103,600519,买,100,10,5.00,0,0,,1,-1005.00\n",
                  "Line 2: nothing that is known explains it"},
        LimitCase{"ASmallMinimumOfOneOrder", "20240102,000001,买,100,3,.10,0,0,,1,-300.10\n",
                  "Line 2: a least commission of 0.1, where charges.csv:3 has none"},
        // Of 6.66 nobody would think, but orders of 1000 and 2000 both cost it.
        LimitCase{"AnUnusualMinimumOfOrdersOfSeveralSizes",
                  "20240102,000001,买,100,10,6.66,0,0,,1,-1006.66\n"
                  "20240103,000001,买,100,20,6.66,0,0,,1,-2006.66\n",
                  "Lines 2, 3: a least commission of 6.66, where charges.csv:3 has none"},
        LimitCase{"AMinimumFromADayOn",
                  "20240102,000001,买,100,10,.20,0,0,,1,-1000.20\n"
                  "20240103,000001,买,100,10,5.00,0,0,,1,-1005.00\n"
                  "20240104,000001,买,100,20,5.00,0,0,,1,-2005.00\n",
                  "Lines 3, 4: a least commission of 5, where charges.csv:3 has none"},
        // The next order pays 0.20 as in the folder.
        LimitCase{"ARateBeforeAMinimumWhereALaterOrderPaysNeither",
                  "20240102,000001,买,100,12.5,10.00,0,0,,1,-1260.00\n"
                  "20240103,000001,买,100,10,.20,0,0,,1,-1000.20\n",
                  "Line 2: the commission 0.008 (any from 0.007996 to 0.008003999999) fits this trade, and not line 3"},
        // 2399 x 0.0002 = 0.48.
        LimitCase{"AMinimumBesideARateThatALineOfTheDayRefutes",
                  "20240102,000001,买,100,26.26,10.00,0,0,,1,-2636.00\n"
                  "20240102,000001,买,100,23.99,.48,0,0,,1,-2399.48\n",
                  "fits this trade, and not line 3 of the same day; the folder has 0.0002, configured/stock.csv:2; "
                  "also fits: a least commission of 10, where charges.csv:3 has none"},
        LimitCase{
            "AMinimumInWholeMoneyBesideARateThatALaterLineRefutes",
            "20240102,600519,买,100,32.11,6.00,0,0,,1,-3217.00\n"
            "20240103,600519,买,100,32.11,5.00,0,0,,1,-3216.00\n",
            "and not line 3 of 2024-01-03; the folder has 0.00025, fees/stock.csv:2; also fits: a least commission "
            "of 6 and not 5 (charges.csv:2)"},
        // 160550 x 0.00025 = 40.14.
        LimitCase{"AMaximumBesideARateThatALaterLineRefutes",
                  "20240102,600519,买,100,1605.50,30.00,0,0,,1,-160580.00\n"
                  "20240103,600519,买,100,1605.50,40.14,0,0,,1,-160590.14\n",
                  "and not line 3 of 2024-01-03; the folder has 0.00025, fees/stock.csv:2; also fits: a highest "
                  "commission of 30, where charges.csv:2 has none"},
        // Both pay the minimum of 5: 60000 x 0.000083416666 is less than 5.005.
        LimitCase{"NoMaximumWhereALowerRateCostsTheMinimum",
                  "20240102,600519,买,100,600,5.00,0,0,,1,-60005.00\n"
                  "20240103,600519,买,100,231,5.00,0,0,,1,-23105.00\n",
                  "Lines 2, 3: the commission 0.00001 (any up to 0.000083416666) fits all 2 lines"},
        LimitCase{"NoLineWhereTheMinimumAloneIsSeen",
                  "20240102,600519,买,100,600,5.00,0,0,,1,-60005.00\n"
                  "20240103,600519,买,100,231,5.00,0,0,,1,-23105.00\n",
                  "no line is proposed for the commission, as any rate up to 0.000083416666 fits"},
        // 0.03 % of 100000, twice.
        LimitCase{"ARateOfOrdersOfOneSize",
                  "20240102,600519,买,100,1000,30.00,0,0,,1,-100030.00\n"
                  "20240103,600519,买,100,1000,30.00,0,0,,1,-100030.00\n",
                  "Lines 2, 3: the commission 0.0003 (any from 0.00029995 to 0.000300049999) fits all 2 lines"},
        // 1001 x 0.000415 = 0.42, as by 0.00042, which is simpler.
        LimitCase{
            "ARateOfOtherLinesBeforeASimplerOne",
            "20240102,000001,买,100,10.01,.42,0,0,,1,-1001.42\n"
            "20240103,000001,买,100,1000,20.00,0,0,,1,-100020.00\n"
            "20240104,000001,买,100,1000,41.50,0,0,,1,-100041.50\n"
            "20240105,000001,买,100,2000,83.00,0,0,,1,-200083.00\n",
            "Line 2: the commission 0.000415 (any from 0.000414585415 to 0.000424575424) fits this trade, and not "
            "line 3 of 2024-01-03"},
        // 600000 x 0.00025 = 150 and 1200000 x 0.00025 = 300.
        LimitCase{"AMaximumWhereThereIsNone",
                  "20240102,600519,买,1000,600,100.00,0,0,,1,-600100.00\n"
                  "20240103,600519,买,1000,1200,100.00,0,0,,1,-1200100.00\n",
                  "Lines 2, 3: a highest commission of 100, where charges.csv:2 has none"},
        // 0.25 and 2.00 by the rate, which neither another minimum nor a maximum makes 1.
        LimitCase{
            "AnAmountThatEveryOrderCosts",
            "20240102,600519,买,100,10,1.00,0,0,,1,-1001.00\n"
            "20240103,600519,买,100,80,1.00,0,0,,1,-8001.00\n",
            "Lines 2, 3: a commission of 1 for each order, whatever its size, and not at least 5 (charges.csv:2)"},
        // Three fills of 5 each, or from 15.00 to 18.78, as 35100 x 0.00025 = 8.78.
        LimitCase{"NoOtherMinimumWhereEachFillHasItsOwn", "20240102,600519,买,100,351,15.00,0,0,,3,-35115.00\n",
                  "Line 2: the least commission of 5 charged for each fill and not for each order (charges.csv:2), a "
                  "range: 3 fills"},
        // 600000 pays another rate: 60000 x 0.0001 = 6.00, by its custom fee. The first costs twice the folder's 5,
        // too.
        LimitCase{"OneMinimumOfOrdersWithRatesOfSeveralLines",
                  "20240102,600519,买,100,10,10.00,0,0,,1,-1010.00\n"
                  "20240103,600519,买,100,20,10.00,0,0,,1,-2010.00\n"
                  "20240104,600000,买,100,600,10.00,0,0,,1,-60010.00\n",
                  "Lines 2, 3, 4: a least commission of 10 and not 5 (charges.csv:2)"}),
    [](const auto& param) { return std::string(param.param.name); });

TEST_F(OtherLimits, AreNotNamedBesideARateWhereTheAmountIsNotUsual) {
    const Outcome outcome = folder.reconcileLines(
        "20240102,000001,买,100,1000,31.00,0,0,,1,-100031.00\n"
        "20240103,000001,买,100,1000,20.00,0,0,,1,-100020.00\n");
    const std::string text = unfolded(outcome.out);
    EXPECT_NE(text.find("Line 2: the commission 0.00031"), std::string::npos) << outcome.out;
    EXPECT_EQ(text.find("also fits"), std::string::npos) << outcome.out;
}

}  // namespace
}  // namespace feedesk::test
