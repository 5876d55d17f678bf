#include <fmt/format.h>

#include <algorithm>
#include <set>
#include <string>

#include "feedesk/checking/topics.h"
#include "feedesk/instruments/category_members.h"
#include "feedesk/text/numbers.h"

// Lines of categories.csv, custom_categories.csv and group_categories.csv that nothing comes of.

namespace feedesk::checking {
namespace {

using Listings = std::set<const standalone::ListedInstrument*>;

bool isExcluded(const CategoryLine& line) { return line.part != nullptr && line.part->excluded; }

/// "category 1 白酒", "group 70001".
std::string nameOf(const Category& category) {
    const char* const noun = category.kind == CategoryKind::kGroup ? "group" : "category";
    return fmt::format("{} {}{}{}", noun, category.number, category.name.empty() ? "" : " ", category.name);
}

void add(const FolderFacts& facts, const CategoryLine& line, std::size_t count, const std::string& found,
         const std::string& remedy, Findings& findings) {
    findings.add({{}, count, {facts.placeOf(line.position)}, found, remedy});
}

/// How many of the instruments are in the set.
std::size_t countIn(const Listings& set, const MarketInstruments& instruments) {
    return static_cast<std::size_t>(
        std::count_if(instruments.begin(), instruments.end(), [&](const auto* each) { return set.count(each) != 0; }));
}

void findRepeatedIn(const FolderFacts& facts, const Category& category, Findings& findings) {
    Listings taken;
    for (const CategoryLine& line : category.lines) {
        if (isExcluded(line)) {
            continue;
        }
        const std::size_t held = line.instruments.size();
        if (held != 0 && countIn(taken, line.instruments) == held) {
            add(facts, line, held,
                fmt::format("{} of this line {} in the {} by the lines before it", counted(held, "instrument"),
                            held == 1 ? "is" : "are", nameOf(category)),
                "remove the line, or correct what it was meant to add", findings);
        }
        taken.insert(line.instruments.begin(), line.instruments.end());
    }
    for (const CategoryLine& line : category.lines) {
        if (isExcluded(line) && !line.instruments.empty() && countIn(taken, line.instruments) == 0) {
            add(facts, line, line.instruments.size(),
                fmt::format("the line leaves {} out of the {}, none of which is in it",
                            counted(line.instruments.size(), "instrument"), nameOf(category)),
                "remove the line, or correct what it was meant to leave out", findings);
        }
    }
}

}  // namespace

void findEmptyCategoryLines(const FolderFacts& facts, Findings& findings) {
    for (const Category& category : categoriesOf(facts.market)) {
        bool holdsSome = false;
        for (const CategoryLine& line : category.lines) {
            holdsSome = holdsSome || !line.instruments.empty();
            if (line.instruments.empty()) {
                add(facts, line, 1, fmt::format("the line holds no instrument for the {}", nameOf(category)),
                    line.part == nullptr ? "correct market, code and product, or remove the line"
                                         : "correct the category, or remove the line",
                    findings);
            }
        }
        if (holdsSome && category.members.empty()) {
            add(facts, category.lines.front(), 1,
                fmt::format("the {} holds no instrument: its lines leave out all that they take in", nameOf(category)),
                "correct what is left out", findings);
        }
    }
}

void findRepeatedCategoryLines(const FolderFacts& facts, Findings& findings) {
    for (const Category& category : categoriesOf(facts.market)) {
        findRepeatedIn(facts, category, findings);
    }
}

}  // namespace feedesk::checking
