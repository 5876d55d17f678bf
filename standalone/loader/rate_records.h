#ifndef STANDALONE_LOADER_RATE_RECORDS_H
#define STANDALONE_LOADER_RATE_RECORDS_H

#include <tuple>

#include "host/record_fields.h"
#include "standalone/families.h"
#include "standalone/loader/kept_lines.h"

// What a table of a family's rates becomes: one struct for each RateRecords. `CustomRecord` is the custom fee, of which
// each line gives one of the kEntries, a `CustomLimit` with a kCategory. A family with fee records of one limit for
// each instrument has besides a `Limit`, its kSlot in the record, and, where the limit can be configured, its kUnit for
// the trade unit and its place in the market.

namespace standalone::loader {

struct StockRecords {
    using Limit = qmservice::CStkExchangeRateLimit;
    using CustomLimit = qmservice::CCustomStkExchangeRateLimit;
    using CustomRecord = qmservice::CCustomStockInstrumentFee;

    static constexpr bool kHasLimit = true;
    static constexpr auto kSlot = &qmservice::CInstrumentFee::stkRateLimit;
    static constexpr auto kUnit = &Limit::unitVolume;
    static constexpr auto kConfigured = &Market::stockLimits;
    static constexpr auto kRates = qmservice::records::stockRates<Limit>;
    static constexpr auto kEntries = &CustomRecord::rateLimits;
    static constexpr auto kCategory = &CustomLimit::category;
    static constexpr auto kCustomRates = qmservice::records::stockRates<CustomLimit>;
};

/// The connect channels, whose custom limits are of the same class.
template <class Rates, class Fee>
struct ConnectRecords {
    using Limit = Rates;
    using CustomLimit = Rates;
    using CustomRecord = Fee;

    static constexpr bool kHasLimit = true;
    static constexpr auto kUnit = &Limit::tradeMinUnit;
    static constexpr auto kRates = qmservice::records::connectRates<Limit>;
    static constexpr auto kEntries = &CustomRecord::rateLimits;
    static constexpr auto kCategory = &CustomLimit::category;
    static constexpr auto kCustomRates = kRates;
};

struct HgtRecords : ConnectRecords<qmservice::CCustomHGTExchangeRateLimit, qmservice::CCustomHGTInstrumentFee> {
    static constexpr auto kSlot = &qmservice::CInstrumentFee::hgtRateLimit;
    static constexpr auto kConfigured = &Market::hgtLimits;
};

struct SgtRecords : ConnectRecords<qmservice::CCustomSgtExchangeRateLimit, qmservice::CCustomSgtInstrumentFee> {
    static constexpr auto kSlot = &qmservice::CInstrumentFee::sgtRateLimit;
    static constexpr auto kConfigured = &Market::sgtLimits;
};

struct OptionRecords {
    using CustomLimit = qmservice::CCustomStkExchangeRateLimit;
    using CustomRecord = qmservice::CCustomStockInstrumentFee;

    static constexpr bool kHasLimit = false;
    static constexpr auto kEntries = &CustomRecord::rateLimits;
    static constexpr auto kCategory = &CustomLimit::category;
    static constexpr auto kCustomRates = qmservice::records::optionFees<CustomLimit>;
};

struct CommissionRecords {
    using CustomLimit = qmservice::CCustomCommissionRateDetail;
    using CustomRecord = qmservice::CCustomFutureInstrumentFee;

    static constexpr bool kHasLimit = false;
    static constexpr auto kEntries = &CustomRecord::commissionDetails;
    static constexpr auto kCategory = &CustomLimit::categoryId;
    static constexpr auto kCustomRates = qmservice::records::commissionRates<CustomLimit>;
};

struct MarginRecords {
    using CustomLimit = qmservice::CCustomMarginRateDetail;
    using CustomRecord = qmservice::CCustomFutureInstrumentFee;

    static constexpr bool kHasLimit = false;
    static constexpr auto kEntries = &CustomRecord::marginDetails;
    static constexpr auto kCategory = &CustomLimit::categoryId;
    static constexpr auto kCustomRates = qmservice::records::marginRates<CustomLimit>;
};

/// Calls visit(StockRecords()) and so on, whichever the family has.
template <class Visit>
void visitRecords(RateRecords records, const Visit& visit) {
    switch (records) {
        case RateRecords::kStock:
            return visit(StockRecords());
        case RateRecords::kHgt:
            return visit(HgtRecords());
        case RateRecords::kSgt:
            return visit(SgtRecords());
        case RateRecords::kOption:
            return visit(OptionRecords());
        case RateRecords::kCommission:
            return visit(CommissionRecords());
        case RateRecords::kMargin:
            return visit(MarginRecords());
    }
}

/// Writes a line's rates into the fields of a list of host/record_fields.h.
template <class Record, class... Rates>
void setRates(Record& record, const std::tuple<Rates...>& list, const KeptLine& line) {
    static_assert(sizeof...(Rates) <= kMostRates);
    const LineRates rates = line.rates();
    const auto* rate = rates.begin();
    qmservice::records::forEachOf(list, [&](const auto& field) { record.*field.member = *rate++; });
}

}  // namespace standalone::loader

#endif  // STANDALONE_LOADER_RATE_RECORDS_H
