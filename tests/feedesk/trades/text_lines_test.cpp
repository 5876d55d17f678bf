#include "feedesk/trades/text_lines.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "feedesk/failure.h"
#include "tests/feedesk/support/sample_folder.h"

namespace feedesk::test {
namespace {

class TextLinesTest : public testing::Test {
protected:
    [[nodiscard]] std::vector<std::string> linesOf(const std::string& text) const {
        folder.write("text", text);
        TextLines lines(folder.path() + "/text", true);
        std::vector<std::string> found;
        while (lines.next()) {
            EXPECT_EQ(lines.number(), found.size() + 1);
            found.push_back(lines.line());
        }
        return found;
    }

    SampleFolder folder;
};

using Lines = std::vector<std::string>;

TEST_F(TextLinesTest, LineEndsAreNoPartOfALine) {
    EXPECT_EQ(linesOf("a\nb\r\n\nc"), (Lines{"a", "b", "", "c"}));
    EXPECT_EQ(linesOf("a\n"), (Lines{"a"}));
    EXPECT_EQ(linesOf("\xEF\xBB\xBF"
                      "a\n"),
              (Lines{"a"}));
    EXPECT_EQ(linesOf(""), Lines());
}

TEST_F(TextLinesTest, LinesAreWholeAcrossBlocks) {
    const std::string longLine(70'000, 'x');
    EXPECT_EQ(linesOf("a\n" + longLine + "\n" + longLine + "\nb"), (Lines{"a", longLine, longLine, "b"}));
}

TEST_F(TextLinesTest, ReadsAgainFromTheBeginning) {
    folder.write("text", "a\nb\n");
    TextLines lines(folder.path() + "/text", true);
    while (lines.next()) {
    }
    lines.restart();
    ASSERT_TRUE(lines.next());
    EXPECT_EQ(lines.line(), "a");
    EXPECT_EQ(lines.number(), 1U);
}

TEST_F(TextLinesTest, LineWithoutEndIsRefused) {
    EXPECT_THROW(static_cast<void>(linesOf(std::string(2'000'000, 'x'))), Failure);
}

}  // namespace
}  // namespace feedesk::test
