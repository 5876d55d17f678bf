#include <fmt/format.h>

#include <algorithm>
#include <filesystem>

#include "feedesk/failure.h"
#include "feedesk/statements/layout.h"
#include "feedesk/statements/written_values.h"
#include "feedesk/text/text.h"
#include "standalone/loader/error_log.h"
#include "standalone/loader/text_file.h"
#include "standalone/loader/toml_nesting.h"
#include "standalone/loader/toml_section.h"
#include "standalone/text/escape.h"
#include "standalone/text/wording.h"

namespace feedesk {
namespace {

using standalone::ErrorKind;
using standalone::loader::ErrorLog;
using standalone::loader::TomlSection;
using KeyNeed = TomlSection::KeyNeed;

constexpr int kFormat = 1;
constexpr int kMostDigits = 20;
/// In [operations]: what is no trade.
constexpr const char* kNoTrade = "no_trade";
/// For the charges of a column: those that no other column has.
constexpr const char* kRest = "rest";

/// Reads the tables of one file. What is wrong goes into the log.
class LayoutReader {
public:
    LayoutReader(const std::string& layoutFile, ErrorLog& log) : file(layoutFile), errors(log) {}

    Layout read(const toml::table& table) {
        TomlSection root(table, "", file, errors);
        int format = 0;
        root.readInteger("format", KeyNeed::kNeeded, kFormat, kFormat, format);
        root.readText("title", KeyNeed::kNeeded, layout.title);
        int digits = 0;
        root.readInteger("code_digits", KeyNeed::kOptional, 1, kMostDigits, digits);
        layout.codeDigits = static_cast<std::size_t>(digits);
        root.readTexts("footers", KeyNeed::kOptional, layout.footers);
        readFacts(root);
        readOperations(root);
        readMarkets(root);
        readCharges(root);
        root.refuseOtherKeys();
        return layout;
    }

private:
    void readFacts(TomlSection& root) {
        const toml::table* table = root.readTable("columns", KeyNeed::kNeeded);
        if (table == nullptr) {
            return;
        }
        TomlSection columns(*table, "columns", file, errors);
        for (std::size_t i = 0; i < kTradeFacts; ++i) {
            const auto fact = static_cast<TradeFact>(i);
            const bool isNeeded = std::find(kNeededFacts.begin(), kNeededFacts.end(), fact) != kNeededFacts.end();
            columns.readTexts(cost::wordFor(fact), isNeeded ? KeyNeed::kNeeded : KeyNeed::kOptional, layout.facts[i]);
        }
        columns.refuseOtherKeys();
    }

    void readOperations(TomlSection& root) {
        const toml::table* table = root.readTable("operations", KeyNeed::kNeeded);
        if (table == nullptr) {
            return;
        }
        TomlSection operations(*table, "operations", file, errors);
        const auto take = [&](std::string_view key, std::optional<cost::Side> side) {
            std::vector<std::string> words;
            operations.readTexts(key, KeyNeed::kOptional, words);
            for (const std::string& word : words) {
                if (!layout.operations.emplace(statedOperation(word), side).second) {
                    operations.refuse(ErrorKind::kRepeated, key,
                                      "holds " + echoed(word) + ", which has a meaning already; keep one of them");
                }
            }
        };
        for (std::size_t side = 0; side < cost::kSideCount; ++side) {
            take(cost::wordFor(cost::sideAt(side)), cost::sideAt(side));
        }
        take(kNoTrade, std::nullopt);
        operations.refuseOtherKeys();
    }

    void readMarkets(TomlSection& root) {
        const toml::table* table = root.readTable("markets", KeyNeed::kOptional);
        if (table == nullptr) {
            return;
        }
        TomlSection markets(*table, "markets", file, errors);
        for (const std::string& market : markets.keys()) {
            std::vector<std::string> words;
            markets.readTexts(market, KeyNeed::kNeeded, words);
            for (const std::string& word : words) {
                layout.markets.emplace(word, market);
            }
        }
    }

    void readCharges(TomlSection& root) {
        const toml::table* table = root.readTable("charges", KeyNeed::kOptional);
        if (table == nullptr) {
            return;
        }
        TomlSection charges(*table, "charges", file, errors);
        for (const std::string& name : charges.keys()) {
            if (const toml::table* column = charges.readTable(name, KeyNeed::kNeeded)) {
                TomlSection section(*column, "charges." + name, file, errors);
                layout.charges.push_back(chargeIn(section, name));
            }
        }
    }

    static ChargeColumn chargeIn(TomlSection& section, const std::string& name) {
        ChargeColumn charge;
        charge.name = name;
        section.readTexts("column", KeyNeed::kNeeded, charge.titles);
        section.readTexts("charges", KeyNeed::kNeeded, charge.charges);
        section.readTexts("all_in", KeyNeed::kOptional, charge.allIn);
        std::string stated(cost::wordFor(Stated::kPaid));
        section.readText("stated", KeyNeed::kOptional, stated);
        const auto known = cost::fromWord<Stated>(stated);
        if (!known) {
            section.refuse(ErrorKind::kKeyValue, "stated",
                           fmt::format("holds {}, but one of {} was expected; correct it", echoed(stated),
                                       cost::allWords<Stated>()));
        }
        charge.stated = known.value_or(Stated::kPaid);
        if (charge.charges == std::vector<std::string>{kRest}) {
            charge.charges.clear();
        }
        section.refuseOtherKeys();
        return charge;
    }

    const std::string& file;
    ErrorLog& errors;
    Layout layout;
};

void refuseFirst(ErrorLog& errors) {
    standalone::LoadErrors found;
    errors.take(found);
    if (!found.errors.empty()) {
        const standalone::LoadError& first = found.errors.front();
        const std::string place = first.line == 0 ? first.file : fmt::format("{}:{}", first.file, first.line);
        throw Failure(kBadInput, fmt::format("{}: {}", place, first.message));
    }
}

std::string oneLine(std::string_view text) { return standalone::printable(text.substr(0, text.find('\n'))); }

toml::table parsed(const std::string& path, const std::string& text) {
    if (const auto line = standalone::loader::lineNestedTooDeep(text)) {
        throw Failure(kBadInput, fmt::format("{}:{}: tables and lists are nested too deep for a layout", path, *line));
    }
    try {
        return toml::parse(text);
    } catch (const toml::parse_error& error) {
        throw Failure(kBadInput, fmt::format("{}:{}: the file is not TOML: {}", path, error.source().begin.line,
                                             oneLine(error.description())));
    }
}

}  // namespace

Layout readLayout(const std::string& path) {
    ErrorLog errors;
    const auto text = standalone::loader::readText(path, path, errors);
    refuseFirst(errors);
    Layout layout = LayoutReader(path, errors).read(parsed(path, *text));
    refuseFirst(errors);
    layout.name = std::filesystem::path(path).stem().string();
    return layout;
}

}  // namespace feedesk
