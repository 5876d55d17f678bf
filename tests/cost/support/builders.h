#ifndef TESTS_COST_SUPPORT_BUILDERS_H
#define TESTS_COST_SUPPORT_BUILDERS_H

#include <string>
#include <string_view>
#include <vector>

#include "cost/bill.h"

// What the tests are made of, as a person would write it down.

namespace cost_test {

/// Reads what must be readable.
cost::Decimal number(std::string_view text);
cost::Date date(std::string_view text);

/// A term from the words of charges.csv, in CNY; its `where` is "charges.csv:1".
/// term("stock", "stamp_duty", "sell", "turnover fill 0.01 half_up") — basis, per, rounding; no rounding: none.
cost::Term term(std::string_view family, std::string_view charge, std::string_view side, std::string_view how);

/// A stock's commission on the turnover of an order.
cost::Term commission();

/// Gives every term the `where` of its line: "charges.csv:2" for the first, as below a header.
cost::Schedule schedule(std::vector<cost::Term> terms);

/// {"commission", "0.00025"}, ...; options: {"handling_fee", "1.3", "000"}.
struct NamedRate {
    std::string charge;
    std::string value;
    std::string item;
};
cost::Rates rates(const std::vector<NamedRate>& named);

/// "buy 300@1488.50", "exercise 2": on 2024-01-02 unless given.
cost::Trade trade(std::string_view text, std::string_view day = "2024-01-02");

/// Places that tests trade in.
cost::Place moutai();  ///< stock 1000001 SH:600519 MAIN

/// What `question` is refused with; empty when it is answered.
template <class Question>
std::string refusal(const Question& question) {
    try {
        question();
    } catch (const cost::Refused& refused) {
        return refused.what();
    }
    return "";
}

/// "commission 5.00, stamp_duty 0.50" with at least two decimals; what is inside another is in brackets.
std::string itemsOf(const cost::Bill& bill);

}  // namespace cost_test

#endif  // TESTS_COST_SUPPORT_BUILDERS_H
