#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidjson/document.h>
#include <rapidjson/pointer.h>

#include "feedesk/session/session.h"
#include "tests/feedesk/support/program.h"
#include "tests/feedesk/support/sample_folder.h"

namespace feedesk::test {
namespace {

using testing::HasSubstr;
using testing::Not;

class Fee : public testing::Test {
protected:
    Outcome fee(const std::string& arguments, const std::string& environment = "") const {
        return ask(folder.path(), "fee " + arguments, environment);
    }

    SampleFolder folder;
};

/// A parsed JSON text; a path is "/0/rates/commission".
class Json {
public:
    explicit Json(const std::string& text) { document.Parse(text.data(), text.size()); }

    [[nodiscard]] bool parsed() const { return !document.HasParseError(); }
    [[nodiscard]] std::string text(const char* path) const {
        const rapidjson::Value* found = rapidjson::Pointer(path).Get(document);
        return found != nullptr && found->IsString() ? found->GetString() : "?";
    }
    [[nodiscard]] double number(const char* path) const {
        const rapidjson::Value* found = rapidjson::Pointer(path).Get(document);
        return found != nullptr && found->IsNumber() ? found->GetDouble() : -1;
    }
    [[nodiscard]] bool isNull(const char* path) const {
        const rapidjson::Value* found = rapidjson::Pointer(path).Get(document);
        return found != nullptr && found->IsNull();
    }

private:
    rapidjson::Document document;
};

TEST_F(Fee, TableShowsTheRatesThatAreNotZeroAndNamesTheOthers) {
    const Outcome outcome = fee("S100 SH:600519 SZ:300750");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out,
              "Account S100 (stock) 股票户\n"
              "\n"
              "Stock rates\n"
              "                                  Stamp  Trade\n"
              "Instrument  Name      Commission   duty   unit  Level       Source\n"
              "SH:600519   贵州茅台      0.025%  0.05%    100  own record  fees/stock.csv:2\n"
              "SZ:300750   宁德时代    0.00341%  0.05%    100  own record  fees/stock.csv:3\n"
              "Rates not shown are 0: Transfer fee.\n");
}

TEST_F(Fee, TableNumbersTheSourcesWhereRoomIsShort) {
    const Outcome outcome = fee("S100 SH:600519 SH:600000", "COLUMNS=64");
    EXPECT_THAT(outcome.out, HasSubstr("own record [1]\n"));
    EXPECT_THAT(outcome.out, HasSubstr("custom fee [2]\n"));
    EXPECT_THAT(outcome.out, HasSubstr("\n[1] fees/stock.csv:2\n[2] custom/stock.csv:2\n"));
}

TEST_F(Fee, TableAddsTheTwoPartsOfACommission) {
    const Outcome outcome = fee("F100 rb2610");
    EXPECT_THAT(outcome.out, HasSubstr("0.01% + 0.01 yuan"));
    EXPECT_THAT(outcome.out, HasSubstr("2.5 yuan"));
    EXPECT_THAT(outcome.out, HasSubstr("Rates not shown are 0: Close today.\n"));
    EXPECT_THAT(outcome.out, HasSubstr("Hedge flag     Long  Short  Level       Source\n"
                                       "SHFE:rb2610 螺纹钢2610\n"
                                       "  speculation    7%     8%  own record  fees/margin.csv:2\n"));
}

TEST_F(Fee, TableSaysWhatIsNotSet) {
    EXPECT_THAT(fee("F300 rb2610").out, HasSubstr("Hedge flag     Long  Short  Level       Source\n"
                                                  "SHFE:rb2610 螺纹钢2610\n"
                                                  "  speculation     -      -  NOT SET\n"
                                                  "  arbitrage     12%    13%  custom fee  custom/margin.csv:2\n"
                                                  "  hedging         -      -  NOT SET\n"));
}

TEST_F(Fee, TableShowsTheItemsOfAnOption) {
    EXPECT_THAT(fee("O100 10001").out, HasSubstr("Item   Handling fee  Level       Source\n"
                                                 "SHO:10001 50ETF购12月2500\n"
                                                 "  000      1.3 yuan  custom fee  custom/option.csv:2\n"
                                                 "  0D              0  custom fee  custom/option.csv:3\n"));
}

TEST_F(Fee, SimulationPlatformShowsTheExchangesFee) {
    const std::string out = fee("F200 rb2610").out;
    EXPECT_THAT(out, HasSubstr("3 yuan  4 yuan"));
    EXPECT_THAT(out, HasSubstr("exchange fee"));
}

TEST_F(Fee, QuotientIsReadAsTheExchangeQuotesIt) {
    // 2.3 ten-thousandths; the quotient is 0.00022999999999999998.
    folder.write("instruments/all.csv",
                 "market,code,name,lists,product,fee_type,open_fee\n"
                 "SH,600000,p,stock,,,\nSHO,10001,o,option,,,\nHK,00700,h,hgt,,,\n"
                 "SHFE,rb2610,r,futures,rb,per_turnover,2.3\nSHFE,au2612,a,futures,au,per_turnover,1\n"
                 "SZ,000001,z,stock,,,\nSH,600519,m,stock,,,\n");
    EXPECT_THAT(fee("F200 rb2610").out, HasSubstr(" 0.023%  "));
    EXPECT_THAT(fee("F200 rb2610 --json").out, HasSubstr("\"open_by_money\":0.00023,"));
    EXPECT_THAT(fee("F200 rb2610 --csv").out, HasSubstr(",0.00023,"));
}

TEST_F(Fee, EveryAccountFitsTheWidth) {
    for (const std::string question :
         {"S100 600519 SH:000001 SZ:000001", "F100 rb2610 au2612", "F200 rb2610", "F300 rb2610", "O100 10001",
          "O200 10001", "H100 HK:00700", "P100 600519 HK:00700 10001 rb2610", "W100 600519 rb2610"}) {
        for (const std::size_t width : {80U, 60U, 44U}) {
            const Outcome outcome = fee(question, "COLUMNS=" + std::to_string(width));
            EXPECT_EQ(outcome.status, 0);
            EXPECT_LE(widestLine(outcome.out), width) << question << "\n" << outcome.out;
        }
    }
}

TEST_F(Fee, JsonHoldsTheExactNumbers) {
    const Outcome outcome = fee("S100 SZ:300750 SH:000001 --json");
    const Json json(outcome.out);
    ASSERT_TRUE(json.parsed()) << outcome.out;
    EXPECT_EQ(json.text("/0/account"), "S100");
    EXPECT_EQ(json.text("/0/kind"), "stock");
    EXPECT_EQ(json.text("/0/instrument/market"), "SZ");
    EXPECT_EQ(json.text("/0/instrument/code"), "300750");
    EXPECT_EQ(json.text("/0/instrument/name"), "宁德时代");
    EXPECT_EQ(json.text("/0/part"), "stock");
    EXPECT_EQ(json.text("/0/item"), "");
    EXPECT_EQ(json.text("/0/level"), "own record");
    EXPECT_EQ(json.text("/0/source"), "fees/stock.csv:3");
    EXPECT_EQ(json.number("/0/rates/commission"), 0.0000341);
    EXPECT_EQ(json.number("/0/rates/transfer_fee"), 0);
    EXPECT_EQ(json.number("/0/rates/stamp_duty"), 0.0005);
    EXPECT_EQ(json.number("/0/rates/trade_unit"), 100);
    EXPECT_EQ(json.text("/1/instrument/name"), "上证 \"A\", 指数");
    EXPECT_EQ(json.text("/1/level"), "built-in default");
    EXPECT_TRUE(json.isNull("/1/source"));
    EXPECT_EQ(json.number("/1/rates/commission"), 0.00015);
    EXPECT_EQ(json.text("/2/account"), "?");
}

TEST_F(Fee, JsonHasOneObjectForEachRecordOfAFuture) {
    const Outcome outcome = fee("F100 rb2610 --json");
    const Json json(outcome.out);
    ASSERT_TRUE(json.parsed()) << outcome.out;
    EXPECT_EQ(json.text("/0/part"), "commission");
    EXPECT_EQ(json.number("/0/rates/open_by_money"), 0.0001);
    EXPECT_EQ(json.number("/0/rates/open_by_volume"), 0.01);
    EXPECT_EQ(json.number("/0/rates/close_by_volume"), 2.5);
    EXPECT_EQ(json.text("/1/part"), "margin");
    EXPECT_EQ(json.text("/1/item"), "1");
    EXPECT_EQ(json.number("/1/rates/long_by_money"), 0.07);
    EXPECT_EQ(json.number("/1/rates/short_by_money"), 0.08);
}

TEST_F(Fee, CsvHasOneLineForEachItem) {
    EXPECT_EQ(fee("O100 10001 --csv").out,
              "account,kind,market,code,name,part,item,level,source,marks,handling_fee,fee2,fee3,fee4,fee5,base_rate\n"
              "O100,option,SHO,10001,50ETF购12月2500,option,000,custom fee,custom/option.csv:2,,1.3,0,0,0,0,0\n"
              "O100,option,SHO,10001,50ETF购12月2500,option,0D,custom fee,custom/option.csv:3,,0,0,0,0,0,0\n");
}

TEST_F(Fee, CsvQuotesNames) {
    EXPECT_THAT(fee("S100 SH:000001 --csv").out, HasSubstr("SH,000001,\"上证 \"\"A\"\", 指数\",stock,"));
}

TEST_F(Fee, ConnectAccountTakesTheChannelsName) {
    const Outcome outcome = fee("H100 HGT:00700 --csv");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.out, HasSubstr("H100,hgt,HK,00700,腾讯控股,hgt,,own record,fees/hgt.csv:2,,0.0003,"));
}

