// Rows that are read block by block: the same as from the whole text, and in bounded room.

#include "standalone/text/csv_rows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace standalone {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

/// Gives the text in blocks of one size.
ReadBlock blocksOf(const std::string& text, std::size_t size) {
    return [&text, size, at = std::size_t{0}](char* to, std::size_t most) mutable {
        const std::size_t count = text.copy(to, std::min(size, most), at);
        at += count;
        return count;
    };
}

/// Each row as its line, its fault and its cells with their lines.
std::vector<std::string> rowsOf(CsvRows& rows) {
    std::vector<std::string> found;
    for (CsvRow row; rows.next(row);) {
        std::string text = std::to_string(row.line) + "|" + row.fault;
        for (const CsvCell& cell : row.cells) {
            text += "|" + std::to_string(cell.line) + ":" + cell.text;
        }
        found.push_back(text);
    }
    return found;
}

std::vector<std::string> rowsOf(const std::string& text, std::size_t blockSize) {
    CsvRows rows(blocksOf(text, blockSize));
    return rowsOf(rows);
}

TEST(CsvRows, CellsAreWhatIsBetweenCommasWithoutTheBlanksAround) {
    CsvRows rows("a, b\t,,c d \r\n\n \n\"e\" , \"f\"\"g\"\n,\n");
    EXPECT_THAT(rowsOf(rows), ElementsAre("1||1:a|1:b|1:|1:c d", "4||4:e|4:f\"g", "5||5:|5:"));
}

TEST(CsvRows, BlocksOfAnySizeGiveTheSameRows) {
    const std::vector<std::string> pieces{"a", "b", ",", "\"", "\n", "\r\n", " ", "\n\n", "\"x,\n\"\"y\"", "long text"};
    for (unsigned seed = 0; seed < 2000; ++seed) {
        std::mt19937 random(seed);
        std::string text;
        for (int count = 0; count < 40; ++count) {
            text += pieces[std::uniform_int_distribution<std::size_t>(0, pieces.size() - 1)(random)];
        }
        CsvRows whole(text);
        const std::vector<std::string> expected = rowsOf(whole);
        for (const std::size_t size : {1U, 2U, 7U, 1000U}) {
            EXPECT_EQ(rowsOf(text, size), expected) << "seed " << seed << ", blocks of " << size << "\n" << text;
        }
    }
}

TEST(CsvRows, LineWithoutRoomIsAFaultOfItself) {
    const std::string most(LineBuffer::kMostBytes - 1, ',');
    const std::vector<std::string> rows =
        rowsOf("a\n" + most + ",\nb\n" + std::string(1000000, 'x') + "\n\nc\n", 65536);
    EXPECT_THAT(rows, ElementsAre("1||1:a", "2|the line has more than 100000 bytes; shorten it", "3||3:b",
                                  "4|the line has more than 100000 bytes; shorten it", "6||6:c"));
    CsvRows fits(blocksOf(most, 65536));
    CsvRow row;
    ASSERT_TRUE(fits.next(row));
    EXPECT_EQ(row.cells.size(), LineBuffer::kMostBytes);
}

TEST(CsvRows, QuotedCellWithoutRoomSpoilsItsLineAlone) {
    std::string text = "a\nb,\"open\n";
    for (int i = 0; i < 30000; ++i) {
        text += "c,d\n";
    }
    const std::vector<std::string> rows = rowsOf(text, 65536);
    ASSERT_EQ(rows.size(), 30002U);
    EXPECT_THAT(rows[1], HasSubstr("2|the quoted cell that begins here is not closed within the 100000 bytes"));
    EXPECT_EQ(rows[2], "3||3:c|3:d");
    EXPECT_EQ(rows.back(), "30002||30002:c|30002:d");
}

}  // namespace
}  // namespace standalone
