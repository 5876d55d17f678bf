#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <map>

#include "feedesk/instrument_names.h"
#include "feedesk/marks.h"
#include "feedesk/numbers.h"
#include "feedesk/show.h"
#include "feedesk/table.h"
#include "feedesk/text.h"

namespace feedesk {
namespace {

constexpr std::size_t kShortestName = 8;

struct Row {
    const Answer* answer;
    const FeeLine* line;
};

/// What the tables call a part, and what they call its items.
struct PartTitle {
    std::string title;
    std::string items;
};

PartTitle partTitle(const std::string& part) {
    static const std::map<std::string, PartTitle> titles = {{"stock", {"Stock rates", ""}},
                                                            {"credit", {"Credit rates", ""}},
                                                            {"neeq", {"NEEQ rates", ""}},
                                                            {"option", {"Stock option fee items", "Item"}},
                                                            {"commission", {"Futures commission", ""}},
                                                            {"margin", {"Futures margin", "Hedge flag"}},
                                                            {"hgt", {"Shanghai-Hong Kong connect rates", ""}},
                                                            {"sgt", {"Shenzhen-Hong Kong connect rates", ""}}};
    const auto found = titles.find(part);
    return found == titles.end() ? PartTitle{part, "Item"} : found->second;
}

std::string rateText(const Rate& rate) {
    switch (rate.unit) {
        case Unit::kFraction:
            return percent(rate.value);
        case Unit::kYuan:
            return plainNumber(rate.value) + " yuan";
        case Unit::kNumber:
        case Unit::kCount:
            break;
    }
    return plainNumber(rate.value);
}

/// "0.01%", "+ 3 yuan": what is 0 is left out, all but one 0.
Cell ratesCell(const TitledRates& titled) {
    if (isZero(titled)) {
        return {"0"};
    }
    Cell cell;
    for (const Rate& rate : titled.rates) {
        if (rate.value != 0) {
            cell.push_back((cell.empty() ? "" : "+ ") + rateText(rate));
        }
    }
    return cell;
}

/// What tells the rates of one part from each other; several may have one title.
const std::string& keyOf(const TitledRates& titled) { return titled.rates.front().column; }

struct RateColumn {
    std::string key;
    std::string title;
    bool rate;  ///< no count
    bool told;  ///< when it is 0
    bool zero = true;
};

/// The rate columns of one part in the order in which they appear: those that are not 0 everywhere or, where no rate is
/// left then, those that have a name.
class RateColumns {
public:
    explicit RateColumns(const std::vector<Row>& rows) {
        for (const Row& row : rows) {
            for (const TitledRates& titled : row.line->rates) {
                see(titled);
            }
        }
        const bool noRate =
            std::all_of(seen.begin(), seen.end(), [](const RateColumn& column) { return column.zero || !column.rate; });
        if (noRate) {
            show();
        }
    }

    [[nodiscard]] std::vector<RateColumn> shown() const {
        std::vector<RateColumn> columns;
        std::copy_if(seen.begin(), seen.end(), std::back_inserter(columns),
                     [](const RateColumn& column) { return !column.zero; });
        return columns;
    }

    /// Titles of the rates that are 0 in every row. A trade unit or a mode is no rate, and of a rate that nobody has
    /// named nobody expects to read.
    [[nodiscard]] std::vector<std::string> hidden() const {
        std::vector<std::string> titles;
        for (const RateColumn& column : seen) {
            if (column.zero && column.told) {
                titles.push_back(column.title);
            }
        }
        return titles;
    }

private:
    void see(const TitledRates& titled) {
        const auto same = [&](const RateColumn& column) { return column.key == keyOf(titled); };
        auto column = std::find_if(seen.begin(), seen.end(), same);
        if (column == seen.end()) {
            const bool isRate = titled.rates.front().unit != Unit::kCount;
            const bool isNamed = keyOf(titled) != titled.title;
            column = seen.insert(seen.end(), {keyOf(titled), singleLine(titled.title), isRate, isRate && isNamed});
        }
        column->zero = column->zero && isZero(titled);
    }

    /// The rates that have a name; where none has one, all of them.
    void show() {
        const bool named = std::any_of(seen.begin(), seen.end(), [](const RateColumn& column) { return column.told; });
        for (RateColumn& column : seen) {
            column.zero = column.zero && !(named ? column.told : column.rate);
        }
    }

    std::vector<RateColumn> seen;
};

/// Numbers the sources below a table where there is no room for them in it.
class Notes {
public:
    std::string mark(const std::string& source) {
        const auto number = numbers.emplace(source, numbers.size() + 1);
        if (number.second) {
            text += fmt::format("[{}] {}\n", number.first->second, source);
        }
        return fmt::format("[{}]", number.first->second);
    }

