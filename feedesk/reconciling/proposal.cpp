#include "feedesk/reconciling/proposal.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>

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

}  // namespace

Proposals proposalsFor(const Reconciliation& found, const std::string& marketFolder) {
    Proposals proposals;
    std::map<std::string, TableEdit> edits;
    for (const auto& solved : found.rates) {
        const FileLine place = placeIn(solved->source);
        if (place.file.empty() || !solved->from || !solved->orElse.empty()) {
            continue;
        }
        auto edit = edits.find(place.file);
        if (edit == edits.end()) {
            edit = edits.emplace(place.file, contentOf(std::filesystem::path(marketFolder) / place.file)).first;
        }
        const std::string column = solved->isTermsOwn ? kTermRate : solved->sought.charge;
        if (auto lines = edit->second.succeed(place.line, column, solved->rate.text(), *solved->from)) {
            proposals.lines.push_back({solved->source, std::move(lines->first), std::move(lines->second)});
        }
    }
    for (const auto& [file, edit] : edits) {
        proposals.patch += edit.patch(file);
    }
    return proposals;
}

}  // namespace feedesk
