#include "host/records.h"

#include "standalone/records/hashing.h"
#include "standalone/records/record_operations.h"

namespace qmservice {

// Called for every query, so it hashes the id as it is.
uint64 CAccountInfo::getHashKey(uint64 seed) const { return records::hashBytes(accountId, seed); }

std::int32_t CInstrument::getFeeType() const { return feeType; }
double CInstrument::getOpenFee() const { return openFee; }
double CInstrument::getCloseFee() const { return closeFee; }
double CInstrument::getCloseTodayFee() const { return closeTodayFee; }

// The destructors stand here so that each class's virtual table is in the records library alone.
CAccountInfo::~CAccountInfo() = default;
CInstrument::~CInstrument() = default;
CInstrumentFee::~CInstrumentFee() = default;
CGroupCategorySubInfo::~CGroupCategorySubInfo() = default;
CCommissionRateDetail::~CCommissionRateDetail() = default;
CMarginRateDetail::~CMarginRateDetail() = default;
CStkExchangeRateLimit::~CStkExchangeRateLimit() = default;
CStockOptionFeeItem::~CStockOptionFeeItem() = default;
CStockOptionFeeRate::~CStockOptionFeeRate() = default;
CCustomStkExchangeRateLimit::~CCustomStkExchangeRateLimit() = default;
CCustomHGTExchangeRateLimit::~CCustomHGTExchangeRateLimit() = default;
CCustomSgtExchangeRateLimit::~CCustomSgtExchangeRateLimit() = default;
CCustomCommissionRateDetail::~CCustomCommissionRateDetail() = default;
CCustomMarginRateDetail::~CCustomMarginRateDetail() = default;
CCustomStockInstrumentFee::~CCustomStockInstrumentFee() = default;
CCustomHGTInstrumentFee::~CCustomHGTInstrumentFee() = default;
CCustomSgtInstrumentFee::~CCustomSgtInstrumentFee() = default;
CCustomFutureInstrumentFee::~CCustomFutureInstrumentFee() = default;

template class RecordOf<CAccountInfo>;
template class RecordOf<CInstrument>;
template class RecordOf<CInstrumentFee>;
template class RecordOf<CGroupCategorySubInfo>;
template class RecordOf<CCommissionRateDetail>;
template class RecordOf<CMarginRateDetail>;
template class RecordOf<CStkExchangeRateLimit>;
template class RecordOf<CStockOptionFeeItem>;
template class RecordOf<CStockOptionFeeRate>;
template class RecordOf<CCustomStkExchangeRateLimit>;
template class RecordOf<CCustomHGTExchangeRateLimit>;
template class RecordOf<CCustomSgtExchangeRateLimit>;
template class RecordOf<CCustomCommissionRateDetail>;
template class RecordOf<CCustomMarginRateDetail>;
template class RecordOf<CCustomStockInstrumentFee>;
template class RecordOf<CCustomHGTInstrumentFee>;
template class RecordOf<CCustomSgtInstrumentFee>;
template class RecordOf<CCustomFutureInstrumentFee>;

}  // namespace qmservice
