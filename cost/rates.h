#ifndef COST_RATES_H
#define COST_RATES_H

#include <array>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "cost/decimal.h"
#include "cost/side.h"
#include "host/records.h"

namespace cost {

/// One rate of an answer. Who asked for the answer and knows where it comes from fills level and source; the library
/// hands them on.
struct Rate {
    std::string charge;  ///< its name, which a term's `charge` is looked up by
    std::string item;    ///< options: key of the fee item that holds it; else empty
    Decimal value;       ///< a plain number: a fraction of turnover, or money, as its term says
    std::string level;   ///< the level that answered, as the asker calls it
    std::string source;  ///< where it comes from, likewise
};

/// The margin rates of a futures answer for one hedge flag.
struct MarginRate {
    char hedgeFlag = qmservice::kSpeculation;  ///< a qmservice::HedgeFlag
    Decimal longByMoney;                       ///< fraction of the value
    Decimal longByVolume;                      ///< money per lot
    Decimal shortByMoney;                      ///< fraction of the value
    Decimal shortByVolume;                     ///< money per lot
    std::string level;                         ///< as in Rate
    std::string source;                        ///< as in Rate
};

/// All rates of one answer, those of 0 too.
struct Rates {
    std::vector<Rate> charges;        ///< in the order of the record
    std::vector<MarginRate> margins;  ///< futures: one for each hedge flag that the answer has
};

/// What a host calls one rate field of its records, such as "rate1" or "fee3".
struct RateName {
    std::string field;   ///< the record's field
    std::string charge;  ///< what terms call it
};
/// A field that is not named is called as the field itself. Futures' rates are always called as follows.
using RateNames = std::map<Family, std::vector<RateName>>;

/// What the rates of records::commissionRates are called, in their order.
inline constexpr std::array<const char*, 8> kCommissionNames = {
    "open_by_money",        "open_by_volume",        "close_by_money",    "close_by_volume",
    "close_today_by_money", "close_today_by_volume", "commission_extra1", "commission_extra2"};
/// The same for records::marginRatios.
inline constexpr std::array<const char*, 4> kMarginNames = {"long_by_money", "long_by_volume", "short_by_money",
                                                            "short_by_volume"};

/// Whose rates the answer's stkRateLimit holds: those of the account's kind; of a kind that trades everything those of
/// NEEQ or of stocks, as the instrument's market is.
Family stockFamilyOf(const qmservice::CInstrumentFee& answer);

/// Whose rates the answer holds. Empty when it holds none, or those of several families at once, as the default answer
/// of a prime-brokerage account does.
std::optional<Family> familyOf(const qmservice::CInstrumentFee& answer);

/// The same of an answer that is to be charged. Throws Refused, with the families that it has, when it is not one.
Family chargedFamilyOf(const qmservice::CInstrumentFee& answer);

/// The answer's rates in the order of the record's fields (options: by item key). Throws Refused as
/// chargedFamilyOf() does, and when a rate is no number that can be charged.
Rates ratesOf(const qmservice::CInstrumentFee& answer, const RateNames& names);

}  // namespace cost

#endif  // COST_RATES_H
