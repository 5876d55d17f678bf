#include "standalone/loader/futures_fees.h"

#include <boost/make_shared.hpp>

#include "standalone/loader/rate_records.h"

namespace standalone::loader {

using namespace qmservice;  // NOLINT(google-build-using-namespace): records

void FuturesFees::add(const KeptFeeLine& line) {
    if (line.family->records == RateRecords::kCommission) {
        addCommissions(line);
    } else {
        addMargins(line);
    }
}

void FuturesFees::addCommissions(const KeptFeeLine& line) {
    for (const std::size_t place : *line.places) {
        const auto detail = boost::make_shared<CCommissionRateDetail>();
        detail->instrumentId = market.instruments[place].record->code;
        setRates(*detail, records::commissionRates<CCommissionRateDetail>, line.line);
        fees[place].commission = {detail, line.position};
    }
}

// All instruments of a line share one detail.
void FuturesFees::addMargins(const KeptFeeLine& line) {
    const auto detail = boost::make_shared<CMarginRateDetail>();
    detail->hedgeFlag = line.line.hedgeFlag;
    detail->marginMode = line.line.marginMode;
    setRates(*detail, records::marginRates<CMarginRateDetail>, line.line);
    for (const std::size_t place : *line.places) {
        fees[place].margins[*hedgeSlot(line.line.hedgeFlag)] = {detail, line.position};
    }
}

FeeRecord FuturesFees::record(const Account& account, std::size_t place, const Fee& fee) const {
    const auto made = boost::make_shared<CInstrumentFee>();
    FeeRecord placed{made, fee.commission.position, {}};
    made->account = account.record;
    made->instrument = market.instruments[place].record;
    made->commissionDetail = fee.commission.detail;
    for (const Placed<CMarginRateDetail>& margin : fee.margins) {
        if (!margin.detail) {
            continue;
        }
        made->marginDetails.push_back(margin.detail);
        placed.margins.push_back(margin.position);
    }
    if (!fee.commission.detail) {
        placed.position = placed.margins.front();
    }
    return placed;
}

void FuturesFees::addRecords(Account& account) const {
    for (const auto& [place, fee] : fees) {
        account.fees.push_back(record(account, place, fee));
    }
}

}  // namespace standalone::loader
