#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "tests/feedesk/support/cost_folder.h"

// The bundled market, asked through the program: a real broker's statement line by line to the fen, and amounts worked
// out by hand on both days of each change of a published rate.

namespace feedesk::test {
namespace {

using Line = std::map<std::string, std::string>;

/// The lines of a table without quotes, by column.
std::vector<Line> table(const std::string& text) {
    const auto split = [](const std::string& line) {
        std::vector<std::string> cells;
        std::istringstream stream(line + ",");
        for (std::string cell; std::getline(stream, cell, ',');) {
            cells.push_back(cell);
        }
        return cells;
    };
    const std::vector<std::string> all = lines(text);
    const std::vector<std::string> header = split(all.at(0));
    std::vector<Line> found;
    for (std::size_t i = 1; i < all.size(); ++i) {
        const std::vector<std::string> cells = split(all[i]);
        Line& line = found.emplace_back();
        for (std::size_t j = 0; j < header.size(); ++j) {
            line[header[j]] = cells.at(j);
        }
    }
    return found;
}

std::vector<Line> tableIn(const char* path) {
    std::ifstream file(path);
    std::ostringstream text;
    text << file.rdbuf();
    return table(text.str());
}

class CostOfBundledMarket : public testing::Test {
protected:
    [[nodiscard]] std::vector<Line> costs(const std::string& trades, const std::string& arguments,
                                          const std::string& reported = "") const {
        folder.writeTrades(trades);
        const Outcome outcome = ask(BUNDLED_MARKET, "cost --csv --trades " + folder.tradesFile() + " " + arguments);
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.err, reported);
        return outcome.status == 0 ? table(outcome.out) : std::vector<Line>();
    }

    CostFolder folder;
};

/// The amount of a charge of one trade, inside another one or not; "0.00" where it has none.
std::string amountOf(const std::vector<Line>& items, std::size_t trade, const std::string& charge, bool inside) {
    for (const Line& item : items) {
        if (item.at("trade") == std::to_string(trade) && item.at("charge") == charge &&
            item.at("inside").empty() != inside) {
            return item.at("amount");
        }
    }
    return "0.00";
}

TEST_F(CostOfBundledMarket, StatementComesOutToTheFenItemByItem) {
    const std::vector<Line> statement = tableIn(STATEMENT);
    ASSERT_EQ(statement.size(), 24U);
    std::string trades = "date,market,code,side,quantity,price\n";
    for (const Line& line : statement) {
        trades += line.at("date") + "," + line.at("market") + "," + line.at("code") + "," +
                  (line.at("side") == "B" ? "buy," : "sell,") + line.at("quantity") + "," + line.at("price") + "\n";
    }
    const std::vector<Line> items = costs(trades, "1000005");
    const std::vector<Line> totals = costs(trades, "1000005 --totals order");
    ASSERT_EQ(totals.size(), 24U);
    for (std::size_t i = 0; i < statement.size(); ++i) {
        const Line& line = statement[i];
        SCOPED_TRACE(line.at("date") + " " + line.at("market") + ":" + line.at("code") + " " + line.at("quantity"));
        const bool isShanghai = line.at("market") == "SH";
        EXPECT_EQ(totals[i].at("turnover"), line.at("amount"));
        EXPECT_EQ(totals[i].at("net"), line.at("net"));
        EXPECT_EQ(amountOf(items, i + 1, "commission", false), line.at("commission"));
        EXPECT_EQ(amountOf(items, i + 1, "stamp_duty", false), line.at("stamp_duty"));
        EXPECT_EQ(amountOf(items, i + 1, "transfer_fee", false), line.at("transfer_fee"));
        // The statement names the fee here too where it is on top.
        EXPECT_EQ(amountOf(items, i + 1, "transfer_fee", !isShanghai), line.at("inner_transfer_fee"));
        EXPECT_EQ(amountOf(items, i + 1, "handling_fee", true), line.at("inner_handling_fee"));
        EXPECT_EQ(amountOf(items, i + 1, "regulatory_fee", true), line.at("inner_regulatory_fee"));
    }
}

/// What the trade moves on the account, which is on each of its lines.
std::string netOf(const std::vector<Line>& items, std::size_t trade) {
    const auto line = std::find_if(items.begin(), items.end(),
                                   [&](const Line& item) { return item.at("trade") == std::to_string(trade); });
    return line == items.end() ? "none" : line->at("net");
}

/// "commission 5.00; transfer_fee 0.10": the items of a trade in their order.
std::string itemsOf(const std::vector<Line>& items, std::size_t trade) {
    std::string text;
    for (const Line& item : items) {
        if (item.at("trade") == std::to_string(trade) && !item.at("charge").empty()) {
            text += (text.empty() ? "" : "; ") + item.at("charge") + " " + item.at("amount");
        }
    }
    return text;
}

// Published schedules of every family and exchange, both sides, on both days of each change; the file's source says
// how its amounts were worked out.
TEST_F(CostOfBundledMarket, PublishedSchedulesComeOutToTheFenItemByItem) {
    const std::vector<Line> published = tableIn(PUBLISHED_COSTS);
    ASSERT_EQ(published.size(), 130U);
    std::string trades = "account,date,market,code,side,quantity,price\n";
    for (const Line& line : published) {
        for (const char* column : {"account", "date", "market", "code", "side", "quantity"}) {
            trades += line.at(column) + ",";
        }
        trades += line.at("price") + "\n";
    }
    // Accounts 8000001, 8000002 and 9000001 have no records, and no margins of their own.
    const std::vector<Line> items = costs(trades, "--unsorted",
                                          "feedesk: 25 of 130 trades charged at the built-in default; 9 of 130 with a "
                                          "margin of 0\n");
    for (std::size_t i = 0; i < published.size(); ++i) {
        const Line& line = published[i];
        SCOPED_TRACE(line.at("account") + " " + line.at("date") + " " + line.at("market") + " " + line.at("side"));
        EXPECT_EQ(itemsOf(items, i + 1), line.at("items"));
        EXPECT_EQ(netOf(items, i + 1), line.at("net"));
    }
}

TEST_F(CostOfBundledMarket, BeijingHasNoSchedulesBeforeItOpened) {
    const std::string sentence = "the folder's schedules of market BJ are known from 2021-11-15 until 2026-12-31";
    for (const char* question : {"cost 1000003 BJ:920001 buy 100@20", "fee 1000003 BJ:920001"}) {
        SCOPED_TRACE(question);
        const Outcome before = ask(BUNDLED_MARKET, std::string(question) + " --date 2021-11-14");
        EXPECT_NE(before.status, 0);
        EXPECT_NE(before.err.find(sentence), std::string::npos);
        EXPECT_EQ(ask(BUNDLED_MARKET, std::string(question) + " --date 2021-11-15").status, 0);
    }
}

}  // namespace
}  // namespace feedesk::test
