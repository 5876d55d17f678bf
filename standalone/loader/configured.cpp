#include <boost/make_shared.hpp>
#include <limits>
#include <map>

#include "standalone/loader/rate_members.h"
#include "standalone/loader/rule_line.h"
#include "standalone/loader/tables.h"
#include "standalone/text/escape.h"

namespace standalone::loader {
namespace {

using qmservice::CCustomHGTExchangeRateLimit;
using qmservice::CCustomSgtExchangeRateLimit;
using qmservice::CStkExchangeRateLimit;

/// What is particular to the configured limits of one family; `unit` is where the record keeps the trade unit.
template <class Limit, std::size_t count>
struct LimitFamily {
    const char* name;
    const RateMembers<Limit, count>& rates;
    std::int32_t Limit::*unit;
    std::vector<ConfiguredLimit<Limit>> Market::*limits;
    std::vector<RuleColumn> ownColumns;
};

/// The lines that have set a limit already, by instrument.
using FirstByPlace = std::map<std::size_t, Position>;

bool isFirst(Load& load, const std::string& file, const ReadRule& read, std::size_t place, FirstByPlace& lines) {
    const auto [first, isNew] = lines.emplace(place, read.position);
    if (isNew) return true;
    load.errors.add({file, read.position.line, "code"}, ErrorKind::kRepeated, [&, at = first->second] {
        return "the instrument " + read.line.market + " " + inQuotes(read.line.code) + " has a line already at " +
               load.market.where(at) + "; remove one of them";
    });
    return false;
}

template <class Limit, std::size_t count>
void addLimit(Load& load, const LimitFamily<Limit, count>& family, const ReadRule& read, std::size_t place) {
    const auto limit = boost::make_shared<Limit>();
    setRates(*limit, family.rates, read.line);
    (*limit).*family.unit = read.line.unitVolume != 0 ? read.line.unitVolume : load.market.instruments[place].tradeUnit;
    (load.market.*family.limits).push_back({read.line.market, read.line.code, limit, read.position});
}

template <class Limit, std::size_t count>
void readFamily(Load& load, const LimitFamily<Limit, count>& family) {
    const std::string file = "configured/" + std::string(family.name) + ".csv";
    if (!load.hasFile(file)) return;
    const std::vector<RuleColumn> keys =
        joined({marketColumn(load, Need::kFilled), codeColumn(Need::kFilled)}, family.ownColumns);
    FirstByPlace lines;
    readTable<RuleLine>(
        load, file, joined(keys, namedRates(load, family.name)),
        [&](const ReadRule& read) {
            const std::optional<std::size_t> place = findInstrument(load, file, read);
            if (place && isFirst(load, file, read, *place, lines) && read.whole) addLimit(load, family, read, *place);
        },
        load.ratesComplete);
}

}  // namespace

void readConfiguredLimits(Load& load) {
    readFamily(load, LimitFamily<CStkExchangeRateLimit, 6>{
                         "stock",
                         kStockRates<CStkExchangeRateLimit>,
                         &CStkExchangeRateLimit::unitVolume,
                         &Market::stockLimits,
                         {numberColumn("unit_volume", &RuleLine::unitVolume, Need::kOptional)}});
    readFamily(load, LimitFamily<CCustomHGTExchangeRateLimit, 14>{"hgt",
                                                                  kConnectRates<CCustomHGTExchangeRateLimit>,
                                                                  &CCustomHGTExchangeRateLimit::tradeMinUnit,
                                                                  &Market::hgtLimits,
                                                                  {}});
    readFamily(load, LimitFamily<CCustomSgtExchangeRateLimit, 14>{"sgt",
                                                                  kConnectRates<CCustomSgtExchangeRateLimit>,
                                                                  &CCustomSgtExchangeRateLimit::tradeMinUnit,
                                                                  &Market::sgtLimits,
                                                                  {}});
}

}  // namespace standalone::loader
