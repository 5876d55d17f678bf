#include "feedesk/reconciling/charging.h"

#include <fmt/format.h>

#include <algorithm>
#include <numeric>
#include <unordered_map>

#include "cost/refused.h"
#include "feedesk/reconciling/traded_codes.h"
#include "feedesk/trades/tariffs.h"

namespace feedesk {
namespace {

using cost::Refused;
using Outcome = ReconciledOrder::Outcome;

bool chargesPerDay(const cost::Plan& plan) {
    return std::any_of(plan.lines.begin(), plan.lines.end(),
                       [](const cost::ChargeLine& line) { return line.term->per == cost::Per::kDay; });
}

std::string positionKey(const ReconciledOrder& charged) {
    return fmt::format("{} {} {}", charged.order.date().text(), charged.tariff->place().instrument(),
                       cost::wordFor(charged.order.side()));
}

/// What is charged per day cannot be divided: the orders of a day become one.
std::vector<ReconciledOrder> joinedByDay(std::vector<ReconciledOrder> orders) {
    std::vector<ReconciledOrder> joined;
    std::unordered_map<std::string, std::size_t> places;
    for (ReconciledOrder& each : orders) {
        if (each.tariff && chargesPerDay(each.tariff->planOf(each.order.side(), each.order.date()))) {
            const auto place = places.emplace(positionKey(each), joined.size());
            if (!place.second) {
                join(joined[place.first->second].order, std::move(each.order));
                continue;
            }
        }
        joined.push_back(std::move(each));
    }
    return joined;
}

void addAmountFigures(const Statement& statement, ReconciledOrder& charged) {
    for (const std::size_t index : charged.order.lines) {
        const StatementLine& line = statement.lines[index];
        const cost::Decimal& multiplier = charged.tariff->contract().multiplier;
        if (line.amount && !multiplier.isZero()) {
            const Figure amount{kAmountFigure, *line.amount, turnoverSpan(line, multiplier)};
            if (!amount.agrees()) {
                charged.figures.push_back(amount);
            }
        }
    }
}

void compare(const Statement& statement, ReconciledOrder& charged) {
    const Amounts amounts = amountsOf(charged.order.trades, *charged.tariff);
    charged.currency = amounts.currency;
    charged.costs = amounts.costs().low;
    charged.statedCosts = charged.order.stated.costs(statement.layout, amounts);
    charged.figures = figuresOf(charged.order.stated, amounts, statement.layout);
    addAmountFigures(statement, charged);
    if (agree(charged.figures)) {
        charged.outcome = Outcome::kAgrees;
        charged.figures.clear();
        charged.figures.shrink_to_fit();
    } else {
        charged.outcome = Outcome::kDiffers;
    }
}

/// Refusals leave the order without an answer and say why.
template <class Step>
void attempt(ReconciledOrder& charged, const Step& step) {
    try {
        step();
    } catch (const Refused& refused) {
        charged.whyNotCharged = refused.what();
        charged.outcome = Outcome::kNotCharged;
        charged.tariff.reset();
    }
}

/// The fee center is asked day by day, whichever way the statement is sorted.
std::vector<std::size_t> byDay(const std::vector<ReconciledOrder>& orders) {
    std::vector<std::size_t> sorted(orders.size());
    std::iota(sorted.begin(), sorted.end(), std::size_t{0});
    std::stable_sort(sorted.begin(), sorted.end(), [&](std::size_t one, std::size_t other) {
        return orders[one].order.date() < orders[other].order.date();
    });
    return sorted;
}

}  // namespace

std::vector<ReconciledOrder> chargedOrders(Session& session, const std::string& account, const Statement& statement) {
    std::vector<ReconciledOrder> orders;
    for (Order& order : ordersOf(statement)) {
        orders.emplace_back(std::move(order));
    }
    const TradedCodes codes(session.account(account).record->accountType, session.market(),
                            statement.layout.codeDigits);
    Tariffs tariffs(session);
    for (const std::size_t index : byDay(orders)) {
        ReconciledOrder& charged = orders[index];
        attempt(charged, [&] {
            const StatementLine& line = statement.lines[charged.order.lines.front()];
            tariffs.requireCovered(line.trade.date);
            const Question instrument = codes.instrumentOf(line);
            charged.tariff = tariffs.on(line.trade.date, account, instrument.market, instrument.code);
            static_cast<void>(charged.tariff->planOf(charged.order.side(), charged.order.date()));
        });
    }
    orders = joinedByDay(std::move(orders));
    for (ReconciledOrder& charged : orders) {
        if (charged.tariff) {
            attempt(charged, [&] { compare(statement, charged); });
        }
    }
    return orders;
}

}  // namespace feedesk
