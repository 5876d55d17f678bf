#include "cost/support/published.h"

#include <algorithm>
#include <string>
#include <vector>

#include "cost/support/builders.h"

namespace cost_test {
namespace {

struct Row {
    const char* family;
    const char* market;
    const char* product;
    const char* charge;
    const char* side;
    const char* how;
    const char* rate;
    const char* from = "";
    const char* until = "";
    const char* minimum = "";
    const char* maximum = "";
};

const char* const kFen = "turnover fill 0.01 half_up";
const char* const kFenPerOrder = "turnover order 0.01 half_up";
const char* const kEach = "quantity fill 0.01 half_up";

const std::vector<Row>& shares() {
    static const std::vector<Row> rows = {
        {"stock", "", "", "commission", "both", kFenPerOrder, "0.00025", "", "", "5"},
        {"stock", "S*", "", "stamp_duty", "sell", kFen, "0.001", "", "2023-08-27"},
        {"stock", "S*", "", "stamp_duty", "sell", kFen, "0.0005", "2023-08-28"},
        {"stock", "S*", "", "transfer_fee", "both", kFen, "0.00002", "2015-08-01", "2022-04-28"},
        {"stock", "S*", "", "transfer_fee", "both", kFen, "0.00001", "2022-04-29"},
        {"stock", "S*", "", "handling_fee", "both", kFen, "0.0000487", "2015-08-01", "2023-08-27"},
        {"stock", "S*", "", "handling_fee", "both", kFen, "0.0000341", "2023-08-28"},
        {"stock", "", "", "regulatory_fee", "both", kFen, "0.00002"},
        {"stock", "BJ", "", "stamp_duty", "sell", kFen, "0.001", "2021-11-15", "2023-08-27"},
        {"stock", "BJ", "", "stamp_duty", "sell", kFen, "0.0005", "2023-08-28"},
        {"stock", "BJ", "", "transfer_fee", "both", kFen, "0.000025", "2021-11-15", "2022-04-28"},
        {"stock", "BJ", "", "transfer_fee", "both", kFen, "0.00001", "2022-04-29"},
        {"stock", "BJ", "", "handling_fee", "both", kFen, "0.0005", "2021-11-15", "2022-11-30"},
        {"stock", "BJ", "", "handling_fee", "both", kFen, "0.00025", "2022-12-01", "2023-08-27"},
        {"stock", "BJ", "", "handling_fee", "both", kFen, "0.000125", "2023-08-28"},
        {"neeq", "", "", "commission", "both", kFenPerOrder, "0.0008"},
        {"neeq", "", "", "transfer_fee", "both", kFen, "0.000025", "", "2022-04-28"},
        {"neeq", "", "", "transfer_fee", "both", kFen, "0.00001", "2022-04-29"},
        {"neeq", "", "", "handling_fee", "both", kFen, "0.0005"},
        {"neeq", "", "", "stamp_duty", "sell", kFen, "0.001", "", "2023-08-27"},
        {"neeq", "", "", "stamp_duty", "sell", kFen, "0.0005", "2023-08-28"}};
    return rows;
}

const std::vector<Row>& hongKong() {
    static const std::vector<Row> rows = {
        {"hgt", "HK", "", "commission", "both", kFenPerOrder, "0.0003"},
        {"hgt", "HK", "", "trading_fee", "both", kFen, "0.0000565"},
        {"hgt", "HK", "", "stamp_duty", "both", "turnover fill 1 up", "0.0013", "2021-08-01", "2023-11-16"},
        {"hgt", "HK", "", "stamp_duty", "both", "turnover fill 1 up", "0.001", "2023-11-17"},
        {"hgt", "HK", "", "sfc_levy", "both", kFen, "0.000027"},
        {"hgt", "HK", "", "afrc_levy", "both", kFen, "0.0000015", "2022-01-01"},
        {"hgt", "HK", "", "settlement_fee", "both", kFen, "0.00002", "", "2025-06-29", "2", "100"},
        {"hgt", "HK", "", "settlement_fee", "both", kFen, "0.000042", "2025-06-30"}};
    return rows;
}

const std::vector<Row>& contracts() {
    static const std::vector<Row> rows = {
        {"option", "S*", "", "handling_fee", "open", kEach, "1.3"},
        {"option", "S*", "", "handling_fee", "close", kEach, "1.3"},
        {"option", "S*", "", "handling_fee", "open_short", kEach, "0"},
        {"option", "S*", "", "settlement_fee", "open", kEach, "0.3"},
        {"option", "S*", "", "settlement_fee", "close", kEach, "0.3"},
        {"option", "S*", "", "settlement_fee", "open_short", kEach, "0"},
        {"option", "S*", "", "exercise_fee", "exercise", kEach, "0.6"},
        {"futures", "CFFEX", "T*", "open_by_volume", "open", kEach, "3", "2024-07-01"},
        {"futures", "CFFEX", "T*", "close_by_volume", "close", kEach, "3", "2024-07-01"},
        {"futures", "CFFEX", "T*", "close_today_by_volume", "close_today", kEach, "0", "2024-07-01"},
        {"futures", "DCE", "bz", "open_by_money", "open", kFen, "0.0001", "2025-07-08"},
        {"futures", "DCE", "bz", "close_by_money", "close", kFen, "0.0001", "2025-07-08"},
        {"futures", "DCE", "bz", "close_today_by_money", "close_today", kFen, "0.0001", "2025-07-08"}};
    return rows;
}

cost::Term termOf(const Row& row) {
    cost::Term made = term(row.family, row.charge, row.side, row.how);
    made.market = row.market;
    made.product = row.product;
    made.rate = number(row.rate);
    made.dates = {cost::Date::parse(row.from), cost::Date::parse(row.until)};
    made.minimum = cost::Decimal::parse(row.minimum);
    made.maximum = cost::Decimal::parse(row.maximum);
    if (made.market == "HK") {
        made.currency = "HKD";
    }
    return made;
}

/// The same rows for another family.
void addAs(const char* family, std::vector<Row> rows, std::vector<cost::Term>& terms) {
    for (Row& row : rows) {
        row.family = family;
        terms.push_back(termOf(row));
    }
}

}  // namespace

const cost::Schedule& publishedSchedule() {
    static const cost::Schedule published = [] {
        std::vector<cost::Term> terms;
        for (const auto* rows : {&shares(), &hongKong(), &contracts()}) {
            std::transform(rows->begin(), rows->end(), std::back_inserter(terms), &termOf);
        }
        std::vector<Row> stock;
        std::copy_if(shares().begin(), shares().end(), std::back_inserter(stock),
                     [](const Row& row) { return std::string(row.family) == "stock"; });
        addAs("credit", stock, terms);
        addAs("sgt", hongKong(), terms);
        return schedule(terms);
    }();
    return published;
}

cost::Bill publishedBill(std::string_view place, std::string_view tradeText, std::string_view day,
                         std::string_view multiplier) {
    const std::size_t space = place.find(' ');
    const std::size_t colon = place.find(':');
    const std::size_t last = place.rfind(' ');
    const auto text = [&](std::size_t from, std::size_t to) { return std::string(place.substr(from, to - from)); };
    const cost::Place where{*cost::fromWord<cost::Family>(text(0, space)), "1", text(space + 1, colon),
                            text(colon + 1, last), text(last + 1, place.size())};
    cost::Contract contract;
    if (!multiplier.empty()) {
        contract.multiplier = number(multiplier);
    }
    const cost::Trade made = trade(tradeText, day);
    return costOf(made, cost::Tariff(where, contract, {}, publishedSchedule().termsFor(where, made.date)));
}

}  // namespace cost_test
