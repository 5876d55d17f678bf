#ifndef FUZZ_FEE_CENTER_CHECKS_H
#define FUZZ_FEE_CENTER_CHECKS_H

#include "standalone/market.h"

namespace fuzz {

/// Publishes the market, hands its accounts' fees to a fee center and asks for every instrument of every account. Fails
/// unless every answer is there and made out for what was asked, both ways of asking agree, a list holds what was
/// handed in and agrees with the answers one by one, and an account without custom fees answers with the last record
/// for each instrument, or with the limit that goes before it.
void checkFeeCenter(const standalone::Market& market);

}  // namespace fuzz

#endif  // FUZZ_FEE_CENTER_CHECKS_H
