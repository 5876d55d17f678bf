#include <boost/make_shared.hpp>

#include "standalone/loader/expand.h"
#include "standalone/loader/rate_records.h"

namespace standalone::loader {
namespace {

template <class Records>
void addLimit(const ConfiguredLine& kept, Market& market) {
    const ListedInstrument& instrument = market.instruments[kept.place];
    const auto limit = boost::make_shared<typename Records::Limit>();
    setRates(*limit, Records::kRates, kept);
    (*limit).*Records::kUnit = kept.line->unitVolume != 0 ? kept.line->unitVolume : instrument.tradeUnit;
    (market.*Records::kConfigured)
        .push_back({instrument.record->market, instrument.record->code, limit, kept.position});
}

}  // namespace

void expandConfiguredLimits(const CheckedFolder& folder, cost::Date day, Market& market) {
    forEachInForce(folder.configuredLines, day, [&](const ConfiguredLine& kept) {
        visitRecords(kept.line->family->records, [&](auto records) {
            if constexpr (decltype(records)::kHasLimit) {
                addLimit<decltype(records)>(kept, market);
            }
        });
    });
}

}  // namespace standalone::loader
