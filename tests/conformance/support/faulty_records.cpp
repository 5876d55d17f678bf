#include <boost/smart_ptr/make_shared.hpp>
#include <ostream>

#include "host/record_fields.h"
#include "standalone/records/field_values.h"
#include "standalone/records/hashing.h"
#include "support/faulty_host.h"

// The operations of one record class, in the place of those that the records library has. Each keeps its promise, and
// breaks it where the host that lives has that fault.

namespace qmservice {
namespace {

using Rate = CStockOptionFeeRate;
using test::FaultyHost;

const Rate& rateIn(const IData& data) { return static_cast<const Rate&>(data); }

}  // namespace

template <>
boost::shared_ptr<IData> RecordOf<Rate>::copy() const {
    const auto made = boost::make_shared<Rate>(rateIn(*this));
    if (FaultyHost::breaks("records.copy-equals")) {
        made->baseRate = 0;
    }
    if (!FaultyHost::breaks("records.copy-independent")) {
        records::Detaching::from(made->items);
    }
    return made;
}

template <>
uint64 RecordOf<Rate>::getHashKey(uint64 seed) const {
    records::HashInput input;
    input.add(rateIn(*this).baseRate);
    const auto address = reinterpret_cast<std::uintptr_t>(this);
    return FaultyHost::breaks("records.keys") ? address : input.key(seed);
}

template <>
bool RecordOf<Rate>::isEqual(const IData& other) const {
    const auto* theirs = dynamic_cast<const Rate*>(&other);
    return theirs != nullptr && rateIn(*this).baseRate == theirs->baseRate &&
           (FaultyHost::breaks("records.equality") || records::Equality::of(rateIn(*this).items, theirs->items));
}

template <>
std::ptrdiff_t RecordOf<Rate>::getOffset(const std::string& field) const {
    const auto distance = [&](const void* place) {
        return static_cast<const char*>(place) - reinterpret_cast<const char*>(&rateIn(*this));
    };
    if (field == "baseRate") {
        return distance(&rateIn(*this).baseRate);
    }
    const bool known = field == "items" && !FaultyHost::breaks("records.offsets");
    return known ? distance(&rateIn(*this).items) : -1;
}

template <>
std::string RecordOf<Rate>::getStructDes() const {
    return "CStockOptionFeeRate{baseRate:double,items:map<string,shared_ptr<CStockOptionFeeItem>>}";
}

template <>
void RecordOf<Rate>::toLogStream(std::ostream& out) const {
    out << "CStockOptionFeeRate{" << (FaultyHost::breaks("records.texts") ? "\n" : "") << "...}";
}

}  // namespace qmservice
