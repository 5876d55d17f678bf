#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/feedesk/support/market_folder.h"
#include "tests/feedesk/support/program.h"

namespace feedesk::test {
namespace {

using testing::HasSubstr;

TEST(Accounts, AreListedWithWhatIsFedForThem) {
    const MarketFolder folder;
    const std::vector<std::string> csv = lines(ask(folder.path(), "accounts --csv").out);
    ASSERT_EQ(csv.size(), 13U);
    EXPECT_EQ(csv[0], "account,kind,name,platform,fee_records,custom_fees");
    EXPECT_EQ(csv[1], "S100,stock,股票户,0,4,1");
    EXPECT_EQ(csv[4], "F200,futures,模拟户,9001,0,0");
    EXPECT_EQ(csv[6], "O100,option,期权户,0,0,2");
    EXPECT_EQ(csv[10], "P100,prime_brokerage,主经纪商户,0,0,0");
}

TEST(Accounts, FitTheWidth) {
    const MarketFolder folder;
    const Outcome outcome = ask(folder.path(), "accounts");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.out, HasSubstr("S100     stock            股票户"));
    EXPECT_LE(widestLine(outcome.out), 80U);
    EXPECT_LE(widestLine(ask(folder.path(), "accounts", "COLUMNS=40").out), 40U);
}

TEST(Accounts, AreObjectsInJson) {
    const MarketFolder folder;
    EXPECT_THAT(ask(folder.path(), "accounts --json").out,
                HasSubstr(R"({"account":"F200","kind":"futures","name":"模拟户","platform":9001,"fee_records":0,)"
                          R"("custom_fees":0})"));
}

}  // namespace
}  // namespace feedesk::test
