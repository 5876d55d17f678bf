#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include "standalone/text/csv_rows.h"

// Memory runs out at every single allocation while a table is read. The parser in between is C: it is to hand on what a
// callback throws.

namespace {

constexpr long kNever = -1;
thread_local long untilFailure = kNever;  // allocations that succeed before one fails

thread_local std::size_t allocated = 0;  // bytes so far

void* allocate(std::size_t size) {
    allocated += size;
    if (untilFailure != kNever && untilFailure-- == 0) {
        throw std::bad_alloc();
    }
    void* memory = std::malloc(size != 0 ? size : 1);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    return memory;
}

}  // namespace

void* operator new(std::size_t size) { return allocate(size); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

namespace {

using Row = std::vector<std::string>;

// Cells that are too long to be kept inside a string.
const std::string kLong(100, 'a');
const std::string kText = kLong + ",b,\"" + kLong + "\nc\"\n\n" + kLong + "\n";
const std::vector<Row> kRows{{kLong, "b", kLong + "\nc"}, {kLong}};

/// The rows up to the first allocation that fails, which is the one after `allocations` others; whether none did.
std::pair<std::vector<Row>, bool> readRows(long allocations) {
    std::vector<Row> rows;
    rows.reserve(kRows.size());
    untilFailure = allocations;
    try {
        standalone::CsvRows reader(kText);
        for (standalone::CsvRow row; reader.next(row);) {
            const long left = std::exchange(untilFailure, kNever);
            Row& cells = rows.emplace_back();
            for (const auto& cell : row.cells) {
                cells.push_back(cell.text);
            }
            untilFailure = left;
        }
    } catch (const std::bad_alloc&) {
        untilFailure = kNever;
        return {rows, false};
    }
    untilFailure = kNever;
    return {rows, true};
}

TEST(CsvMemory, FailureLeavesTheReaderBehindWholeRows) {
    long failures = 0;
    std::pair<std::vector<Row>, bool> read;
    while (!(read = readRows(failures)).second) {
        ASSERT_LT(read.first.size(), kRows.size()) << failures;
        for (std::size_t i = 0; i < read.first.size(); ++i) {
            EXPECT_EQ(read.first[i], kRows[i]) << failures;
        }
        ++failures;
        ASSERT_LT(failures, 1000);
    }
    EXPECT_EQ(read.first, kRows);
    // The lines' beginnings, three long cells, and the cells' own list.
    EXPECT_GE(failures, 5);
}

/// Bytes that are allocated while the rows of 20 MB are read, in which `piece` is repeated.
std::size_t allocatedFor(const std::string& piece) {
    std::size_t left = 20'000'000 / piece.size() * piece.size();
    const auto read = [&](char* to, std::size_t most) {
        const std::size_t count = std::min(left, most / piece.size() * piece.size());
        for (std::size_t at = 0; at < count; ++at) {
            to[at] = piece[at % piece.size()];
        }
        left -= count;
        return count;
    };
    const std::size_t before = allocated;
    standalone::CsvRows reader(read);
    for (standalone::CsvRow row; reader.next(row);) {
    }
    return allocated - before;
}

TEST(CsvMemory, TextOfAnySizeTakesWhatOneLineHasRoomFor) {
    for (const char* piece : {"\n", "\r\n", " \n", ",", "20000000,SH,600000,,0.00025,0.00001\n"}) {
        EXPECT_LT(allocatedFor(piece), 1'000'000U) << piece;
    }
}

}  // namespace
