#include <fmt/format.h>

#include "feedesk/commands/diff_rows.h"
#include "feedesk/instruments/instrument_text.h"

namespace feedesk {
namespace {

/// "SH:*": the instruments of a term; empty: all.
std::string whereOf(const cost::Term& term) {
    const std::string market(cost::pattern(term.market));
    const std::string code(cost::pattern(term.code));
    return market.empty() && code.empty() ? ""
                                          : instrumentText(market.empty() ? "*" : market, code.empty() ? "*" : code);
}

}  // namespace

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

}  // namespace feedesk
