#include "standalone/loader/market_toml.h"

#include <fmt/format.h>

#include <algorithm>
#include <limits>
#include <unordered_map>

#include "standalone/channels.h"
#include "standalone/families.h"
#include "standalone/loader/column_name.h"
#include "standalone/loader/coverage_toml.h"
#include "standalone/loader/text_file.h"
#include "standalone/loader/toml_nesting.h"
#include "standalone/loader/toml_section.h"
#include "standalone/market_files.h"
#include "standalone/text/escape.h"
#include "standalone/text/wording.h"

namespace standalone::loader {
namespace {

using KeyNeed = TomlSection::KeyNeed;

constexpr int kFormat = 1;
constexpr int kMostThreads = 64;
constexpr int kLowest = std::numeric_limits<int>::min();
constexpr int kHighest = std::numeric_limits<int>::max();

void readEngine(Load& load, TomlSection& root) {
    const toml::table* table = root.readTable("engine", KeyNeed::kOptional);
    if (table == nullptr) {
        return;
    }
    TomlSection engine(*table, "engine", files::kMarket, load.errors);
    engine.readInteger("threads", KeyNeed::kOptional, 1, kMostThreads, load.market.engineThreads);
    engine.refuseOtherKeys();
}

void readPlatforms(Load& load, TomlSection& root) {
    const toml::table* table = root.readTable("platforms", KeyNeed::kOptional);
    if (table == nullptr) {
        return;
    }
    TomlSection platforms(*table, "platforms", files::kMarket, load.errors);
    platforms.readIntegers("simulation", kLowest, kHighest, load.market.simulationPlatforms);
    platforms.refuseOtherKeys();
}

bool isMarketName(const std::string& name) {
    return !name.empty() && !hasBlank(name) && name.find_first_of(":*") == std::string::npos;
}

void readMarket(Load& load, TomlSection& markets, const std::string& name) {
    if (!isMarketName(name)) {
        markets.refuse(ErrorKind::kKeyValue, name,
                       "is not a market name, which has no spaces, no \":\" and no \"*\"; rename it");
    }
    if (namesChannel(name)) {
        markets.refuse(ErrorKind::kKeyValue, name,
                       fmt::format("holds {}, the names of the connect channels, and could not be asked for; rename it",
                                   fmt::join(kChannels, " or ")));
    }
    load.markets.known.emplace(name, load.market.markets.size());
    load.marketNames.push_back(name);
    MarketPlace& place = load.market.markets.emplace_back();
    place.market = name;
    const toml::table* table = markets.readTable(name, KeyNeed::kNeeded);
    if (table == nullptr) {
        return;
    }
    TomlSection section(*table, "markets." + name, files::kMarket, load.errors);
    section.readText("title", KeyNeed::kNeeded, place.title);
    section.readInteger("trade_unit", KeyNeed::kNeeded, 1, kHighest, place.tradeUnit);
    section.readInteger("quantity_step", KeyNeed::kOptional, 1, kHighest, place.quantityStep);
    section.readFlag("foreign", KeyNeed::kOptional, place.foreign);
    section.refuseOtherKeys();
}

void readMarkets(Load& load, TomlSection& root) {
    const toml::table* table = root.readTable("markets", KeyNeed::kNeeded);
    load.markets.complete = table != nullptr && !table->empty();
    if (table == nullptr) {
        return;
    }
    TomlSection markets(*table, "markets", files::kMarket, load.errors);
    for (const std::string& name : markets.keys()) {
        readMarket(load, markets, name);
    }
    if (table->empty()) {
        root.refuse(ErrorKind::kMissingKey, "markets", "has no market, but at least one was expected; add one");
    }
}

/// Whether the tables of rates, or the answers that show rates, use the name for a column of their own.
bool isFixedColumn(const std::string& name) {
    static const std::vector<std::string> fixed{"account",    "market",   "code",  "product",     "update", "category",
                                                "item",       "from",     "until", "unit_volume",  // of the tables
                                                "kind",       "name",     "part",  "level",       "source", "marks",
                                                "trade_unit", "base_rate"};  // of the answers
    return std::find(fixed.begin(), fixed.end(), name) != fixed.end();
}

void readUnit(TomlSection& section, RateUnit& unit) {
    std::string word = "fraction";
    section.readText("unit", KeyNeed::kOptional, word);
    if (word == "yuan") {
        unit = RateUnit::kYuan;
    } else if (word != "fraction") {
        section.refuse(ErrorKind::kKeyValue, "unit",
                       fmt::format("holds {}, but fraction or yuan was expected{}", inQuotes(word),
                                   adviseOneOf(word, {"fraction", "yuan"})));
    }
}

void readColumn(TomlSection& section, std::string& column) {
    section.readText("column", KeyNeed::kOptional, column);
    if (!isColumnName(column)) {
        section.refuse(
            ErrorKind::kKeyValue, "column",
            "holds " + inQuotes(column) + ", but lower-case letters, digits and _ were expected; correct it");
    } else if (isFixedColumn(column)) {
        section.refuse(
            ErrorKind::kKeyValue, "column",
            "holds " + inQuotes(column) + ", a name that the tables or the answers use already; choose another");
    }
}

bool readRate(Load& load, const toml::table& table, const std::string& name, NamedRate& rate) {
    TomlSection section(table, name, files::kMarket, load.errors);
    readColumn(section, rate.column);
    rate.title = rate.column;
    section.readText("title", KeyNeed::kOptional, rate.title);
    readUnit(section, rate.unit);
    section.refuseOtherKeys();
    return section.good();
}

void refuseSharedColumns(TomlSection& family, const std::vector<NamedRate>& rates) {
    std::unordered_map<std::string, std::string> fields;
    for (const NamedRate& rate : rates) {
        const auto [first, isNew] = fields.emplace(rate.column, rate.field);
        if (isNew) {
            continue;
        }
        family.refuse(ErrorKind::kKeyValue, rate.field,
                      fmt::format("has the column {}, which {} has already; choose another", inQuotes(rate.column),
                                  first->second));
    }
}

void readFamily(Load& load, TomlSection& named, const RateFamily& family) {
    const std::string name = family.name;
    std::vector<NamedRate>& rates = load.market.rateNames[name];
    const toml::table* table = named.readTable(name, KeyNeed::kOptional);
    if (table == nullptr) {
        return;
    }
    TomlSection section(*table, "rates." + name, files::kMarket, load.errors);
    bool good = true;
    for (NamedRate& rate : rates) {
        const toml::table* entry = section.readTable(rate.field, KeyNeed::kOptional);
        if (entry == nullptr) {
            continue;
        }
        if (!readRate(load, *entry, fmt::format("rates.{}.{}", name, rate.field), rate)) {
            good = false;
        }
    }
    section.refuseOtherKeys();
    refuseSharedColumns(section, rates);
    load.ratesComplete = load.ratesComplete && good && section.good();
}

void readRates(Load& load, TomlSection& root) {
    static const toml::table nothing;
    const toml::table* table = root.readTable("rates", KeyNeed::kOptional);
    TomlSection named(table == nullptr ? nothing : *table, "rates", files::kMarket, load.errors);
    for (const RateFamily& family : rateFamilies()) {
        if (family.isNamed) {
            readFamily(load, named, family);
        }
    }
    named.refuseOtherKeys();
    load.ratesComplete = load.ratesComplete && named.good();
}

void readRoot(Load& load, const toml::table& table) {
    TomlSection root(table, "", files::kMarket, load.errors);
    int format = kFormat;
    root.readInteger("format", KeyNeed::kNeeded, kFormat, kFormat, format);
    root.readText("title", KeyNeed::kNeeded, load.market.title);
    readEngine(load, root);
    readPlatforms(load, root);
    readMarkets(load, root);
    readRates(load, root);
    readDays(load, root);
    root.refuseOtherKeys();
    load.ratesComplete = load.ratesComplete && root.good();  // a misspelt key may be the one of the rates
}

void giveUp(Load& load) {
    load.markets.complete = false;
    load.ratesComplete = false;
}

/// Every rate that may be named, under the name that it has by itself.
void nameRates(Market& market) {
    for (const RateFamily& family : rateFamilies()) {
        if (!family.isNamed) {
            continue;
        }
        std::vector<NamedRate>& rates = market.rateNames[family.name];
        for (const RateField& rate : family.rates) {
            rates.push_back({rate.field, rate.column, rate.column, {}});
        }
    }
}

/// The description begins with what the parser was doing; it ends without a stop, as the other messages do.
std::string described(const toml::parse_error& error) {
    std::string text = "the file is not valid TOML: " + std::string(error.description());
    while (text.back() == '.' || text.back() == '\n') {
        text.pop_back();
    }
    return text + "; correct the line";
}

}  // namespace

void readMarketToml(Load& load) {
    nameRates(load.market);
    if (!load.hasFile(files::kMarket)) {
        return giveUp(load);
    }
    load.addFile(files::kMarket);
    const std::optional<std::string> text = readText(load.folder / files::kMarket, files::kMarket, load.errors);
    if (!text) {
        return giveUp(load);
    }
    if (const std::optional<std::size_t> line = lineNestedTooDeep(*text)) {
        load.errors.add({files::kMarket, *line}, ErrorKind::kNesting,
                        "keys, lists and inline tables lie in one another more than " + std::to_string(kMostLevels) +
                            " levels deep, but the format has no more than 5; take the inner ones out");
        return giveUp(load);
    }
    try {
        readRoot(load, toml::parse(*text));
    } catch (const toml::parse_error& error) {
        load.errors.add({files::kMarket, error.source().begin.line}, ErrorKind::kToml, described(error));
        giveUp(load);
    }
}

}  // namespace standalone::loader
