#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <set>

#include "feedesk/checking/topics.h"
#include "feedesk/text/numbers.h"

namespace feedesk::checking {
namespace {

using Keys = std::set<std::string>;

/// The items that the charging terms of options ask for on the day.
Keys chargedItems(const FolderFacts& facts) {
    Keys keys;
    for (const cost::Term& term : facts.folder.schedule().terms()) {
        if (term.family == cost::Family::kOption && !term.item.empty() && term.dates.contains(facts.day)) {
            keys.insert(term.item);
        }
    }
    return keys;
}

}  // namespace

void findUnaskedItems(AccountFacts& facts, Findings& findings) {
    Keys asked = chargedItems(facts.folder());
    asked.merge(facts.builtInItems());                             // those that clients know
    std::map<std::pair<Place, std::string>, std::size_t> unasked;  // by line and item
    for (const AlikeAnswer& alike : facts.answers()) {
        for (const FeeLine& line : alike.answer.lines) {
            if (line.part == kOptionPart && line.origin.position && asked.count(line.item) == 0) {
                unasked[{facts.folder().placeOf(*line.origin.position), line.item}] += alike.instruments->size();
            }
        }
    }
    for (const auto& [line, count] : unasked) {
        findings.add({{facts.number()},
                      count,
                      {line.first},
                      fmt::format("the item {} of {} is asked for by no charging term and no client", line.second,
                                  counted(count, "instrument")),
                      fmt::format("correct the item; known are {}", fmt::join(asked, ", "))});
    }
}

void findMissingItems(AccountFacts& facts, Findings& findings) {
    const Keys charged = chargedItems(facts.folder());
    std::map<Keys, std::pair<std::size_t, std::set<Place>>> groups;  // by what is missing
    for (const AlikeAnswer& alike : facts.answers()) {
        Keys missing = charged;
        std::set<Place> places;
        for (const FeeLine& line : alike.answer.lines) {
            missing.erase(line.item);
            if (line.part == kOptionPart && line.origin.position) {
                places.insert(facts.folder().placeOf(*line.origin.position));
            }
        }
        if (!places.empty() && !missing.empty()) {
            auto& [count, all] = groups[missing];
            count += alike.instruments->size();
            all.merge(places);
        }
    }
    for (const auto& [missing, group] : groups) {
        findings.add({{facts.number()},
                      group.first,
                      {group.second.begin(), group.second.end()},
                      fmt::format("{} with items of the account and without the charged {}",
                                  counted(group.first, "instrument"), fmt::join(missing, ", ")),
                      "add a custom fee for each of them, with an update of its own"});
    }
}

}  // namespace feedesk::checking
