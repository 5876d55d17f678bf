#ifndef TESTS_STANDALONE_RECORDS_RECORD_CLASSES_H
#define TESTS_STANDALONE_RECORDS_RECORD_CLASSES_H

#include "host/records.h"

namespace records_test {

/// A list of every record class that there is.
template <template <class...> class List>
using EveryRecordClass =
    List<qmservice::CAccountInfo, qmservice::CInstrument, qmservice::CInstrumentFee, qmservice::CCommissionRateDetail,
         qmservice::CMarginRateDetail, qmservice::CStkExchangeRateLimit, qmservice::CStockOptionFeeItem,
         qmservice::CStockOptionFeeRate, qmservice::CGroupCategorySubInfo, qmservice::CCustomStkExchangeRateLimit,
         qmservice::CCustomHGTExchangeRateLimit, qmservice::CCustomSgtExchangeRateLimit,
         qmservice::CCustomCommissionRateDetail, qmservice::CCustomMarginRateDetail,
         qmservice::CCustomStockInstrumentFee, qmservice::CCustomHGTInstrumentFee, qmservice::CCustomSgtInstrumentFee,
         qmservice::CCustomFutureInstrumentFee>;

}  // namespace records_test

#endif  // TESTS_STANDALONE_RECORDS_RECORD_CLASSES_H
