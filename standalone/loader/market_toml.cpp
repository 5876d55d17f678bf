#include "standalone/loader/market_toml.h"

#include <algorithm>
#include <limits>
#include <unordered_map>

#include "standalone/loader/rate_names.h"
#include "standalone/loader/text_file.h"
#include "standalone/loader/toml_nesting.h"
#include "standalone/loader/toml_section.h"
#include "standalone/text/escape.h"
#include "standalone/text/wording.h"

namespace standalone::loader {
namespace {

using TomlNeed = TomlSection::Need;

const std::string kFile = "market.toml";
constexpr int kFormat = 1;
constexpr int kMostThreads = 64;
constexpr int kLowest = std::numeric_limits<int>::min();
constexpr int kHighest = std::numeric_limits<int>::max();

void readEngine(Load& load, TomlSection& root) {
    const toml::table* table = root.readTable("engine", TomlNeed::kOptional);
    if (table == nullptr) return;
    TomlSection engine(*table, "engine", kFile, load.errors);
    engine.readInteger("threads", TomlNeed::kOptional, 1, kMostThreads, load.market.engineThreads);
    engine.refuseOtherKeys();
}

void readPlatforms(Load& load, TomlSection& root) {
    const toml::table* table = root.readTable("platforms", TomlNeed::kOptional);
    if (table == nullptr) return;
    TomlSection platforms(*table, "platforms", kFile, load.errors);
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
                       "holds HGT or SGT, the names of the connect channels, and could not be asked for; rename it");
    }
    load.markets.known.emplace(name, load.market.markets.size());
    load.marketNames.push_back(name);
    MarketPlace& place = load.market.markets.emplace_back();
    place.market = name;
    const toml::table* table = markets.readTable(name, TomlNeed::kNeeded);
    if (table == nullptr) return;
    TomlSection section(*table, "markets." + name, kFile, load.errors);
    section.readText("title", TomlNeed::kNeeded, place.title);
    section.readInteger("trade_unit", TomlNeed::kNeeded, 1, kHighest, place.tradeUnit);
    section.readFlag("foreign", TomlNeed::kOptional, place.foreign);
    section.refuseOtherKeys();
}

void readMarkets(Load& load, TomlSection& root) {
    const toml::table* table = root.readTable("markets", TomlNeed::kNeeded);
    load.markets.complete = table != nullptr && !table->empty();
    if (table == nullptr) return;
    TomlSection markets(*table, "markets", kFile, load.errors);
    for (const std::string& name : markets.keys()) readMarket(load, markets, name);
    if (table->empty())
        root.refuse(ErrorKind::kMissingKey, "markets", "has no market, but at least one was expected; add one");
}

bool isColumnName(const std::string& name) {
    return std::all_of(name.begin(), name.end(), [](char byte) {
        return (byte >= 'a' && byte <= 'z') || (byte >= '0' && byte <= '9') || byte == '_';
    });
}

void readUnit(TomlSection& section, RateUnit& unit) {
    std::string word = "fraction";
    section.readText("unit", TomlNeed::kOptional, word);
    if (word == "yuan") {
        unit = RateUnit::kYuan;
    } else if (word != "fraction") {
        section.refuse(ErrorKind::kKeyValue, "unit",
                       "holds " + inQuotes(word) + ", but fraction or yuan was expected" +
                           mendByOneOf(word, {"fraction", "yuan"}));
    }
}

void readColumn(TomlSection& section, std::string& column) {
    section.readText("column", TomlNeed::kOptional, column);
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

bool readRate(Load& load, const toml::table& table, const std::string& name, RateName& rate) {
    TomlSection section(table, name, kFile, load.errors);
    readColumn(section, rate.column);
    rate.title = rate.column;
    section.readText("title", TomlNeed::kOptional, rate.title);
    readUnit(section, rate.unit);
    section.refuseOtherKeys();
    return section.good();
}

void refuseSharedColumns(TomlSection& family, const std::vector<RateName>& rates) {
    std::unordered_map<std::string, std::string> fields;
    for (const RateName& rate : rates) {
        const auto [first, isNew] = fields.emplace(rate.column, rate.field);
        if (isNew) continue;
        family.refuse(
            ErrorKind::kKeyValue, rate.field,
            "has the column " + inQuotes(rate.column) + ", which " + first->second + " has already; choose another");
    }
}

void readFamily(Load& load, TomlSection& families, const std::string& name) {
    std::vector<RateName>& rates = load.market.rateNames[name] = ownRateNames(name);
    const toml::table* table = families.readTable(name, TomlNeed::kOptional);
    if (table == nullptr) return;
    TomlSection family(*table, "rates." + name, kFile, load.errors);
    bool good = true;
    for (RateName& rate : rates) {
        const toml::table* entry = family.readTable(rate.field, TomlNeed::kOptional);
        if (entry == nullptr) continue;
        if (!readRate(load, *entry, "rates." + name + "." + rate.field, rate)) good = false;
    }
    family.refuseOtherKeys();
    refuseSharedColumns(family, rates);
    load.ratesComplete = load.ratesComplete && good && family.good();
}

void readRates(Load& load, TomlSection& root) {
    static const toml::table nothing;
    const toml::table* table = root.readTable("rates", TomlNeed::kOptional);
    TomlSection families(table == nullptr ? nothing : *table, "rates", kFile, load.errors);
    for (const std::string& name : namedFamilies()) readFamily(load, families, name);
    families.refuseOtherKeys();
    load.ratesComplete = load.ratesComplete && families.good();
}

void readRoot(Load& load, const toml::table& table) {
    TomlSection root(table, "", kFile, load.errors);
    int format = kFormat;
    root.readInteger("format", TomlNeed::kNeeded, kFormat, kFormat, format);
    root.readText("title", TomlNeed::kNeeded, load.market.title);
    readEngine(load, root);
    readPlatforms(load, root);
    readMarkets(load, root);
    readRates(load, root);
    root.refuseOtherKeys();
    load.ratesComplete = load.ratesComplete && root.good();  // a misspelt key may be the one of the rates
}

void giveUp(Load& load) {
    load.markets.complete = false;
    load.ratesComplete = false;
    for (const std::string& family : namedFamilies()) load.market.rateNames[family] = ownRateNames(family);
}

/// The description begins with what the parser was doing; it ends without a stop, as the other messages do.
std::string described(const toml::parse_error& error) {
    std::string text = "the file is not valid TOML: " + std::string(error.description());
    while (text.back() == '.' || text.back() == '\n') text.pop_back();
    return text + "; mend the line";
}

}  // namespace

void readMarketToml(Load& load) {
    if (!load.hasFile(kFile)) return giveUp(load);
    load.addFile(kFile);
    const std::optional<std::string> text = readText(load.folder / kFile, kFile, load.errors);
    if (!text) return giveUp(load);
    if (const std::optional<std::size_t> line = lineNestedTooDeep(*text)) {
        load.errors.add({kFile, *line}, ErrorKind::kNesting,
                        "keys, lists and inline tables lie in one another more than " + std::to_string(kMostLevels) +
                            " levels deep, but the format has no more than 5; take the inner ones out");
        return giveUp(load);
    }
    try {
        readRoot(load, toml::parse(*text));
    } catch (const toml::parse_error& error) {
        load.errors.add({kFile, error.source().begin.line}, ErrorKind::kToml, described(error));
        giveUp(load);
    }
}

}  // namespace standalone::loader
