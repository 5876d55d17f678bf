// What is on the sheets that commands write, and where they may be written.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <map>

#include "tests/feedesk/support/program.h"
#include "tests/feedesk/support/statement_folder.h"

namespace feedesk::test {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

/// The cells of a sheet as "A1 value", numbers with their format behind; by sheet, in the order of the file.
struct Sheets {
    std::vector<std::string> names;
    std::map<std::string, std::vector<std::string>> cells;
};

Sheets sheetsOf(const std::string& file) {
    Sheets sheets;
    for (const std::string& line : lines(runShell(std::string(SPREADSHEET_CELLS) + " '" + file + "'").out)) {
        std::vector<std::string> parts;
        for (std::size_t begin = 0; begin <= line.size();) {
            const std::size_t end = std::min(line.find('|', begin), line.size());
            parts.push_back(line.substr(begin, end - begin));
            begin = end + 1;
        }
        if (sheets.names.empty() || sheets.names.back() != parts.at(0)) {
            sheets.names.push_back(parts[0]);
        }
        sheets.cells[parts[0]].push_back(parts.at(1) + " " + parts.at(3) +
                                         (parts.at(2) == "n" ? " as " + parts.at(4) : ""));
    }
    return sheets;
}

/// A statement that differs, and a second folder with another commission.
class Spreadsheets : public testing::Test {
protected:
    Spreadsheets() {
        after.write("fees/stock.csv",
                    "account,market,code,commission,transfer_fee,stamp_duty,from,until\n"
                    "S100,SH,600*,0.0003,0.00001,0.0005,2023-08-28,\n"
                    "S100,SH,600*,0.00025,0.00001,0.001,,2023-08-27\n"
                    "S100,SZ,*,0,0,0,,\n");
        folder.writeStatement("日期,代码,买卖,数量,价格,佣金\n20240102,600519,买,100,1000,31\n");
        folder.writeTrades("account,date,market,code,side,quantity,price\nS100,2024-01-02,SH,600519,buy,100,1000\n");
    }
    ~Spreadsheets() override { std::remove(file.c_str()); }

    [[nodiscard]] Sheets sheets(const std::string& arguments) const {
        std::remove(file.c_str());
        const Outcome outcome = ask(folder.path(), arguments + " --xlsx " + file);
        EXPECT_NE(outcome.status, 2) << arguments << outcome.err;
        EXPECT_EQ(outcome.out, "") << arguments;
        return sheetsOf(file);
    }

    [[nodiscard]] std::string diffed() const { return "diff " + folder.path() + " " + after.path(); }

