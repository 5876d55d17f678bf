// Every type that a host and the library share, so that one file's debug information describes them all. abidw reads
// it; the functions are never called.
#include "CFeeCenter.h"
#include "IFeeCenter.h"
#include "host/markets.h"
#include "host/records.h"
#include "host/services.h"

namespace witness {

template <class T>
void seen(T* /*type*/) {}

// What these name in members, bases and parameters is described too.
template void seen(qmservice::IFeeCenter*);
template void seen(qmservice::CFeeCenter*);

template void seen(qmservice::IData*);
template void seen(qmservice::CAccountInfo*);
template void seen(qmservice::CAccountData*);
template void seen(qmservice::CInstrument*);
template void seen(qmservice::CInstrumentFee*);
template void seen(qmservice::CGroupCategorySubInfo*);
template void seen(qmservice::CCommissionRateDetail*);
template void seen(qmservice::CMarginRateDetail*);
template void seen(qmservice::CStkExchangeRateLimit*);
template void seen(qmservice::CStockOptionFeeItem*);
template void seen(qmservice::CStockOptionFeeRate*);
template void seen(qmservice::CCustomStkExchangeRateLimit*);
template void seen(qmservice::CCustomHGTExchangeRateLimit*);
template void seen(qmservice::CCustomSgtExchangeRateLimit*);
template void seen(qmservice::CCustomCommissionRateDetail*);
template void seen(qmservice::CCustomMarginRateDetail*);
template void seen(qmservice::CCustomStockInstrumentFee*);
template void seen(qmservice::CCustomHGTInstrumentFee*);
template void seen(qmservice::CCustomSgtInstrumentFee*);
template void seen(qmservice::CCustomFutureInstrumentFee*);

template void seen(qmservice::IInstrumentCenter*);
template void seen(qmservice::IDataCenter*);

template void seen(qmservice::AccountKind*);
template void seen(qmservice::CategoryRange*);
template void seen(qmservice::ExchangeFeeType*);
template void seen(qmservice::HedgeFlag*);
template void seen(qmservice::InstrumentList*);
template void seen(qmservice::InstrumentType*);

}  // namespace witness
