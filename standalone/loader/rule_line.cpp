#include "standalone/loader/rule_line.h"

#include <fmt/format.h>

#include <algorithm>
#include <limits>

#include "standalone/loader/lists.h"
#include "standalone/loader/spreadsheet_code.h"
#include "standalone/market_files.h"
#include "standalone/text/escape.h"
#include "standalone/text/unseen.h"
#include "standalone/text/wording.h"

namespace standalone::loader {
namespace {

/// The words of accounts.csv for some kinds: "futures or futures_5".
std::string kindNames(const std::vector<int>& kinds) {
    std::vector<std::string> names;
    names.reserve(kinds.size());
    for (const int kind : kinds) {
        names.emplace_back(findAccountKind(kind)->name);
    }
    return oneOf(names);
}

void readAccount(const Load& load, TableCell& cell, const std::string& file, const std::vector<int>& kinds,
                 std::optional<std::size_t>& account) {
    const std::size_t* place = load.accounts.find(std::string(cell.text));
    if (place == nullptr) {
        refuseUnknownAccount(load, cell);
    } else if (const int kind = load.market.accounts[*place].record->accountType; kind == 0) {
        cell.drop();
    } else if (std::find(kinds.begin(), kinds.end(), kind) == kinds.end()) {
        cell.refuse(ErrorKind::kAccountKind, [&, kind = kind] {
            return fmt::format(
                " names {}, an account of the kind {}, but {} takes accounts of the kind {}; name such an account or "
                "remove the line",
                inQuotes(cell.text), kindNames({kind}), file, kindNames(kinds));
        });
    } else {
        account = *place;
    }
}

std::string instrumentName(const RuleLine& line) { return line.market + " " + inQuotes(line.code); }

void reportUnknownInstrument(Load& load, const std::string& file, const ReadRule& read) {
    if (!load.instrumentsComplete) {
        return;
    }
    load.errors.add({file, read.position.line, "code"}, ErrorKind::kUnknownCode, [&] {
        const std::string unseen = unseenClause(read.line.code);
        const std::string clause = unseen.empty() ? "" : unseen + ',';
        const std::string spoilt = spoiltCode(load.instruments, read.line.market, read.line.code);
        return fmt::format("the instrument {}{} is not in instruments/*.csv{}", instrumentName(read.line), clause,
                           spoilt.empty() ? "; correct the code or add the instrument there" : spoilt);
    });
}

void reportNoMatch(Load& load, const std::string& file, const ReadRule& read, const Lists& lists) {
    const RuleLine& line = read.line;
    if (!isPattern(line.code) && !load.instruments.find(line.market, line.code)) {
        reportUnknownInstrument(load, file, read);
        return;
    }
    if (!load.instrumentsWhole) {
        return;
    }
    load.errors.add({file, read.position.line}, ErrorKind::kNoMatch, [&] {
        const std::string product = line.product.empty() ? "" : " and the product " + inQuotes(line.product);
        return fmt::format(
            "the line matches no instrument: none of market {} in the list {} has the code {}{}; correct the line or "
            "remove it",
            line.market, listNames(lists), inQuotes(line.code), product);
    });
}

/// What a line says of its instruments. No text holds a NUL.
std::string matchOf(const RuleLine& line, const Lists& lists) {
    std::string match;
    match.reserve(64);
    for (const std::string* text : {&line.market, &line.code, &line.product}) {
        match.append(*text).push_back('\0');
    }
    match.append(reinterpret_cast<const char*>(&lists.listMask), sizeof lists.listMask);
    return match.append(reinterpret_cast<const char*>(&lists.types), sizeof lists.types);
}

}  // namespace

void refuseUnknownAccount(const Load& load, TableCell& cell) {
    if (!load.accounts.complete) {
        cell.drop();
        return;
    }
    cell.refuseFound(ErrorKind::kUnknownAccount, fmt::format("an account of {}", files::kAccounts),
                     [&] { return "correct it or add the account there" + suggestion(cell.text, load.accountNames); });
}

bool readMarketName(const Load& load, TableCell& cell, std::string& market) {
    const std::string name(cell.text);
    if (load.markets.find(name) != nullptr) {
        return readText(cell, market);
    }
    if (!load.markets.complete) {
        return cell.drop();
    }
    return cell.refuse(ErrorKind::kUnknownMarket, [&] {
        return fmt::format(" holds {}, which is not a market of {}; known are {}{}", inQuotes(name), files::kMarket,
                           oneOf(load.marketNames), adviseOneOf(name, load.marketNames));
    });
}

RuleColumn accountColumn(const Load& load, const std::string& file, const std::vector<int>& kinds) {
    return {"account", ColumnNeed::kFilled, [&load, file, kinds](RuleLine& line, TableCell& cell) {
                readAccount(load, cell, file, kinds, line.account);
            }};
}

RuleColumn marketColumn(const Load& load, ColumnNeed need) {
    return {"market", need, [&load](RuleLine& line, TableCell& cell) { readMarketName(load, cell, line.market); }};
}

RuleColumn codeColumn(ColumnNeed need) {
    return {"code", need, [](RuleLine& line, TableCell& cell) { readText(cell, line.code); }};
}

RuleColumn productColumn() {
    return {"product", ColumnNeed::kOptional, [](RuleLine& line, TableCell& cell) { readText(cell, line.product); }};
}

RuleColumn hedgeFlagColumn() {
    static const Words flags{{"1", qmservice::kSpeculation}, {"2", qmservice::kArbitrage}, {"3", qmservice::kHedging}};
    return {"hedge_flag", ColumnNeed::kFilled,
            [](RuleLine& line, TableCell& cell) { readWord(cell, flags, line.hedgeFlag); }};
}

RuleColumn marginModeColumn() {
    return {"margin_mode", ColumnNeed::kOptional, [](RuleLine& line, TableCell& cell) {
                readInteger(cell, std::numeric_limits<int>::min(), std::numeric_limits<int>::max(), line.marginMode);
            }};
}

RuleColumn numberColumn(const std::string& name, int RuleLine::*field, ColumnNeed need) {
    return {name, need, [field](RuleLine& line, TableCell& cell) {
                readInteger(cell, 1, std::numeric_limits<int>::max(), line.*field);
            }};
}

std::vector<RuleColumn> feeKeyColumns(const Load& load, const std::string& file, const RateFamily& family) {
    return {accountColumn(load, file, family.feeAccounts), marketColumn(load, ColumnNeed::kFilled),
            codeColumn(ColumnNeed::kFilled), productColumn()};
}

std::vector<RuleColumn> rateColumns(const Load& load, const RateFamily& family) {
    std::vector<RuleColumn> columns;
    for (const std::string& name : rateColumnNames(load.market, family)) {
        columns.push_back({name, ColumnNeed::kOptional,
                           [i = columns.size()](RuleLine& line, TableCell& cell) { readNumber(cell, line.rates[i]); }});
    }
    return columns;
}

std::vector<RuleColumn> joined(std::vector<RuleColumn> columns, const std::vector<RuleColumn>& more) {
    columns.insert(columns.end(), more.begin(), more.end());
    return columns;
}

Places matchInstruments(Load& load, const std::string& file, const ReadRule& read, const Lists& lists) {
    const RuleLine& line = read.line;
    if (line.market.empty() || line.code.empty()) {
        return {};
    }
    const std::string match = matchOf(line, lists);
    if (const auto found = load.matches.find(match); found != load.matches.end()) {
        return found->second;
    }
    const std::size_t most = read.whole ? load.market.instruments.size() : 1;
    std::vector<std::size_t> places =
        load.instruments.match(load.market.instruments, lists, line.market, line.code, line.product, most);
    if (places.empty()) {
        reportNoMatch(load, file, read, lists);
    }
    if (places.empty() || !read.whole) {
        return {};
    }
    return load.matches.emplace(match, std::make_shared<const std::vector<std::size_t>>(std::move(places)))
        .first->second;
}

std::optional<std::size_t> findInstrument(Load& load, const std::string& file, const ReadRule& read) {
    const RuleLine& line = read.line;
    if (line.market.empty() || line.code.empty()) {
        return std::nullopt;
    }
    if (isPattern(line.code)) {
        load.errors.add({file, read.position.line, "code"}, ErrorKind::kName, [&] {
            return "column code holds " + inQuotes(line.code) +
                   ", but the code of one instrument was expected; patterns are not taken here; write a line "
                   "for each instrument";
        });
        return std::nullopt;
    }
    const std::optional<std::size_t> place = load.instruments.find(line.market, line.code);
    if (!place) {
        reportUnknownInstrument(load, file, read);
    }
    return place;
}

}  // namespace standalone::loader
