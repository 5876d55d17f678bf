#include "feecenter/future_tables.h"

#include <boost/smart_ptr/make_shared.hpp>
#include <cstddef>
#include <limits>
#include <utility>

#include "feecenter/content_key.h"
#include "host/record_fields.h"

namespace qmservice {
namespace {

using records::commissionRates;
using records::copyFields;
using records::marginRates;

constexpr std::size_t kSlots = kHedgeFlags.size();
constexpr uint64 kUnset = std::numeric_limits<uint64>::max();

template <class Detail>
boost::shared_ptr<CCommissionRateDetail> makeCommission(const Detail& detail) {
    auto record = boost::make_shared<CCommissionRateDetail>();
    copyFields(detail, commissionRates<Detail>, *record, commissionRates<CCommissionRateDetail>);
    return record;
}

template <class Detail>
boost::shared_ptr<CMarginRateDetail> makeMargin(const Detail& detail) {
    auto record = boost::make_shared<CMarginRateDetail>();
    record->hedgeFlag = detail.hedgeFlag;
    copyFields(detail, marginRates<Detail>, *record, marginRates<CMarginRateDetail>);
    return record;
}

/// Points a slot of the instrument's margin keys at a record. Keys that are not there yet start as three unset slots.
void setSlot(EntryTable<std::vector<uint64>>& marginKeys, uint64 accountKey, uint64 instrumentKey, std::size_t slot,
             uint64 marginKey) {
    std::vector<uint64>* stored = findEntry(marginKeys, accountKey, instrumentKey);
    if (stored != nullptr && !stored->empty()) {
        (*stored)[slot] = marginKey;
        return;
    }
    std::vector<uint64> keys(kSlots, kUnset);
    keys[slot] = marginKey;
    setEntry(marginKeys, accountKey, instrumentKey, std::move(keys));
}

/// How many slots the instrument's margin keys have. Rule "Loaded margins have no slots": a load keeps them in the
/// order of its records, which may be fewer than a hedge flag asks for.
std::size_t slotCount(const EntryTable<std::vector<uint64>>& marginKeys, uint64 accountKey, uint64 instrumentKey) {
    const std::vector<uint64>* keys = findEntry(marginKeys, accountKey, instrumentKey);
    return keys != nullptr && !keys->empty() ? keys->size() : kSlots;
}

}  // namespace

template <class Detail>
void storeCommissionRates(const GuardedFutures& futures, uint64 accountKey, uint64 instrumentKey,
                          const Detail& detail) {
    storeCommission(futures, accountKey, instrumentKey, contentKey(detail), [&] { return makeCommission(detail); });
}

template <class Detail>
void storeMarginRates(const GuardedFutures& futures, uint64 accountKey, uint64 instrumentKey, const Detail& detail) {
    const std::optional<std::size_t> slot = hedgeSlot(detail.hedgeFlag);
    if (!slot) {
        return;
    }
    const uint64 marginKey = contentKey(detail);

    auto tables = futures.write();
    if (*slot < slotCount(*tables->marginKeys, accountKey, instrumentKey)) {
        poolRecord(*tables->marginDetails, marginKey, [&] { return makeMargin(detail); });
        setSlot(*tables->marginKeys, accountKey, instrumentKey, *slot, marginKey);
    }
}

template void storeCommissionRates(const GuardedFutures&, uint64, uint64, const CCommissionRateDetail&);
template void storeCommissionRates(const GuardedFutures&, uint64, uint64, const CCustomCommissionRateDetail&);
template void storeMarginRates(const GuardedFutures&, uint64, uint64, const CMarginRateDetail&);
template void storeMarginRates(const GuardedFutures&, uint64, uint64, const CCustomMarginRateDetail&);

}  // namespace qmservice
