#include "feedesk/reconciling/rate_search.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <tuple>
#include <utility>

namespace feedesk {
namespace {

/// From how many orders of one instrument on a rate of its own is concluded.
constexpr std::size_t kFewestOfInstrument = 2;

using OrderSet = std::set<const ReconciledOrder*>;

OrderSet explainedBy(const RateChanges& changes) {
    OrderSet orders;
    for (const RateChange& each : changes) {
        orders.insert(each.explained.begin(), each.explained.end());
    }
    return orders;
}

bool holdsAny(const OrderSet& orders, const OrdersByDay& wanted) {
    return std::any_of(wanted.begin(), wanted.end(),
                       [&](const ReconciledOrder* each) { return orders.count(each) != 0; });
}

bool holdsAll(const OrderSet& orders, const OrdersByDay& wanted) {
    return std::all_of(wanted.begin(), wanted.end(),
                       [&](const ReconciledOrder* each) { return orders.count(each) != 0; });
}

/// Rates of one charge that have one in common.
struct Cluster {
    RateRange range;
    RateChanges changes;
};

/// The largest changes go first, and each goes to the first cluster with which it has a rate in common.
std::vector<Cluster> clustersOf(RateChanges changes) {
    std::stable_sort(changes.begin(), changes.end(), [](const RateChange& one, const RateChange& other) {
        return one.explained.size() > other.explained.size();
    });
    std::vector<Cluster> clusters;
    for (RateChange& each : changes) {
        auto cluster = std::find_if(clusters.begin(), clusters.end(),
                                    [&](const Cluster& one) { return !(one.range & each.solved.range).isEmpty(); });
        if (cluster == clusters.end()) {
            cluster = clusters.insert(clusters.end(), {each.solved.range, {}});
        }
        cluster->range = cluster->range & each.solved.range;
        cluster->changes.push_back(std::move(each));
    }
    return clusters;
}

std::vector<RateSource> sourcesOf(const RateChanges& changes) {
    std::vector<RateSource> sources;
    for (const RateChange& each : changes) {
        const auto& own = each.solved.sources;
        sources.insert(sources.end(), own.begin(), own.end());
    }
    std::stable_sort(sources.begin(), sources.end());
    return sources;
}

/// One change in place of the cluster's, where it explains all that they do; else theirs.
RateChanges oneOrAll(Cluster cluster, const Layout& layout) {
    if (cluster.changes.size() < 2) {
        return std::move(cluster.changes);
    }
    std::vector<const ChargedLine*> lines;
    std::transform(cluster.changes.begin(), cluster.changes.end(), std::back_inserter(lines),
                   [](const RateChange& each) { return each.line; });
    auto change = lastChangeOf(joined(lines), layout, cluster.range);
    if (!change || explainedBy({*change}) != explainedBy(cluster.changes)) {
        return std::move(cluster.changes);
    }
    change->solved.sources = sourcesOf(cluster.changes);
    change->line = nullptr;
    return {std::move(*change)};
}

}  // namespace

RateSearch::RateSearch(const ChargedLines& chargedLines, const Layout& statementLayout)
    : lines(chargedLines), layout(statementLayout), found(chargedLines.all().size()) {}

const RateChanges& RateSearch::changes() {
    bool isNew = false;
    for (std::size_t i = 0; i < found.size(); ++i) {
        const ChargedLine& line = lines.all()[i];
        const std::size_t open = openOf(line.orders).size();
        if (open != found[i].openOrders) {
            found[i] = Kept();
            found[i].openOrders = open;
            search(line, found[i]);
            isNew = true;
        }
    }
    if (isNew) {
        RateChanges single;
        for (const Kept& each : found) {
            single.insert(single.end(), each.changes.begin(), each.changes.end());
        }
        all = joinedWhereOneFits(std::move(single));
    }
    return all;
}

void RateSearch::search(const ChargedLine& line, Kept& kept) {
    if (kept.openOrders == 0) {
        return;
    }
    RateChanges ofLine;
    if (auto change = lastChangeOf(line, layout)) {
        ofLine.push_back(std::move(*change));
    }
    const OrderSet byLine = explainedBy(ofLine);
    OrdersByDay rest = openOf(line.orders);
    rest.erase(
        std::remove_if(rest.begin(), rest.end(), [&](const ReconciledOrder* each) { return byLine.count(each) != 0; }),
        rest.end());
    for (ChargedLine& each : byInstrument(line, rest)) {
        if (openOf(each.orders).size() < kFewestOfInstrument || each.orders.size() == line.orders.size()) {
            continue;
        }
        kept.ofInstruments.push_back(std::move(each));
        auto change = lastChangeOf(kept.ofInstruments.back(), layout);
        if (change && change->explained.size() >= kFewestOfInstrument && !holdsAll(byLine, change->explained)) {
            kept.changes.push_back(std::move(*change));
        }
    }
    const OrderSet ofInstruments = explainedBy(kept.changes);
    if (ofLine.empty() || holdsAll(ofInstruments, ofLine.front().explained)) {
        return;
    }
    // An order has one rate: that of the line, which is for more than it.
    kept.changes.erase(std::remove_if(kept.changes.begin(), kept.changes.end(),
                                      [&](const RateChange& each) { return holdsAny(byLine, each.explained); }),
                       kept.changes.end());
    kept.changes.insert(kept.changes.begin(), std::move(ofLine.front()));
}

RateChanges RateSearch::joinedWhereOneFits(RateChanges changes) const {
    std::vector<RateChanges> charges;  // each of one charge
    std::map<std::tuple<std::string, std::string, std::string>, std::size_t> places;
    for (RateChange& each : changes) {
        const SolvedRate& solved = each.solved;
        const auto place =
            places.emplace(std::tuple(solved.sought.charge, solved.sought.item, solved.instrument), charges.size());
        if (place.second) {
            charges.emplace_back();
        }
        charges[place.first->second].push_back(std::move(each));
    }
    RateChanges left;
    for (RateChanges& ofCharge : charges) {
        for (Cluster& cluster : clustersOf(std::move(ofCharge))) {
            RateChanges kept = oneOrAll(std::move(cluster), layout);
            std::move(kept.begin(), kept.end(), std::back_inserter(left));
        }
    }
    return left;
}

}  // namespace feedesk
