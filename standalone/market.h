#ifndef STANDALONE_MARKET_H
#define STANDALONE_MARKET_H

#include <boost/shared_ptr.hpp>
#include <cstdint>
#include <map>
#include <string>
#include <tuple>
#include <vector>

#include "host/catalogue.h"
#include "host/records.h"

namespace standalone {

/// A line of a market folder: an index into Market::files and a line number from 1; line 0 is the file as a whole.
struct Position {
    std::uint32_t file = 0;  ///< index into Market::files
    std::uint32_t line = 0;  ///< from 1; 0 is the file as a whole

    /// @{
    /// By file, then by line.
    friend bool operator==(Position a, Position b) { return a.file == b.file && a.line == b.line; }
    friend bool operator<(Position a, Position b) { return std::tie(a.file, a.line) < std::tie(b.file, b.line); }
    /// @}
};

/// A market, such as an exchange.
struct MarketPlace {
    std::string market;    ///< the market string of the records
    std::string title;     ///< what a person reads
    int tradeUnit = 0;     ///< of instruments that name none
    int quantityStep = 0;  ///< the same
    bool foreign = false;  ///< a foreign futures market
};

/// An instrument of the catalogue.
struct ListedInstrument {
    boost::shared_ptr<qmservice::CInstrument> record;  ///< never empty
    int listMask = 0;                                  ///< the lists it is in, bits of qmservice::InstrumentList
    int types = 0;                                     ///< the types it is of, bits of qmservice::InstrumentType
    int tradeUnit = 0;                                 ///< the least quantity of a purchase
    int quantityStep = 0;  ///< by which purchases above that grow; 0: by the trade unit. No record knows it, costs do
    Position position;     ///< its line
};

/// One fee record as the back end would send it.
struct FeeRecord {
    boost::shared_ptr<qmservice::CInstrumentFee> record;  ///< never empty
    Position position;              ///< futures: of the commission, or of the first margin when there is none
    std::vector<Position> margins;  ///< where each of the record's margin details is
};

/// One custom fee. `entries` says where each entry of the record's lists is; for futures first the commission
/// details, then the margin details.
struct CustomFee {
    boost::shared_ptr<qmservice::IData>
        record;                     ///< never empty; of a class that updateCustomFee takes for the account's kind
    std::vector<Position> entries;  ///< where each entry of the record's lists is
};

/// An account with what is handed to a fee center for it.
struct Account {
    boost::shared_ptr<qmservice::CAccountInfo> record;  ///< never empty
    std::vector<FeeRecord> fees;                        ///< in the order in which they are handed to initFees
    std::vector<CustomFee> customFees;                  ///< in the order in which they are handed to updateCustomFee
    Position position;                                  ///< its line
};

/// A limit that the configuration gives for one instrument.
template <class Limit>
struct ConfiguredLimit {
    std::string market;              ///< the instrument's
    std::string code;                ///< the instrument's
    boost::shared_ptr<Limit> limit;  ///< never empty
    Position position;               ///< its line
};

/// One line of a system category; an empty text means any.
struct CategoryRule {
    int category = 0;     ///< its number
    std::string name;     ///< its name; empty: its number as text
    std::string market;   ///< of the instruments
    std::string code;     ///< may hold '*'
    std::string product;  ///< product or board of the instruments
    Position position;    ///< its line

    /// Whether the rule holds an instrument.
    [[nodiscard]] bool takesIn(const std::string& itsMarket, const std::string& itsCode,
                               const std::string& itsProduct) const;
};

/// One instrument of a custom category.
struct CategoryMember {
    int category = 0;    ///< number of the category
    std::string market;  ///< the instrument's
    std::string code;    ///< the instrument's
    Position position;   ///< its line
};

/// One part of a group category.
struct GroupPart {
    int group = 0;          ///< number of the group
    int category = 0;       ///< a custom category, else a system category
    bool excluded = false;  ///< the category is left out of the group
    Position position;      ///< its line
};

/// What a rate is a number of: parts of the turnover, or money.
enum class RateUnit { kFraction, kYuan };

/// What one rate field of a family's record means.
struct NamedRate {
    std::string field;                    ///< the record's field, such as "rate1"
    std::string column;                   ///< column of the tables
    std::string title;                    ///< what a person reads
    RateUnit unit = RateUnit::kFraction;  ///< what its number is of
};

/// Everything that a market folder holds, as records ready for a host and a fee center. Immutable once loaded.
struct Market {
    std::string folder;                    ///< its path as it was given
    std::string title;                     ///< what a person reads
    int engineThreads = 2;                 ///< how many threads the engine is to have
    std::vector<std::string> files;        ///< relative to the folder
    std::vector<MarketPlace> markets;      ///< in the order of market.toml
    std::vector<int> simulationPlatforms;  ///< platforms that simulate trading
    /// @{
    /// In the order of their lines.
    std::vector<ListedInstrument> instruments;
    std::vector<Account> accounts;
    std::vector<ConfiguredLimit<qmservice::CStkExchangeRateLimit>> stockLimits;
    std::vector<ConfiguredLimit<qmservice::CCustomHGTExchangeRateLimit>> hgtLimits;
    std::vector<ConfiguredLimit<qmservice::CCustomSgtExchangeRateLimit>> sgtLimits;
    std::vector<CategoryRule> categories;
    std::vector<CategoryMember> customCategories;
    std::vector<GroupPart> groupCategories;
    /// @}
    /// By family ("stock", "credit", "neeq", "hgt", "sgt", "option"): every rate field of the family in field order.
    std::map<std::string, std::vector<NamedRate>> rateNames;

    /// "fees/stock.csv:12".
    [[nodiscard]] std::string where(Position position) const;
};

}  // namespace standalone

#endif  // STANDALONE_MARKET_H
