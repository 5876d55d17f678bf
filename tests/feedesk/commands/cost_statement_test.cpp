#include <gtest/gtest.h>

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

class CostOfBundledMarket : public testing::Test {
protected:
    [[nodiscard]] std::vector<Line> costs(const std::string& trades, const std::string& arguments) const {
        folder.writeTrades(trades);
        const Outcome outcome = ask(BUNDLED_MARKET, "cost --csv --trades " + folder.tradesFile() + " " + arguments);
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.err, "");
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
    std::ifstream file(STATEMENT);
    std::ostringstream text;
    text << file.rdbuf();
    const std::vector<Line> statement = table(text.str());
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

/// A trade on a day, and what one charge takes of it.
struct Published {
    const char* trade;  ///< account,date,market,code,side,quantity,price
    const char* charge;
    const char* amount;
};

std::string chargeOf(const std::vector<Line>& items, std::size_t trade, const std::string& charge) {
    const std::string outside = amountOf(items, trade, charge, false);
    return outside == "0.00" ? amountOf(items, trade, charge, true) : outside;
}

// Each turnover times the published rate of that day.
TEST_F(CostOfBundledMarket, PublishedRatesChangeOnTheirDays) {
    const std::vector<Published> published = {
        {"1000005,2022-04-28,SH,601668,buy,10000,5.00", "transfer_fee", "1.00"},   // 50000 x 0.00002
        {"1000005,2022-04-29,SH,601668,buy,10000,5.00", "transfer_fee", "0.50"},   // 50000 x 0.00001
        {"1000005,2023-08-27,SH,601668,sell,10000,5.00", "stamp_duty", "50.00"},   // 50000 x 0.001
        {"1000005,2023-08-27,SH,601668,sell,10000,5.00", "handling_fee", "2.44"},  // 50000 x 0.0000487 = 2.435
        {"1000005,2023-08-28,SH,601668,sell,10000,5.00", "stamp_duty", "25.00"},   // 50000 x 0.0005
        {"1000005,2023-08-28,SH,601668,sell,10000,5.00", "handling_fee", "1.71"},  // 50000 x 0.0000341 = 1.705
        {"2000001,2023-08-27,SZ,000001,sell,10000,5.00", "stamp_duty", "50.00"},
        {"2000001,2023-08-28,SZ,000001,sell,10000,5.00", "stamp_duty", "25.00"},
        {"1000003,2022-04-28,BJ,920000,buy,1000,10", "transfer_fee", "0.25"},  // 10000 x 0.000025
        {"1000003,2022-04-29,BJ,920000,buy,1000,10", "transfer_fee", "0.10"},  // 10000 x 0.00001
        {"1000003,2022-11-30,BJ,920000,buy,1000,10", "handling_fee", "5.00"},  // 10000 x 0.0005
        {"1000003,2022-12-01,BJ,920000,buy,1000,10", "handling_fee", "2.50"},  // 10000 x 0.00025
        {"1000003,2023-08-27,BJ,920000,buy,1000,10", "handling_fee", "2.50"},
        {"1000003,2023-08-28,BJ,920000,buy,1000,10", "handling_fee", "1.25"},  // 10000 x 0.000125
        {"7000001,2022-04-28,NEEQ,430005,sell,1000,10", "transfer_fee", "0.25"},
        {"7000001,2022-04-29,NEEQ,430005,sell,1000,10", "transfer_fee", "0.10"},
        {"7000001,2023-08-27,NEEQ,430005,sell,1000,10", "stamp_duty", "10.00"},
        {"7000001,2023-08-28,NEEQ,430005,sell,1000,10", "stamp_duty", "5.00"},
        // Up to the whole dollar: 40400 x 0.0013 = 52.52, x 0.001 = 40.40.
        {"6000001,2023-11-16,HK,00005,sell,400,101", "stamp_duty_sell", "53.00"},
        {"6000001,2023-11-17,HK,00005,sell,400,101", "stamp_duty_sell", "41.00"},
        {"5000002,2023-11-16,HK,00005,buy,400,101", "stamp_duty_buy", "53.00"},
        {"5000002,2023-11-17,HK,00005,buy,400,101", "stamp_duty_buy", "41.00"},
        {"6000001,2025-06-29,HK,00005,buy,400,101", "settlement_fee", "2.00"},  // 0.808, at least 2
        {"6000001,2025-06-30,HK,00005,buy,400,101", "settlement_fee", "1.70"},  // 40400 x 0.000042 = 1.6968
        {"5000002,2025-06-29,HK,00005,sell,400,101", "settlement_fee", "2.00"},
        {"5000002,2025-06-30,HK,00005,sell,400,101", "settlement_fee", "1.70"},
        {"4000001,2026-09-30,SZO,90000661,exercise,3,", "exercise_fee", "1.80"},        // 3 x 0.6
        {"3000001,2026-09-30,SHFE,rb2610,open_long,2,3450", "open_by_money", "6.90"},   // 69000 x 0.0001
        {"9000001,2026-09-30,SHFE,rb2610,open_short,1,3450", "open_by_money", "3.80"},  // 34500 x 0.00011 = 3.795
    };
    std::string trades = "account,date,market,code,side,quantity,price\n";
    for (const Published& each : published) {
        trades += std::string(each.trade) + "\n";
    }
    const std::vector<Line> items = costs(trades, "--unsorted");
    for (std::size_t i = 0; i < published.size(); ++i) {
        SCOPED_TRACE(published[i].trade);
        EXPECT_EQ(chargeOf(items, i + 1, published[i].charge), published[i].amount);
    }
}

}  // namespace
}  // namespace feedesk::test
