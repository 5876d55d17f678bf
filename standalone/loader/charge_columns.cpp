#include "standalone/loader/charge_columns.h"

#include <algorithm>

#include "standalone/loader/column_name.h"
#include "standalone/loader/day_columns.h"
#include "standalone/loader/rule_line.h"
#include "standalone/text/wording.h"

namespace standalone::loader {
namespace {

using cost::Decimal;
using cost::Term;
using ChargeColumn = TableColumn<Term>;

template <class Enum>
const Words& words() {
    static const Words all = [] {
        Words made;
        for (std::size_t i = 0; i < cost::kWords<Enum>.size(); ++i) {
            made.emplace_back(cost::kWords<Enum>[i], static_cast<int>(i));
        }
        return made;
    }();
    return all;
}

template <class Enum>
ChargeColumn wordColumn(const char* name, Enum Term::*field) {
    return {name, ColumnNeed::kFilled, [field](Term& term, TableCell& cell) {
                int word = 0;
                if (readWord(cell, words<Enum>(), word)) {
                    term.*field = static_cast<Enum>(word);
                }
            }};
}

ChargeColumn textColumn(const char* name, std::string Term::*field) {
    return {name, ColumnNeed::kOptional, [field](Term& term, TableCell& cell) { readText(cell, term.*field); }};
}

/// A number that is kept as the decimal it is written as.
ChargeColumn amountColumn(const char* name, std::optional<Decimal> Term::*field) {
    return {name, ColumnNeed::kOptional, [field](Term& term, TableCell& cell) {
                const std::optional<Decimal> number = Decimal::parse(cell.text);
                if (!number) {
                    refuseNumber(cell);
                } else if (number->isNegative()) {
                    cell.refuseFound(ErrorKind::kNumber, "a number that is not negative");
                } else {
                    term.*field = number;
                }
            }};
}

void readAccountOrPattern(const Load& load, Term& term, TableCell& cell) {
    if (isPattern(cell.text) || load.accounts.find(std::string(cell.text)) != nullptr) {
        readText(cell, term.account);
    } else {
        refuseUnknownAccount(load, cell);
    }
}

void readMarketOrPattern(const Load& load, Term& term, TableCell& cell) {
    if (isPattern(cell.text)) {
        readText(cell, term.market);
    } else {
        readMarketName(load, cell, term.market);
    }
}

/// The key of a fee item, as the fee center answers it.
void readItemKey(Term& term, TableCell& cell) {
    const bool isKey = isItem(cell.text) && cell.text[1] != 'D';
    if (isKey || (cell.text.size() == 2 && cell.text[1] == 'D' && isItem(std::string(cell.text) + '0'))) {
        readText(cell, term.item);
    } else {
        cell.refuseFound(ErrorKind::kName, "the key of a fee item, such as 000 or 0D", [&] {
            return isItem(cell.text) ? "the fee center files it under its first two characters: write " +
                                           std::string(cell.text.substr(0, 2))
                                     : std::string();
        });
    }
}

ChargeColumn nameColumn(const char* name, ColumnNeed need, std::string Term::*field) {
    return {name, need, [field](Term& term, TableCell& cell) {
                if (isColumnName(cell.text)) {
                    readText(cell, term.*field);
                } else {
                    cell.refuseFound(ErrorKind::kName, "a name of lower-case letters, digits and _");
                }
            }};
}

void readRounding(Term& term, TableCell& cell) {
    const std::optional<cost::Rounding> rounding = cost::Rounding::parse(cell.text);
    if (!rounding) {
        cell.refuseFound(ErrorKind::kWord, "a step and a mode such as \"0.01 half_up\"", [] {
            return "write a step above 0 and the mode " + oneOf(wordsOf(words<cost::RoundingMode>()));
        });
        return;
    }
    term.rounding = rounding;
}

void readCurrency(Term& term, TableCell& cell) {
    const bool isCode = cell.text.size() == 3 && std::all_of(cell.text.begin(), cell.text.end(),
                                                             [](char byte) { return byte >= 'A' && byte <= 'Z'; });
    if (isCode) {
        readText(cell, term.currency);
    } else {
        cell.refuseFound(ErrorKind::kWord, "a currency of three capital letters, such as CNY");
    }
}

}  // namespace

std::vector<ChargeColumn> chargeColumns(const Load& load) {
    std::vector<ChargeColumn> columns{
        wordColumn("family", &Term::family),
        {"account", ColumnNeed::kOptional,
         [&load](Term& term, TableCell& cell) { readAccountOrPattern(load, term, cell); }},
        {"market", ColumnNeed::kOptional,
         [&load](Term& term, TableCell& cell) { readMarketOrPattern(load, term, cell); }},
        textColumn("code", &Term::code),
        textColumn("product", &Term::product),
        {"item", ColumnNeed::kOptional, readItemKey},
        nameColumn("charge", ColumnNeed::kFilled, &Term::charge),
        textColumn("title", &Term::title),
        wordColumn("side", &Term::side),
        wordColumn("basis", &Term::basis),
        amountColumn("rate", &Term::rate),
        amountColumn("minimum", &Term::minimum),
        amountColumn("maximum", &Term::maximum),
        wordColumn("per", &Term::per),
        {"rounding", ColumnNeed::kOptional, readRounding},
        nameColumn("inside", ColumnNeed::kOptional, &Term::inside),
        {"currency", ColumnNeed::kFilled, readCurrency}};
    const auto days = dayColumns<Term>([](Term& term) { return &term.dates; });
    columns.insert(columns.end(), days.begin(), days.end());
    columns.push_back(textColumn("source", &Term::source));
    columns.push_back(
        {"checked", ColumnNeed::kOptional, [](Term& term, TableCell& cell) { readDay(cell, term.checked); }});
    return columns;
}

}  // namespace standalone::loader
