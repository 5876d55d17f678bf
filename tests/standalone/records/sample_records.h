#ifndef TESTS_STANDALONE_RECORDS_SAMPLE_RECORDS_H
#define TESTS_STANDALONE_RECORDS_SAMPLE_RECORDS_H

#include <boost/make_shared.hpp>

#include "record_cases.h"

namespace records_test {

template <class Record>
boost::shared_ptr<Record> newFilled() {
    return boost::make_shared<Record>(filled<Record>());
}

/// A fee in which every record is there and has every field set, with an empty entry in the list of margins.
inline qmservice::CInstrumentFee wholeFee() {
    qmservice::CInstrumentFee fee;
    fee.instrument = newFilled<qmservice::CInstrument>();
    fee.commissionDetail = newFilled<qmservice::CCommissionRateDetail>();
    fee.marginDetails = {newFilled<qmservice::CMarginRateDetail>(), nullptr, newFilled<qmservice::CMarginRateDetail>()};
    fee.account = newFilled<qmservice::CAccountInfo>();
    fee.stkRateLimit = newFilled<qmservice::CStkExchangeRateLimit>();
    fee.stkOptionFeeRate = newFilled<qmservice::CStockOptionFeeRate>();
    fee.hgtRateLimit = newFilled<qmservice::CCustomHGTExchangeRateLimit>();
    fee.sgtRateLimit = newFilled<qmservice::CCustomSgtExchangeRateLimit>();
    return fee;
}

}  // namespace records_test

#endif  // TESTS_STANDALONE_RECORDS_SAMPLE_RECORDS_H
