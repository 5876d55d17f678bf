#ifndef TESTS_HISTORIES_CUSTOM_CHOICES_H
#define TESTS_HISTORIES_CUSTOM_CHOICES_H

#include "histories/bytes.h"
#include "histories/world.h"
#include "host/records.h"

namespace histories {

/// A custom fee of a class that has one list of limits: of stock and options, or of a connect channel.
template <class Fee>
Record chooseLimitFee(Bytes& bytes);

extern template Record chooseLimitFee<qmservice::CCustomStockInstrumentFee>(Bytes&);
extern template Record chooseLimitFee<qmservice::CCustomHGTInstrumentFee>(Bytes&);
extern template Record chooseLimitFee<qmservice::CCustomSgtInstrumentFee>(Bytes&);

/// A custom fee of a futures account.
Record chooseFutureFee(Bytes& bytes);

/// An entry of a custom fee's list.
template <class Limit>
Record chooseCustomEntry(Bytes& bytes);

extern template Record chooseCustomEntry<qmservice::CCustomStkExchangeRateLimit>(Bytes&);
extern template Record chooseCustomEntry<qmservice::CCustomHGTExchangeRateLimit>(Bytes&);
extern template Record chooseCustomEntry<qmservice::CCustomSgtExchangeRateLimit>(Bytes&);
extern template Record chooseCustomEntry<qmservice::CCustomCommissionRateDetail>(Bytes&);
extern template Record chooseCustomEntry<qmservice::CCustomMarginRateDetail>(Bytes&);

}  // namespace histories

#endif  // TESTS_HISTORIES_CUSTOM_CHOICES_H
