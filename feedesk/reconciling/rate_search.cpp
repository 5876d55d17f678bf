#include "feedesk/reconciling/rate_search.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <tuple>
#include <utility>

#include "feedesk/reconciling/held_order.h"

namespace feedesk {
namespace {

/// From how many orders on a rate is concluded that is of one instrument alone, or ended before the last orders.
constexpr std::size_t kFewestOfReach = 2;

/// Behind how many last days without such a rate none is looked for, so that a long statement in which every line
/// differs in its own way takes no longer for each day.
constexpr std::size_t kMostMisses = 8;

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

std::vector<const ChargedLine*> linesOf(const RateChanges& changes) {
    std::vector<const ChargedLine*> lines;
    for (const RateChange& each : changes) {
        if (std::find(lines.begin(), lines.end(), each.line) == lines.end()) {
            lines.push_back(each.line);
        }
    }
    return lines;
}

/// The last day that the changes explain, where one of them has an end.
std::optional<cost::Date> endOf(const RateChanges& changes) {
    const bool hasEnd =
        std::any_of(changes.begin(), changes.end(), [](const RateChange& each) { return each.solved.until; });
    std::optional<cost::Date> last;
    for (const RateChange& each : changes) {
        const cost::Date day = each.explained.front()->order.date();
        last = hasEnd && (!last || *last < day) ? day : last;
    }
    return last;
}

/// One change in place of several, on the same days for all their lines; nothing where none explains all that they do.
std::optional<RateChange> oneFor(const RateChanges& changes, const RateRange& range, const Layout& layout) {
    if (changes.size() < 2) {
        return std::nullopt;
    }
    auto change = lastChangeOf(joined(linesOf(changes)), layout, range, endOf(changes));
    if (!change || explainedBy({*change}) != explainedBy(changes)) {
        return std::nullopt;
    }
    SolvedRate& solved = change->solved;
    solved.sources = sourcesOf(changes);
    for (RateSource& each : solved.sources) {
        each.days = {solved.from, solved.until};
    }
    change->line = nullptr;
    return change;
}

/// Whether it has an end, and one order alone shows it.
bool isSingle(const RateChange& change) { return change.solved.until && change.explained.size() < kFewestOfReach; }

/// One change in place of the cluster's where there is one; else those of several orders.
RateChanges oneOrAll(Cluster cluster, const Layout& layout) {
    RateChanges& all = cluster.changes;
    auto one = oneFor(all, cluster.range, layout);
    const auto singles = one ? all.end() : std::remove_if(all.begin(), all.end(), isSingle);
    if (singles != all.end()) {
        all.erase(singles, all.end());
        one = oneFor(all, cluster.range, layout);
    }
    return one ? RateChanges{std::move(*one)} : std::move(all);
}

/// The orders before the day.
OrdersByDay before(const std::optional<cost::Date>& day, OrdersByDay orders) {
    orders.erase(std::remove_if(orders.begin(), orders.end(),
                                [&](const ReconciledOrder* each) { return day && !(each->order.date() < *day); }),
                 orders.end());
    return orders;
}

/// The rates of a line that ended before its last orders, each of which explains several of these; those of one order
/// go to the singles.
RateChanges endedChanges(const ChargedLine& line, OrdersByDay left, const Layout& layout, RateChanges& singles) {
    RateChanges ended;
    for (std::size_t misses = 0; misses < kMostMisses && !left.empty();) {
        if (!HeldOrder(*left.back(), line.sought, layout).range()) {
            left.pop_back();
            continue;
        }
        const cost::Date last = left.back()->order.date();
        auto change = lastChangeOf(line, layout, {}, last);
        const bool isFound = change && change->explained.size() >= kFewestOfReach;
        left = before(isFound ? *change->solved.from : last, std::move(left));
        if (change) {
            (isFound ? ended : singles).push_back(std::move(*change));
        }
        misses += isFound ? 0 : 1;
    }
    return ended;
}

/// Whether the change is for all orders of the instruments' changes that it meets, and for more than each of them.
bool isOfMore(const RateChange& change, const RateChanges& ofInstruments) {
    const OrderSet orders = explainedBy({change});
    return std::all_of(ofInstruments.begin(), ofInstruments.end(), [&](const RateChange& each) {
        return !holdsAny(orders, each.explained) ||
               (holdsAll(orders, each.explained) && each.explained.size() < orders.size());
    });
}

void removeExplainedBy(const OrderSet& orders, RateChanges& changes) {
    changes.erase(std::remove_if(changes.begin(), changes.end(),
                                 [&](const RateChange& each) { return holdsAny(orders, each.explained); }),
                  changes.end());
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
            single.insert(single.end(), each.singles.begin(), each.singles.end());
        }
        all = joinedWhereOneFits(std::move(single));
    }
    return all;
}

void RateSearch::search(const ChargedLine& line, Kept& kept) const {
    if (kept.openOrders == 0) {
        return;
    }
    searchWithSingles(line, kept);
    removeExplainedBy(explainedBy(kept.changes), kept.singles);
}

void RateSearch::searchWithSingles(const ChargedLine& line, Kept& kept) const {
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
        if (openOf(each.orders).size() < kFewestOfReach || each.orders.size() == line.orders.size()) {
            continue;
        }
        kept.ofInstruments.push_back(std::move(each));
        auto change = lastChangeOf(kept.ofInstruments.back(), layout);
        if (change && change->explained.size() >= kFewestOfReach && !holdsAll(byLine, change->explained)) {
            kept.changes.push_back(std::move(*change));
        }
    }
    RateChanges ended =
        endedChanges(line, before(ofLine.empty() ? std::nullopt : ofLine.front().solved.from, std::move(rest)), layout,
                     kept.singles);
    ended.erase(std::remove_if(ended.begin(), ended.end(),
                               [&](const RateChange& each) { return !isOfMore(each, kept.changes); }),
                ended.end());
    removeExplainedBy(explainedBy(ended), kept.changes);
    std::move(ended.begin(), ended.end(), std::back_inserter(kept.changes));
    const OrderSet byOthers = explainedBy(kept.changes);
    if (ofLine.empty() || holdsAll(byOthers, ofLine.front().explained)) {
        return;
    }
    // An order has one rate: that of the line, which is for more than it.
    removeExplainedBy(byLine, kept.changes);
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
