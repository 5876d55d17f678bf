#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "feedesk/failure.h"
#include "feedesk/statements/statement.h"

// The bundled layouts, and what their statements hold.

namespace feedesk::test {
namespace {

using Lines = std::vector<std::string>;

const char* const kHeader =
    "成交日期\t证券代码\t证券名称\t操作\t成交数量\t成交均价\t成交金额\t手续费\t印花税\t过户费\t其他费\t发生金额\t合同编"
    "号";
const char* const kTrade =
    "20210304\t=\"000001\"\t平安银行\t证券买入\t100\t5.020\t502.00\t5.00\t0\t.01\t0\t-507.01\t77";

struct Read {
    Statement statement;
    std::vector<WrongLine> wrong;
};

Read read(const Lines& lines) {
    Read result;
    result.statement = statementIn(lines, "S", FolderLayouts(BUNDLED_MARKET).all(), result.wrong);
    return result;
}

std::string refusal(const Lines& lines) {
    try {
        read(lines);
    } catch (const Failure& failure) {
        return failure.what();
    }
    return "";
}

TEST(Statement, IsReadByTheLayoutOfItsHeader) {
    const Read found = read({"客户对账单", "客户姓名:\t某人", "", kHeader, kTrade});
    ASSERT_EQ(found.statement.lines.size(), 1U);
    EXPECT_EQ(found.statement.layout.name, "chinese");
    const StatementLine& line = found.statement.lines.front();
    EXPECT_EQ(line.line, 5U);
    EXPECT_EQ(line.code, "000001");
    EXPECT_EQ(line.market, "");
    EXPECT_EQ(line.name, "平安银行");
    EXPECT_EQ(line.trade.side, cost::Side::kBuy);
    EXPECT_EQ(line.trade.date.text(), "2021-03-04");
    EXPECT_EQ(line.trade.quantity.text(), "100");
    EXPECT_EQ(line.trade.order, "77");
    EXPECT_EQ(line.amount->text(), "502");
    EXPECT_EQ(line.net->text(), "-507.01");
    ASSERT_EQ(line.charges.size(), 4U);
    EXPECT_EQ(line.charges[2]->text(), "0.01");
}

/// "3 4:利息归本": the lines that are no trades, each with its operation.
std::string passedOver(const Statement& statement) {
    std::string text;
    for (const PassedOver& each : statement.passedOver) {
        text += (text.empty() ? "" : " ") + std::to_string(each.line);
        text += each.operation.empty() ? "" : ":" + each.operation;
    }
    return text;
}

TEST(Statement, PassesOverWhatIsNoTrade) {
    const Read found = read({kHeader, kTrade, "合计\t\t\t\t100\t\t502.00\t5.00\t0\t.01\t0\t-507.01\t",
                             "-----\t----\t\t\t\t\t\t\t\t\t\t\t", "注：本对账单仅供参考",
                             "20210305\t\t\t利息归本\t0\t0\t0\t0\t0\t0\t0\t1.25\t", ""});
    EXPECT_EQ(found.statement.lines.size(), 1U);
    EXPECT_EQ(passedOver(found.statement), "3 4 5 6:利息归本");
    EXPECT_TRUE(found.wrong.empty());
}

TEST(Statement, PassesOverSumsWithoutAWord) {
    const Read found =
        read({kHeader, kTrade, "\t\t\t\t100\t\t502.00\t5.00\t0\t.01\t0\t-507.01\t", "\t\t\t\t100\t\t502.00"});
    EXPECT_EQ(found.statement.lines.size(), 1U);
    EXPECT_EQ(passedOver(found.statement), "3 4");
    EXPECT_TRUE(found.wrong.empty());
}

TEST(Statement, PassesOverSumsHoweverTheyAreWritten) {
    const std::string sums = "\t100\t\t502.00\t5.00\t0\t.01\t0\t-507.01\t";
    const Read found = read({kHeader, "合  计\t\t\t" + sums, "【本日合计】\t\t\t" + sums, "20210304\t小计\t\t" + sums,
                             "20210304\t\t当日小计\t" + sums, "20210304\t\t\t" + sums, kTrade});
    EXPECT_EQ(found.statement.lines.size(), 1U);
    EXPECT_EQ(passedOver(found.statement), "2 3 4 5 6");
    EXPECT_TRUE(found.wrong.empty());
}

TEST(Statement, RefusesATradeWithoutAnOperation) {
    const Read found = read({kHeader, "20210304\t000001\t平安银行\t\t100\t5.02\t502\t5\t0\t.01\t0\t-507.01\t1"});
    EXPECT_TRUE(found.statement.passedOver.empty());
    ASSERT_EQ(found.wrong.size(), 1U);
    EXPECT_EQ(found.wrong[0].column, "操作");
    EXPECT_THAT(found.wrong[0].sentence, testing::StartsWith("is empty, and the line has a code and a quantity"));
}

// What nobody put into the layout is no trade either when nothing was traded; with a quantity it must be known.
TEST(Statement, NamesWhatHasNoQuantity) {
    const Read found = read({kHeader, kTrade, "20210305\t1\t平安银行\t派息\t0\t0\t0\t0\t0\t0\t0\t12.50\t",
                             "20210305\t\t\t转账\t\t\t\t\t\t\t\t-100.00\t",
                             "20210305\t1\t平安银行\t证券买入\t0\t5.02\t0\t0\t0\t0\t0\t0\t9",
                             "20210305\t1\t平安银行\t证券买入\t0\t5.02\t502\t5\t0\t0\t0\t-507\t9",
                             "20210305\t1\t平安银行\t送股\t10\t0\t0\t0\t0\t0\t0\t0\t9"});
    EXPECT_EQ(passedOver(found.statement), "3:派息 4:转账 5:证券买入");
    ASSERT_EQ(found.wrong.size(), 2U);
    EXPECT_EQ(found.wrong[0].column, "成交数量");
    EXPECT_EQ(found.wrong[1].column, "操作");
}

TEST(Statement, PassesOverTheHeadOfALaterPage) {
    const std::string account = "资金账号：\t123";
    const Read found = read({account, kHeader, kTrade, account, std::string(kHeader) + "\t\t", kTrade});
    EXPECT_EQ(found.statement.lines.size(), 2U);
    EXPECT_EQ(passedOver(found.statement), "4 5");
    EXPECT_TRUE(found.wrong.empty());
}

/// The statement of one line with this operation and a quantity.
Read readOperation(const std::string& operation) {
    return read({kHeader, "20210304\t000001\t平安银行\t" + operation + "\t100\t5.02\t502\t5\t0\t.01\t0\t-507.01\t1"});
}

TEST(Statement, TellsWhichTradesItHasTwice) {
    const std::string other = "20210304\t000002\t\t证券买入\t100\t5.020\t502.00\t5.00\t0\t.01\t0\t-507.01\t78";
    const std::string unnumbered = "20210304\t000003\t\t证券买入\t100\t5.020\t502.00\t5.00\t0\t.01\t0\t-507.01\t";
    // The second of the first two is a fill of the same order.
    const Read found = read({kHeader, kTrade, kTrade, other, unnumbered, unnumbered, kTrade});
    ASSERT_EQ(found.statement.repeated.size(), 2U);
    EXPECT_EQ(found.statement.repeated[0].line, 6U);
    EXPECT_EQ(found.statement.repeated[0].first, 5U);
    EXPECT_EQ(found.statement.repeated[1].line, 7U);
    EXPECT_EQ(found.statement.repeated[1].first, 2U);
}

TEST(Statement, KnowsTheUsualOperations) {
    for (const char* purchase : {"限价买入", "市价买入", "普通买入", "买券还券", "买 入", "买　入", "证券 买入"}) {
        const Read found = readOperation(purchase);
        ASSERT_EQ(found.statement.lines.size(), 1U) << purchase;
        EXPECT_EQ(found.statement.lines.front().trade.side, cost::Side::kBuy) << purchase;
    }
    for (const char* sale : {"限价卖出", "市价卖出", "普通卖出", "卖 出"}) {
        const Read found = readOperation(sale);
        ASSERT_EQ(found.statement.lines.size(), 1U) << sale;
        EXPECT_EQ(found.statement.lines.front().trade.side, cost::Side::kSell) << sale;
    }
    for (const char* other : {"质押回购拆出", "拆出质押购回", "融券回购", "融券购回", "配售中签", "基金申购",
                              "基金赎回", "担保品划转", "担保品划入", "ETF申购", "ETF赎回", "直接还券"}) {
        const Read found = readOperation(other);
        EXPECT_TRUE(found.statement.lines.empty()) << other;
        EXPECT_TRUE(found.wrong.empty()) << other;
        EXPECT_EQ(passedOver(found.statement), "2:" + std::string(other));
    }
}

/// A purchase and a sale of 502.00 with this moved on the account.
Lines tradesThatMoved(const std::string& purchase, const std::string& sale) {
    return {kHeader, "20210304\t000001\t平安银行\t证券买入\t100\t5.02\t502\t5\t0\t.01\t0\t" + purchase + "\t1",
            "20210304\t000001\t平安银行\t证券卖出\t100\t5.02\t502\t5\t.50\t.01\t0\t" + sale + "\t2"};
}

std::string nets(const Statement& statement) {
    std::string text;
    for (const StatementLine& line : statement.lines) {
        text += line.net->text() + ' ';
    }
    return text;
}

TEST(Statement, MayWriteWhatMovedWithoutASign) {
    const Statement found = read(tradesThatMoved("507.01", "496.49")).statement;
    EXPECT_TRUE(found.isNetUnsigned);
    EXPECT_EQ(nets(found), "-507.01 496.49 ");
    EXPECT_FALSE(read(tradesThatMoved("-507.01", "496.49")).statement.isNetUnsigned);
}

// 496.99 is less than the 502.00 of the purchase: that one was booked as a sale.
TEST(Statement, KeepsTheSignOfAPurchaseThatBroughtMoney) {
    const Statement found = read(tradesThatMoved("496.99", "496.49")).statement;
    EXPECT_FALSE(found.isNetUnsigned);
    EXPECT_EQ(nets(found), "496.99 496.49 ");
}

TEST(Statement, HasItsCodesAsTheyAreWritten) {
    const Read found = read({kHeader, "20210304\t1\t平安银行\t证券买入\t100\t5.02\t502\t5\t0\t0\t0\t-507\t"});
    ASSERT_EQ(found.statement.lines.size(), 1U);
    EXPECT_EQ(found.statement.lines.front().code, "1");
}

TEST(Statement, PrefersTheTitlesThatItsLayoutNamesFirst) {
    const Read found = read({"交收日期,成交日期,证券代码,操作,成交数量,成交均价,手续费",
                             "20210305,20210304,000001,证券买入,100,5.02,5.00"});
    ASSERT_EQ(found.statement.lines.size(), 1U);
    EXPECT_EQ(found.statement.lines.front().trade.date.text(), "2021-03-04");
}

TEST(Statement, TakesLinesWithoutTheirEmptyEnd) {
    const Read found = read({std::string(kHeader) + "\t", kTrade, std::string(kTrade) + "\t\t"});
    EXPECT_EQ(found.statement.lines.size(), 2U);
    EXPECT_TRUE(found.wrong.empty());
}

struct WrongTrade {
    const char* line;
    const char* column;
    const char* sentence;  ///< part of it
};

TEST(Statement, NamesTheLineAndColumnOfWhatIsWrong) {
    for (const WrongTrade& each : std::vector<WrongTrade>{
             {"2021-02-30\t1\tA\t证券买入\t1\t1\t1\t5\t0\t0\t0\t-6\t", "成交日期",
              "holds 2021-02-30, and a day such as"},
             {"20210304\t\tA\t证券买入\t1\t1\t1\t5\t0\t0\t0\t-6\t", "证券代码", "is empty"},
             {"20210304\t1\tA\t申购\t1\t1\t1\t5\t0\t0\t0\t-6\t", "操作",
              "holds 申购, which the layout chinese does not know"},
             {"20210304\t1\tA\t证券买入\t1百\t1\t1\t5\t0\t0\t0\t-6\t", "成交数量", "holds 1百, and a plain number"},
             {"20210304\t1\tA\t证券买入\t1\t0\t1\t5\t0\t0\t0\t-6\t", "成交均价",
              "holds 0, and a trade has more than 0"},
             {"20210304\t1\tA\t证券买入\t1\t1\t1\t五\t0\t0\t0\t-6\t", "手续费", "holds 五, and a plain number"},
             {"20210304\t1\tA\t证券买入\t1\t1\t1\t5\t0\t0", "", "the line has 10 cells, and the header has 13 columns"},
             {"20210304\t1\t\"A\t证券买入", "", "a quote is not closed"}}) {
        const Read found = read({kHeader, each.line});
        ASSERT_EQ(found.wrong.size(), 1U) << each.line;
        EXPECT_EQ(found.wrong.front().line, 2U);
        EXPECT_EQ(found.wrong.front().column, each.column);
        EXPECT_NE(found.wrong.front().sentence.find(each.sentence), std::string::npos) << found.wrong.front().sentence;
    }
}

TEST(Statement, WithoutHeaderIsRefused) {
    EXPECT_EQ(refusal({"a,b", "c,d"}),
              "S: no line is a header that one of the layouts knows; --layout FILE.toml describes another one");
    EXPECT_EQ(refusal({"成交日期,证券代码,操作,成交均价,手续费"}),
              "S:1: the header is most like that of the layout chinese, but has no column 成交数量 or 数量; add it, or "
              "describe this header with --layout FILE.toml");
    EXPECT_EQ(refusal({"成交日期,证券代码,操作,成交数量,成交均价"}),
              "S:1: the header is most like that of the layout chinese, but has no column of what was charged; add "
              "it, or describe this header with --layout FILE.toml");
}

TEST(Statement, WithAColumnTwiceIsRefused) {
    EXPECT_EQ(refusal({"说明", "成交日期,证券代码,操作,成交数量,成交均价,手续费,手续费"}),
              "S:2: columns 6 and 7 are both called 手续费, and only one can be read; rename the other");
    EXPECT_EQ(refusal({"成交日期,证券代码,操作,成交数量,成交日期,成交均价,手续费"}),
              "S:1: columns 1 and 5 are both called 成交日期, and only one can be read; rename the other");
    EXPECT_EQ(
        refusal({"成交日期,证券代码,操作,成交数量,成交均价,佣金,手续费"}),
        "S:1: column 7 (手续费) and column 6 (佣金) may both be the commission; say which in a layout of your own, "
        "with --layout FILE.toml");
    EXPECT_EQ(read({"成交日期,备注,备注,证券代码,操作,成交数量,成交均价,手续费"}).statement.layout.name, "chinese");
}

TEST(Statement, ThatFitsTwoLayoutsAlikeIsRefused) {
    const std::vector<Layout> bundled = FolderLayouts(BUNDLED_MARKET).all();
    std::vector<Layout> twice{bundled.front(), bundled.front()};
    twice.back().name = "other";
    std::vector<WrongLine> wrong;
    try {
        statementIn({kHeader}, "S", twice, wrong);
        ADD_FAILURE();
    } catch (const Failure& failure) {
        EXPECT_EQ(std::string(failure.what()),
                  "S:1: the header fits the layouts chinese and other alike; name one with --layout");
    }
}

}  // namespace
}  // namespace feedesk::test
