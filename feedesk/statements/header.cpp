#include "feedesk/statements/header.h"

#include <fmt/format.h>

#include <algorithm>

#include "feedesk/failure.h"
#include "feedesk/statements/cells.h"
#include "feedesk/text/text.h"

namespace feedesk {
namespace {

/// How far down a header may stand: above it brokers put names and dates.
constexpr std::size_t kFarthestHeader = 100;

/// A line with tabs is cells between tabs: they stand in no text of a table with commas.
char separatorIn(const std::string& line) { return line.find('\t') == std::string::npos ? ',' : '\t'; }

FoundHeader foundIn(const std::string& line, std::size_t index, const Layout& layout) {
    FoundHeader found{index, separatorIn(line), &layout, {}};
    const std::vector<std::string> cells = cellsOf(line, found.separator).value_or(std::vector<std::string>());
    found.header = headerIn(cells, layout);
    return found;
}

std::string namesOf(const std::vector<FoundHeader>& found) {
    std::vector<std::string> names;
    names.reserve(found.size());
    for (const FoundHeader& each : found) {
        names.push_back(each.layout->name);
    }
    return fmt::format("{}", fmt::join(names, " and "));
}

[[noreturn]] void refuseAll(const FoundHeader& nearest, const std::string& file, std::size_t layouts) {
    if (nearest.layout == nullptr || nearest.header.found == 0) {
        throw Failure(kBadInput,
                      fmt::format("{}: no line is a header that {} knows; --layout FILE.toml describes another one",
                                  file, layouts == 1 ? "the layout" : "one of the layouts"));
    }
    throw Failure(
        kBadInput,
        fmt::format("{}:{}: the header is most like that of the layout {}, but has no column {}; add it, or "
                    "describe this header with --layout FILE.toml",
                    file, nearest.index + 1, nearest.layout->name, fmt::join(nearest.header.missing, " and no ")));
}

}  // namespace

FoundHeader findHeader(const std::vector<std::string>& lines, const std::string& file,
                       const std::vector<Layout>& layouts) {
    FoundHeader nearest;
    for (std::size_t i = 0; i < std::min(lines.size(), kFarthestHeader); ++i) {
        std::vector<FoundHeader> best;
        for (const Layout& layout : layouts) {
            FoundHeader found = foundIn(lines[i], i, layout);
            if (nearest.layout == nullptr || found.header.found > nearest.header.found) {
                nearest = found;
            }
            if (!found.header.isWhole()) {
                continue;
            }
            if (!best.empty() && best.front().header.found < found.header.found) {
                best.clear();
            }
            if (best.empty() || best.front().header.found == found.header.found) {
                best.push_back(std::move(found));
            }
        }
        if (best.size() > 1) {
            throw Failure(kBadInput, fmt::format("{}:{}: the header fits the layouts {} alike; name one with --layout",
                                                 file, i + 1, namesOf(best)));
        }
        if (!best.empty() && !best.front().header.doubled.empty()) {
            throw Failure(kBadInput, fmt::format("{}:{}: {}", file, i + 1, best.front().header.doubled.front()));
        }
        if (!best.empty()) {
            return best.front();
        }
    }
    refuseAll(nearest, file, layouts.size());
}

}  // namespace feedesk
