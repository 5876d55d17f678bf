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
    std::uint32_t file = 0;
    std::uint32_t line = 0;

    friend bool operator==(Position a, Position b) { return a.file == b.file && a.line == b.line; }
    friend bool operator<(Position a, Position b) { return std::tie(a.file, a.line) < std::tie(b.file, b.line); }
};

struct MarketPlace {
    std::string market;  ///< the market string of the records
    std::string title;
    int tradeUnit = 0;     ///< of instruments that name none
    int quantityStep = 0;  ///< the same
    bool foreign = false;
};

struct ListedInstrument {
    boost::shared_ptr<qmservice::CInstrument> record;
    int listMask = 0;      ///< the lists it is in, bits of qmservice::InstrumentList
    int types = 0;         ///< the types it is of, bits of qmservice::InstrumentType
    int tradeUnit = 0;     ///< the least quantity of a purchase
    int quantityStep = 0;  ///< by which purchases above that grow; 0: by the trade unit. No record knows it, costs do
    Position position;
};

/// One fee record as the back end would send it.
struct FeeRecord {
    boost::shared_ptr<qmservice::CInstrumentFee> record;
    Position position;              ///< futures: of the commission, or of the first margin when there is none
    std::vector<Position> margins;  ///< where each of the record's margin details is
};

/// One custom fee. `entries` says where each entry of the record's lists is; for futures first the commission
/// details, then the margin details.
struct CustomFee {
    boost::shared_ptr<qmservice::IData> record;
    std::vector<Position> entries;
};

struct Account {
    boost::shared_ptr<qmservice::CAccountInfo> record;
    std::vector<FeeRecord> fees;        ///< in the order in which they are handed to initFees
    std::vector<CustomFee> customFees;  ///< in the order in which they are handed to updateCustomFee
    Position position;
};

template <class Limit>
struct ConfiguredLimit {
    std::string market;
    std::string code;
    boost::shared_ptr<Limit> limit;
    Position position;
};

/// One line of a system category; an empty text means any.
struct CategoryRule {
    int category = 0;
    std::string name;
    std::string market;
    std::string code;  ///< may hold '*'
    std::string product;
    Position position;

    [[nodiscard]] bool takesIn(const std::string& itsMarket, const std::string& itsCode,
                               const std::string& itsProduct) const;
};

/// One instrument of a custom category.
struct CategoryMember {
    int category = 0;
    std::string market;
    std::string code;
    Position position;
};

/// One part of a group category.
struct GroupPart {
    int group = 0;
    int category = 0;  ///< a custom category, else a system category
    bool excluded = false;
    Position position;
};

enum class RateUnit { kFraction, kYuan };

/// What one rate field of a family's record means.
struct NamedRate {
    std::string field;   ///< the record's field, such as "rate1"
    std::string column;  ///< column of the tables
    std::string title;   ///< what a person reads
    RateUnit unit = RateUnit::kFraction;
};

/// Everything that a market folder holds, as records ready for a host and a fee center. Immutable once loaded.
struct Market {
    std::string folder;
    std::string title;
    int engineThreads = 2;
    std::vector<std::string> files;  ///< relative to the folder
    std::vector<MarketPlace> markets;
    std::vector<int> simulationPlatforms;
    std::vector<ListedInstrument> instruments;
    std::vector<Account> accounts;
    std::vector<ConfiguredLimit<qmservice::CStkExchangeRateLimit>> stockLimits;
    std::vector<ConfiguredLimit<qmservice::CCustomHGTExchangeRateLimit>> hgtLimits;
    std::vector<ConfiguredLimit<qmservice::CCustomSgtExchangeRateLimit>> sgtLimits;
    std::vector<CategoryRule> categories;
    std::vector<CategoryMember> customCategories;
    std::vector<GroupPart> groupCategories;
    /// By family ("stock", "credit", "neeq", "hgt", "sgt", "option"): every rate field of the family in field order.
    std::map<std::string, std::vector<NamedRate>> rateNames;

    /// "fees/stock.csv:12".
    [[nodiscard]] std::string where(Position position) const;
};

}  // namespace standalone

#endif  // STANDALONE_MARKET_H
