#include "feedesk/commands/statement_file.h"

#include <fmt/format.h>

#include <algorithm>

#include "feedesk/failure.h"
#include "feedesk/statements/encoding.h"
#include "feedesk/terminal/messages.h"
#include "feedesk/text/numbers.h"
#include "feedesk/text/text.h"
#include "standalone/market_files.h"

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

}  // namespace

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
