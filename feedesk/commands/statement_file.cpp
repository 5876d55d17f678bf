#include "feedesk/commands/statement_file.h"

#include <fmt/format.h>

#include <algorithm>
#include <set>
#include <utility>

#include "cost/rates.h"
#include "feedesk/failure.h"
#include "feedesk/statements/encoding.h"
#include "feedesk/terminal/messages.h"
#include "feedesk/text/numbers.h"
#include "feedesk/text/text.h"
#include "standalone/market_files.h"
#include "standalone/text/wording.h"

namespace feedesk {
namespace {

std::vector<Layout> layoutsFor(const StatementFile& file, const FolderLayouts& folder) {
    if (!file.layout.empty()) {
        return {folder.named(file.layout)};
    }
    std::vector<Layout> layouts = folder.all();
    if (layouts.empty()) {
        throw Failure(kBadInput, fmt::format("{}/{} holds no layout of statements; name one with --layout FILE{}",
                                             pathText(folder.market()), standalone::files::kLayouts,
                                             standalone::files::kLayoutEnding));
    }
    return layouts;
}

void refuseWrongLines(const std::vector<WrongLine>& wrong, const std::string& file) {
    for (std::size_t i = 0; i < std::min(wrong.size(), kMostWrongLines); ++i) {
        const std::string column = wrong[i].column.empty() ? "" : fmt::format("column {} ", echoed(wrong[i].column));
        reportProblem(InputLine{file, wrong[i].line}, column + wrong[i].sentence, kBadInput);
    }
    if (!wrong.empty()) {
        const std::string reported =
            wrong.size() > kMostWrongLines ? fmt::format(", of which {} are named", kMostWrongLines) : "";
        throw Failure(kBadInput, counted(wrong.size(), "wrong line") + reported + "; nothing was compared");
    }
}

/// What a charge may be called in the folder, each once.
std::vector<std::string> chargeNamesOf(const standalone::MarketFolder& folder) {
    std::set<std::string> names(cost::kCommissionNames.begin(), cost::kCommissionNames.end());
    for (const auto& [family, rates] : folder.everyDay().rateNames) {
        for (const standalone::NamedRate& rate : rates) {
            names.insert(rate.column);
        }
    }
    for (const cost::Term& term : folder.schedule().terms()) {
        names.insert(term.charge);
    }
    return {names.begin(), names.end()};
}

}  // namespace

void refuseUnknownCharges(const Layout& layout, const standalone::MarketFolder& folder) {
    const std::vector<std::string> known = chargeNamesOf(folder);
    for (const ChargeColumn& column : layout.charges) {
        for (const auto& [key, charges] : {std::pair("charges", &column.charges), std::pair("all_in", &column.allIn)}) {
            for (const std::string& charge : *charges) {
                if (!std::binary_search(known.begin(), known.end(), charge)) {
                    throw Failure(
                        kBadInput,
                        fmt::format("the layout {}: {} of [charges.{}] holds {}, which is neither a charge of "
                                    "{} nor a rate; correct it{}",
                                    layout.name, key, column.name, echoed(charge), standalone::files::kCharges,
                                    standalone::suggestion(charge, known)));
                }
            }
        }
    }
}

Statement readStatement(const StatementFile& file, const FolderLayouts& folder) {
    const std::vector<Layout> layouts = layoutsFor(file, folder);
    TextLines text(file.path, false);
    const std::vector<std::string> lines = linesAsUtf8(text, encodingFrom(file.encoding));
    std::vector<WrongLine> wrong;
    Statement statement = statementIn(lines, text.name(), layouts, wrong);
    refuseWrongLines(wrong, text.name());
    if (statement.lines.empty()) {
        throw Failure(kBadInput, fmt::format("{} has no trade below its header", text.name()));
    }
    return statement;
}

}  // namespace feedesk
