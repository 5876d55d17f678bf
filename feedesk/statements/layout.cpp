#include "feedesk/statements/layout.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>

#include "feedesk/failure.h"
#include "feedesk/text/text.h"
#include "standalone/market_files.h"
#include "standalone/text/wording.h"

namespace feedesk {
namespace {

namespace fs = std::filesystem;

std::optional<std::size_t> columnOf(const std::vector<std::string>& cells, const Titles& titles) {
    const auto cell = std::find_if(cells.begin(), cells.end(), [&](const std::string& text) {
        return std::find(titles.begin(), titles.end(), text) != titles.end();
    });
    return cell == cells.end() ? std::nullopt : std::optional(static_cast<std::size_t>(cell - cells.begin()));
}

std::string anyOf(const Titles& titles) { return fmt::format("{}", fmt::join(titles, " or ")); }

bool isNeeded(TradeFact fact) {
    return std::find(kNeededFacts.begin(), kNeededFacts.end(), fact) != kNeededFacts.end();
}

/// The files of the market folder's layouts, by name.
std::vector<fs::path> layoutFiles(const std::string& marketFolder) {
    std::vector<fs::path> files;
    std::error_code error;
    for (fs::directory_iterator entry(fs::path(marketFolder) / standalone::files::kLayouts, error), end;
         !error && entry != end; entry.increment(error)) {
        if (entry->path().extension() == standalone::files::kLayoutEnding) {
            files.push_back(entry->path());
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}

}  // namespace

Header headerIn(const std::vector<std::string>& cells, const Layout& layout) {
    Header header;
    for (std::size_t i = 0; i < kTradeFacts; ++i) {
        const auto fact = static_cast<TradeFact>(i);
        header.facts[i] = columnOf(cells, layout.of(fact));
        header.found += header.facts[i] ? 1 : 0;
        if (!header.facts[i] && isNeeded(fact)) {
            header.missing.push_back(anyOf(layout.of(fact)));
        }
    }
    bool tellsCosts = header.of(TradeFact::kNet).has_value();
    for (const ChargeColumn& charge : layout.charges) {
        header.charges.push_back(columnOf(cells, charge.titles));
        header.found += header.charges.back() ? 1 : 0;
        tellsCosts = tellsCosts || header.charges.back();
    }
    if (!tellsCosts) {
        header.missing.emplace_back("of what was charged");
    }
    return header;
}

std::vector<Layout> layoutsOf(const std::string& marketFolder) {
    std::vector<Layout> layouts;
    for (const fs::path& file : layoutFiles(marketFolder)) {
        layouts.push_back(readLayout(file.string()));
    }
    return layouts;
}

Layout namedLayout(const std::string& marketFolder, const std::string& name) {
    std::vector<std::string> known;
    for (const fs::path& file : layoutFiles(marketFolder)) {
        if (file.stem() == name) {
            return readLayout(file.string());
        }
        known.push_back(file.stem().string());
    }
    if (fs::path(name).extension() == standalone::files::kLayoutEnding) {
        return readLayout(name);
    }
    throw Failure(kBadInput, fmt::format("{} is no layout of {}/{}, which has {}, and no file that ends in {}{}",
                                         echoed(name), marketFolder, standalone::files::kLayouts,
                                         known.empty() ? "none" : standalone::oneOf(known),
                                         standalone::files::kLayoutEnding, standalone::suggestion(name, known)));
}

}  // namespace feedesk
