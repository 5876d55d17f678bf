#include "feedesk/reconciling/order.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <unordered_map>

namespace feedesk {
namespace {

std::string keyOf(const StatementLine& line) {
    const cost::Trade& trade = line.trade;
    return trade.order.empty() ? ""
                               : fmt::format("{}\n{}\n{}\n{}\n{}", trade.date.text(), line.market, line.code,
                                             cost::wordFor(trade.side), trade.order);
}

Order orderOf(const StatementLine& line, std::size_t index) {
    Order order;
    order.lines.push_back(index);
    order.fills = line.fills;
    order.stated = {line.net, line.charges};
    cost::Trade trade = line.trade;
    trade.turnover = line.amount;
    // With a number of its own it may have any quantity: a statement reports what was traded, not what may be.
    trade.order = trade.order.empty() ? fmt::format("line {}", line.line) : trade.order;
    order.trades.push_back(std::move(trade));
    return order;
}

void add(std::optional<cost::Decimal>& sum, const std::optional<cost::Decimal>& more) {
    if (sum && more) {
        *sum += *more;
    } else {
        sum.reset();
    }
}

}  // namespace

std::vector<Order> ordersOf(const Statement& statement) {
    std::vector<Order> orders;
    std::unordered_map<std::string, std::size_t> places;
    for (std::size_t i = 0; i < statement.lines.size(); ++i) {
        const std::string key = keyOf(statement.lines[i]);
        const auto place = key.empty() ? places.end() : places.find(key);
        if (place != places.end()) {
            join(orders[place->second], orderOf(statement.lines[i], i));
            continue;
        }
        if (!key.empty()) {
            places.emplace(key, orders.size());
        }
        orders.push_back(orderOf(statement.lines[i], i));
    }
    return orders;
}

void join(Order& order, Order other) {
    std::copy(other.lines.begin(), other.lines.end(), std::back_inserter(order.lines));
    std::move(other.trades.begin(), other.trades.end(), std::back_inserter(order.trades));
    order.fills += other.fills;
    add(order.stated.net, other.stated.net);
    for (std::size_t i = 0; i < order.stated.charges.size(); ++i) {
        add(order.stated.charges[i], other.stated.charges[i]);
    }
}

Span turnoverSpan(const StatementLine& line, const cost::Decimal& multiplier) {
    const std::string& price = line.priceText;
    const std::size_t point = std::min(price.find('.'), price.size());
    const std::size_t decimals = point == price.size() ? 0 : price.size() - point - 1;
    const cost::Decimal half =
        *cost::Decimal::parse("0." + std::string(std::min<std::size_t>(decimals, 17), '0') + "5");
    const cost::Decimal units = line.trade.quantity * multiplier;
    const cost::Decimal cent = *cost::Decimal::parse("0.005");
    return {units * (line.trade.price - half) - cent, units * (line.trade.price + half) + cent};
}

}  // namespace feedesk
