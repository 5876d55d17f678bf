#include "histories/handed.h"

#include "histories/record_fields.h"

namespace histories {
namespace {

using namespace qmservice;

template <class Type>
std::string differenceAs(const IData& record, const IData& before) {
    const auto* typed = dynamic_cast<const Type*>(&record);
    const auto* typedBefore = dynamic_cast<const Type*>(&before);
    return typed == nullptr || typedBefore == nullptr || sameFields(*typed, *typedBefore)
               ? std::string()
               : "a record that was handed in or configured was " + showRecord(*typedBefore) + " and is " +
                     showRecord(*typed);
}

std::string differenceOf(const IData& record, const IData& before) {
    return differenceAs<CInstrumentFee>(record, before) + differenceAs<CCustomStockInstrumentFee>(record, before) +
           differenceAs<CCustomFutureInstrumentFee>(record, before) +
           differenceAs<CCustomHGTInstrumentFee>(record, before) +
           differenceAs<CCustomSgtInstrumentFee>(record, before) + differenceAs<CStkExchangeRateLimit>(record, before) +
           differenceAs<CCommissionRateDetail>(record, before) +
           differenceAs<CCustomHGTExchangeRateLimit>(record, before) +
           differenceAs<CCustomSgtExchangeRateLimit>(record, before);
}

}  // namespace

void Handed::watch(const Record& record) {
    if (record) {
        watched.push_back({record, record->copy()});
    }
}

std::string Handed::difference() const {
    std::string text;
    for (const auto& each : watched) {
        text += differenceOf(*each.record, *each.before);
    }
    return text;
}

}  // namespace histories
