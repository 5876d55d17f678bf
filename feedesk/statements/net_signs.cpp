#include "feedesk/statements/net_signs.h"

#include <algorithm>
#include <vector>

namespace feedesk {
namespace {

bool isPurchase(const StatementLine& line) {
    return line.trade.side == cost::Side::kBuy && line.net && !line.net->isZero();
}

/// What was paid for a purchase is its amount and costs; less than the amount would be what a sale brings.
bool isPaidWithoutSign(const StatementLine& line) {
    return *line.net >= line.amount.value_or(line.trade.quantity * line.trade.price);
}

}  // namespace

void giveSigns(Statement& statement) {
    std::vector<StatementLine*> purchases;
    for (StatementLine& line : statement.lines) {
        if (isPurchase(line)) {
            purchases.push_back(&line);
        }
    }
    statement.isNetUnsigned =
        !purchases.empty() && std::all_of(purchases.begin(), purchases.end(),
                                          [](const StatementLine* line) { return isPaidWithoutSign(*line); });
    for (StatementLine* line : statement.isNetUnsigned ? purchases : std::vector<StatementLine*>()) {
        line->net = -*line->net;
    }
}

}  // namespace feedesk