TEST_F(Fee, UnknownInstrumentHasNoAnswer) {
    const Outcome outcome = fee("S100 SH:600518");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "feedesk: the market folder has no instrument SH:600518; did you mean SH:600519?\n");
}

TEST_F(Fee, KnownInstrumentsAreAnsweredNextToAnUnknownOne) {
    const Outcome outcome = fee("S100 SH:600518 SH:600519");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.out, HasSubstr("SH:600519"));
    EXPECT_EQ(outcome.err, "feedesk: the market folder has no instrument SH:600518; did you mean SH:600519?\n");
}

TEST_F(Fee, InstrumentOutsideTheListsOfTheKindIsAnsweredWithANoteBelowTheTable) {
    const Outcome outcome = fee("F100 SH:600519");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_THAT(outcome.out,
                HasSubstr("\n\nSH:600519 is in no list of futures instruments; the fee center answers all the\n"
                          "same, with built-in default\n"));
}

TEST_F(Fee, NoteStaysOutOfAnAnswerForPrograms) {
    const std::string note =
        "HK:00700 is in no list of stock instruments; the fee center answers all the same, with built-in default";
    const std::string count = "1 of 2 instruments answered with the built-in default";
    for (const auto& [form, messages] : std::vector<std::pair<std::string, std::string>>{
             {"--json", "{\"note\":\"" + note + "\"}\n{\"note\":\"" + count + "\"}\n"},
             {"--csv", "feedesk: " + note + "\nfeedesk: " + count + "\n"}}) {
        const Outcome outcome = fee("S100 HK:00700 SH:600519 " + form);
        EXPECT_EQ(outcome.status, 0);
        EXPECT_THAT(outcome.out, Not(HasSubstr("in no list")));
        EXPECT_EQ(outcome.err, messages);
    }
}

