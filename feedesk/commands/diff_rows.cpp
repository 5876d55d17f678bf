#include "feedesk/commands/diff_rows.h"

#include <fmt/format.h>

#include <algorithm>

#include "feedesk/comparing/instrument_groups.h"
#include "feedesk/instruments/instrument_text.h"
#include "feedesk/text/numbers.h"
#include "feedesk/text/text.h"

namespace feedesk {
namespace {

constexpr const char* kTermNoun = "charging term";

}  // namespace

Value expected(Judgement judgement) {
    return judgement == Judgement::kNone ? Value(Nothing())
                                         : Value(std::string(judgement == Judgement::kExpected ? "yes" : "no"));
}

FieldsOf<ApartRow> apartFields() {
    return {
        {forPrograms("change"), [](const ApartRow& row) { return row.change; }},
        {forPeople("Number").with(&Field::unit, Unit::kCount), [](const ApartRow& row) { return row.names.size(); }},
        {forPeople("What"),
         [](const ApartRow& row) { return row.noun + (row.names.size() == 1 ? " " : "s ") + row.words; }},
        {forPeople("Which"),
         [](const ApartRow& row) {
             return Label{"", words(firstFew(row.shown.empty() ? row.names : row.shown))};
         }},
        {forPrograms("names"),
         [](const ApartRow& row) {
             return row.noun == kTermNoun ? Value(Sources{row.names}) : Value(Names(row.names));
         }},
        {forPrograms("expected"), [](const ApartRow& row) { return expected(row.judgement); }},
        {forPrograms("names_count").with(&Field::unit, Unit::kCount),
         [](const ApartRow& row) { return row.names.size(); }},
        {forPrograms("names_short"), [](const ApartRow& row) { return firstFew(row.names); }}};
}

std::vector<ApartRow> apartRows(const NamesApart& apart) {
    std::vector<ApartRow> rows;
    const auto add = [&](const char* change, const char* words, const std::vector<std::string>& names) {
        if (!names.empty()) {
            rows.push_back({change, "account", words, names, names, Judgement::kNone});
        }
    };
    add("accounts_removed", "of the old folder alone", apart.accountsBefore);
    add("accounts_added", "of the new folder alone", apart.accountsAfter);
    add("accounts_of_another_kind", "of another kind", apart.accountsOfAnotherKind);
    const auto addInstruments = [&](const char* change, const char* words, const std::vector<std::string>& names) {
        if (!names.empty()) {
            rows.push_back({change, "instrument", words, names, {}, Judgement::kNone});
        }
    };
    addInstruments("instruments_removed", "of the old folder alone", apart.instrumentsBefore);
    addInstruments("instruments_added", "of the new folder alone", apart.instrumentsAfter);
    return rows;
}

std::vector<ApartRow> apartRows(const TermDifferences& differences) {
    std::vector<ApartRow> rows;
    const auto add = [&](const char* change, const char* words, const std::vector<TermApart>& terms) {
        if (terms.empty()) {
            return;
        }
        ApartRow row{change, kTermNoun, words, {}, {}, Judgement::kNone};
        for (const TermApart& term : terms) {
            row.names.push_back(term.place);
            row.shown.push_back(fmt::format("{} ({})", term.name, term.place));
            row.accounts.push_back(term.account);
        }
        const bool isOfAccounts = std::none_of(
            row.accounts.begin(), row.accounts.end(),
            [](const std::string& account) { return account.empty() || account.find('*') != std::string::npos; });
        row.accounts = isOfAccounts ? row.accounts : Names();
        rows.push_back(row);
    };
    add("terms_removed", "of the old folder alone", differences.before);
    add("terms_added", "of the new folder alone", differences.after);
    return rows;
}

FieldsOf<CoverageRow> coverageFields() {
    return {
        {forPrograms("change"), [](const CoverageRow& /*row*/) { return std::string("coverage"); }},
        {forPeople("Which"),
         [](const CoverageRow& row) {
             return Label{"", words(row.loss.sentence)};
         }},
        {forPrograms("instruments"),
         [](const CoverageRow& row) {
             return row.loss.market.empty() ? Names() : Names{instrumentText(row.loss.market, "*")};
         }},
        {forPrograms("from"), [](const CoverageRow& row) { return dayOrNothing(row.loss.days.from); }},
        {forPrograms("until"), [](const CoverageRow& row) { return dayOrNothing(row.loss.days.until); }},
        {forPrograms("part"), [](const CoverageRow& row) { return textOrNothing(row.loss.family); }},
        {forPrograms("expected"), [](const CoverageRow& row) { return expected(row.judgement); }},
    };
}

FieldsOf<AccountCosts> costsFields() {
    const auto money = [](const cost::Decimal& amount) { return Money{amount.text(2)}; };
    return {{forPrograms("change"), [](const AccountCosts& /*costs*/) { return std::string("costs"); }},
            {{"account", "Account"}, [](const AccountCosts& costs) { return costs.account; }},
            {{"trades", "Trades", Unit::kCount}, [](const AccountCosts& costs) { return costs.trades; }},
            {{"old", "Old costs", Unit::kNumber}, [money](const AccountCosts& costs) { return money(costs.before); }},
            {{"new", "New costs", Unit::kNumber}, [money](const AccountCosts& costs) { return money(costs.after); }},
            {{"difference", "Difference", Unit::kNumber},
             [money](const AccountCosts& costs) { return money(costs.difference()); }},
            {{"currency", "Currency"}, [](const AccountCosts& costs) { return costs.currency; }}};
}

}  // namespace feedesk