    const StatementFolder folder;
    const CostFolder after;
    const std::string file = folder.path() + ".xlsx";
};

constexpr const char* kPercent = " as 0.0#############%";

TEST_F(Spreadsheets, OfChangesHaveRatesAsPercentAndTheLinesOfBothFolders) {
    // `diff` takes its folders from the command line alone.
    const Outcome outcome =
        runProgram(diffed() + " --date 2024-01-02 --trades " + folder.tradesFile() + " --xlsx " + file);
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    const Sheets all = sheetsOf(file);
    EXPECT_THAT(all.names, ElementsAre("Rates", "Costs of the trades", "Sources"));
    EXPECT_THAT(all.cells.at("Rates"),
                AllOf(Contains(std::string("I2 0.00025") + kPercent), Contains(std::string("J2 0.0003") + kPercent),
                      Contains("I1 Old"), Contains("L1 Old sources"), Contains("L2 fees/stock.csv:2")));
    EXPECT_THAT(all.cells.at("Costs of the trades"), Contains("D2 25 as #,##0.00"));
    EXPECT_THAT(all.cells.at("Sources"),
                ElementsAre("A1 Column", "B1 File", "C1 Line", "D1 Cells", "A2 New sources", "B2 fees/stock.csv",
                            "C2 2 as General", "D2 1 as General", "A3 Old sources", "B3 fees/stock.csv",
                            "C3 2 as General", "D3 1 as General"));
}

TEST_F(Spreadsheets, OfFindingsHaveEveryPlaceAmongTheSources) {
    const Sheets all = sheets("check --only percent-rate missing-hedge-flag old-duty built-in-default");
    EXPECT_THAT(all.names, ElementsAre("Findings", "Sources"));
    EXPECT_THAT(all.cells.at("Sources"), Contains("B2 accounts.csv"));
    EXPECT_THAT(all.cells.at("Findings"), AllOf(Contains("H1 Remedy"), Contains("B2 built-in-default")));
}

TEST_F(Spreadsheets, OfAStatementHaveTheSolvedRateAsPercent) {
    const Sheets all = sheets("reconcile S100 " + folder.statementFile());
    EXPECT_THAT(all.names, ElementsAre("Trades", "What differs", "Proposed lines", "Sources"));
    EXPECT_THAT(all.cells.at("Trades"),
                AllOf(Contains(std::string("U2 0.00031") + kPercent), Contains("O1 Result"), Contains("O2 differs")));
    EXPECT_THAT(all.cells.at("Sources"), Contains("B2 fees/stock.csv"));
}

TEST_F(Spreadsheets, OfAStatementHaveDaysThatASpreadsheetKnows) {
    folder.writeStatement(
        "日期,代码,买卖,数量,价格,佣金\n20240229,600519,买,100,1000,31\n20240301,600519,买,100,1000,31\n"
        "20231231,600519,买,100,1000,31\n");
    const Sheets all = sheets("reconcile S100 " + folder.statementFile());
    EXPECT_THAT(all.cells.at("Trades"), AllOf(Contains("D2 2024-02-29 00:00:00"), Contains("D3 2024-03-01 00:00:00"),
                                              Contains("D4 2023-12-31 00:00:00")));
}

TEST_F(Spreadsheets, OfCostsHaveRatesAsPercentAndTheirLines) {
    for (const std::string arguments : {"cost S100 SH:600519 buy 100@1000", "cost --trades T"}) {
        std::string asked = arguments;
        if (const std::size_t place = asked.find(" T"); place != std::string::npos) {
            asked.replace(place + 1, 1, folder.tradesFile());
        }
        const Sheets all = sheets(asked);
        EXPECT_EQ(all.names.size(), 2U);
        EXPECT_EQ(all.names.back(), "Sources");
        EXPECT_THAT(all.cells.at(all.names.front()),
                    AllOf(Contains("P1 Rate"), Contains(std::string("P2 0.00025") + kPercent)));
        EXPECT_THAT(all.cells.at("Sources"), AllOf(Contains("A2 Rate from"), Contains("B2 fees/stock.csv"),
                                                   Contains("A3 Term"), Contains("B3 charges.csv")));
    }
}

TEST_F(Spreadsheets, AreCalledByWhatTheyHold) {
    const std::vector<std::pair<std::string, std::string>> commands = {
        {"accounts", "Accounts"},
        {"instruments", "Instruments"},
        {"stats", "Entries and records"},
        {"check --list", "Checks"},
        {"cost --trades " + folder.tradesFile(), "Charges"},
        {"cost --totals account --trades " + folder.tradesFile(), "Totals"},
        {"fees S100", "Stock rates"},
        {"cost S100 SH:600519 buy 100@1000.50", "buy 100 SH 600519"},
    };
    for (const auto& [command, name] : commands) {
        EXPECT_THAT(sheets(command).names.front(), HasSubstr(name)) << command;
    }
}

TEST_F(Spreadsheets, TellRatesOfOneTitleApart) {
    const Sheets all = sheets("fee F100 SHFE:rb2610");
    EXPECT_THAT(all.cells.at("Futures commission"), Contains(EndsWith("(open_by_money)")));
    EXPECT_THAT(all.cells.at("Futures commission"), Contains(EndsWith("(open_by_volume)")));
}

TEST_F(Spreadsheets, AreNotWrittenOverWhatIsRead) {
    const std::string trades = folder.tradesFile();
    const std::string link = folder.path() + ".link";
    ASSERT_EQ(symlink(trades.c_str(), link.c_str()), 0);
    const std::string table = folder.path() + "/fees/stock.csv";
    const std::string inFolder = " is in the market folder, which is not written to; name another file\n";
    const std::string isTrades = " is the file of the trades and would be written over; name another file\n";
    struct Case {
        std::string command;
        std::string target;
        std::string message;
    };
    for (const Case& wrong : {
             Case{"accounts", table, inFolder},
             Case{"check", folder.path() + "/new.xlsx", inFolder},
             Case{"cost --trades " + trades, trades, isTrades},
             Case{"cost --trades " + trades, link, isTrades},
             Case{"reconcile S100 " + folder.statementFile(), folder.statementFile(),
                  " is the statement and would be written over; name another file\n"},
         }) {
        const std::string before = contentOf(wrong.target);
        const Outcome outcome = ask(folder.path(), wrong.command + " --xlsx " + wrong.target);
        EXPECT_EQ(outcome.status, 2) << wrong.command;
        EXPECT_EQ(outcome.err, "feedesk: " + wrong.target + wrong.message);
        EXPECT_EQ(contentOf(wrong.target), before);
    }
    for (const std::string& target : {after.path() + "/a.xlsx", table, trades}) {
        const Outcome outcome = runProgram(diffed() + " --trades " + trades + " --xlsx " + target);
        EXPECT_EQ(outcome.status, 2) << target;
        EXPECT_EQ(outcome.err, "feedesk: " + target + (target == trades ? isTrades : inFolder));
    }
    std::remove(link.c_str());
}

TEST_F(Spreadsheets, NeedAFile) {
    const Outcome out = ask(folder.path(), "accounts --xlsx -");
    EXPECT_EQ(out.status, 2);
    EXPECT_EQ(out.err,
              "feedesk: --xlsx: a spreadsheet is no text and does not go to standard output; name a file; `feedesk "
              "accounts --help` shows how to ask\n");
    EXPECT_THAT(ask(folder.path(), "accounts --xlsx ''").err,
                StartsWith("feedesk: --xlsx: a spreadsheet needs the name of a file; "));
}

}  // namespace
}  // namespace feedesk::test
