#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "feedesk/statements/cells.h"

namespace feedesk::test {
namespace {

using Cells = std::vector<std::string>;

TEST(StatementCells, AreWhatASpreadsheetWouldShow) {
    EXPECT_EQ(cellsOf(R"(a,"b,c",="000001", d ,"say ""no""",'000002,)", ','),
              (Cells{"a", "b,c", "000001", "d", "say \"no\"", "000002", ""}));
    EXPECT_EQ(cellsOf("=\"000001\"\t 买入 \t\t1,5", '\t'), (Cells{"000001", "买入", "", "1,5"}));
    EXPECT_EQ(cellsOf("\xC2\xA0x\xE3\x80\x80,\"=\"\"007\"\"\"", ','), (Cells{"x", "007"}));
    EXPECT_EQ(cellsOf("", ','), Cells());
}

TEST(StatementCells, AreNoneWhereAQuoteIsNotClosed) { EXPECT_FALSE(cellsOf("a,\"b", ',')); }

}  // namespace
}  // namespace feedesk::test