TEST_F(Fee, NotesOfManyInstrumentsAreOne) {
    EXPECT_THAT(
        fee("S100 HK:00700 rb2610 --csv").err,
        HasSubstr("feedesk: HK:00700 and SHFE:rb2610 are in no list of stock instruments; the fee center answers "
                  "all the same, with built-in default\n"));
    EXPECT_THAT(
        fee("F100 'S*:*0*' --csv").err,
        HasSubstr("feedesk: SH:000001, SH:600000, SH:600519 and 3 more are in no list of futures instruments; "));
}

TEST_F(Fee, PatternIsAnsweredByMarketAndCode) {
    const Outcome outcome = fee("S100 'S*:*0*' --csv");
    EXPECT_EQ(outcome.status, 0);
    const std::vector<std::string> csv = lines(outcome.out);
    ASSERT_EQ(csv.size(), 8U) << outcome.out;
    EXPECT_THAT(csv[1], testing::StartsWith("S100,stock,SH,000001,"));
    EXPECT_THAT(csv[4], testing::StartsWith("S100,stock,SHFE,rb2610,"));
    EXPECT_THAT(csv[7], testing::StartsWith("S100,stock,SZ,300750,"));
}

TEST_F(Fee, PatternThatNothingIsLikeHasNoAnswer) {
    const Outcome outcome = fee("S100 'SH:9*' SH:600519 --csv");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(lines(outcome.out).size(), 2U);
    EXPECT_EQ(outcome.err,
              "feedesk: the market folder has no instrument like SH:9*; '*9*' finds the text inside codes and names\n");
}

