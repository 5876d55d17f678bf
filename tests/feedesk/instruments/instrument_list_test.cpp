#include "feedesk/instruments/instrument_list.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/feedesk/support/program.h"
#include "tests/feedesk/support/sample_folder.h"

namespace feedesk::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

/// "line text" of each word.
std::vector<std::string> parsed(const std::string& text) {
    std::vector<std::string> words;
    for (const AskedInstrument& word : parsedList(text)) {
        words.push_back(std::to_string(word.line) + " " + word.text);
    }
    return words;
}

TEST(InstrumentList, HasOneWordALineOrSeveralBetweenBlanks) {
    EXPECT_THAT(parsed("a\n\tb  c \r\nd"), ElementsAre("1 a", "2 b", "2 c", "3 d"));
}

TEST(InstrumentList, PassesOverBlankLinesAndComments) {
    EXPECT_THAT(parsed("# all\n\n  \na # b c\n#\nd#e f"), ElementsAre("4 a", "6 d#e", "6 f"));
}

TEST(InstrumentList, PassesOverAByteOrderMark) {
    EXPECT_THAT(parsed("\xEF\xBB\xBF"
                       "a\n"),
                ElementsAre("1 a"));
}

class InstrumentListOfFee : public testing::Test {
protected:
    Outcome fee(const std::string& arguments, const std::string& list) const {
        return ask(folder.path(), "fee " + arguments + " <<'END'\n" + list + "END\n");
    }
    /// `source` is what the shell runs before the program: a pipe's other end.
    Outcome feeFrom(const std::string& arguments, const std::string& source = "") const {
        return ask(folder.path(), "fee " + arguments, source);
    }

    SampleFolder folder;
};

TEST_F(InstrumentListOfFee, ReplacesTheArgument) {
    const Outcome outcome = fee("S100 SH:600000 - SZ:000001 --csv", "# mine\nSH:600519  'x\nSZ:30*\n");
    const std::vector<std::string> csv = lines(outcome.out);
    ASSERT_EQ(csv.size(), 5U) << outcome.out;
    EXPECT_THAT(csv[1], StartsWith("S100,stock,SH,600000,"));
    EXPECT_THAT(csv[2], StartsWith("S100,stock,SH,600519,"));
    EXPECT_THAT(csv[3], StartsWith("S100,stock,SZ,300750,"));
    EXPECT_THAT(csv[4], StartsWith("S100,stock,SZ,000001,"));
    EXPECT_EQ(outcome.err, "feedesk: standard input:2: the market folder has no instrument 'x\n");
    EXPECT_EQ(outcome.status, 1);
}

TEST_F(InstrumentListOfFee, IsReadOnce) {
    const Outcome outcome = fee("S100 - -", "SH:600519\n");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "feedesk: the argument - was given twice; standard input is one list of instruments\n");
}

TEST_F(InstrumentListOfFee, ThatIsEmptyHasNoAnswer) {
    const Outcome outcome = fee("S100 -", "# nothing\n");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "feedesk: standard input names no instrument\n");
}

TEST_F(InstrumentListOfFee, ThatCannotBeReadIsBadInput) {
    const Outcome outcome = feeFrom("S100 - </");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err, "feedesk: standard input cannot be read: Is a directory\n");
}

TEST_F(InstrumentListOfFee, ThatDoesNotEndIsRefused) {
    const Outcome outcome = feeFrom("S100 - </dev/zero");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.err, HasSubstr("standard input holds more than the 16,000,000 bytes"));
}

TEST_F(InstrumentListOfFee, InGb18030IsRefusedWithTheCommandThatConvertsIt) {
    const Outcome outcome = fee("S100 -", "SH:600519\n\xB9\xF3\xD6\xDD\xC3\xA9\xCC\xA8\n");  // 贵州茅台
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err,
              "feedesk: standard input looks like GB18030 (GBK), but UTF-8 was expected; convert it: "
              "iconv -f GB18030 -t UTF-8 LIST | feedesk fee ACCOUNT -\n");
}

TEST_F(InstrumentListOfFee, MayHaveCommentsInGb18030) {
    const Outcome outcome = fee("S100 - --csv", "SH:600519 # \xB9\xF3\xD6\xDD\xC3\xA9\xCC\xA8\n");
    EXPECT_EQ(lines(outcome.out).size(), 2U) << outcome.out;
    EXPECT_EQ(outcome.status, 0);
}

TEST_F(InstrumentListOfFee, OfBytesThatAreNoTextIsAskedWordByWord) {
    const Outcome outcome = fee("S100 - --csv", "SH:600519\nSH:\xFF\n");
    EXPECT_EQ(lines(outcome.out).size(), 2U) << outcome.out;
    EXPECT_THAT(outcome.err, HasSubstr("standard input:2: the market folder has no instrument \"SH:\\xff\""));
    EXPECT_EQ(outcome.status, 1);
}

TEST_F(InstrumentListOfFee, InUtf16IsRefusedWithTheCommandThatConvertsIt) {
    const Outcome outcome = feeFrom("S100 -", "printf '\\377\\376S\\0H\\0' |");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.err, HasSubstr("standard input looks like UTF-16, but UTF-8 was expected; convert it: "
                                       "iconv -f UTF-16 -t UTF-8 LIST"));
}

TEST_F(InstrumentListOfFee, ThatIsTooLongIsRefused) {
    const Outcome outcome = feeFrom("F100 -", "yes rb2610 | head -n 100001 |");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err,
              "feedesk: standard input names 100,001 instruments; no more than 100,000 may be asked for at once\n");
}

TEST_F(InstrumentListOfFee, OfPatternsThatMatchTooManyIsRefused) {
    // Nine instruments each.
    const Outcome outcome = feeFrom("F100 -", "yes '*:*' | head -n 30000 |");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err, "feedesk: the patterns stand for more than 250,000 instruments; ask in parts\n");
}

TEST_F(InstrumentListOfFee, ReportsAHundredProblemsAndCountsTheOthers) {
    std::string list;
    for (int i = 0; i < 103; ++i) {
        list += "nothing\n";
    }
    const Outcome outcome = fee("S100 -", list);
    const std::vector<std::string> messages = lines(outcome.err);
    ASSERT_EQ(messages.size(), 101U);
    EXPECT_EQ(messages[99], "feedesk: standard input:100: the market folder has no instrument nothing");
    EXPECT_EQ(messages[100], "feedesk: there is no answer for 3 more names either");
    EXPECT_EQ(outcome.status, 1);
}

}  // namespace
}  // namespace feedesk::test
