#include "feedesk/commands/diff_rows.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>

#include "feedesk/comparing/instrument_groups.h"
#include "feedesk/instruments/instrument_text.h"
#include "feedesk/rows/shown_text.h"
#include "feedesk/text/numbers.h"
#include "feedesk/text/text.h"
#include "standalone/families.h"

namespace feedesk {
namespace {

constexpr const char* kTermNoun = "charging term";

const RateDifference& difference(const ChangeRow& row) { return row.change.difference; }

/// "speculation Long"
std::string rateTitle(const ChangeRow& row) {
    const RateDifference& differs = difference(row);
    return differs.label + (differs.label.empty() ? "" : " ") + (differs.column.empty() ? "level" : differs.title);
}

Value answeredValue(const AnsweredRate& answered, Unit unit) {
    return answered.value ? asRate(*answered.value, unit) : Value(Nothing());
}

/// "fees/stock.csv:2 and 3 more"
Value shownSource(const std::vector<std::string>& sources) {
    if (sources.empty()) {
        return Nothing();
    }
    return Source{sources.size() == 1 ? sources.front()
                                      : fmt::format("{} and {} more", sources.front(), grouped(sources.size() - 1))};
}

Value expected(Judgement judgement) {
    return judgement == Judgement::kNone ? Value(Nothing())
                                         : Value(std::string(judgement == Judgement::kExpected ? "yes" : "no"));
}

/// The instruments that accounts of the kind trade in the folder, and which of them the change is about.
std::vector<ListedName> listOf(int accountType, const ComparedFolder& folder, const std::vector<std::size_t>& meant) {
    const auto* const traded = standalone::tradedFamily(accountType);
    std::vector<ListedName> list;
    for (std::size_t place = 0; place < folder.instruments().size(); ++place) {
        const standalone::ListedInstrument& listed = folder.instruments()[place];
        const bool isMeant = std::binary_search(meant.begin(), meant.end(), place);
        if (isMeant || traded == nullptr || traded->lists.hold(listed)) {
            list.push_back({listed.record->market, listed.record->code, isMeant});
        }
    }
    return list;
}

/// "SH:*": the instruments of a term; empty: all.
std::string whereOf(const cost::Term& term) {
    const std::string market(cost::pattern(term.market));
    const std::string code(cost::pattern(term.code));
    return market.empty() && code.empty() ? ""
                                          : instrumentText(market.empty() ? "*" : market, code.empty() ? "*" : code);
}

}  // namespace

FieldsOf<ChangeRow> changeFields() {
    return {
        {forPrograms("change"),
         [](const ChangeRow& row) { return std::string(difference(row).column.empty() ? "level" : "rate"); }},
        {forPeople("Changes").at(ShownAt::kHeading), [](const ChangeRow& row) { return row.heading; }},
        {forPrograms("accounts"), [](const ChangeRow& row) { return Names(row.accounts); }},
        {forPrograms("instruments"), [](const ChangeRow& row) { return Names(row.instruments); }},
        {forPrograms("from"), [](const ChangeRow& row) { return dayOrNothing(row.change.days.from); }},
        {forPrograms("until"), [](const ChangeRow& row) { return dayOrNothing(row.change.days.until); }},
        {forPrograms("part"), [](const ChangeRow& row) { return difference(row).part; }},
        {forPrograms("item"), [](const ChangeRow& row) { return difference(row).item; }},
        {forPrograms("rate"), [](const ChangeRow& row) { return textOrNothing(difference(row).column); }},
        {forPeople("Rate"), rateTitle},
        {{"old", "Old", Unit::kNumber},
         [](const ChangeRow& row) { return answeredValue(difference(row).before, difference(row).unit); }},
        {{"new", "New", Unit::kNumber},
         [](const ChangeRow& row) { return answeredValue(difference(row).after, difference(row).unit); }},
        {{"old_level", "Old level"}, [](const ChangeRow& row) { return levelName(difference(row).before.level); }},
        {forPrograms("old_sources"), [](const ChangeRow& row) { return Sources{row.change.sourcesBefore}; }},
        {forPeople("Old source").when(WhenZero::kLeftOut),
         [](const ChangeRow& row) { return shownSource(row.change.sourcesBefore); }},
        {{"new_level", "New level"}, [](const ChangeRow& row) { return levelName(difference(row).after.level); }},
        {forPrograms("new_sources"), [](const ChangeRow& row) { return Sources{row.change.sourcesAfter}; }},
        {forPeople("New source").when(WhenZero::kLeftOut),
         [](const ChangeRow& row) { return shownSource(row.change.sourcesAfter); }},
        {forPrograms("expected"), [](const ChangeRow& row) { return expected(row.judgement); }},
    };
}

ChangeRow changeRow(const Change& change, const ComparedFolder& before, const Comparison& comparison,
                    const cost::DateRange& compared) {
    ChangeRow row{change, {}, {}, "", Judgement::kNone};
    for (const std::size_t place : change.accounts) {
        row.accounts.push_back(before.accounts()[place].record->accountId);
    }
    std::vector<std::size_t> places;
    for (const std::size_t instrument : change.difference.instruments) {
        places.push_back(comparison.instruments()[instrument].before);
        const qmservice::CInstrument& record = *before.instruments()[places.back()].record;
        row.instruments.push_back(instrumentText(record.market, record.code));
    }
    const int accountType = before.accounts()[change.accounts.front()].record->accountType;
    const bool onAllDays = change.days.from == compared.from && change.days.until == compared.until;
    std::sort(places.begin(), places.end());
    row.heading =
        fmt::format("{}: {}{}{}", firstFew(row.accounts), instrumentGroup(listOf(accountType, before, places)),
                    change.isInPart ? ", each account some of them" : "", onAllDays ? "" : ", " + change.days.text());
    return row;
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
        {forPrograms("expected"), [](const ApartRow& row) { return expected(row.judgement); }}};
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

std::string TermRow::account() const {
    const std::string_view account = cost::pattern(change.termBefore->account);
    return account.find('*') == std::string_view::npos ? std::string(account) : "";
}

FieldsOf<TermRow> termFields() {
    const auto before = [](const TermRow& row) -> const cost::Term& { return *row.change.termBefore; };
    const auto whose = [before](const TermRow& row) {
        const std::string account(cost::pattern(before(row).account));
        return account.empty() ? Names() : Names{account};
    };
    return {
        {forPrograms("change"), [](const TermRow& /*row*/) { return std::string("term"); }},
        {forPeople("Changes").at(ShownAt::kHeading), [](const TermRow& row) { return row.heading; }},
        {forPrograms("accounts"), whose},
        {forPrograms("instruments"),
         [before](const TermRow& row) {
             const std::string where = whereOf(before(row));
             return where.empty() ? Names() : Names{where};
         }},
        {forPrograms("from"), [](const TermRow& row) { return dayOrNothing(row.change.days.from); }},
        {forPrograms("until"), [](const TermRow& row) { return dayOrNothing(row.change.days.until); }},
        {forPrograms("part"), [before](const TermRow& row) { return std::string(cost::wordFor(before(row).family)); }},
        {forPrograms("item"), [before](const TermRow& row) { return before(row).item; }},
        {forPrograms("rate"), [before](const TermRow& row) { return before(row).charge; }},
        {forPrograms("side"), [before](const TermRow& row) { return std::string(cost::wordFor(before(row).side)); }},
        {{"column", "Column"}, [](const TermRow& row) { return row.change.column; }},
        {{"old", "Old", Unit::kNumber}, [](const TermRow& row) { return row.change.before; }},
        {{"new", "New", Unit::kNumber}, [](const TermRow& row) { return row.change.after; }},
        {forPrograms("old_sources"), [before](const TermRow& row) { return Sources{{before(row).where}}; }},
        {forPeople("Old source"), [before](const TermRow& row) { return Source{before(row).where}; }},
        {forPrograms("new_sources"), [](const TermRow& row) { return Sources{{row.change.termAfter->where}}; }},
        {forPeople("New source"), [](const TermRow& row) { return Source{row.change.termAfter->where}; }},
        {forPrograms("expected"), [](const TermRow& row) { return expected(row.judgement); }},
    };
}

TermRow termRow(const TermChange& change, const cost::DateRange& compared) {
    const cost::Term& term = *change.termBefore;
    std::vector<std::string> parts = {fmt::format("{} {}{}", cost::wordFor(term.family), term.charge,
                                                  term.item.empty() ? "" : " of item " + term.item)};
    if (term.side != cost::TermSide::kBoth) {
        parts.emplace_back(cost::wordFor(term.side));
    }
    if (const std::string_view account = cost::pattern(term.account); !account.empty()) {
        parts.push_back(fmt::format("account {}", account));
    }
    if (const std::string where = whereOf(term); !where.empty()) {
        parts.push_back(where);
    }
    if (const std::string_view product = cost::pattern(term.product); !product.empty()) {
        parts.push_back(fmt::format("product {}", product));
    }
    if (change.days.from != compared.from || change.days.until != compared.until) {
        parts.push_back(change.days.text());
    }
    return {change, fmt::format("{}", fmt::join(parts, ", ")), Judgement::kNone};
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
