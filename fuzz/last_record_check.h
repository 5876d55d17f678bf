#ifndef FUZZ_LAST_RECORD_CHECK_H
#define FUZZ_LAST_RECORD_CHECK_H

#include <boost/shared_ptr.hpp>
#include <map>

#include "standalone/market.h"

namespace fuzz {

/// What a fee center answered for each instrument of the market, for one account.
using Answers = std::map<const qmservice::CInstrument*, boost::shared_ptr<qmservice::CInstrumentFee>>;

/// Fails unless a stock, credit, NEEQ or connect account without custom fees is answered as its records and the
/// configured limits have it: the last record of an instrument counts; a configured stock limit goes before it, one of
/// a connect channel serves only where there is no record. Other accounts pass.
void checkLastRecords(const standalone::Market& market, const standalone::Account& account, const Answers& answers);

}  // namespace fuzz

#endif  // FUZZ_LAST_RECORD_CHECK_H
