#include <fmt/format.h>

#include "standalone/loader/first_lines.h"
#include "standalone/loader/rule_line.h"
#include "standalone/loader/tables.h"
#include "standalone/text/escape.h"

namespace standalone::loader {
namespace {

/// Whether no line before gave a limit to the instrument on one of the days; reported when one did.
bool isFirst(Load& load, const std::string& file, const ReadRule& read, std::size_t place,
             FirstLines<std::size_t>& lines) {
    const cost::DateRange& days = read.line.days;
    const std::optional<Position> before = lines.before(place, read.position, days);
    if (!before) {
        return true;
    }
    load.errors.add({file, read.position.line, "code"}, ErrorKind::kRepeated, [&] {
        const std::string first = fmt::format("the instrument {} {} has a line already at {}", read.line.market,
                                              inQuotes(read.line.code), load.market.where(*before));
        return days.from || days.until
                   ? fmt::format("{}, and some of its days are {} too; remove one of them or part their days", first,
                                 days.text())
                   : first + "; remove one of them or give each its own days in from and until";
    });
    return false;
}

/// The columns besides the rates; a stock limit may have a trade unit of its own.
std::vector<RuleColumn> configuredTableColumns(const Load& load, const RateFamily& family) {
    std::vector<RuleColumn> keys{marketColumn(load, ColumnNeed::kFilled), codeColumn(ColumnNeed::kFilled)};
    if (family.records == RateRecords::kStock) {
        keys.push_back(numberColumn("unit_volume", &RuleLine::unitVolume, ColumnNeed::kOptional));
    }
    return keys;
}

void readLimits(Load& load, const RateFamily& family) {
    const std::string file = family.configuredTable();
    FirstLines<std::size_t> lines;
    readRateTable(load, file, family, configuredTableColumns(load, family), [&](const ReadRule& read) {
        const std::optional<std::size_t> place = findInstrument(load, file, read);
        if (place && isFirst(load, file, read, *place, lines) && read.whole) {
            load.configuredLines.push_back({load.contents.kept(family, read.line, read.position), *place});
        }
    });
}

}  // namespace

void readConfiguredLimits(Load& load) {
    for (const RateFamily& family : rateFamilies()) {
        if (family.isConfigured) {
            readLimits(load, family);
        }
    }
}

}  // namespace standalone::loader
