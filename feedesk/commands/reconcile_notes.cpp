#include "feedesk/commands/reconcile_notes.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>
#include <vector>

#include "feedesk/text/numbers.h"
#include "feedesk/text/text.h"

namespace feedesk {
namespace {

constexpr std::size_t kMostLines = 10;

/// "5, 9 (股息入账)": the lines of each operation.
std::string passedOverLines(const std::string& operation, const std::vector<std::size_t>& lines) {
    const std::size_t shown = std::min(lines.size(), kMostLines);
    const std::vector<std::size_t> first(lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(shown));
    return fmt::format("{}{} ({})", fmt::join(first, ", "),
                       shown < lines.size() ? fmt::format(" and {} more", grouped(lines.size() - shown)) : "",
                       operation.empty() ? "a sum or remark" : echoed(operation));
}

}  // namespace

std::string passedOverNote(const Statement& statement) {
    std::vector<std::pair<std::string, std::vector<std::size_t>>> operations;
    for (const PassedOver& each : statement.passedOver) {
        auto known = std::find_if(operations.begin(), operations.end(),
                                  [&](const auto& one) { return one.first == each.operation; });
        if (known == operations.end()) {
            known = operations.insert(operations.end(), {each.operation, {}});
        }
        known->second.push_back(each.line);
    }
    std::vector<std::string> lines;
    lines.reserve(operations.size());
    for (const auto& [operation, numbers] : operations) {
        lines.push_back(passedOverLines(operation, numbers));
    }
    const std::size_t count = statement.passedOver.size();
    return count == 0
               ? ""
               : fmt::format("{} of {} {} no trade and {} passed over: {}", counted(count, "line"), statement.file,
                             count == 1 ? "is" : "are", count == 1 ? "was" : "were", fmt::join(lines, ", "));
}

std::string repeatedNote(const Statement& statement) {
    const std::size_t shown = std::min(statement.repeated.size(), kMostLines);
    std::vector<std::string> lines;
    lines.reserve(shown);
    for (std::size_t i = 0; i < shown; ++i) {
        lines.push_back(fmt::format("{} (as {})", statement.repeated[i].line, statement.repeated[i].first));
    }
    const std::size_t count = statement.repeated.size();
    return count == 0
               ? ""
               : fmt::format(
                     "{} of {} {} the same as an earlier one to the letter, and the trade may be there twice: {}{}",
                     counted(count, "line"), statement.file, count == 1 ? "is" : "are", fmt::join(lines, ", "),
                     count > kMostLines ? fmt::format(" and {} more", grouped(count - kMostLines)) : "");
}

std::string signsNote(const Statement& statement) {
    return statement.isNetUnsigned ? fmt::format(
                                         "{} writes what moved on the account without a sign; what its "
                                         "purchases cost was taken as paid",
                                         statement.file)
                                   : "";
}

}  // namespace feedesk
