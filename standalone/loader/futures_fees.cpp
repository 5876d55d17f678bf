#include "standalone/loader/futures_fees.h"

#include <boost/make_shared.hpp>

#include "standalone/loader/rate_records.h"

namespace standalone::loader {

using namespace qmservice;  // NOLINT(google-build-using-namespace): records

namespace {

boost::shared_ptr<CCommissionRateDetail> commissionOf(const KeptFeeLine& line, const std::string& code) {
    auto detail = boost::make_shared<CCommissionRateDetail>();
    detail->instrumentId = code;
    setRates(*detail, records::commissionRates<CCommissionRateDetail>, line);
    return detail;
}

}  // namespace

void FuturesFees::add(const KeptFeeLine& line) {
    if (line.line->family->records == RateRecords::kMargin) {
        addMargins(line);
        return;
    }
    for (const std::size_t place : *line.places) {
        fees[place].commission = &line;
    }
}

// All instruments of a line share one detail.
void FuturesFees::addMargins(const KeptFeeLine& line) {
    const auto detail = boost::make_shared<CMarginRateDetail>();
    detail->hedgeFlag = line.line->hedgeFlag;
    detail->marginMode = line.line->marginMode;
    setRates(*detail, records::marginRates<CMarginRateDetail>, line);
    for (const std::size_t place : *line.places) {
        fees[place].margins[*hedgeSlot(line.line->hedgeFlag)] = {detail, line.position};
    }
}

FeeRecord FuturesFees::recordOf(const Account& account, std::size_t place, const Fee& fee) const {
    const auto made = boost::make_shared<CInstrumentFee>();
    FeeRecord placed{made, {}, {}};
    made->account = account.record;
    made->instrument = market.instruments[place].record;
    for (const Placed<CMarginRateDetail>& margin : fee.margins) {
        if (!margin.detail) {
            continue;
        }
        made->marginDetails.push_back(margin.detail);
        placed.margins.push_back(margin.position);
    }
    if (fee.commission != nullptr) {
        made->commissionDetail = commissionOf(*fee.commission, made->instrument->code);
        placed.position = fee.commission->position;
    } else {
        placed.position = placed.margins.front();
    }
    return placed;
}

std::vector<FeeRecord> FuturesFees::records(const Account& account) const {
    std::vector<FeeRecord> made;
    made.reserve(fees.size());
    for (const auto& [place, fee] : fees) {
        made.push_back(recordOf(account, place, fee));
    }
    return made;
}

}  // namespace standalone::loader
