#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/feedesk/support/program.h"
#include "tests/feedesk/support/sample_folder.h"

namespace feedesk::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;

class InstrumentsCommand : public testing::Test {
protected:
    Outcome instruments(const std::string& arguments) const { return ask(folder.path(), "instruments " + arguments); }

    /// "market,code" of each line.
    std::vector<std::string> found(const std::string& arguments) const {
        std::vector<std::string> places = lines(instruments(arguments + " --csv").out);
        places.erase(places.begin());  // the header
        for (std::string& line : places) {
            line.resize(line.find(',', line.find(',') + 1));
        }
        return places;
    }

    SampleFolder folder;
};

TEST_F(InstrumentsCommand, ListsAllByMarketAndCode) {
    EXPECT_THAT(found(""), ElementsAre("HK,00700", "SH,000001", "SH,600000", "SH,600519", "SHFE,au2612", "SHFE,rb2610",
                                       "SHO,10001", "SZ,000001", "SZ,300750"));
}

TEST_F(InstrumentsCommand, FindsACodeInEveryMarketThatHasIt) {
    EXPECT_THAT(found("000001"), ElementsAre("SH,000001", "SZ,000001"));
    EXPECT_THAT(found("SZ:000001"), ElementsAre("SZ,000001"));
}

TEST_F(InstrumentsCommand, FindsNamesAndPartsOfThemInAnyWriting) {
    EXPECT_THAT(found("贵州茅台"), ElementsAre("SH,600519"));
    EXPECT_THAT(found("银行"), ElementsAre("SH,600000", "SZ,000001"));
    EXPECT_THAT(found("RB2610"), ElementsAre("SHFE,rb2610"));
    EXPECT_THAT(found("２６１"), ElementsAre("SHFE,au2612", "SHFE,rb2610"));
    EXPECT_THAT(found("SZ:银行"), ElementsAre("SZ,000001"));
}

TEST_F(InstrumentsCommand, FindsPatternsAndNamesNothingTwice) {
    EXPECT_THAT(found("'SH*:6*' 600519 '6005*'"), ElementsAre("SH,600000", "SH,600519"));
}

TEST_F(InstrumentsCommand, KeepsToTheMarketsAskedFor) {
    EXPECT_THAT(found("--only-market sz"), ElementsAre("SZ,000001", "SZ,300750"));
    const Outcome none = instruments("600519 --only-market SZ");
    EXPECT_EQ(none.status, 1);
    EXPECT_EQ(none.out, "");
    EXPECT_EQ(none.err, "feedesk: none of the instruments found is in a market that is asked for\n");
}

TEST_F(InstrumentsCommand, ReportsWhatIsNotFoundAndListsTheRest) {
    const Outcome outcome = instruments("600519 '9*' --csv");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(lines(outcome.out), SizeIs(2));
    EXPECT_EQ(outcome.err,
              "feedesk: the market folder has no instrument like 9*; '*9*' finds the text inside codes and "
              "names\n");
}

TEST_F(InstrumentsCommand, SaysWhereNothingIsFound) {
    const Outcome outcome = instruments("XYZ --json");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "[]\n");
    EXPECT_THAT(outcome.err, HasSubstr("the market folder has no instrument XYZ"));
}

TEST_F(InstrumentsCommand, ShowsWhatTheFolderSaysOfAnInstrument) {
    EXPECT_EQ(
        instruments("rb2610 00700 --json").out,
        "[\n"
        R"({"market":"HK","code":"00700","name":"腾讯控股","lists":["hgt","sgt"],"product":null,"trade_unit":200,"quantity_step":null,)"
        R"("multiplier":null,"tick":null,"fee_type":null,"open_fee":null,"close_fee":null,)"
        R"("close_today_fee":null,"source":"instruments/all.csv:7"})"
        ",\n"
        R"({"market":"SHFE","code":"rb2610","name":"螺纹钢2610","lists":["futures"],"product":"rb","trade_unit":1,"quantity_step":null,)"
        R"("multiplier":null,"tick":null,"fee_type":"per_lot","open_fee":3,"close_fee":4,)"
        R"("close_today_fee":5,"source":"instruments/all.csv:9"})"
        "\n]\n");
}

TEST_F(InstrumentsCommand, ShowsAQuantityStepOfItsOwn) {
    folder.write("instruments/more.csv", "market,code,name,lists,quantity_step\nSH,688981,中芯国际,stock,1\n");
    EXPECT_THAT(instruments("688981 --json").out, HasSubstr(R"("trade_unit":100,"quantity_step":1,)"));
}

TEST_F(InstrumentsCommand, HasATableWithoutTheColumnsThatNobodyFills) {
    EXPECT_EQ(instruments("600519").out,
              "Market  Code    Name      Lists  Trade unit  Source\n"
              "SH      600519  贵州茅台  stock         100  instruments/all.csv:2\n");
}

}  // namespace
}  // namespace feedesk::test
