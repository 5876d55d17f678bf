#include <fmt/format.h>

#include <boost/make_shared.hpp>

#include "standalone/loader/first_lines.h"
#include "standalone/loader/rate_records.h"
#include "standalone/loader/rule_line.h"
#include "standalone/loader/tables.h"
#include "standalone/text/escape.h"

namespace standalone::loader {
namespace {

/// Whether no line before gave a limit to the instrument; reported when one did.
bool isFirst(Load& load, const std::string& file, const ReadRule& read, std::size_t place,
             FirstLines<std::size_t>& lines) {
    const std::optional<Position> before = lines.before(place, read.position);
    if (!before) return true;
    load.errors.add({file, read.position.line, "code"}, ErrorKind::kRepeated, [&] {
        return fmt::format("the instrument {} {} has a line already at {}; remove one of them", read.line.market,
                           inQuotes(read.line.code), load.market.where(*before));
    });
    return false;
}

template <class Records>
void addLimit(Load& load, const ReadRule& read, std::size_t place) {
    const auto limit = boost::make_shared<typename Records::Limit>();
    setRates(*limit, Records::kRates, read.line);
    (*limit).*Records::kUnit =
        read.line.unitVolume != 0 ? read.line.unitVolume : load.market.instruments[place].tradeUnit;
    (load.market.*Records::kConfigured).push_back({read.line.market, read.line.code, limit, read.position});
}

/// The columns beside the rates; a stock limit may have a trade unit of its own.
std::vector<RuleColumn> keyColumns(const Load& load, const Family& family) {
    std::vector<RuleColumn> keys{marketColumn(load, ColumnNeed::kFilled), codeColumn(ColumnNeed::kFilled)};
    if (family.records == RateRecords::kStock) {
        keys.push_back(numberColumn("unit_volume", &RuleLine::unitVolume, ColumnNeed::kOptional));
    }
    return keys;
}

template <class Records>
void readLimits(Load& load, const Family& family) {
    const std::string file = family.configuredTable();
    FirstLines<std::size_t> lines;
    readRateTable(load, file, family, keyColumns(load, family), [&](const ReadRule& read) {
        const std::optional<std::size_t> place = findInstrument(load, file, read);
        if (place && isFirst(load, file, read, *place, lines) && read.whole) addLimit<Records>(load, read, *place);
    });
}

}  // namespace

void readConfiguredLimits(Load& load) {
    for (const Family& family : families()) {
        if (!family.isConfigured) continue;
        visitRecords(family.records, [&](auto records) {
            if constexpr (decltype(records)::kHasLimit) readLimits<decltype(records)>(load, family);
        });
    }
}

}  // namespace standalone::loader
