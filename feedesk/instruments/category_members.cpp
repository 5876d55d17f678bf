#include "feedesk/instruments/category_members.h"

#include <algorithm>
#include <map>
#include <set>

namespace feedesk {
namespace {

using standalone::CategoryRule;
using standalone::ListedInstrument;
using standalone::Market;

using Numbered = std::map<int, Category>;
using InstrumentSet = std::set<const ListedInstrument*>;

MarketInstruments takenBy(const CategoryRule& rule, const Market& market) {
    MarketInstruments taken;
    for (const ListedInstrument& each : market.instruments) {
        const qmservice::CInstrument& record = *each.record;
        if (rule.takesIn(record.market, record.code, record.productId)) {
            taken.push_back(&each);
        }
    }
    return taken;
}

MarketInstruments inOrder(const InstrumentSet& members) { return {members.begin(), members.end()}; }

Category& at(Numbered& all, CategoryKind kind, int number, const std::string& name = "") {
    return all.emplace(number, Category{kind, number, name, {}, {}}).first->second;
}

/// Every line takes in.
void joinLines(Numbered& all) {
    for (auto& [number, category] : all) {
        InstrumentSet members;
        for (const CategoryLine& line : category.lines) {
            members.insert(line.instruments.begin(), line.instruments.end());
        }
        category.members = inOrder(members);
    }
}

Numbered systemCategories(const Market& market) {
    Numbered all;
    for (const CategoryRule& rule : market.categories) {
        at(all, CategoryKind::kSystem, rule.category, rule.name)
            .lines.push_back({rule, nullptr, rule.position, takenBy(rule, market)});
    }
    joinLines(all);
    return all;
}

Numbered customCategories(const Market& market) {
    std::map<std::pair<std::string, std::string>, const ListedInstrument*> byPlace;
    for (const ListedInstrument& each : market.instruments) {
        byPlace.emplace(std::pair(each.record->market, each.record->code), &each);
    }
    Numbered all;
    for (const standalone::CategoryMember& member : market.customCategories) {
        const CategoryRule rule{member.category, "", member.market, member.code, "", member.position};
        at(all, CategoryKind::kCustom, member.category)
            .lines.push_back({rule, nullptr, member.position, {byPlace.at(std::pair(member.market, member.code))}});
    }
    joinLines(all);
    return all;
}

/// In a group a number that is both is the custom category.
const Category& partOf(const standalone::GroupPart& part, const Numbered& system, const Numbered& custom) {
    const auto found = custom.find(part.category);
    return found != custom.end() ? found->second : system.at(part.category);
}

Numbered groupCategories(const Market& market, const Numbered& system, const Numbered& custom) {
    Numbered all;
    for (const standalone::GroupPart& part : market.groupCategories) {
        const Category& meant = partOf(part, system, custom);
        at(all, CategoryKind::kGroup, part.group)
            .lines.push_back({{part.category, meant.name, "", "", "", {}}, &part, part.position, meant.members});
    }
    joinLines(all);
    for (auto& [number, group] : all) {
        InstrumentSet members(group.members.begin(), group.members.end());
        for (const CategoryLine& line : group.lines) {
            if (line.part->excluded) {
                std::for_each(line.instruments.begin(), line.instruments.end(),
                              [&members](const auto* each) { members.erase(each); });
            }
        }
        group.members = inOrder(members);
    }
    return all;
}

}  // namespace

const char* categoryKindName(CategoryKind kind) {
    switch (kind) {
        case CategoryKind::kSystem:
            return "system";
        case CategoryKind::kCustom:
            return "custom";
        case CategoryKind::kGroup:
            break;
    }
    return "group";
}

const CategoryLine& Category::lineOf(const ListedInstrument* member) const {
    return *std::find_if(lines.begin(), lines.end(), [member](const CategoryLine& line) {
        return std::binary_search(line.instruments.begin(), line.instruments.end(), member);
    });
}

std::vector<Category> categoriesOf(const Market& market) {
    const Numbered system = systemCategories(market);
    const Numbered custom = customCategories(market);
    std::vector<Category> all;
    for (const Numbered& some : {system, custom, groupCategories(market, system, custom)}) {
        for (const auto& [number, category] : some) {
            all.push_back(category);
        }
    }
    return all;
}

}  // namespace feedesk
