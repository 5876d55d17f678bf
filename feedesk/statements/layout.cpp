#include "feedesk/statements/layout.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <utility>

#include "feedesk/failure.h"
#include "feedesk/text/text.h"
#include "standalone/market_files.h"
#include "standalone/text/wording.h"

namespace feedesk {
namespace {

namespace fs = std::filesystem;

/// The places of the cells with one of the titles, by title and then from the left.
std::vector<std::size_t> placesOf(const std::vector<std::string>& cells, const Titles& titles) {
    std::vector<std::size_t> places;
    for (const std::string& title : titles) {
        for (std::size_t i = 0; i < cells.size(); ++i) {
            if (cells[i] == title) {
                places.push_back(i);
            }
        }
    }
    return places;
}

std::string sameTitle(const std::vector<std::string>& cells, std::size_t one, std::size_t other) {
    return fmt::format("columns {} and {} are both called {}, and only one can be read; rename the other",
                       std::min(one, other) + 1, std::max(one, other) + 1, cells[one]);
}

/// The layout's titles are in the order in which they are preferred; a title that comes twice says nothing.
std::optional<std::size_t> columnOf(const std::vector<std::string>& cells, const Titles& titles, Header& header) {
    const std::vector<std::size_t> places = placesOf(cells, titles);
    if (places.empty()) {
        return std::nullopt;
    }
    if (places.size() > 1 && cells[places[0]] == cells[places[1]]) {
        header.doubled.push_back(sameTitle(cells, places[0], places[1]));
    }
    return places.front();
}

/// No column with money is left out for another one.
std::optional<std::size_t> columnOf(const std::vector<std::string>& cells, const ChargeColumn& charge, Header& header) {
    const std::vector<std::size_t> places = placesOf(cells, charge.titles);
    if (places.size() > 1 && cells[places[0]] != cells[places[1]]) {
        header.doubled.push_back(
            fmt::format("column {} ({}) and column {} ({}) may both be the {}; say which in a layout of your own, with "
                        "--layout FILE.toml",
                        places[0] + 1, cells[places[0]], places[1] + 1, cells[places[1]], charge.name));
        return places.front();
    }
    return columnOf(cells, charge.titles, header);
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

std::variant<Layout, Failure> readOrFailure(const fs::path& file) {
    try {
        return readLayout(file.string());
    } catch (const Failure& failure) {
        return failure;
    }
}

const Layout& layoutOrThrow(const std::variant<Layout, Failure>& result) {
    if (const auto* failure = std::get_if<Failure>(&result)) {
        throw Failure(*failure);
    }
    return std::get<Layout>(result);
}

}  // namespace

Header headerIn(const std::vector<std::string>& cells, const Layout& layout) {
    Header header;
    for (std::size_t i = 0; i < kTradeFacts; ++i) {
        const auto fact = static_cast<TradeFact>(i);
        header.facts[i] = columnOf(cells, layout.of(fact), header);
        header.found += header.facts[i] ? 1 : 0;
        if (!header.facts[i] && isNeeded(fact)) {
            header.missing.push_back(anyOf(layout.of(fact)));
        }
    }
    bool tellsCosts = header.of(TradeFact::kNet).has_value();
    for (const ChargeColumn& charge : layout.charges) {
        header.charges.push_back(columnOf(cells, charge, header));
        header.found += header.charges.back() ? 1 : 0;
        tellsCosts = tellsCosts || header.charges.back();
    }
    if (!tellsCosts) {
        header.missing.emplace_back("of what was charged");
    }
    return header;
}

std::vector<std::string> layoutNames(const std::string& marketFolder) {
    const std::vector<fs::path> files = layoutFiles(marketFolder);
    std::vector<std::string> names(files.size());
    std::transform(files.begin(), files.end(), names.begin(),
                   [](const fs::path& file) { return file.stem().string(); });
    return names;
}

FolderLayouts::FolderLayouts(std::string marketFolder) : folder(std::move(marketFolder)) {
    for (const fs::path& file : layoutFiles(folder)) {
        layouts.push_back({file.stem().string(), readOrFailure(file)});
    }
}

std::vector<std::string> FolderLayouts::names() const {
    std::vector<std::string> names(layouts.size());
    std::transform(layouts.begin(), layouts.end(), names.begin(), [](const Read& layout) { return layout.name; });
    return names;
}

std::vector<Layout> FolderLayouts::all() const {
    std::vector<Layout> good;
    good.reserve(layouts.size());
    std::transform(layouts.begin(), layouts.end(), std::back_inserter(good),
                   [](const Read& layout) { return layoutOrThrow(layout.result); });
    return good;
}

Layout FolderLayouts::named(const std::string& name) const {
    const auto found =
        std::find_if(layouts.begin(), layouts.end(), [&](const Read& layout) { return layout.name == name; });
    if (found != layouts.end()) {
        return layoutOrThrow(found->result);
    }
    if (fs::path(name).extension() == standalone::files::kLayoutEnding) {
        return readLayout(name);
    }
    const std::vector<std::string> known = names();
    throw Failure(kBadInput,
                  fmt::format("{} is no layout of {}/{}, which has {}, and no file that ends in {}{}", echoed(name),
                              folder, standalone::files::kLayouts, known.empty() ? "none" : standalone::oneOf(known),
                              standalone::files::kLayoutEnding, standalone::suggestion(name, known)));
}

}  // namespace feedesk
