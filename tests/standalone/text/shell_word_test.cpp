// Texts as the words of a shell command.

#include "standalone/text/shell_word.h"

#include <gtest/gtest.h>

namespace standalone {
namespace {

TEST(ShellWord, IsQuotedWhereAShellWouldChangeIt) {
    EXPECT_EQ(shellWord("market/fees-1_x.patch"), "market/fees-1_x.patch");
    EXPECT_EQ(shellWord("市场/费率.csv"), "市场/费率.csv");
    EXPECT_EQ(shellWord("m m"), "'m m'");
    EXPECT_EQ(shellWord("a'b"), "'a'\\''b'");
    EXPECT_EQ(shellWord("$x;"), "'$x;'");
    EXPECT_EQ(shellWord(""), "''");
}

}  // namespace
}  // namespace standalone
