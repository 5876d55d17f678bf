#ifndef TESTS_HISTORIES_CHOICES_H
#define TESTS_HISTORIES_CHOICES_H

#include <boost/shared_ptr.hpp>

#include "histories/bytes.h"
#include "histories/world.h"
#include "host/records.h"

// Records and values chosen by bytes: what a host, or a host that is wrong, could hand in.

namespace histories {

/// Up to six records: fees good and bad, records of other classes, empty pointers, the same record twice.
Records chooseRecords(Bytes& bytes, const World& world, int accountKind);

/// What updateCustomFee is called with, mostly of the class that the kind takes; may be empty.
Record chooseCustomFee(Bytes& bytes, const World& world, int accountKind);

boost::shared_ptr<qmservice::CInstrumentFee> chooseFee(Bytes& bytes, const World& world, int accountKind);

boost::shared_ptr<qmservice::CStkExchangeRateLimit> chooseStockLimit(Bytes& bytes);
template <class Limit>
boost::shared_ptr<Limit> chooseConnectLimit(Bytes& bytes);

extern template boost::shared_ptr<qmservice::CCustomHGTExchangeRateLimit> chooseConnectLimit(Bytes&);
extern template boost::shared_ptr<qmservice::CCustomSgtExchangeRateLimit> chooseConnectLimit(Bytes&);

/// Mostly 100.
int chooseTradeUnit(Bytes& bytes);

}  // namespace histories

#endif  // TESTS_HISTORIES_CHOICES_H