    std::string text;

private:
    std::map<std::string, std::size_t> numbers;
};

/// One part of the answers as a table.
class PartTable {
public:
    PartTable(const std::vector<Row>& partRows, const standalone::Market& loadedMarket)
        : rows(partRows), market(loadedMarket), columns(rows) {}

    [[nodiscard]] std::string text(std::size_t width) const {
        const PartTitle title = partTitle(rows.front().line->part);
        return title.title + "\n" + ratesText(title, width) + hiddenText(width);
    }

private:
    [[nodiscard]] std::string ratesText(const PartTitle& title, std::size_t width) const {
        const Table whole = table(title, nullptr);
        std::string text = columnsSideBySide(whole, width, Squeeze::kTitles);
        if (!text.empty()) {
            return text;
        }
        Notes notes;
        text = columnsSideBySide(table(title, &notes), width, Squeeze::kTexts);
        return text.empty() ? rowsSideBySide(whole, width) : text + notes.text;
    }

    [[nodiscard]] std::string hiddenText(std::size_t width) const {
        std::string list = fmt::format("{}", fmt::join(columns.hidden(), ", "));
        if (list.empty()) {
            return "";
        }
        return fmt::format("{}\n", fmt::join(fillLines(words("Rates not shown are 0: " + list + "."), width), "\n"));
    }

    /// With the sources in a column, or in `notes`. Where an instrument has several rows its name is their heading.
    [[nodiscard]] Table table(const PartTitle& title, Notes* notes) const {
        Table made;
        if (title.items.empty()) {
            made.columns = {{{"Instrument"}}, {{"Name"}, Align::kLeft, kShortestName}};
        } else {
            made.columns = {{words(title.items)}};
        }
        for (const RateColumn& shown : columns.shown()) {
            made.columns.push_back({words(shown.title), Align::kRight});
        }
        made.columns.push_back({{"Level"}});
        const bool withSources = notes == nullptr && hasSources();
        if (withSources) {
            made.columns.push_back({{"Source"}});
        }
        for (const Row& row : rows) {
            made.rows.push_back(tableRow(row, !title.items.empty()));
            made.rows.back().marked = !marksOf(*row.line).empty();
            addOrigin(made.rows.back().cells, *row.line, withSources, notes);
        }
        return made;
    }

    [[nodiscard]] bool hasSources() const {
        return std::any_of(rows.begin(), rows.end(),
                           [](const Row& row) { return row.line->origin.position.has_value(); });
    }

    [[nodiscard]] TableRow tableRow(const Row& row, bool isItem) const {
        const qmservice::CInstrument& instrument = *row.answer->instrument;
        TableRow made;
        if (isItem) {
            made.heading = fmt::format("{} {}", instrumentText(instrument.market, instrument.code), instrument.name);
            made.cells = {{"  " + row.line->label}};
        } else {
            made.cells = {{instrumentText(instrument.market, instrument.code)}, {instrument.name}};
        }
        for (const RateColumn& shown : columns.shown()) {
            made.cells.push_back(cell(*row.line, shown.key));
        }
        return made;
    }

    void addOrigin(std::vector<Cell>& cells, const FeeLine& line, bool withSources, Notes* notes) const {
        const std::string source = sourceText(line.origin, market);
        cells.push_back(levelPieces(line));
        if (notes != nullptr && !source.empty()) {
            cells.back().push_back(notes->mark(source));
        }
        if (withSources) {
            cells.push_back(source.empty() ? Cell() : Cell{source});
        }
    }

    static Cell cell(const FeeLine& line, const std::string& key) {
        const auto found = std::find_if(line.rates.begin(), line.rates.end(),
                                        [&](const TitledRates& titled) { return keyOf(titled) == key; });
        return found == line.rates.end() ? Cell{"-"} : ratesCell(*found);
    }

    const std::vector<Row>& rows;
    const standalone::Market& market;
    RateColumns columns;
};

/// The lines of the answers by part, the parts in the order in which they appear.
std::vector<std::vector<Row>> byPart(const std::vector<Answer>& answers) {
    std::vector<std::vector<Row>> parts;
    for (const Answer& answer : answers) {
        for (const FeeLine& line : answer.lines) {
            auto part = std::find_if(parts.begin(), parts.end(), [&](const std::vector<Row>& rows) {
                return rows.front().line->part == line.part;
            });
            if (part == parts.end()) {
                part = parts.insert(parts.end(), std::vector<Row>());
            }
            part->push_back({&answer, &line});
        }
    }
    return parts;
}

}  // namespace

std::string showAsTables(const std::vector<Answer>& answers, const standalone::Market& market, std::size_t width) {
    std::string text;
    for (const std::vector<Row>& rows : byPart(answers)) {
        text += (text.empty() ? "" : "\n") + PartTable(rows, market).text(width);
    }
    return text;
}

}  // namespace feedesk
