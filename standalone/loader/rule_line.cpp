#include "standalone/loader/rule_line.h"

#include <algorithm>
#include <limits>

#include "standalone/loader/account_kinds.h"
#include "standalone/loader/lists.h"
#include "standalone/loader/spreadsheet_code.h"
#include "standalone/text/escape.h"
#include "standalone/text/wording.h"

namespace standalone::loader {
namespace {

void readAccount(const Load& load, Cell& cell, const std::string& file, const std::vector<int>& kinds,
                 std::optional<std::size_t>& account) {
    const std::size_t* place = load.accounts.find(std::string(cell.text));
    if (place == nullptr &&
        !load.accounts.complete) {  // NOLINT(bugprone-branch-clone): two unlike reasons to be silent
        cell.drop();
    } else if (place == nullptr) {
        cell.refuseFound(ErrorKind::kUnknownAccount, "an account of accounts.csv", [&] {
            return "correct it or add the account there" + suggestion(cell.text, load.accountNames);
        });
    } else if (const int kind = load.market.accounts[*place].record->accountType; kind == 0) {
        cell.drop();
    } else if (std::find(kinds.begin(), kinds.end(), kind) == kinds.end()) {
        cell.refuse(ErrorKind::kAccountKind, [&, kind = kind] {
            return " names " + inQuotes(cell.text) + ", an account of the kind " + oneOf(kindNames({kind})) + ", but " +
                   file + " takes accounts of the kind " + oneOf(kindNames(kinds)) +
                   "; name such an account or remove the line";
        });
    } else {
        account = *place;
    }
}

std::vector<RuleColumn> rateColumns(const std::vector<std::string>& names) {
    std::vector<RuleColumn> columns;
    for (std::size_t i = 0; i < names.size(); ++i) {
        columns.push_back(
            {names[i], Need::kOptional, [i](RuleLine& line, Cell& cell) { readNumber(cell, line.rates[i]); }});
    }
    return columns;
}

bool isPattern(const std::string& code) { return code.find('*') != std::string::npos; }

std::string instrumentName(const RuleLine& line) { return line.market + " " + inQuotes(line.code); }

void reportUnknownInstrument(Load& load, const std::string& file, const ReadRule& read) {
    if (!load.instrumentsComplete) return;
    load.errors.add({file, read.position.line, "code"}, ErrorKind::kUnknownCode, [&] {
        const std::string spoilt = spoiltCode(load.instruments, read.line.market, read.line.code);
        return "the instrument " + instrumentName(read.line) + " is not in instruments/*.csv" +
               (spoilt.empty() ? "; correct the code or add the instrument there" : spoilt);
    });
}

void reportNoMatch(Load& load, const std::string& file, const ReadRule& read, const Lists& lists) {
    const RuleLine& line = read.line;
    if (!isPattern(line.code) && !load.instruments.find(line.market, line.code)) {
        reportUnknownInstrument(load, file, read);
        return;
    }
    if (!load.instrumentsWhole) return;
    load.errors.add({file, read.position.line}, ErrorKind::kNoMatch, [&] {
        const std::string product = line.product.empty() ? "" : " and the product " + inQuotes(line.product);
        return "the line matches no instrument: none of market " + line.market + " in the list " + listNames(lists) +
               " has the code " + inQuotes(line.code) + product + "; correct the line or remove it";
    });
}

}  // namespace

bool readMarketName(const Load& load, Cell& cell, std::string& market) {
    const std::string name(cell.text);
    if (load.markets.find(name) != nullptr) return readText(cell, market);
    if (!load.markets.complete) return cell.drop();
    return cell.refuse(ErrorKind::kUnknownMarket, [&] {
        return " holds " + inQuotes(name) + ", which is not a market of market.toml; known are " +
               oneOf(load.marketNames) + mendByOneOf(name, load.marketNames);
    });
}

RuleColumn accountColumn(const Load& load, const std::string& file, const std::vector<int>& kinds) {
    return {"account", Need::kFilled,
            [&load, file, kinds](RuleLine& line, Cell& cell) { readAccount(load, cell, file, kinds, line.account); }};
}

RuleColumn marketColumn(const Load& load, Need need) {
    return {"market", need, [&load](RuleLine& line, Cell& cell) { readMarketName(load, cell, line.market); }};
}

RuleColumn codeColumn(Need need) {
    return {"code", need, [](RuleLine& line, Cell& cell) { readText(cell, line.code); }};
}

RuleColumn productColumn() {
    return {"product", Need::kOptional, [](RuleLine& line, Cell& cell) { readText(cell, line.product); }};
}

RuleColumn hedgeFlagColumn() {
    static const Words flags{{"1", '1'}, {"2", '2'}, {"3", '3'}};
    return {"hedge_flag", Need::kFilled, [](RuleLine& line, Cell& cell) { readWord(cell, flags, line.hedgeFlag); }};
}

RuleColumn marginModeColumn() {
    return {"margin_mode", Need::kOptional, [](RuleLine& line, Cell& cell) {
                readInteger(cell, std::numeric_limits<int>::min(), std::numeric_limits<int>::max(), line.marginMode);
            }};
}

RuleColumn numberColumn(const std::string& name, int RuleLine::*field, Need need) {
    return {name, need, [field](RuleLine& line, Cell& cell) {
                readInteger(cell, 1, std::numeric_limits<int>::max(), line.*field);
            }};
}

std::vector<RuleColumn> namedRates(const Load& load, const std::string& family) {
    std::vector<std::string> names;
    for (const RateName& rate : load.market.rateNames.at(family)) names.push_back(rate.column);
    return rateColumns(names);
}

std::vector<RuleColumn> commissionRates() {
    return rateColumns({"open_by_money", "open_by_volume", "close_by_money", "close_by_volume", "close_today_by_money",
                        "close_today_by_volume", "commission_extra1", "commission_extra2"});
}

std::vector<RuleColumn> marginRates() {
    return rateColumns(
        {"long_by_money", "long_by_volume", "short_by_money", "short_by_volume", "margin_extra1", "margin_extra2"});
}

std::vector<RuleColumn> joined(std::vector<RuleColumn> columns, const std::vector<RuleColumn>& more) {
    columns.insert(columns.end(), more.begin(), more.end());
    return columns;
}

std::vector<std::size_t> matchInstruments(Load& load, const std::string& file, const ReadRule& read,
                                          const Lists& lists) {
    const RuleLine& line = read.line;
    if (line.market.empty() || line.code.empty()) return {};
    const std::size_t most = read.whole ? load.market.instruments.size() : 1;
    std::vector<std::size_t> places =
        load.instruments.match(load.market.instruments, lists, line.market, line.code, line.product, most);
    if (places.empty()) reportNoMatch(load, file, read, lists);
    return places;
}

std::optional<std::size_t> findInstrument(Load& load, const std::string& file, const ReadRule& read) {
    const RuleLine& line = read.line;
    if (line.market.empty() || line.code.empty()) return std::nullopt;
    if (isPattern(line.code)) {
        load.errors.add({file, read.position.line, "code"}, ErrorKind::kName, [&] {
            return "column code holds " + inQuotes(line.code) +
                   ", but the code of one instrument was expected; patterns are not taken here; write a line "
                   "for each instrument";
        });
        return std::nullopt;
    }
    const std::optional<std::size_t> place = load.instruments.find(line.market, line.code);
    if (!place) reportUnknownInstrument(load, file, read);
    return place;
}

}  // namespace standalone::loader
