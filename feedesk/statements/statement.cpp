#include "feedesk/statements/statement.h"

#include <fmt/format.h>

#include <algorithm>
#include <string_view>
#include <utility>
#include <variant>

#include "feedesk/statements/cells.h"
#include "feedesk/statements/header.h"
#include "feedesk/statements/net_signs.h"
#include "feedesk/statements/repeated_lines.h"
#include "feedesk/statements/written_values.h"
#include "feedesk/text/numbers.h"
#include "feedesk/text/text.h"
#include "standalone/text/numbers.h"
#include "standalone/text/wording.h"

namespace feedesk {
namespace {

/// Thrown for a cell that cannot be read.
struct WrongCell {
    std::string column;
    std::string sentence;
};

cost::Decimal absolute(const cost::Decimal& number) { return number.isNegative() ? -number : number; }

/// Exports end some lines with a separator and others without.
void dropEmptyEnd(std::vector<std::string>& cells, std::size_t keep) {
    while (cells.size() > keep && cells.back().empty()) {
        cells.pop_back();
    }
}

/// Reads the lines below one header.
class LineReader {
public:
    LineReader(const FoundHeader& foundHeader, const std::vector<std::string>& headerCells)
        : header(foundHeader.header), layout(*foundHeader.layout), titles(headerCells) {}

    using Read = std::variant<StatementLine, PassedOver>;

    Read read(const std::vector<std::string>& lineCells) {
        cells = &lineCells;
        if (isFooter() || *cells == titles) {
            return PassedOver();
        }
        if (cells->size() != titles.size()) {
            throw WrongCell{"", fmt::format("the line has {}, and the header has {}", counted(cells->size(), "cell"),
                                            counted(titles.size(), "column"))};
        }
        const std::optional<cost::Side> side = sideIn();
        return side && !movesNothing() ? Read(trade(*side)) : Read(PassedOver{0, of(TradeFact::kOperation)});
    }

private:
    [[nodiscard]] const std::string& cell(std::size_t column) const { return (*cells)[column]; }
    [[nodiscard]] const std::string& of(TradeFact fact) const { return cell(*header.of(fact)); }
    [[nodiscard]] const std::string& title(TradeFact fact) const { return titles[*header.of(fact)]; }

    [[nodiscard]] bool fewCellsAreFilled() const {
        return std::count_if(cells->begin(), cells->end(), [](const std::string& each) { return !each.empty(); }) < 2;
    }

    [[nodiscard]] std::string_view textOf(TradeFact fact) const {
        const std::size_t column = *header.of(fact);
        return column < cells->size() ? std::string_view(cell(column)) : std::string_view();
    }

    /// Whether the line says neither what was traded nor how, as a sum of all or of a day, wherever its word is and
    /// however it is written. No code is without a digit.
    [[nodiscard]] bool namesNoTrade() const {
        return textOf(TradeFact::kOperation).empty() &&
               textOf(TradeFact::kCode).find_first_of("0123456789") == std::string_view::npos;
    }

    /// A line of sums or remarks: it begins as one, names no trade, has no more than one cell filled, or is drawn.
    [[nodiscard]] bool isFooter() const {
        const auto first =
            std::find_if(cells->begin(), cells->end(), [](const std::string& each) { return !each.empty(); });
        if (first == cells->end() || fewCellsAreFilled() || namesNoTrade() ||
            first->find_first_not_of("-=") == std::string::npos) {
            return true;
        }
        return std::any_of(layout.footers.begin(), layout.footers.end(),
                           [&](const std::string& footer) { return first->compare(0, footer.size(), footer) == 0; });
    }

    [[nodiscard]] std::optional<cost::Side> sideIn() const {
        const std::string& word = of(TradeFact::kOperation);
        const auto known = layout.operations.find(statedOperation(word));
        if (known != layout.operations.end()) {
            return known->second;
        }
        if (isZero(TradeFact::kQuantity)) {
            return std::nullopt;  // a dividend, interest, a transfer: whatever it is called, nothing was traded
        }
        std::vector<std::string> words;
        for (const auto& [each, side] : layout.operations) {
            words.push_back(each);
        }
        if (word.empty()) {
            throw WrongCell{title(TradeFact::kOperation),
                            fmt::format("is empty, and the line has a code and a quantity: what was done was expected, "
                                        "one of {}; fill it in",
                                        standalone::oneOf(words, 8))};
        }
        throw WrongCell{title(TradeFact::kOperation),
                        fmt::format("holds {}, which the layout {} does not know, only {}; add it to the layout's "
                                    "[operations], under no_trade where it is none",
                                    echoed(word), layout.name, standalone::oneOf(words, 8))};
    }

    [[nodiscard]] cost::Decimal number(std::size_t column) const {
        const auto read = statedNumber(cell(column));
        if (!read) {
            throw WrongCell{titles[column], fmt::format("holds {}, and a plain number such as 1488.50 was expected, of "
                                                        "at most 18 digits before and behind its point",
                                                        echoed(cell(column)))};
        }
        return *read;
    }

    [[nodiscard]] std::optional<cost::Decimal> numberOf(TradeFact fact) const {
        const auto column = header.of(fact);
        return column && !cell(*column).empty() ? std::optional(number(*column)) : std::nullopt;
    }

