#include "feedesk/reconciling/solved_rate.h"

#include "feedesk/text/numbers.h"

namespace feedesk {

bool SolvedRate::isUnlikely() const { return !isKnown && significantDigits(rate.text()) > kMostDigitsOfRates; }

}  // namespace feedesk
