#include "feedesk/reconciling/proposal.h"

#include <fmt/format.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <utility>

#include "feedesk/reconciling/table_edit.h"
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
            if (!place.file.empty() && source.from && solved->orElse.empty() && !solved->range.isOpenBelow()) {
                (solved->instrument.empty() ? wishes : ofInstruments).push_back({solved, source, std::move(place)});
            }
        }
    }
    std::move(ofInstruments.begin(), ofInstruments.end(), std::back_inserter(wishes));
    return wishes;
}

/// The tables of a market folder that are changed.
class Edits {
public:
    explicit Edits(std::filesystem::path marketFolder) : folder(std::move(marketFolder)) {}

    void make(const Wish& wish) {
        TableEdit& edit = of(wish.place.file);
        const SolvedRate& solved = *wish.solved;
        const std::size_t colon = solved.instrument.find(':');
        const std::string code = colon == std::string::npos ? "" : solved.instrument.substr(colon + 1);
        const std::string rate = solved.rate.text();
        const std::size_t line = wish.place.line;
        const bool isForOne = !code.empty() && edit.cell(line, "code") != code;
        auto lines = isForOne ? edit.addFor(line, solved.instrument.substr(0, colon), code, wish.column(), rate,
                                            *wish.source.from)
                              : edit.succeed(line, wish.column(), rate, *wish.source.from);
        if (lines) {
            made.lines.push_back({wish.source.source, std::move(lines->first), std::move(lines->second), wish.solved});
        } else if (isForOne) {
            made.withheld.push_back(fmt::format(
                "no line is proposed for the {} of {} alone, as {} is a line of several instruments and its table has "
                "no column for one",
                solved.sought.charge, solved.instrument, wish.source.source));
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
    TableEdit& of(const std::string& file) {
        const auto edit = edits.find(file);
        return edit != edits.end() ? edit->second : edits.emplace(file, contentOf(folder / file)).first->second;
    }

    std::filesystem::path folder;
    std::map<std::string, TableEdit> edits;
    Proposals made;
};

}  // namespace

Proposals proposalsFor(const SolvedRates& rates, const std::string& marketFolder) {
    Edits edits(marketFolder);
    for (const Wish& each : wishesOf(rates)) {
        edits.make(each);
    }
    Proposals made = edits.proposals();
    for (const auto& solved : rates) {
        if (solved->range.isOpenBelow()) {
            made.withheld.push_back(fmt::format("no line is proposed for the {}, as any rate up to {} fits",
                                                solved->sought.charge, solved->range.high.text()));
        }
    }
    return made;
}

}  // namespace feedesk
