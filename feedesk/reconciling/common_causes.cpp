#include "feedesk/reconciling/common_causes.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <set>
#include <string>

namespace feedesk {
namespace {

/// The lines of the folder that an order is charged by.
std::string folderLinesOf(const ReconciledOrder& charged) {
    std::set<std::string> sources;
    for (const cost::ChargeLine& line : charged.tariff->planOf(charged.order.side(), charged.order.date()).lines) {
        sources.insert(line.rate == nullptr ? "" : line.rate->source + line.rate->level);
    }
    return fmt::format("{}", fmt::join(sources, " "));
}

bool isSame(const Explanation& one, const Explanation& other) {
    return one.cause == other.cause && one.key == other.key;
}

bool has(const Explanations& explanations, const Explanation& wanted) {
    return std::any_of(explanations.begin(), explanations.end(),
                       [&](const Explanation& each) { return isSame(each, wanted); });
}

/// The first cause that explains every one of the orders; null when none does.
const Explanation* commonOf(const OrdersByDay& orders) {
    for (const Explanation& each : orders.front()->alsoFit) {
        const bool isCommon = std::all_of(orders.begin(), orders.end(),
                                          [&](const ReconciledOrder* order) { return has(order->alsoFit, each); });
        if (isCommon) {
            return &each;
        }
    }
    return nullptr;
}

/// Makes the cause the order's, with every change of it that fits; what fits besides stays in alsoFit.
void choose(ReconciledOrder& charged, const Explanation& chosen) {
    const auto others = std::stable_partition(charged.alsoFit.begin(), charged.alsoFit.end(),
                                              [&](const Explanation& each) { return isSame(each, chosen); });
    charged.cause = chosen.cause;
    charged.causes.assign(charged.alsoFit.begin(), others);
    charged.alsoFit.erase(charged.alsoFit.begin(), others);
    const auto sameCause = [&](const Explanation& each) { return each.cause == charged.cause; };
    std::copy_if(charged.alsoFit.begin(), charged.alsoFit.end(), std::back_inserter(charged.causes), sameCause);
    charged.alsoFit.erase(std::remove_if(charged.alsoFit.begin(), charged.alsoFit.end(), sameCause),
                          charged.alsoFit.end());
}

}  // namespace

void takeCommonCauses(const OrdersByDay& orders) {
    std::map<std::string, OrdersByDay> kinds;
    for (ReconciledOrder* each : orders) {
        if (each->isOpen()) {
            kinds[folderLinesOf(*each)].push_back(each);
        }
    }
    for (const auto& [name, kind] : kinds) {
        const Explanation* common = kind.size() > 1 ? commonOf(kind) : nullptr;
        if (common == nullptr) {
            continue;
        }
        const Explanation chosen = *common;
        for (ReconciledOrder* each : kind) {
            choose(*each, chosen);
        }
    }
}

void takeFirstCause(ReconciledOrder& charged) {
    const Explanation first = charged.alsoFit.front();
    choose(charged, first);
}

}  // namespace feedesk
