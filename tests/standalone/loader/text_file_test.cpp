// Texts that are longer than what of a file is in memory at a time, lines without room, and files that change.

#include "standalone/loader/text_file.h"

#include <cmath>

#include "fixture.h"
#include "standalone/loader/line_contents.h"

namespace standalone {
namespace {

using LoaderText = LoaderTest;

// A file is read 65,536 bytes at a time.
constexpr std::size_t kBlock = 65536;

/// A table of accounts of that many bytes: the header, and blank lines of 100 bytes.
std::string tableOf(std::size_t size) {
    std::string text = "account,name,kind,platform\n";
    while (text.size() + 100 < size) {
        text += std::string(99, ' ') + "\n";
    }
    return text + std::string(size - text.size() - 1, ' ') + "\n";
}

bool isGood(const std::string& path) {
    loader::ErrorLog errors;
    return loader::CheckedText::of(path, "accounts.csv", errors).has_value();
}

TEST_F(LoaderText, CharactersAndLineEndsMayLieAcrossBlocks) {
    for (std::size_t before = 1; before <= 6; ++before) {
        for (const char* cell : {"\xE8\x82\xA1\xE7\xA5\xA8", "\xF0\x9F\x98\x80!", "\r\n\r\n\r\n"}) {
            write("accounts.csv", tableOf(kBlock - before) + cell + "\n");
            EXPECT_TRUE(isGood(path("accounts.csv"))) << before << cell;
        }
    }
}

TEST_F(LoaderText, FaultAcrossBlocksIsFoundInItsLine) {
    const std::size_t line = 658;  // behind the header, 655 blank lines and what fills the block up
    for (std::size_t before = 1; before <= 4; ++before) {
        write("accounts.csv", tableOf(kBlock - before) + "ab\xE8\x82\n");
        expectError("accounts.csv", line, {"not UTF-8"});
        write("accounts.csv", tableOf(kBlock - before) + "ab\rc\n");
        expectError("accounts.csv", line, {"carriage return"});
        write("accounts.csv", tableOf(kBlock - before) + std::string("ab\0c\n", 5));
        expectError("accounts.csv", line, {"NUL"});
    }
}

TEST_F(LoaderText, TextThatEndsInsideACharacterIsRefused) {
    write("accounts.csv", tableOf(200) + "\xE8\x82");
    EXPECT_FALSE(isGood(path("accounts.csv")));
}

TEST_F(LoaderText, LineWithoutRoomIsAnErrorAndHidesNoOther) {
    append("accounts.csv", std::string(100001, ',') + "\nZ2,b,shares,\n");
    const LoadResult result = load();
    ASSERT_EQ(result.errors.size(), 2U);
    EXPECT_EQ(result.errors[0].text("m"), "m/accounts.csv:13: the line has more than 100000 bytes; shorten it");
    EXPECT_EQ(result.errors[0].kind, ErrorKind::kTooLong);
    EXPECT_EQ(result.errors[1].line, 14U);
}

TEST_F(LoaderText, FileThatIsWrittenToBetweenTheReadingsIsNoticed) {
    loader::ErrorLog errors;
    auto text = loader::CheckedText::of(path("accounts.csv"), "accounts.csv", errors);
    ASSERT_TRUE(text.has_value());
    const auto readAll = [&] {
        const ReadBlock blocks = text->blocks();
        std::string block(kBlock, ' ');
        while (blocks(block.data(), block.size()) != 0) {
        }
    };
    readAll();
    EXPECT_TRUE(text->isUnchanged());
    replace("accounts.csv", "S1,Stock", "S1,Stick");
    readAll();
    EXPECT_FALSE(text->isUnchanged());
}

TEST(LineContents, AreSharedByLinesWithTheSameCells) {
    loader::LineContents contents;
    loader::RateLine line;
    line.rates[0] = 0.1;
    const auto first = contents.of(line);
    EXPECT_EQ(contents.of(line), first);
    line.hedgeFlag = 1;
    EXPECT_EQ(contents.of(line)->hedgeFlag, 1);
    line.days.until = day("2023-08-28");
    EXPECT_EQ(contents.of(line)->days.until, day("2023-08-28"));
    line.item = "0D1";
    EXPECT_EQ(contents.of(line)->item, "0D1");
    line.rates[13] = -0.0;
    EXPECT_TRUE(std::signbit(contents.of(line)->rates[13]));
    EXPECT_EQ(first->rates[0], 0.1);
}

}  // namespace
}  // namespace standalone
