#include <fmt/format.h>

#include <algorithm>
#include <set>

#include "feedesk/commands/diff_rows.h"
#include "feedesk/comparing/instrument_groups.h"
#include "feedesk/instruments/instrument_text.h"
#include "feedesk/text/numbers.h"
#include "standalone/families.h"

namespace feedesk {
namespace {

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

/// The types of the accounts, each once.
std::set<int> typesOf(const std::vector<std::size_t>& accounts, const ComparedFolder& folder) {
    std::set<int> types;
    for (const std::size_t place : accounts) {
        types.insert(folder.accounts()[place].record->accountType);
    }
    return types;
}

bool isTradedBy(int accountType, const standalone::ListedInstrument& listed) {
    const auto* const traded = standalone::tradedFamily(accountType);
    return traded == nullptr || traded->lists.hold(listed);
}

/// The instruments that accounts of one of the types trade in the folder, and which of them the change is about.
std::vector<ListedName> listOf(const std::set<int>& accountTypes, const ComparedFolder& folder,
                               const std::vector<std::size_t>& meant) {
    std::vector<ListedName> list;
    for (std::size_t place = 0; place < folder.instruments().size(); ++place) {
        const standalone::ListedInstrument& listed = folder.instruments()[place];
        const bool isMeant = std::binary_search(meant.begin(), meant.end(), place);
        if (isMeant ||
            std::any_of(accountTypes.begin(), accountTypes.end(), [&](int type) { return isTradedBy(type, listed); })) {
            list.push_back({listed.record->market, listed.record->code, isMeant});
        }
    }
    return list;
}

/// " (stock, credit)", as the accounts of one part may all be behind the first few.
std::string partsText(const Change& change) {
    return change.parts.size() < 2 ? "" : fmt::format(" ({})", fmt::join(change.parts, ", "));
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
        {forPrograms("part"), [](const ChangeRow& row) { return fmt::format("{}", fmt::join(row.change.parts, " ")); }},
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
        {forPrograms("accounts_count").with(&Field::unit, Unit::kCount),
         [](const ChangeRow& row) { return row.accounts.size(); }},
        {forPrograms("accounts_short"), [](const ChangeRow& row) { return firstFew(row.accounts); }},
        {forPrograms("instruments_count").with(&Field::unit, Unit::kCount),
         [](const ChangeRow& row) { return row.instruments.size(); }},
        {forPrograms("instruments_short"), [](const ChangeRow& row) { return row.instrumentsShort; }},
    };
}

ChangeRow changeRow(const Change& change, const ComparedFolder& before, const Comparison& comparison,
                    const cost::DateRange& compared) {
    ChangeRow row{change, {}, {}, "", "", Judgement::kNone};
    for (const std::size_t place : change.accounts) {
        row.accounts.push_back(before.accounts()[place].record->accountId);
    }
    std::vector<std::size_t> places;
    for (const std::size_t instrument : change.difference.instruments) {
        places.push_back(comparison.instruments()[instrument].before);
        const qmservice::CInstrument& record = *before.instruments()[places.back()].record;
        row.instruments.push_back(instrumentText(record.market, record.code));
    }
    const bool onAllDays = change.days.from == compared.from && change.days.until == compared.until;
    std::sort(places.begin(), places.end());
    row.instrumentsShort = instrumentGroup(listOf(typesOf(change.accounts, before), before, places));
    row.heading =
        fmt::format("{}{}: {}{}{}", firstFew(row.accounts), partsText(change), row.instrumentsShort,
                    change.isInPart ? ", each account some of them" : "", onAllDays ? "" : ", " + change.days.text());
    return row;
}

}  // namespace feedesk
