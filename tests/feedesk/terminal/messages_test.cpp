// What standard error says where JSON is asked for, and what standard output holds then.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/feedesk/support/program.h"
#include "tests/feedesk/support/sample_folder.h"

namespace feedesk::test {
namespace {

using testing::HasSubstr;
using testing::MatchesRegex;
using testing::StartsWith;

class JsonMessages : public testing::Test {
protected:
    Outcome answered(const std::string& arguments) const { return ask(folder.path(), arguments); }

    SampleFolder folder;
};

TEST_F(JsonMessages, SayWhyThereIsNoAnswerWithAnEmptyArray) {
    const Outcome outcome = answered("fee S100 SH:600518 --json");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "[]\n");
    EXPECT_EQ(outcome.err,
              "{\"error\":\"the market folder has no instrument SH:600518; did you mean SH:600519?\",\"status\":1}\n");
}

TEST_F(JsonMessages, NameTheLineOfStandardInput) {
    EXPECT_EQ(answered("fee S100 - --json <<'END'\n\nnothing\nEND\n").err,
              "{\"file\":\"standard input\",\"line\":2,"
              "\"error\":\"the market folder has no instrument nothing\",\"status\":1}\n");
}

TEST_F(JsonMessages, ComeWithAnEmptyArrayWhereverACommandEnds) {
    for (const std::string question :
         {"fee S999 SH:600519", "fees S999", "fees S200", "fees S100 --match 8*", "accounts nobody"}) {
        const Outcome outcome = answered(question + " --json");
        EXPECT_EQ(outcome.status, 1) << question;
        EXPECT_EQ(outcome.out, "[]\n") << question;
        EXPECT_THAT(outcome.err, MatchesRegex("\\{\"error\":\"[^\n]+\",\"status\":1}\n")) << question;
    }
}

TEST_F(JsonMessages, ReportBadUsage) {
    for (const std::string question :
         {"--json", "fee --json", "nonsense --json", "fee S100 --json", "accounts --json --csv", "accounts --json --x",
          "help nonsense --json", "fee S100 - - --json"}) {
        const Outcome outcome = answered(question);
        EXPECT_EQ(outcome.status, 2) << question;
        EXPECT_EQ(outcome.out, "[]\n") << question;
        EXPECT_THAT(outcome.err, MatchesRegex("\\{\"error\":\"[^\n]+\",\"status\":2}\n")) << question;
    }
}

TEST_F(JsonMessages, AreNotAskedForBehindTwoDashes) {
    const Outcome outcome = answered("fee S100 -- --json");
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "feedesk: the market folder has no instrument --json\n");
}

TEST_F(JsonMessages, ReportTheErrorsOfTheFolder) {
    folder.write("fees/stock.csv", "account,market,code,commission\nS100,SH,600519,x\n");
    const Outcome outcome = answered("accounts --json");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.out, "[]\n");
    const std::vector<std::string> messages = lines(outcome.err);
    ASSERT_EQ(messages.size(), 2U) << outcome.err;
    EXPECT_THAT(messages[0], StartsWith("{\"file\":\"fees/stock.csv\",\"line\":2,\"path\":\"" + folder.path() +
                                        "/fees/stock.csv\",\"column\":\"commission\",\"kind\":\"number\","
                                        "\"error\":\"column commission holds \\\"x\\\""));
    EXPECT_EQ(messages[1], "{\"error\":\"1 error; nothing was loaded\",\"status\":2}");
}

TEST_F(JsonMessages, CountTheErrorsPastAHundred) {
    std::string table = "account,market,code,commission\n";
    for (int i = 0; i < 105; ++i) {
        table += "S100,SH,600519,x\n";
    }
    folder.write("fees/stock.csv", table);
    const std::vector<std::string> messages = lines(answered("accounts --json").err);
    ASSERT_EQ(messages.size(), 102U);
    EXPECT_THAT(messages[100],
                StartsWith("{\"file\":\"fees/stock.csv\",\"line\":102,\"kind\":\"number\",\"further\":5,"));
    EXPECT_THAT(messages[100], HasSubstr(",\"error\":\""));
}

TEST_F(JsonMessages, SayThatTheFolderIsMissing) {
    const Outcome outcome = ask("/nonexistent", "accounts --json");
    EXPECT_EQ(outcome.out, "[]\n");
    EXPECT_THAT(outcome.err, StartsWith("{\"file\":null,\"line\":null,\"path\":\"/nonexistent\",\"column\":null,"
                                        "\"kind\":\"folder\",\"error\":\""));
}

TEST_F(JsonMessages, ContainNotesAndTheSummary) {
    const std::vector<std::string> messages = lines(answered("fee S100 HK:00700 --json --summary").err);
    ASSERT_EQ(messages.size(), 3U);
    EXPECT_THAT(messages[0], StartsWith("{\"summary\":\"loaded 9 instruments, "));
    EXPECT_THAT(messages[1], StartsWith("{\"note\":\"HK:00700 is in no list of stock instruments; "));
    EXPECT_THAT(messages[2], StartsWith("{\"note\":\"1 of 1 instrument"));
}

TEST_F(JsonMessages, SayThatTheAnswerCannotBeWritten) {
    const Outcome outcome = answered("fee S100 nothing --json >/dev/full");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(lines(outcome.err).size(), 2U);
    EXPECT_THAT(outcome.err, HasSubstr("{\"error\":\"the answer could not be written: "));
    EXPECT_EQ(lines(answered("fee S999 SH:600519 --json >/dev/full").err).size(), 2U);
    EXPECT_EQ(lines(answered("fee S100 SH:600519 --json >/dev/full").err).size(), 1U);
}

}  // namespace
}  // namespace feedesk::test
