#ifndef FEEDESK_INSTRUMENTS_TRADED_INSTRUMENTS_H
#define FEEDESK_INSTRUMENTS_TRADED_INSTRUMENTS_H

#include <vector>

#include "feedesk/instruments/question.h"
#include "standalone/market.h"

namespace feedesk {

/// The instruments that accounts of a kind trade, in the folder's order: those in the lists of the kind's family, or
/// all of them.
std::vector<Question> tradedInstruments(int accountType, const standalone::Market& market);

/// What the market's list has of each, in the folder's order. Refers to the market.
std::vector<const standalone::ListedInstrument*> tradedListings(int accountType, const standalone::Market& market);

}  // namespace feedesk

#endif  // FEEDESK_INSTRUMENTS_TRADED_INSTRUMENTS_H
