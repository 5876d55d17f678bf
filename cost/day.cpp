#include "cost/day.h"

#include <algorithm>
#include <utility>

namespace cost {
namespace {

/// Between the texts of a key. No text that a person writes contains it, so different texts give different keys.
constexpr char kSeparator = '\0';

void makeOrderKey(const Trade& trade, const Place& place, std::string& key) {
    key.assign("order").append(1, kSeparator).append(place.account).append(1, kSeparator).append(trade.order);
}

void makePositionKey(const Trade& trade, const Place& place, std::string& key) {
    key.assign("position").append(1, kSeparator).append(place.account).append(1, kSeparator).append(place.market);
    key.append(1, kSeparator).append(place.code).append(1, kSeparator).append(wordFor(trade.side));
}

void addOnce(std::vector<std::size_t>& sorted, std::size_t index) {
    const auto place = std::lower_bound(sorted.begin(), sorted.end(), index);
    if (place == sorted.end() || *place != index) {
        sorted.insert(place, index);
    }
}

bool chargesPerDay(const Plan& plan) {
    return std::any_of(plan.lines.begin(), plan.lines.end(),
                       [](const ChargeLine& line) { return line.term->per == Per::kDay; });
}

}  // namespace

void Day::add(Trade trade, const Tariff& tariff) {
    if (trade.date != day) {
        throw Refused("the trade is of " + trade.date.text() + " among those of " + day.text());
    }
    withinBounds([&] {
        const Plan& plan = tariff.planOf(trade.side, trade.date);
        const Decimal turnover = turnoverOf(trade, tariff);
        refuseMissingPrice(plan, trade);
        Fill fill{std::move(trade), tariff, &plan, turnover, kNoGroup, kNoGroup};

        orderKey.clear();
        positionKey.clear();
        if (!fill.trade.order.empty()) {
            makeOrderKey(fill.trade, tariff.place(), orderKey);
            fill.order = find(orderKey);
            refuseForeignFill(fill.order, fill);
        }
        Sum order = sumWith(fill.order, fill);
        if (chargesPerDay(plan)) {
            makePositionKey(fill.trade, tariff.place(), positionKey);
            fill.position = find(positionKey);
            fill.position = join(fill.position, sumWith(fill.position, fill), positionKey);
        }
        fill.order = join(fill.order, std::move(order), orderKey);
        fills.push_back(std::move(fill));
    });
}

std::vector<Bill> Day::bills() const {
    return withinBounds([&] {
        std::vector<Bill> bills;
        bills.reserve(fills.size());
        for (std::size_t index = 0; index < fills.size(); ++index) {
            bills.push_back(billOf(index));
        }
        return bills;
    });
}

std::size_t Day::find(const std::string& key) const {
    const auto found = groupsByKey.find(key);
    return found == groupsByKey.end() ? kNoGroup : found->second;
}

void Day::refuseForeignFill(std::size_t order, const Fill& fill) const {
    if (order == kNoGroup) {
        return;
    }
    const Fill& first = fills[groups[order].firstFill];
    const auto refuse = [&](std::string_view what, const std::string& here, const std::string& before) {
        throw Refused("the " + std::string(what) + " is " + here + ", and another fill of order " + fill.trade.order +
                      " has " + before);
    };
    const Place& ours = fill.tariff.place();
    const Place& theirs = first.tariff.place();
    if (ours.market != theirs.market || ours.code != theirs.code) {
        refuse("instrument", ours.instrument(), theirs.instrument());
    }
    if (fill.trade.side != first.trade.side) {
        refuse("side", std::string(wordFor(fill.trade.side)), std::string(wordFor(first.trade.side)));
    }
    if (fill.plan->currency != first.plan->currency) {
        refuse("currency", fill.plan->currency, first.plan->currency);
    }
}

Sum Day::sumWith(std::size_t group, const Fill& fill) const {
    Sum sum = group == kNoGroup ? Sum() : groups[group].sum;
    sum.add(fill.turnover, fill.trade);
    return sum;
}

/// Puts the next fill into the group, or into a new one that the key, unless empty, leads to.
std::size_t Day::join(std::size_t group, Sum sum, const std::string& key) {
    if (group != kNoGroup) {
        groups[group].sum = std::move(sum);
        return group;
    }
    groups.push_back({fills.size(), std::move(sum)});
    if (!key.empty()) {
        groupsByKey.emplace(key, groups.size() - 1);
    }
    return groups.size() - 1;
}

Bill Day::billOf(std::size_t index) const {
    const Fill& fill = fills[index];
    Bill bill = emptyBill(fill.trade, fill.turnover, fill.tariff, *fill.plan);
    Sum own;
    own.add(fill.turnover, fill.trade);
    for (const ChargeLine& line : fill.plan->lines) {
        const Per per = line.term->per;
        if (per == Per::kFill) {
            bill.items.push_back(itemOf(line, own));
            continue;
        }
        const Group& group = groups[per == Per::kOrder ? fill.order : fill.position];
        if (group.firstFill == index) {
            bill.items.push_back(itemOf(line, group.sum));
        } else {
            addOnce(bill.sharedWith, group.firstFill);
        }
    }
    total(bill, fill.trade.side);
    return bill;
}

}  // namespace cost
