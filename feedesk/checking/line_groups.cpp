#include "feedesk/checking/line_groups.h"

#include <optional>

#include "feedesk/instruments/category_members.h"

namespace feedesk::checking {
namespace {

/// Leaves of the group what another instrument has in common with it.
void narrow(std::optional<LineGroup>& group, const standalone::ListedInstrument& listed) {
    const qmservice::CInstrument& record = *listed.record;
    if (!group) {
        group = LineGroup{record.market, record.productId};
        return;
    }
    if (group->market != record.market) {
        group = LineGroup();
    } else if (group->product != record.productId) {
        group->product.clear();
    }
}

}  // namespace

const LineGroup& LineGroups::of(const FolderLine& line) {
    if (line.fee != nullptr) {
        const auto known = byPattern.find(line.fee->places);
        return known != byPattern.end() ? known->second
                                        : byPattern.emplace(line.fee->places, ofPlaces(line.fee->places)).first->second;
    }
    if (line.limit != nullptr) {
        const qmservice::CInstrument& record = *facts.market.instruments[line.limit->place].record;
        return byInstrument.try_emplace(line.limit->place, LineGroup{record.market, record.productId}).first->second;
    }
    return ofCategory(line.kept->line->category);
}

LineGroup LineGroups::ofPlaces(const standalone::loader::Places& places) const {
    std::optional<LineGroup> group;
    for (const std::size_t place : *places) {
        narrow(group, facts.market.instruments[place]);
    }
    return group.value_or(LineGroup());
}

/// A number may be a category's and a group's: what it stands for is in all of them.
const LineGroup& LineGroups::ofCategory(int number) {
    if (byCategory.empty()) {
        std::map<int, std::optional<LineGroup>> found;
        for (const Category& category : categoriesOf(facts.market)) {
            for (const standalone::ListedInstrument* member : category.members) {
                narrow(found[category.number], *member);
            }
        }
        for (const auto& [category, group] : found) {
            byCategory.emplace(category, group.value_or(LineGroup()));
        }
    }
    return byCategory[number];
}

}  // namespace feedesk::checking
