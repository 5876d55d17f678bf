#ifndef FEEDESK_ANSWERS_ANSWER_H
#define FEEDESK_ANSWERS_ANSWER_H

#include <boost/shared_ptr.hpp>
#include <cstddef>
#include <string>
#include <vector>

#include "feedesk/answers/provenance.h"
#include "feedesk/rows/rows.h"
#include "host/records.h"
#include "standalone/families.h"
#include "standalone/market.h"

namespace feedesk {

/// One rate of a record.
struct ShownRate {
    std::string column;
    Unit unit = Unit::kFraction;
    double value = 0;
};

/// What a person reads under one title: one rate, or two whose fees are added.
struct TitledRates {
    std::string title;
    std::vector<ShownRate> rates;
};

/// Whether nothing is charged under this title.
bool isZero(const TitledRates& titled);

// FeeLine::part of those parts that are not like the rates of stocks.
inline constexpr const char* kOptionPart = cost::wordFor(cost::Family::kOption).data();
constexpr const char* kCommissionPart = standalone::kCommissionFamily;
constexpr const char* kMarginPart = standalone::kMarginFamily;

/// The record that rates were read from. Answers share pooled records: who keeps it can tell it from any other.
struct RecordRead {
    boost::shared_ptr<const void> record{};  ///< empty where there is none
    std::size_t bytes = 0;                   ///< of its class, without what it holds elsewhere
};

/// The rates that one record of an answer holds. The same shape for every family, so that whoever shows answers knows
/// no family.
struct FeeLine {
    std::string part;   ///< a standalone::RateFamily
    std::string item;   ///< key of the option's fee item, hedge flag of the margin; else empty
    std::string label;  ///< what a person calls the item
    Origin origin;
    /// Empty when it is not set; otherwise the same rates in the same order for every line of the part.
    std::vector<TitledRates> rates;
    RecordRead read{};
};

/// The fee of one instrument for one account, as a fee center answered it.
struct Answer {
    boost::shared_ptr<qmservice::CAccountInfo> account;
    boost::shared_ptr<qmservice::CInstrument> instrument;
    std::vector<FeeLine> lines;
};

/// The rates that every line of a part has, all 0: what FeeLine::rates may hold, before there is an answer.
std::vector<TitledRates> zeroRates(const std::string& part, const standalone::Market& market);

/// The answer in that shape. `dyed` is the tracer's answer to the same question; neither may be empty.
Answer makeAnswer(const qmservice::CInstrumentFee& fee, const qmservice::CInstrumentFee& dyed, const Tracer& tracer,
                  const standalone::Market& market);

}  // namespace feedesk

#endif  // FEEDESK_ANSWERS_ANSWER_H