TEST_F(Fee, PatternOfThousandsIsAnswered) {
    std::string table =
        "market,code,name,lists\nSH,600519,贵州茅台,stock\nSH,600000,浦发银行,stock\n"
        "SZ,000001,平安银行,stock\nHK,00700,腾讯控股,hgt\n";
    for (int code = 10000; code < 15000; ++code) {
        table += "SHO," + std::to_string(code) + ",期权,option\n";
    }
    folder.write("instruments/all.csv", table + "SHFE,rb2610,螺纹钢2610,futures\nSHFE,au2612,黄金2612,futures\n");
    const Outcome outcome = fee("O200 'SHO:*' --json");
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_THAT(outcome.out, HasSubstr("\"code\":\"10000\""));
    EXPECT_THAT(outcome.out, HasSubstr("\"code\":\"14999\""));
}

TEST_F(Fee, KindsThatTradeEverythingHaveNoNote) {
    for (const std::string account : {"P100", "W100"}) {
        const Outcome outcome = fee(account + " SH:600519 rb2610");
        EXPECT_EQ(outcome.status, 0);
        EXPECT_THAT(outcome.out, Not(HasSubstr("in no list")));
    }
}

TEST_F(Fee, CharactersThatTheTerminalObeysAreEscaped) {
    folder.write("accounts.csv",
                 "account,name,kind\nS100,a\xC2\x9B"
                 "31m\xE2\x80\xAE"
                 "b\x1B[0m,stock\nF100,f,futures\n"
                 "F300,f,futures\nF400,f,futures\nO100,o,option\nH100,h,hgt\n");
    EXPECT_THAT(fee("S100 SH:600519").out,
                testing::StartsWith("Account S100 (stock) a\\xc2\\x9b31m\\xe2\\x80\\xaeb\\x1b[0m\n"));
    EXPECT_THAT(ask(folder.path(), "accounts").out, HasSubstr("  a\\xc2\\x9b31m\\xe2\\x80\\xaeb\\x1b[0m  "));
    EXPECT_THAT(ask(folder.path(), "accounts --json").out, HasSubstr("\"a\\u009B31m\\u202Eb\\u001B[0m\""));
}

TEST_F(Fee, ArgumentsAreRepeatedReadably) {
    EXPECT_THAT(fee("'' SH:600519").err, HasSubstr("has no account \"\";"));
    EXPECT_EQ(fee("S100 ''").err, "feedesk: the market folder has no instrument \"\"\n");
    EXPECT_EQ(fee("S100 \"$(printf '\\033[31mx')\"").err,
              "feedesk: the market folder has no instrument \"\\x1b[31mx\"\n");
}

TEST_F(Fee, InstrumentWithoutAnswerDoesNotKeepTheOthersFromTheirs) {
    Session session({folder.path(), 0});
    const Replies replies = session.fees(session.account("S100"), {{"SH", "nothing"}, {"SH", "600519"}});
    ASSERT_EQ(replies.answers.size(), 1U);
    EXPECT_EQ(replies.answers[0].instrument->code, "600519");
    ASSERT_EQ(replies.unanswered.size(), 1U);
    EXPECT_EQ(replies.unanswered[0].code, "nothing");
}

TEST_F(Fee, AmbiguousCodeHasNoAnswer) {
    const Outcome outcome = fee("S100 000001");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "feedesk: several markets have the code 000001: write SH:000001 or SZ:000001\n");
}

TEST_F(Fee, UnknownAccountHasNoAnswerButNearNames) {
    const Outcome outcome = fee("S101 SH:600519");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "feedesk: the market folder has no account S101; did you mean S100?\n");
}

TEST_F(Fee, AccountThatIsLikeNoOtherIsRefusedWithWhereAccountsAre) {
    const Outcome outcome = fee("nobody SH:600519");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "feedesk: the market folder has no account nobody; `feedesk accounts` lists the accounts\n");
}

TEST_F(Fee, SummaryCountsWhatWasLoadedAndAsked) {
    // Records: two stocks each for the two lines of S100, one of H100, one of F100 and one of F400.
    const Outcome outcome = fee("S100 SH:600519 SH:600000 --summary");
    EXPECT_THAT(
        lines(outcome.out).back(),
        testing::MatchesRegex("loaded 9 instruments, 12 accounts, 7 fee records, 5 custom fees; answered 2 queries; "
                              "[0-9]+\\.[0-9]+ ms: .*"));
}

TEST_F(Fee, SummaryStaysOutOfAnAnswerForPrograms) {
    const Outcome outcome = fee("S100 SH:600519 --csv --summary");
    EXPECT_THAT(outcome.out, Not(HasSubstr("loaded")));
    EXPECT_THAT(outcome.err, HasSubstr("answered 1 query; "));
}

}  // namespace
}  // namespace feedesk::test
