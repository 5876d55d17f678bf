#include "feedesk/commands/cost_rows.h"
#include "feedesk/text/numbers.h"

#include <algorithm>
#include <utility>

#include "feedesk/text/text.h"
#include "feedesk/trades/trade_words.h"

namespace feedesk {
namespace {

/// The level of a rate that the charging term itself holds.
constexpr const char* kTermLevel = "charging term";

template <class Word>
std::string word(Word value) {
    return std::string(cost::wordFor(value));
}

const cost::Place& placeOf(const ItemRow& row) { return row.charged.bill.tariff.place(); }

/// The value of an item; nothing in the row of a trade without one.
template <class Find>
auto ofItem(const Find& find) {
    return [find](const ItemRow& row) { return row.item == nullptr ? Value(Nothing()) : Value(find(*row.item)); };
}

Value money(const std::string& decimal) { return decimal.empty() ? Value(Nothing()) : Value(Money{decimal}); }

Value amountOf(const ItemRow& row) {
    return Money{row.item == nullptr ? "0.00" : row.item->amount.text(kMoneyDecimals)};
}

Value marginOf(const ItemRow& row) {
    const auto& asked = row.charged.bill.margin;
    return asked ? Value(Money{asked->amount.text(kMoneyDecimals)}) : Value(Nothing());
}

Value insideOf(const cost::BillItem& item) {
    return item.inside == nullptr ? Value(Nothing()) : Value(item.inside->charge);
}

std::string levelOf(const cost::BillItem& item) { return item.rate == nullptr ? kTermLevel : item.rate->level; }

Value sourceOf(const cost::BillItem& item) {
    const std::string& place = item.rate == nullptr ? item.term->where : item.rate->source;
    return place.empty() ? Value(Nothing()) : Value(Source{place});
}

/// "Handling fee" for a charge whose term has no title: as market.toml calls the rate, else its own name as words.
std::string titleOf(const cost::Term& term, const standalone::Market& market) {
    if (!term.title.empty()) {
        return term.title;
    }
    const auto names = market.rateNames.find(word(term.family));
    if (names != market.rateNames.end()) {
        for (const standalone::NamedRate& name : names->second) {
            if (name.column == term.charge) {
                return name.title;
            }
        }
    }
    return asTitle(term.charge);
}

std::string basisText(const cost::BillItem& item) {
    return item.basis.text(item.term->basis == cost::Basis::kTurnover ? kMoneyDecimals : 0);
}

/// Why a trade has no item.
std::string whyNothing(const ChargedTrade& charged) {
    return charged.chargedWith.empty() ? "none: its rates are 0" : "none: charged with trade " + charged.chargedWith;
}

Rate chargedRate(const cost::BillItem& item) {
    return {item.value.text(), item.term->basis == cost::Basis::kTurnover ? Unit::kFraction : Unit::kNumber};
}

/// A fraction of turnover as percent, everything else as it is.
std::string rateText(const cost::BillItem& item) {
    return item.term->basis == cost::Basis::kTurnover ? (item.value * cost::Decimal(100)).text() + "%"
                                                      : item.value.text();
}

}  // namespace

ChargedTrade::ChargedTrade(std::size_t tradeNumber, cost::Trade chargedTrade, cost::Bill tradeBill,
                           const std::vector<std::size_t>& numbersOfDay)
    : number(tradeNumber),
      trade(std::move(chargedTrade)),
      bill(std::move(tradeBill)),
      date(trade.date.text()),
      side(word(trade.side)),
      hedge(bill.tariff.place().family == cost::Family::kFutures ? hedgeName(trade.hedgeFlag) : ""),
      quantity(trade.quantity.text()),
      price(trade.price.isZero() ? "" : trade.price.text()),
      turnover(bill.turnover.text(kMoneyDecimals)),
      costs(bill.costs.text(kMoneyDecimals)),
      net(bill.net.text(kMoneyDecimals)) {
    for (const std::size_t index : bill.sharedWith) {
        chargedWith += (chargedWith.empty() ? "" : " ") + std::to_string(numbersOfDay.at(index));
    }
}

bool ChargedTrade::lacksMargin() const {
    return bill.tariff.place().family == cost::Family::kFutures && cost::isOpening(trade.side) && !bill.margin;
}

ItemFields itemFields() {
    return {
        {forPrograms("trade"), [](const ItemRow& row) { return row.charged.number; }},
        {forPrograms("account"), [](const ItemRow& row) { return placeOf(row).account; }},
        {forPrograms("date"), [](const ItemRow& row) { return row.charged.date; }},
        {forPrograms("market"), [](const ItemRow& row) { return placeOf(row).market; }},
        {forPrograms("code"), [](const ItemRow& row) { return placeOf(row).code; }},
        {forPrograms("side"), [](const ItemRow& row) { return row.charged.side; }},
        {forPrograms("hedge"), [](const ItemRow& row) { return textOrNothing(row.charged.hedge); }},
        {forPrograms("quantity"), [](const ItemRow& row) { return money(row.charged.quantity); }},
        {forPrograms("price"), [](const ItemRow& row) { return money(row.charged.price); }},
        {forPrograms("order"), [](const ItemRow& row) { return textOrNothing(row.charged.trade.order); }},
        {forPrograms("charge"), ofItem([](const cost::BillItem& item) { return item.term->charge; })},
        {forPrograms("item"), ofItem([](const cost::BillItem& item) { return textOrNothing(item.term->item); })},
        {forPrograms("basis_of"), ofItem([](const cost::BillItem& item) { return word(item.term->basis); })},
        {forPrograms("fills"), ofItem([](const cost::BillItem& item) { return item.trades; })},
        {{"basis", "Basis", Unit::kNumber}, ofItem([](const cost::BillItem& item) { return Money{basisText(item)}; })},
        {forPrograms("rate"), ofItem(chargedRate)},
        {{"amount", "Amount", Unit::kNumber}, amountOf},
        {forPrograms("inside"), ofItem(insideOf)},
        {forPrograms("currency"), [](const ItemRow& row) { return row.charged.bill.currency; }},
        {{"level", "Level"}, ofItem(levelOf)},
        {Field{"source", "Rate from"}.when(WhenZero::kLeftOut), ofItem(sourceOf)},
        {{"term", "Term"}, ofItem([](const cost::BillItem& item) { return Source{item.term->where}; })},
        {forPrograms("turnover"), [](const ItemRow& row) { return money(row.charged.turnover); }},
        {forPrograms("costs"), [](const ItemRow& row) { return money(row.charged.costs); }},
        {forPrograms("net"), [](const ItemRow& row) { return money(row.charged.net); }},
        {forPrograms("margin"), marginOf},
        {forPrograms("charged_with"), [](const ItemRow& row) { return textOrNothing(row.charged.chargedWith); }},
    };
}

ItemFields titledItemFields(const standalone::Market& market) {
    ItemFields fields = itemFields();
    const auto before = [&](const std::string& name) {
        return std::find_if(fields.begin(), fields.end(),
                            [&](const FieldOf<ItemRow>& each) { return each.field.name == name; });
    };
    const auto title = [&market](const cost::Term& term) { return titleOf(term, market); };
    fields.insert(before("basis"), {forPeople("Charge"), [title](const ItemRow& row) {
                                        return row.item == nullptr ? whyNothing(row.charged) : title(*row.item->term);
                                    }});
    fields.insert(before("amount"), {Field{"", "Rate", Unit::kNumber}, ofItem(rateText)});
    fields.insert(before("currency"),
                  {forPeople("Inside").when(WhenZero::kLeftOut), ofItem([title](const cost::BillItem& item) {
                       return textOrNothing(item.inside == nullptr ? "" : title(*item.inside));
                   })});
    return fields;
}

void giveItems(const ChargedTrade& charged, const ItemFields& fields, std::size_t section, RowSink& sink) {
    const auto give = [&](const cost::BillItem* item) {
        Row row = rowOf(fields, ItemRow{charged, item});
        row.section = section;
        sink.row(row);
    };
    for (const cost::BillItem& item : charged.bill.items) {
        give(&item);
    }
    if (charged.bill.items.empty()) {
        give(nullptr);
    }
}

}  // namespace feedesk