    /// Whether the statement says 0 of it, or nothing.
    [[nodiscard]] bool isZero(TradeFact fact) const {
        const auto column = header.of(fact);
        const auto read = column ? statedNumber(cell(*column)) : cost::Decimal();
        return read && read->isZero();
    }

    /// A line of a trade with nothing traded and no money moved, as an order that was withdrawn.
    [[nodiscard]] bool movesNothing() const {
        return isZero(TradeFact::kQuantity) && isZero(TradeFact::kAmount) && isZero(TradeFact::kNet);
    }

    [[nodiscard]] cost::Decimal positive(TradeFact fact) const {
        cost::Decimal read = absolute(number(*header.of(fact)));
        if (read.isZero()) {
            throw WrongCell{title(fact), fmt::format("holds {}, and a trade has more than 0", echoed(of(fact)))};
        }
        return read;
    }

    [[nodiscard]] cost::Date day() const {
        const auto read = statedDay(of(TradeFact::kDate));
        if (!read) {
            throw WrongCell{title(TradeFact::kDate),
                            fmt::format("holds {}, and a day such as 20210304 or 2021-03-04 was "
                                        "expected",
                                        echoed(of(TradeFact::kDate)))};
        }
        return *read;
    }

    [[nodiscard]] std::string code() const {
        if (of(TradeFact::kCode).empty()) {
            throw WrongCell{title(TradeFact::kCode), "is empty, and the code of an instrument was expected"};
        }
        return statedCode(of(TradeFact::kCode));
    }

    [[nodiscard]] std::string market() const {
        const auto column = header.of(TradeFact::kMarket);
        if (!column) {
            return "";
        }
        const auto known = layout.markets.find(cell(*column));
        return known == layout.markets.end() ? cell(*column) : known->second;
    }

    [[nodiscard]] std::size_t fills() const {
        const auto count = numberOf(TradeFact::kFills);
        if (!count) {
            return 1;
        }
        const auto whole = standalone::numberIn<std::uint32_t>(count->text());
        if (!whole || *whole == 0) {
            throw WrongCell{title(TradeFact::kFills), fmt::format("holds {}, and a whole number above 0 was expected",
                                                                  echoed(of(TradeFact::kFills)))};
        }
        return *whole;
    }

    [[nodiscard]] StatementLine trade(cost::Side side) const {
        StatementLine read;
        read.trade.side = side;
        read.trade.date = day();
        read.trade.quantity = positive(TradeFact::kQuantity);
        read.trade.price = positive(TradeFact::kPrice);
        read.priceText = of(TradeFact::kPrice);
        read.code = code();
        read.market = market();
        read.name = header.of(TradeFact::kName) ? of(TradeFact::kName) : "";
        const std::string order = header.of(TradeFact::kOrder) ? of(TradeFact::kOrder) : "";
        read.trade.order = order.find_first_not_of("-0") == std::string::npos ? "" : order;
        const auto amount = numberOf(TradeFact::kAmount);
        read.amount = amount ? std::optional(absolute(*amount)) : std::nullopt;
        read.net = numberOf(TradeFact::kNet);
        read.fills = fills();
        for (const auto& column : header.charges) {
            read.charges.push_back(column ? std::optional(number(*column)) : std::nullopt);
        }
        return read;
    }

    const Header& header;
    const Layout& layout;
    const std::vector<std::string>& titles;
    const std::vector<std::string>* cells = nullptr;
};

/// Whether the line is above the header too: an export in pages repeats what it begins with.
bool isOfPageHead(const std::vector<std::string>& lines, std::size_t header, std::size_t index) {
    const auto end = lines.begin() + static_cast<std::ptrdiff_t>(header);
    return std::find(lines.begin(), end, lines[index]) != end;
}

}  // namespace

Statement statementIn(const std::vector<std::string>& lines, const std::string& file,
                      const std::vector<Layout>& layouts, std::vector<WrongLine>& wrong) {
    const FoundHeader found = findHeader(lines, file, layouts);
    std::vector<std::string> titles = *cellsOf(lines[found.index], found.separator);
    dropEmptyEnd(titles, 0);
    Statement statement{file, *found.layout, {}, {}, {}, false};
    LineReader reader(found, titles);
    for (std::size_t i = found.index + 1; i < lines.size(); ++i) {
        auto cells = cellsOf(lines[i], found.separator);
        if (!cells) {
            wrong.push_back({i + 1, "", "a quote is not closed in this line; close it, or double it inside a cell"});
            continue;
        }
        dropEmptyEnd(*cells, titles.size());
        if (cells->empty()) {
            continue;
        }
        if (isOfPageHead(lines, found.index, i)) {
            statement.passedOver.push_back({i + 1, ""});
            continue;
        }
        try {
            auto read = reader.read(*cells);
            std::visit([&](auto& line) { line.line = i + 1; }, read);
            if (auto* trade = std::get_if<StatementLine>(&read)) {
                statement.lines.push_back(std::move(*trade));
            } else {
                statement.passedOver.push_back(std::move(std::get<PassedOver>(read)));
            }
        } catch (const WrongCell& cell) {
            wrong.push_back({i + 1, cell.column, cell.sentence});
        }
    }
    giveSigns(statement);
    statement.repeated = repeatedLines(statement.lines, lines);
    return statement;
}

}  // namespace feedesk
