#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/feedesk/support/statement_folder.h"

// Causes that are of a whole trade, of what an all-in commission contains, or of custom categories and their groups.

namespace feedesk::test {
namespace {

struct CauseCase {
    const char* name;
    std::string lines;
    const char* reported;
};

/// 600519 pays 0.1 % commission, which contains 0.05 % stamp duty of sales and 0.001 % transfer fee; instruments of the
/// group 70001, which 601398 is in by its custom category, pay 0.04 %, and 300750 pays all charges on top of each
/// other.
class Causes : public testing::TestWithParam<CauseCase> {
protected:
    Causes() {
        folder.write("charges.csv",
                     "family,market,charge,side,basis,per,rounding,inside,currency,source,checked\n"
                     "stock,SH,commission,both,turnover,order,0.01 half_up,,CNY,test,2024-01-02\n"
                     "stock,SH,stamp_duty,sell,turnover,order,0.01 half_up,commission,CNY,test,2024-01-02\n"
                     "stock,SH,transfer_fee,both,turnover,order,0.01 half_up,commission,CNY,test,2024-01-02\n"
                     "stock,SZ,commission,both,turnover,order,0.01 half_up,,CNY,test,2024-01-02\n"
                     "stock,SZ,stamp_duty,sell,turnover,order,0.01 half_up,,CNY,test,2024-01-02\n"
                     "stock,SZ,transfer_fee,both,turnover,order,0.01 half_up,,CNY,test,2024-01-02\n");
        folder.write("fees/stock.csv",
                     "account,market,code,commission,transfer_fee,stamp_duty\n"
                     "S100,SH,60*,0.001,0.00001,0.0005\n"
                     "S100,SZ,*,0.0002,0.00001,0.0005\n");
        folder.write("instruments/more.csv",
                     "market,code,name,lists\nSH,601398,工商银行,stock\nSZ,300750,宁德时代,stock\n");
        folder.write("custom_categories.csv", "category,market,code\n10001,SH,601398\n");
        folder.write("group_categories.csv", "group,category,mode\n70001,10001,include\n");
        folder.write("custom/stock.csv", "account,update,category,commission\nS100,2,70001,0.0004\n");
    }

    StatementFolder folder;
};

TEST_P(Causes, AreNamedInOneSentence) {
    const Outcome outcome = folder.reconcileLines(GetParam().lines);
    const std::string text = unfolded(outcome.out);
    EXPECT_NE(text.find(GetParam().reported), std::string::npos) << GetParam().reported << '\n' << outcome.out;
    EXPECT_EQ(outcome.status, 1);
}

// The cells: day, code, side, quantity, price, commission, stamp duty, transfer fee, order, fills, net.
INSTANTIATE_TEST_SUITE_P(
    Of, Causes,
    testing::Values(
        CauseCase{"AllThatACommissionContains", "20240102,600519,卖,100,1000,100.00,50.00,1.00,,1,99849.00\n",
                  "Line 2: the transfer_fee (charges.csv:4) and the stamp_duty (charges.csv:3) charged twice, inside "
                  "the commission and on top of it"},
        CauseCase{"ATradeWithoutCharges", "20240102,300750,卖,100,1000,0,0,0,,1,100000.00\n",
                  "Line 2: nothing charged at all"},
        // Without its commission nothing is left of the first.
        CauseCase{"ACauseOfAllTrades",
                  "20240102,600519,买,100,1000,0,0,0,,1,-100000.00\n20240102,300750,买,100,1000,0,0,0,,1,-100000.00\n",
                  "Lines 2, 3: nothing charged at all; also fits line 2: the commission (charges.csv:2) left out"},
        CauseCase{"ATradeThatIsChargedTwice", "20240102,300750,卖,100,1000,40.00,100.00,2.00,,1,99858.00\n",
                  "Line 2: every charge charged twice"},
        // 1234.50: 0.25 and 0.62 and 0.01, three times 0.24690, 0.61725 and 0.012345 before they are rounded.
        CauseCase{"AMultipleToAFen", "20240102,300750,卖,100,12.345,.74,1.85,.04,,1,1231.87\n",
                  "Line 2: nothing that is known explains it; to a fen each of its charges is 3 times the folder's"},
        CauseCase{"AGroupOfCustomCategories", "20240102,600519,买,100,1000,40.00,0,0,,1,-100040.00\n",
                  "Line 2: charged as SH:601398 (custom category 10001) is, by the custom fee, custom/stock.csv:2"}),
    [](const auto& param) { return std::string(param.param.name); });

// 100000 in another currency, of which one is 0.92 of the folder's.
TEST_F(Causes, OfAnotherCurrencyAreSaidToLookLikeIt) {
    folder.writeStatement(
        "日期,代码,买卖,数量,价格,成交金额,佣金,印花税,过户费,发生\n"
        "20240102,300750,卖,100,1000.00,92000.00,18.40,46.00,.92,91934.68\n");
    const Outcome outcome = folder.reconcile();
    EXPECT_NE(unfolded(outcome.out)
                  .find("Line 2: nothing that is known explains it; its amount and its charges are 0.92 times those of "
                        "quantity x price, which the folder has in CNY: it looks like a statement in another currency"),
              std::string::npos)
        << outcome.out;
}

}  // namespace
}  // namespace feedesk::test
