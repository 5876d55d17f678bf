#ifndef HOST_INSTRUMENT_FEE_H
#define HOST_INSTRUMENT_FEE_H

#include <boost/shared_ptr.hpp>
#include <vector>

#include "host/account.h"
#include "host/connect_records.h"
#include "host/data.h"
#include "host/futures_records.h"
#include "host/host_export.h"
#include "host/instrument.h"
#include "host/stock_records.h"

namespace qmservice {

/// The fees of one instrument for one account: the form both of what a host hands in and of an answer.
///
/// An answer belongs to the caller. The rate records inside it may be shared with the fee center, with other answers
/// and with the host's configuration: they are not to be written. A family fills its own fields; the others stay empty.
class HOST_EXPORT CInstrumentFee : public RecordOf<CInstrumentFee> {
public:
    CInstrumentFee() = default;
    CInstrumentFee(const CInstrumentFee&) = default;
    CInstrumentFee& operator=(const CInstrumentFee&) = default;
    ~CInstrumentFee() override;

    boost::shared_ptr<CInstrument> instrument;                        ///< what the fee is of; shared with the catalogue
    boost::shared_ptr<CCommissionRateDetail> commissionDetail;        ///< futures
    std::vector<boost::shared_ptr<CMarginRateDetail>> marginDetails;  ///< futures, by hedge flag; an entry may be empty
    boost::shared_ptr<CAccountInfo> account;                      ///< whose fee it is; empty in what a host hands in
    boost::shared_ptr<CStkExchangeRateLimit> stkRateLimit;        ///< stock, credit, NEEQ
    boost::shared_ptr<CStockOptionFeeRate> stkOptionFeeRate;      ///< stock option
    boost::shared_ptr<CCustomHGTExchangeRateLimit> hgtRateLimit;  ///< Shanghai-Hong Kong connect
    boost::shared_ptr<CCustomSgtExchangeRateLimit> sgtRateLimit;  ///< Shenzhen-Hong Kong connect
};

}  // namespace qmservice

#endif  // HOST_INSTRUMENT_FEE_H
