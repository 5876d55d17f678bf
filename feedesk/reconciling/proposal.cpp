#include "feedesk/reconciling/proposal.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <optional>
#include <utility>

#include "feedesk/reconciling/table_edit.h"
#include "feedesk/text/numbers.h"
#include "standalone/text/numbers.h"

namespace feedesk {
namespace {

/// The column of charges.csv that holds a rate of the term's own.
constexpr const char* kTermRate = "rate";

struct FileLine {
    std::string file;
    std::size_t line = 0;
};

/// "fees/stock.csv:49".
FileLine placeIn(const std::string& where) {
    const std::size_t colon = where.rfind(':');
    const auto line =
        colon == std::string::npos ? std::nullopt : standalone::numberIn<std::size_t>(where.substr(colon + 1));
    return line ? FileLine{where.substr(0, colon), *line} : FileLine();
}

std::string contentOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// What may be proposed in the place of a line of the folder.
struct Wish {
    std::shared_ptr<const SolvedRate> solved;
    const RateSource& source;
    FileLine place;

    [[nodiscard]] std::string column() const { return source.isTermsOwn ? kTermRate : solved->sought.charge; }
};

/// Those of whole lines first, as what is for one instrument goes behind them.
std::vector<Wish> wishesOf(const SolvedRates& rates) {
    std::vector<Wish> wishes;
    std::vector<Wish> ofInstruments;
    for (const auto& solved : rates) {
        for (const RateSource& source : solved->sources) {
            FileLine place = placeIn(source.source);
            if (!place.file.empty() && source.days.from && solved->orElse.empty() && !solved->range.isOpenBelow() &&
                !solved->isUnlikely()) {
                (solved->instrument.empty() ? wishes : ofInstruments).push_back({solved, source, std::move(place)});
            }
        }
    }
    std::move(ofInstruments.begin(), ofInstruments.end(), std::back_inserter(wishes));
    return wishes;
}

/// The cells of a change by the lines that they are in.
std::map<std::string, TableEdit::Values> byLine(const TermCells& cells) {
    std::map<std::string, TableEdit::Values> lines;
    for (const TermCell& each : cells) {
        lines[each.where].emplace_back(each.column, each.value);
    }
    return lines;
}

/// The tables of a market folder that are changed.
class Edits {
public:
    explicit Edits(std::filesystem::path marketFolder) : folder(std::move(marketFolder)) {}

    void make(const Wish& wish) {
        TableEdit& edit = of(wish.place.file);
        const SolvedRate& solved = *wish.solved;
        const std::size_t line = wish.place.line;
        const TableEdit::Values rate = {{wish.column(), solved.rate.text()}};
        const bool isForOne = !codeOf(solved).empty() && edit.cell(line, "code") != codeOf(solved);
        auto change = isForOne ? addForInstrument(edit, line, solved, rate, wish.source.days)
                               : edit.succeed(line, rate, wish.source.days);
        if (change) {
            made.lines.push_back(
                {wish.source.source, std::move(change->first), std::move(change->second), wish.solved, nullptr});
        } else if (isForOne) {
            made.withheld.push_back(fmt::format(
                "no line is proposed for the {} of {} alone, as {} is a line of several instruments and its table has "
                "no column for one",
                solved.sought.charge, solved.instrument, wish.source.source));
        }
    }

    void make(const std::shared_ptr<const SharedTerms>& terms, const std::string& account) {
        for (const auto& [where, values] : byLine(terms->explanation.cells)) {
            const FileLine place = placeIn(where);
            auto change = place.file.empty() ? std::nullopt : changeTerm(place, values, terms->days, account);
            if (!change) {
                made.withheld.push_back(
                    changedByHand(*terms, where + " is of several accounts and its table has no column for one"));
                return;
            }
            made.lines.push_back({where, std::move(change->first), std::move(change->second), nullptr, terms});
        }
    }

    Proposals proposals() {
        for (const auto& [file, edit] : edits) {
            const std::string patch = edit.patch(file);
            if (!patch.empty()) {
                made.patch += patch;
                made.files.emplace(file, edit.text());
            }
        }
        return std::move(made);
    }

private:
    static std::string codeOf(const SolvedRate& solved) {
        const std::size_t colon = solved.instrument.find(':');
        return colon == std::string::npos ? "" : solved.instrument.substr(colon + 1);
    }

    /// Behind the line of several instruments, for one of them; nothing where the table has no column of codes.
    static std::optional<TableEdit::Change> addForInstrument(TableEdit& edit, std::size_t line,
                                                             const SolvedRate& solved, TableEdit::Values values,
                                                             const cost::DateRange& days) {
        values.emplace_back("code", codeOf(solved));
        const std::string market = solved.instrument.substr(0, solved.instrument.find(':'));
        addWhereKnown(edit, line, {{"market", market}, {"product", ""}}, values);
        return edit.addLike(line, values, days);
    }

    /// A term of several accounts gets one for this account behind it, which comes from no publication.
    std::optional<TableEdit::Change> changeTerm(const FileLine& place, TableEdit::Values values,
                                                const cost::DateRange& days, const std::string& account) {
        TableEdit& edit = of(place.file);
        const cost::DateRange fromThen{days.from, std::nullopt};
        const std::string year = days.until->text().substr(0, 4);
        addWhereKnown(edit, place.line, {{"source", "a broker statement of " + year}, {"checked", days.until->text()}},
                      values);
        if (edit.cell(place.line, "account") == account) {
            return edit.succeed(place.line, values, fromThen);
        }
        values.emplace_back("account", account);
        return edit.addLike(place.line, values, fromThen);
    }

    static void addWhereKnown(const TableEdit& edit, std::size_t line, const TableEdit::Values& more,
                              TableEdit::Values& values) {
        std::copy_if(more.begin(), more.end(), std::back_inserter(values),
                     [&](const auto& each) { return edit.cell(line, each.first).has_value(); });
    }

    TableEdit& of(const std::string& file) {
        const auto edit = edits.find(file);
        return edit != edits.end() ? edit->second : edits.emplace(file, contentOf(folder / file)).first->second;
    }

    std::filesystem::path folder;
    std::map<std::string, TableEdit> edits;
    Proposals made;
};

}  // namespace

Proposals proposalsFor(const Wanted& wanted, const std::string& account, const std::string& marketFolder) {
    Edits edits(marketFolder);
    for (const Wish& each : wishesOf(wanted.rates)) {
        edits.make(each);
    }
    for (const auto& terms : wanted.terms) {
        edits.make(terms, account);
    }
    Proposals made = edits.proposals();
    for (const auto& solved : wanted.rates) {
        if (solved->isUnlikely()) {
            made.withheld.push_back(fmt::format(
                "no line is proposed for the {} {}, as neither the folder nor another line of the statement "
                "has it, and a rate of {} digits is hardly one that was agreed on",
                solved->sought.charge, solved->rate.text(), significantDigits(solved->rate.text())));
        } else if (solved->range.isOpenBelow()) {
            made.withheld.push_back(fmt::format("no line is proposed for the {}, as any rate up to {} fits",
                                                solved->sought.charge, solved->range.high.text()));
        }
    }
    return made;
}

std::string changedByHand(const SharedTerms& change, const std::string& why) {
    std::vector<std::string> places;
    for (const auto& each : byLine(change.explanation.cells)) {
        places.push_back(each.first);
    }
    return fmt::format("no line is proposed for {}, as {}; where that was agreed, change {} by hand",
                       change.explanation.sentence, why, fmt::join(places, " and "));
}

}  // namespace feedesk
