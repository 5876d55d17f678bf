#include "standalone/loader/coverage_toml.h"

#include <fmt/format.h>

#include "standalone/market_files.h"
#include "standalone/text/wording.h"

namespace standalone::loader {
namespace {

using KeyNeed = TomlSection::KeyNeed;

/// The keys `from` and `until` of a table; what is absent stays as it was.
void readRange(TomlSection& section, cost::DateRange& days) {
    section.readDay("from", KeyNeed::kOptional, days.from);
    section.readDay("until", KeyNeed::kOptional, days.until);
}

/// Days that end before they begin are every day for whoever is compared with them: the error has been reported.
void refuseEmptyRange(TomlSection& section, cost::DateRange& days) {
    if (!days.from || !days.until || *days.from <= *days.until) {
        return;
    }
    section.refuse(ErrorKind::kDays, "until",
                   fmt::format("holds {}, but a day not before {} was expected; correct one of them",
                               days.until->text(), days.from->text()));
    days = {};
}

/// The days of one family or market, which lie within those of the folder.
void readNarrowerDays(Load& load, const toml::table& table, const std::string& name, cost::DateRange& days) {
    const cost::DateRange folderDays = days;
    TomlSection section(table, "coverage." + name, files::kMarket, load.errors);
    readRange(section, days);
    section.refuseOtherKeys();
    refuseEmptyRange(section, days);
    const auto refuseWider = [&](const char* key, const std::optional<cost::Date>& day) {
        if (!day || folderDays.contains(*day)) {
            return;
        }
        section.refuse(ErrorKind::kDays, key,
                       fmt::format("holds {}, but the folder is covered {}, and these days lie within; correct one "
                                   "of them",
                                   day->text(), folderDays.text()));
    };
    refuseWider("from", days.from);
    refuseWider("until", days.until);
}

void readMarketCoverage(Load& load, TomlSection& coverage) {
    const toml::table* table = coverage.readTable("markets", KeyNeed::kOptional);
    if (table == nullptr) {
        return;
    }
    TomlSection markets(*table, "coverage.markets", files::kMarket, load.errors);
    for (const std::string& name : markets.keys()) {
        if (const toml::table* narrower = markets.readTable(name, KeyNeed::kNeeded)) {
            cost::DateRange& days = load.coverage.marketDays[name] = load.coverage.days;
            readNarrowerDays(load, *narrower, "markets." + name, days);
        }
        if (load.markets.complete && load.markets.known.count(name) == 0) {
            markets.refuse(ErrorKind::kKeyValue, name,
                           "is not a market of this file" + adviseOneOf(name, load.marketNames));
        }
    }
}

void readCoverage(Load& load, const toml::table& table) {
    Coverage& known = load.coverage;
    TomlSection coverage(table, "coverage", files::kMarket, load.errors);
    readRange(coverage, known.days);
    refuseEmptyRange(coverage, known.days);
    for (std::size_t i = 0; i < known.familyDays.size(); ++i) {
        const std::string family(cost::wordFor(static_cast<cost::Family>(i)));
        known.familyDays[i] = known.days;
        const toml::table* narrower = coverage.readTable(family, KeyNeed::kOptional);
        if (narrower != nullptr) {
            readNarrowerDays(load, *narrower, family, known.familyDays[i]);
        }
    }
    readMarketCoverage(load, coverage);
    coverage.refuseOtherKeys();
}

}  // namespace

void readDays(Load& load, TomlSection& root) {
    root.readDay("as_of", KeyNeed::kOptional, load.asOf);
    const toml::table* table = root.readTable("coverage", KeyNeed::kOptional);
    if (table == nullptr) {
        return;
    }
    readCoverage(load, *table);
    if (load.asOf && !load.coverage.days.contains(*load.asOf)) {
        root.refuse(ErrorKind::kDays, "as_of",
                    fmt::format("holds {}, but the folder is covered {}; correct one of them", load.asOf->text(),
                                load.coverage.days.text()));
    }
}

}  // namespace standalone::loader
