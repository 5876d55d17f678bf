#include "cost/support/builders.h"

#include <stdexcept>
#include <utility>

namespace cost_test {
namespace {

/// The first word of the text, which loses it.
std::string_view takeWord(std::string_view& text) {
    const std::size_t end = text.find(' ');
    const std::string_view word = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    return word;
}

template <class Value>
Value must(const std::optional<Value>& value, std::string_view text) {
    if (!value) {
        throw std::invalid_argument("a test's text cannot be read: " + std::string(text));
    }
    return *value;
}

template <class Enum>
Enum word(std::string_view text) {
    return must(cost::fromWord<Enum>(text), text);
}

}  // namespace

cost::Decimal number(std::string_view text) { return must(cost::Decimal::parse(text), text); }

cost::Date date(std::string_view text) { return must(cost::Date::parse(text), text); }

cost::Term term(std::string_view family, std::string_view charge, std::string_view side, std::string_view how) {
    cost::Term term;
    term.family = word<cost::Family>(family);
    term.charge = charge;
    term.side = word<cost::TermSide>(side);
    term.basis = word<cost::Basis>(takeWord(how));
    term.per = word<cost::Per>(takeWord(how));
    if (!how.empty()) {
        term.rounding = must(cost::Rounding::parse(how), how);
    }
    term.currency = "CNY";
    term.where = "charges.csv:1";
    return term;
}

cost::Term commission() { return term("stock", "commission", "both", "turnover order"); }

cost::Schedule schedule(std::vector<cost::Term> terms) {
    int line = 1;
    for (cost::Term& term : terms) {
        term.where = "charges.csv:" + std::to_string(++line);
    }
    return cost::Schedule(std::move(terms), "charges.csv");
}

cost::Rates rates(const std::vector<NamedRate>& named) {
    cost::Rates rates;
    for (const NamedRate& rate : named) {
        rates.charges.push_back({rate.charge, rate.item, number(rate.value), "", ""});
    }
    return rates;
}

cost::Trade trade(std::string_view text, std::string_view day) {
    cost::Trade trade;
    trade.side = word<cost::Side>(takeWord(text));
    const std::size_t at = text.find('@');
    trade.quantity = number(text.substr(0, at));
    if (at != std::string_view::npos) {
        trade.price = number(text.substr(at + 1));
    }
    trade.date = date(day);
    return trade;
}

cost::Place moutai() { return {cost::Family::kStock, "1000001", "SH", "600519", "MAIN"}; }

std::string itemsOf(const cost::Bill& bill) {
    std::string text;
    for (const cost::BillItem& item : bill.items) {
        const std::string amount = item.term->charge + ' ' + item.amount.text(2);
        text += text.empty() ? "" : ", ";
        text += item.inside == nullptr ? amount : '(' + amount + ')';
    }
    return text;
}

}  // namespace cost_test
