#include "feedesk/commands/cost_totals.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <stdexcept>
#include <utility>

#include "feedesk/failure.h"

namespace feedesk {
namespace {

constexpr std::array<std::string_view, 4> kWordsOfTotals = {"account", "day", "instrument", "order"};
constexpr int kMoneyPlaces = 2;
constexpr char kKeySeparator = '\0';  // in no text that a person writes

FieldOf<Total> textField(const std::string& name, const std::string& title, std::string Total::*text) {
    return {{name, title}, [text](const Total& total) { return textOrNothing(total.*text); }};
}

FieldOf<Total> sumField(const std::string& name, const std::string& title, cost::Decimal Total::*sum) {
    return {{name, title, Unit::kNumber}, [sum](const Total& total) { return Money{(total.*sum).text(kMoneyPlaces)}; }};
}

}  // namespace

TotalsKey totalsKeyFrom(const std::string& text) {
    TotalsKey key;
    for (std::size_t begin = 0; begin <= text.size();) {
        const std::size_t end = std::min(text.find(',', begin), text.size());
        const auto* const word =
            std::find(kWordsOfTotals.begin(), kWordsOfTotals.end(), std::string_view(text).substr(begin, end - begin));
        if (word == kWordsOfTotals.end()) {
            return {};
        }
        key.set(static_cast<std::size_t>(word - kWordsOfTotals.begin()));
        begin = end + 1;
    }
    return key;
}

std::vector<std::string> totalsNames() { return {kWordsOfTotals.begin(), kWordsOfTotals.end()}; }

std::string totalsWords() { return fmt::format("{}", fmt::join(kWordsOfTotals, ", ")); }

FieldsOf<Total> Totals::fields() const {
    FieldsOf<Total> fields;
    const bool order = has(TotalsBy::kOrder);
    const auto addText = [&](bool isThere, const char* name, const char* title, std::string Total::*text) {
        if (isThere) {
            fields.push_back(textField(name, title, text));
        }
    };
    addText(order || has(TotalsBy::kAccount), "account", "Account", &Total::account);
    addText(order || has(TotalsBy::kDay), "date", "Day", &Total::date);
    addText(order || has(TotalsBy::kInstrument), "market", "Market", &Total::market);
    addText(order || has(TotalsBy::kInstrument), "code", "Code", &Total::code);
    addText(order, "order", "Order", &Total::order);
    fields.push_back({{"trades", "Trades", Unit::kCount}, [](const Total& total) { return total.trades; }});
    fields.push_back(sumField("turnover", "Turnover", &Total::turnover));
    fields.push_back(sumField("costs", "Costs", &Total::costs));
    fields.push_back(sumField("net", "Net", &Total::net));
    fields.push_back(textField("currency", "Currency", &Total::currency));
    return fields;
}

Total Totals::emptyTotalOf(const ChargedTrade& charged) const {
    const cost::Place& place = charged.bill.tariff.place();
    const bool order = has(TotalsBy::kOrder);
    Total total;
    total.account = order || has(TotalsBy::kAccount) ? place.account : "";
    total.date = order || has(TotalsBy::kDay) ? charged.date : "";
    total.market = order || has(TotalsBy::kInstrument) ? place.market : "";
    total.code = order || has(TotalsBy::kInstrument) ? place.code : "";
    total.order = order ? charged.trade.order : "";
    total.currency = charged.bill.currency;
    return total;
}

void Totals::add(const ChargedTrade& charged) {
    Total empty = emptyTotalOf(charged);
    std::size_t place = totals.size();
    const bool isOrderOfItsOwn = has(TotalsBy::kOrder) && empty.order.empty();
    if (!isOrderOfItsOwn) {
        const auto key = fmt::format("{1}{0}{2}{0}{3}{0}{4}{0}{5}{0}{6}", kKeySeparator, empty.account, empty.date,
                                     empty.market, empty.code, empty.order, empty.currency);
        place = places.emplace(key, totals.size()).first->second;
    }
    if (place == totals.size()) {
        totals.push_back(std::move(empty));
    }
    Total& total = totals[place];
    try {
        ++total.trades;
        total.turnover += charged.bill.turnover;
        total.costs += charged.bill.costs;
        total.net += charged.bill.net;
    } catch (const std::overflow_error&) {
        throw Failure(kNoAnswer, fmt::format("with trade {} of {} the totals are too large to calculate with",
                                             charged.number, charged.date));
    }
}

void Totals::giveAfterDay(const FieldsOf<Total>& fields, RowSink& sink) {
    if (has(TotalsBy::kDay) || has(TotalsBy::kOrder)) {
        giveAtEnd(fields, sink);
    }
}

void Totals::giveAtEnd(const FieldsOf<Total>& fields, RowSink& sink) {
    for (const Total& total : totals) {
        sink.row(rowOf(fields, total));
    }
    totals.clear();
    places.clear();
}

}  // namespace feedesk
