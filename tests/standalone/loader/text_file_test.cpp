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

/// Lines of two tables, kept in a store of their own.
class KeptLines : public testing::Test {
protected:
    loader::KeptLine kept(const loader::RateLine& line, const char* family = "stock") {
        return contents.kept(rateFamily(family), line, {});
    }

    std::pmr::monotonic_buffer_resource rates;
    loader::LineContents contents{rates};
};

TEST_F(KeptLines, ShareTheirCells) {
    loader::RateLine line;
    const auto first = kept(line).line;
    EXPECT_EQ(first->family, &rateFamily("stock"));
    EXPECT_EQ(kept(line).line, first);
    EXPECT_EQ(kept(line, "credit").line->family, &rateFamily("credit"));
    line.hedgeFlag = 1;
    EXPECT_EQ(kept(line).line->hedgeFlag, 1);
    line.days.until = day("2023-08-28");
    EXPECT_EQ(kept(line).line->days.until, day("2023-08-28"));
    line.item = "0D1";
    EXPECT_EQ(kept(line).line->item, "0D1");
    EXPECT_EQ(first->item, "");
}

TEST_F(KeptLines, ShareTheirRatesAndKeepNoneThatIsZero) {
    loader::RateLine line;
    EXPECT_EQ(kept(line).given, nullptr);
    line.rates = {0, 0.1, 0, 0.2};
    const loader::KeptLine first = kept(line);
    EXPECT_EQ(first.line->givenRates.count(), 2U);
    EXPECT_EQ(first.rates(), line.rates);
    EXPECT_EQ(kept(line).given, first.given);
    line.hedgeFlag = 1;
    EXPECT_EQ(kept(line).given, first.given);
    line.rates = {0.1, 0.2};
    EXPECT_EQ(kept(line).rates(), line.rates);
    line.rates[13] = -0.0;
    EXPECT_TRUE(std::signbit(kept(line).rates()[13]));
    EXPECT_EQ(first.rates()[3], 0.2);
}

}  // namespace
}  // namespace standalone
