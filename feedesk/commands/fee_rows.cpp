#include "feedesk/commands/fee_rows.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>

#include "feedesk/answers/marks.h"
#include "feedesk/instruments/instrument_text.h"
#include "standalone/families.h"

namespace feedesk {
namespace {

using FeeFields = FieldsOf<FeeRow>;

constexpr std::size_t kShortestName = 8;
constexpr const char* kRates = "rates";

/// What the tables call a part, and what they call its items; a part without items has one row for each instrument.
struct PartTitle {
    std::string title;
    std::string items;
};

PartTitle partTitle(const std::string& part) {
    const standalone::RateFamily& family = standalone::rateFamily(part);
    return {family.title, family.itemTitle};
}

const qmservice::CInstrument& instrument(const FeeRow& row) { return *row.answer.instrument; }

std::string symbol(const FeeRow& row) { return instrumentText(instrument(row)); }

Value source(const FeeRow& row) {
    const auto& position = row.line.origin.position;
    return position ? Value(Source{row.market.where(*position)}) : Value(Nothing());
}

Names markNames(const FeeRow& row) {
    const std::vector<Mark> marks = marksOf(row.line);
    Names names;
    std::transform(marks.begin(), marks.end(), std::back_inserter(names), markName);
    return names;
}

/// The fields of every row. Where an instrument has several rows its name is their heading.
FeeFields commonFields(const std::string& items, bool tellsAccount) {
    const bool hasItems = !items.empty();
    const Field shownInstrument = hasItems ? forPeople("Instrument").at(ShownAt::kHeading) : forPeople("Instrument");
    const Field name = Field{"name", hasItems ? "" : "Name"}.shortenedTo(kShortestName);
    return {
        {{"account", tellsAccount ? "Account" : ""}, [](const FeeRow& row) { return row.answer.account->accountId; }},
        {forPrograms("kind"),
         [](const FeeRow& row) { return standalone::accountKindName(row.answer.account->accountType); }},
        {shownInstrument,
         [hasItems](const FeeRow& row) { return symbol(row) + (hasItems ? " " + instrument(row).name : ""); }},
        {forPrograms("market").in("instrument"), [](const FeeRow& row) { return instrument(row).market; }},
        {forPrograms("code").in("instrument"), [](const FeeRow& row) { return instrument(row).code; }},
        {name.in("instrument"), [](const FeeRow& row) { return instrument(row).name; }},
        {forPrograms("part"), [](const FeeRow& row) { return row.line.part; }},
        {{"item", items},
         [](const FeeRow& row) {
             return Label{row.line.item, {row.line.label}};
         }},
        {Field{"level", "Level"}.at(ShownAt::kLast),
         [](const FeeRow& row) {
             return Label{levelName(row.line.origin.level), levelPieces(row.line)};
         }},
        {Field{"source", "Source"}.at(ShownAt::kLast).when(WhenZero::kLeftOut), source},
        {forPrograms("marks"), markNames},
        {beginOf(kRates), [](const FeeRow& /*row*/) { return Nothing(); }},
    };
}

/// Of rates that are 0 the table says so below, but not of a trade unit or a mode, nor of a rate without a title.
WhenZero whenZero(const TitledRates& titled) {
    const ShownRate& first = titled.rates.front();
    return first.unit == Unit::kCount || first.column == titled.title ? WhenZero::kLeftOut : WhenZero::kNamed;
}

}  // namespace

FieldsOf<FeeRow> rateFields(const FeeLine& line) {
    FeeFields fields;
    for (std::size_t i = 0; i < line.rates.size(); ++i) {
        const TitledRates& titled = line.rates[i];
        for (std::size_t j = 0; j < titled.rates.size(); ++j) {
            Field field{titled.rates[j].column, titled.title, titled.rates[j].unit, kRates};
            field.whenZero = whenZero(titled);
            field.added = j > 0;
            fields.push_back({field, [i, j](const FeeRow& row) {
                                  return row.line.rates.empty() ? Value(Nothing()) : row.line.rates[i].rates[j].value;
                              }});
        }
    }
    return fields;
}

namespace {

template <class Visit>
void forEachRow(const std::vector<Answer>& answers, const standalone::Market& market, const Visit& visit) {
    for (const Answer& answer : answers) {
        for (const FeeLine& line : answer.lines) {
            visit(FeeRow{answer, line, market});
        }
    }
}

/// The parts of which an account's answers may consist.
std::vector<std::string> partsOf(int accountKind) {
    const standalone::RateFamily* traded = standalone::tradedFamily(accountKind);
    std::vector<std::string> parts;
    for (const standalone::RateFamily& family : standalone::rateFamilies()) {
        if (traded == nullptr || std::string_view(family.instruments) == traded->instruments) {
            parts.emplace_back(family.name);
        }
    }
    return parts;
}

}  // namespace

FeeRows::FeeRows(const std::vector<Answer>& answers, const standalone::Market& newMarket) : market(newMarket) {
    forEachRow(answers, market, [this](const FeeRow& row) { addSection(row.line, false); });
}

FeeRows::FeeRows(const std::vector<int>& accountKinds, const standalone::Market& newMarket) : market(newMarket) {
    for (const int kind : accountKinds) {
        for (const std::string& part : partsOf(kind)) {
            addSection({part, "", "", {}, zeroRates(part, market), {}}, true);
        }
    }
}

void FeeRows::addSection(const FeeLine& line, bool tellsAccount) {
    const auto [place, isNew] = sectionOfPart.emplace(line.part, parts.size());
    const PartTitle title = partTitle(line.part);
    if (isNew) {
        fieldsOfSection.push_back(commonFields(title.items, tellsAccount));
        parts.emplace_back();
    }
    FeeFields& fields = fieldsOfSection[place->second];
    if (fields.back().field.name.empty()) {  // no rates yet
        const FeeFields rates = rateFields(line);
        fields.insert(fields.end(), rates.begin(), rates.end());
        parts[place->second] = sectionOf(title.title, fields);
    }
}

void FeeRows::giveTo(RowSink& sink, const std::vector<Answer>& answers) const {
    forEachRow(answers, market, [&](const FeeRow& feeRow) {
        const std::size_t section = sectionOfPart.at(feeRow.line.part);
        Row row = rowOf(fieldsOfSection[section], feeRow);
        row.section = section;
        row.marked = !marksOf(feeRow.line).empty();
        sink.row(row);
    });
}

}  // namespace feedesk
