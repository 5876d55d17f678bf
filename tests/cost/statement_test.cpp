#include <gtest/gtest.h>

#include <boost/make_shared.hpp>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "cost/support/builders.h"

// A real broker's statement, line by line to the fen: statement_2021.csv, whose source is in SOURCES.md in this folder.
// The commission is all-in: handling and regulatory fee are inside it, in Shenzhen the transfer fee too.

namespace {

using namespace cost;  // NOLINT(google-build-using-namespace): what is tested
using cost_test::number;
using cost_test::term;
using Line = std::map<std::string, std::string>;

std::vector<std::string> cellsOf(const std::string& line) {
    std::vector<std::string> cells;
    std::istringstream text(line);
    for (std::string cell; std::getline(text, cell, ',');) {
        cells.push_back(cell);
    }
    return cells;
}

std::vector<Line> statement() {
    std::ifstream file(STATEMENT);
    std::string text;
    std::getline(file, text);
    const std::vector<std::string> columns = cellsOf(text);
    std::vector<Line> lines;
    while (std::getline(file, text)) {
        const std::vector<std::string> cells = cellsOf(text);
        for (std::size_t i = 0; i < columns.size(); ++i) {
            lines.resize(lines.size() + (i == 0 ? 1 : 0));
            lines.back()[columns[i]] = cells.at(i);
        }
    }
    return lines;
}

/// Funds have codes of their own: 5... in Shanghai, 15... in Shenzhen.
Place placeOf(const Line& line) {
    const std::string& code = line.at("code");
    const bool isFund = code[0] == '5' || code.substr(0, 2) == "15";
    return {Family::kStock, "1000005", line.at("market"), code, isFund ? "ETF" : "MAIN"};
}

Schedule terms() {
    const char* const fill = "turnover fill 0.01 half_up";
    Term stockCommission = term("stock", "commission", "both", "turnover order 0.01 half_up");
    stockCommission.minimum = number("5");
    Term fundCommission = stockCommission;
    fundCommission.product = "ETF";
    fundCommission.minimum.reset();
    Term handling = term("stock", "handling_fee", "both", fill);
    handling.inside = "commission";
    Term regulatory = term("stock", "regulatory_fee", "both", fill);
    regulatory.inside = "commission";
    const Term transfer = term("stock", "transfer_fee", "both", fill);
    Term transferInside = transfer;
    transferInside.market = "SZ";
    transferInside.inside = "commission";
    return cost_test::schedule({stockCommission, fundCommission, transfer, transferInside, handling, regulatory,
                                term("stock", "stamp_duty", "sell", fill)});
}

/// The account's answer, as a fee center would give it.
qmservice::CInstrumentFee answerFor(const Place& place) {
    const bool isFund = place.product == "ETF";
    qmservice::CInstrumentFee answer;
    answer.stkRateLimit = boost::make_shared<qmservice::CStkExchangeRateLimit>();
    answer.stkRateLimit->rate1 = 0.00025;
    answer.stkRateLimit->rate2 = isFund ? 0 : 0.00002;
    answer.stkRateLimit->rate3 = isFund && place.market == "SH" ? 0.000045 : 0.0000487;
    answer.stkRateLimit->rate4 = isFund ? 0 : 0.00002;
    answer.stkRateLimit->rate6 = isFund ? 0 : 0.001;
    return answer;
}

Bill billOf(const Line& line) {
    const RateNames names = {{Family::kStock,
                              {{"rate1", "commission"},
                               {"rate2", "transfer_fee"},
                               {"rate3", "handling_fee"},
                               {"rate4", "regulatory_fee"},
                               {"rate6", "stamp_duty"}}}};
    Trade trade;
    trade.side = line.at("side") == "B" ? Side::kBuy : Side::kSell;
    trade.quantity = number(line.at("quantity"));
    trade.price = number(line.at("price"));
    trade.date = *Date::parseCompact(line.at("date"));
    const Place place = placeOf(line);
    return costOf(trade, Tariff(place, {}, ratesOf(answerFor(place), names), terms().termsFor(place, trade.date)));
}

/// The amount of a charge that is inside another or not; "0.00" when the bill has none.
std::string amountOf(const Bill& bill, const std::string& charge, bool inside) {
    for (const BillItem& item : bill.items) {
        if (item.term->charge == charge && (item.inside != nullptr) == inside) {
            return item.amount.text(2);
        }
    }
    return "0.00";
}

TEST(Statement, ComesOutToTheFenItemByItem) {
    const std::vector<Line> lines = statement();
    ASSERT_EQ(lines.size(), 24U);
    for (const Line& line : lines) {
        SCOPED_TRACE(line.at("date") + ' ' + line.at("market") + ':' + line.at("code") + ' ' + line.at("quantity"));
        const Bill bill = billOf(line);
        const bool isShanghai = line.at("market") == "SH";
        EXPECT_EQ(bill.turnover.text(2), line.at("amount"));
        EXPECT_EQ(amountOf(bill, "commission", false), line.at("commission"));
        EXPECT_EQ(ownAmount(bill, bill.items.front()).text(2), line.at("net_commission"));
        EXPECT_EQ(amountOf(bill, "stamp_duty", false), line.at("stamp_duty"));
        EXPECT_EQ(amountOf(bill, "transfer_fee", false), line.at("transfer_fee"));
        // The statement names the fee here too where it is on top.
        EXPECT_EQ(amountOf(bill, "transfer_fee", !isShanghai), line.at("inner_transfer_fee"));
        EXPECT_EQ(amountOf(bill, "handling_fee", true), line.at("inner_handling_fee"));
        EXPECT_EQ(amountOf(bill, "regulatory_fee", true), line.at("inner_regulatory_fee"));
        EXPECT_EQ(bill.net.text(2), line.at("net"));
    }
}

}  // namespace
