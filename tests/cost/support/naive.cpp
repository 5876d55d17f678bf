#include "cost/support/naive.h"

#include <cstddef>

namespace naive {
namespace {

const Tiny kFen = 10000000000;

bool together(Sum sum, const std::vector<Fill>& fills, std::size_t a, std::size_t b) {
    switch (sum) {
        case Sum::kFill:
            return a == b;
        case Sum::kOrder:
            return a == b || (fills[a].order != 0 && fills[a].order == fills[b].order);
        default:
            return fills[a].purchase == fills[b].purchase;
    }
}

Tiny rounded(Tiny amount, Tiny step, const std::string& mode) {
    const Tiny below = amount / step * step;
    const Tiny above = below + step;
    if (below == amount || mode == "down") {
        return below;
    }
    if (mode == "up") {
        return above;
    }
    const Tiny toBelow = amount - below;
    const Tiny toAbove = above - amount;
    if (toBelow != toAbove) {
        return toBelow < toAbove ? below : above;
    }
    return mode == "half_up" || below / step % 2 != 0 ? above : below;
}

Tiny amountOf(const Charge& charge, Tiny basis) {
    Tiny amount = basis * charge.rate;
    if (charge.minimumFen >= 0 && amount < charge.minimumFen * kFen) {
        amount = charge.minimumFen * kFen;
    }
    if (charge.maximumFen >= 0 && amount > charge.maximumFen * kFen) {
        amount = charge.maximumFen * kFen;
    }
    return charge.stepFen > 0 ? rounded(amount, charge.stepFen * kFen, charge.mode) : amount;
}

/// In thousandths: prices have three decimals.
Tiny basisOf(const Charge& charge, const std::vector<Fill>& fills, std::size_t first) {
    Tiny basis = 0;
    for (std::size_t i = 0; i < fills.size(); ++i) {
        if (together(charge.sum, fills, first, i)) {
            basis += charge.onTurnover ? Tiny(fills[i].quantity) * fills[i].priceMilli : Tiny(fills[i].quantity) * 1000;
        }
    }
    return charge.onTurnover || charge.onQuantity ? basis : 1000;
}

bool isFirst(const Charge& charge, const std::vector<Fill>& fills, std::size_t index) {
    for (std::size_t i = 0; i < index; ++i) {
        if (together(charge.sum, fills, i, index)) {
            return false;
        }
    }
    return true;
}

}  // namespace

std::vector<Tiny> amounts(const std::vector<Charge>& charges, const std::vector<Fill>& fills) {
    std::vector<Tiny> all(charges.size(), 0);
    for (std::size_t c = 0; c < charges.size(); ++c) {
        const Charge& charge = charges[c];
        for (std::size_t i = 0; i < fills.size(); ++i) {
            const bool isCharged = fills[i].purchase ? charge.purchases : charge.sales;
            if (isCharged && charge.rate > 0 && isFirst(charge, fills, i)) {
                all[c] += amountOf(charge, basisOf(charge, fills, i));
            }
        }
    }
    return all;
}

Tiny costs(const std::vector<Charge>& charges, const std::vector<Tiny>& amounts) {
    Tiny sum = 0;
    for (std::size_t c = 0; c < charges.size(); ++c) {
        sum += charges[c].inside < 0 ? amounts[c] : 0;
    }
    return sum;
}

std::string yuan(Tiny amount) {
    std::string digits;
    for (; amount > 0 || digits.size() < 13; amount /= 10) {
        digits.insert(digits.begin(), static_cast<char>('0' + static_cast<int>(amount % 10)));
    }
    return digits.insert(digits.size() - 12, ".");
}

}  // namespace naive
