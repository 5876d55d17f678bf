#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "tests/feedesk/support/program.h"
#include "tests/feedesk/support/sample_folder.h"

namespace feedesk::test {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

/// What may stand in the place of the last word.
std::vector<std::string> completionsOf(const std::string& words) {
    const SampleFolder folder;
    return lines(ask(folder.path(), "complete -- " + words).out);
}

TEST(Completion, OfTheFirstWordIsACommand) {
    EXPECT_THAT(completionsOf("fe"), ElementsAre("fee", "fees"));
    EXPECT_THAT(completionsOf("''"), AllOf(Contains("cost"), Contains("accounts"), Not(Contains("complete"))));
    EXPECT_THAT(completionsOf("--date 2024-01-02 fe"), ElementsAre("fee", "fees"));
}

TEST(Completion, OfADashIsAnOptionOfTheCommandOrOfAll) {
    EXPECT_THAT(completionsOf("fees --m"), ElementsAre("--market", "--match"));
    EXPECT_THAT(completionsOf("fee --m"), ElementsAre("--market"));
    EXPECT_THAT(completionsOf("--js"), IsEmpty());
}

TEST(Completion, OfAnOptionsValueIsLeftToTheShell) {
    EXPECT_THAT(completionsOf("cost --trades ''"), IsEmpty());
    EXPECT_THAT(completionsOf("fee --xlsx S"), IsEmpty());
}

struct ValueCase {
    const char* words;
    std::vector<std::string> found;
};

TEST(Completion, OfAnOptionThatTakesSomeWordsIsOneOfThem) {
    for (const ValueCase& each : std::vector<ValueCase>{
             {"check --only p", {"percent-rate"}},
             {"check --off built-in-default look", {"look-alike"}},
             {"check --only=old", {"--only=old-duty"}},
             {"check --fail-on ''", {"error", "never", "note", "warning"}},
             {"check --fail-on error --account F1", {"F100"}},
             {"check --account S100 --on", {"--only"}},
             {"fees --accounts H", {"H100", "H200"}},
             {"stats --accounts H1", {"H100"}},
             {"diff a b --expect-only S100 S2", {"S200"}},
             {"fees S100 --only-market S", {"SH", "SHFE", "SHO", "SZ"}},
             {"cost S100 SH:600519 buy 1@1 --hedge ''", {"arbitrage", "hedging", "speculation"}},
             {"cost --totals o", {"order"}},
             {"cost --totals account,d", {"account,day"}},
             {"cost --totals=account,d", {"--totals=account,day"}},
             {"reconcile S100 f --encoding u", {"utf-8"}},
             {"completion ''", {"bash", "zsh"}},
             {"completion b", {"bash"}},
         }) {
        EXPECT_EQ(completionsOf(each.words), each.found) << each.words;
    }
}

TEST(Completion, OfAnAccountIsItsNumber) {
    EXPECT_THAT(completionsOf("fee F"), ElementsAre("F100", "F200", "F300", "F400"));
    EXPECT_THAT(completionsOf("fees --match x S1"), ElementsAre("S100"));
}

TEST(Completion, OfAnInstrumentGoesFromMarketToCode) {
    EXPECT_THAT(completionsOf("fee S100 SHF"), ElementsAre("SHFE:"));
    EXPECT_THAT(completionsOf("fee S100 SH:6005"), ElementsAre("SH:600519"));
    EXPECT_THAT(completionsOf("fee S100 SH:600519 60051"), ElementsAre("600519"));
    EXPECT_THAT(completionsOf("fee S100 贵"), ElementsAre("贵州茅台"));
    EXPECT_THAT(completionsOf("fee S100 ''"), Not(Contains(HasSubstr("600519"))));
}

TEST(Completion, OfALayoutIsItsNameInTheFolder) {
    const SampleFolder folder;
    folder.write("layouts/plain.toml", "");
    folder.write("layouts/split.toml", "");
    const auto layouts = [&](const std::string& begun) {
        return lines(ask(folder.path(), "complete -- reconcile S100 f --layout " + begun).out);
    };
    EXPECT_THAT(layouts("''"), ElementsAre("plain", "split"));
    EXPECT_THAT(layouts("s"), ElementsAre("split"));
    EXPECT_THAT(layouts("my/file"), IsEmpty());  // the shell completes files
}

TEST(Completion, IsOfTheFolderThatTheLineNames) {
    const SampleFolder folder;
    EXPECT_THAT(lines(runProgram("complete -- --market " + folder.path() + " fee S1").out), ElementsAre("S100"));
    const Outcome none = runProgram("complete -- --market /none fee S1");
    EXPECT_EQ(none.status, 0);
    EXPECT_EQ(none.out + none.err, "");
}

/// What bash puts in the place of the last word of a line.
std::string bashReplies(const std::string& line) {
    const SampleFolder folder;
    const std::string directory = FEEDESK_PROGRAM;
    return runShell("export PATH=" + directory.substr(0, directory.rfind('/')) + ":$PATH FEEDESK_MARKET=" +
                    folder.path() + "; bash -c '. <(feedesk completion bash); compopt() { :; }; COMP_LINE=\"" + line +
                    "\" COMP_POINT=${#COMP_LINE}; COMP_POINT=" + std::to_string(line.size()) +
                    "; _feedesk; echo \"${COMPREPLY[*]}\"'")
        .out;
}

TEST(Completion, IsAskedForByBash) {
    EXPECT_EQ(bashReplies("feedesk fe"), "fee fees\n");
    EXPECT_EQ(bashReplies("feedesk fee F"), "F100 F200 F300 F400\n");
    // bash takes what follows the colon for the word.
    EXPECT_EQ(bashReplies("feedesk fee S100 SH:6005"), "600519\n");
}

TEST(Completion, OfOptionValuesIsAskedForByBash) {
    EXPECT_EQ(bashReplies("feedesk check --fail-on e"), "error\n");
    // bash takes what follows the sign for the word.
    EXPECT_EQ(bashReplies("feedesk check --only=old"), "old-duty\n");
    EXPECT_EQ(bashReplies("feedesk completion "), "bash zsh\n");
    EXPECT_EQ(bashReplies("feedesk fees --accounts H"), "H100 H200\n");
}

TEST(Completion, OfOptionValuesIsAskedForByZsh) {
    const SampleFolder folder;
    const std::string program = FEEDESK_PROGRAM;
    // Stands in for the shell's own function: shows what it is given.
    const std::string script = folder.path() + "/ask.zsh";
    folder.write("ask.zsh",
                 "compdef() { :; }\ncompadd() { shift; print -r -- \"$@\"; }\n"
                 "eval \"$(" +
                     program +
                     " completion zsh)\"\n"
                     "words=(" +
                     program +
                     " check --only=old); CURRENT=3; _feedesk\n"
                     "words=(" +
                     program + " fees --accounts H); CURRENT=4; _feedesk\n");
    std::filesystem::rename(script, folder.path() + ".zsh");
    EXPECT_EQ(runShell("FEEDESK_MARKET=" + folder.path() + " zsh -f " + folder.path() + ".zsh").out,
              "--only=old-duty\nH100 H200\n");
    std::filesystem::remove(folder.path() + ".zsh");
}

TEST(Completion, OfAnotherShellIsRefused) {
    const Outcome outcome = runProgram("completion fish");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.err, HasSubstr("there is no completion for the shell \"fish\", but for bash or zsh"));
    EXPECT_THAT(runProgram("completion zsh").out, testing::StartsWith("#compdef feedesk\n"));
}

}  // namespace
}  // namespace feedesk::test
