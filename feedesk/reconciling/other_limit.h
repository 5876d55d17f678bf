#ifndef FEEDESK_RECONCILING_OTHER_LIMIT_H
#define FEEDESK_RECONCILING_OTHER_LIMIT_H

#include <tuple>

#include "feedesk/reconciling/trial.h"

namespace feedesk {

/// What another amount of a charging term is.
enum class Limit {
    kLeast,
    kMost,
    kBoth  ///< every order costs the same
};

/// Another minimum or maximum of a charging term.
struct OtherLimit {
    Limit limit = Limit::kLeast;
    cost::Decimal amount;

    friend bool operator<(const OtherLimit& one, const OtherLimit& other) {
        return std::tie(one.limit, one.amount) < std::tie(other.limit, other.amount);
    }
};

/// The term with this limit in place of its own.
cost::Term withLimit(const cost::Term& term, const OtherLimit& other);

/// As the charge is worked out: within the term's limits, then rounded.
cost::Decimal amountOf(const cost::Term& term, cost::Decimal amount);

/// An amount that brokers and exchanges have for a limit. A low maximum of one order is more likely another rate.
bool isUsual(const OtherLimit& other);

/// Keeps the limit as an explanation when every figure of the order agrees with it.
void noteLimit(Trial& trial, const OtherLimit& other, const cost::Term& term);

}  // namespace feedesk

#endif  // FEEDESK_RECONCILING_OTHER_LIMIT_H
