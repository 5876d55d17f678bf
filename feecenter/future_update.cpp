#include <boost/smart_ptr/make_shared.hpp>
#include <map>
#include <string>
#include <utility>

#include "CFeeCenter.h"
#include "feecenter/category_match.h"
#include "feecenter/category_number.h"
#include "feecenter/content_key.h"
#include "feecenter/future_tables.h"

// The operations that fill the futures tables: load, update of one instrument, custom fees by category.

namespace qmservice {
namespace {

/// Stores a load's commission, a full copy of the detail.
void loadCommission(const GuardedFutures& futures, uint64 accountKey, uint64 instrumentKey, const CInstrumentFee& fee) {
    if (!fee.commissionDetail) {
        return;
    }
    const auto& detail = *fee.commissionDetail;
    storeCommission(futures, accountKey, instrumentKey, contentKey(detail),
                    [&] { return boost::make_shared<CCommissionRateDetail>(detail); });
}

/// Stores a load's margins, full copies of the details, and replaces the instrument's keys by theirs in list order.
/// Empty details are passed over; where nothing is left the keys stay as they were.
void loadMargins(const GuardedFutures& futures, uint64 accountKey, uint64 instrumentKey, const CInstrumentFee& fee) {
    if (fee.marginDetails.empty()) {
        return;
    }
    auto tables = futures.write();
    std::vector<uint64> keys;
    keys.reserve(fee.marginDetails.size());
    for (const auto& detail : fee.marginDetails) {
        if (detail) {
            keys.push_back(contentKey(*detail));
            poolRecord(*tables->marginDetails, keys.back(),
                       [&] { return boost::make_shared<CMarginRateDetail>(*detail); });
        }
    }
    if (!keys.empty()) {
        setEntry(*tables->marginKeys, accountKey, instrumentKey, std::move(keys));
    }
}

/// Every futures instrument of the catalogue once, by the catalogue's key; the first type's goes before the second's.
std::map<std::string, boost::shared_ptr<CInstrument>> futureInstruments() {
    auto* catalogue = TraderCenter::instance()->getInstCenter();
    std::map<std::string, boost::shared_ptr<CInstrument>> instruments;
    catalogue->getInstrumentMap(kFuturesType, instruments);
    std::map<std::string, boost::shared_ptr<CInstrument>> others;
    catalogue->getInstrumentMap(kFuturesExtraType, others);
    for (const auto& other : others) {
        auto& instrument = instruments[other.first];
        if (!instrument) {
            instrument = other.second;
        }
    }
    return instruments;
}

template <class Details>
auto firstMatchingDetail(const CInstrument& instrument, const Details& details) {
    return firstMatch(
        details, [&](auto& detail) { return matchesCategory(instrument, detail, categoryNumber(detail.categoryId)); });
}

}  // namespace

void CFeeCenter::doInitFutureFee(const boost::shared_ptr<CAccountInfo>& account,
                                 const std::vector<boost::shared_ptr<IData>>& records) {
    const uint64 accountKey = account->getHashKey(0);
    const GuardedFutures futures = Future::of(*this);
    for (const auto& record : records) {
        const auto* fee = dynamic_cast<const CInstrumentFee*>(record.get());
        if (fee == nullptr || !fee->instrument) {
            continue;
        }
        const uint64 instrumentKey = instrumentKeyOf(*fee->instrument);
        loadCommission(futures, accountKey, instrumentKey, *fee);
        loadMargins(futures, accountKey, instrumentKey, *fee);
    }
}

void CFeeCenter::doUpdateFutureInstrumentFee(const boost::shared_ptr<CAccountInfo>& account,
                                             const boost::shared_ptr<CInstrumentFee>& fee) {
    if (!fee || !fee->instrument || !fee->commissionDetail || fee->commissionDetail->instrumentId.empty()) {
        return;
    }
    const uint64 accountKey = account->getHashKey(0);
    const uint64 instrumentKey = instrumentKeyOf(*fee->instrument);
    const GuardedFutures futures = Future::of(*this);
    storeCommissionRates(futures, accountKey, instrumentKey, *fee->commissionDetail);
    for (const auto& margin : fee->marginDetails) {
        if (margin) {
            storeMarginRates(futures, accountKey, instrumentKey, *margin);
        }
    }
}

void CFeeCenter::doUpdateFutureCustomFee(const boost::shared_ptr<CAccountInfo>& account,
                                         const boost::shared_ptr<CCustomFutureInstrumentFee>& customFee) {
    if (customFee->commissionDetails.empty() && customFee->marginDetails.empty()) {
        return;
    }
    const uint64 accountKey = account->getHashKey(0);
    const GuardedFutures futures = Future::of(*this);
    for (const auto& entry : futureInstruments()) {
        if (!entry.second) {
            continue;
        }
        const CInstrument& instrument = *entry.second;
        if (const auto* commission = firstMatchingDetail(instrument, customFee->commissionDetails)) {
            storeCommissionRates(futures, accountKey, instrumentKeyOf(instrument), *commission);
        }
        // Rule "One margin detail at most": those of other hedge flags are not looked at once one has matched, so a
        // custom fee sets one hedge flag of an instrument and leaves the others.
        if (const auto* margin = firstMatchingDetail(instrument, customFee->marginDetails)) {
            storeMarginRates(futures, accountKey, instrumentKeyOf(instrument), *margin);
        }
    }
}

}  // namespace qmservice
