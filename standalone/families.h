#ifndef STANDALONE_FAMILIES_H
#define STANDALONE_FAMILIES_H

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cost/side.h"
#include "host/instrument.h"
#include "standalone/market.h"
#include "standalone/market_files.h"

// The families of rates and the kinds of account, each in one table, with the families that trades are charged in.
// Every name lives as long as the program. Safe from any number of threads at once.

namespace standalone {

/// Some lists of the catalogue: an instrument belongs when it is in one of the lists or types.
struct Lists {
    int listMask = 0;  ///< bits of qmservice::InstrumentList
    int types = 0;     ///< bits of qmservice::InstrumentType

    [[nodiscard]] constexpr bool overlap(const Lists& others) const {
        return (others.listMask & listMask) != 0 || (others.types & types) != 0;
    }
    [[nodiscard]] constexpr bool hold(const ListedInstrument& instrument) const {
        return overlap({instrument.listMask, instrument.types});
    }
};

/// One list of the catalogue under the name that instruments/*.csv has for it.
struct NamedList {
    const char* name;
    Lists bits;
};

/// Every list: those by bits of a list mask, then the types.
const std::vector<NamedList>& namedLists();

/// How the exchange charges futures, under the name that instruments/*.csv has for it.
struct NamedExchangeFee {
    const char* name;
    qmservice::ExchangeFeeType type;
};

/// Every way but the one that charges nothing, which is an empty cell.
inline constexpr std::array<NamedExchangeFee, 2> kExchangeFees = {
    {{"per_lot", qmservice::kPerLotFee}, {"per_turnover", qmservice::kPerTurnoverFee}}};

/// Which record classes carry the rates of a family.
enum class RateRecords {
    kStock,       ///< CStkExchangeRateLimit; custom CCustomStkExchangeRateLimit
    kHgt,         ///< CCustomHGTExchangeRateLimit for both
    kSgt,         ///< CCustomSgtExchangeRateLimit for both
    kOption,      ///< CStockOptionFeeItem; custom CCustomStkExchangeRateLimit
    kCommission,  ///< CCommissionRateDetail; custom CCustomCommissionRateDetail
    kMargin       ///< CMarginRateDetail; custom CCustomMarginRateDetail
};

/// A rate of a family by itself.
struct RateField {
    const char* field;   ///< of its record
    const char* column;  ///< of its tables
};

/// One family: the rates of one kind of business, with its tables in a market folder.
struct RateFamily {
    const char* name;         ///< of its tables, of its rates in market.toml and of the parts of answers
    const char* title;        ///< what a person calls its rates
    const char* itemTitle;    ///< what a person calls the items that distinguish its rates; empty for one without
    const char* instruments;  ///< what a person calls the instruments that it is for
    RateRecords records;
    cost::Family charged;             ///< of the trades that these rates are for
    Lists lists;                      ///< that hold those instruments
    std::vector<int> feeAccounts;     ///< kinds of account in fees/NAME.csv; none: there is no such table
    std::vector<int> customAccounts;  ///< the same for custom/NAME.csv
    bool isConfigured;                ///< whether there is configured/NAME.csv
    bool isNamed;                     ///< whether market.toml may name its rates; otherwise the names are fixed
    std::vector<RateField> rates;     ///< in field order

    // Its tables in a market folder.
    [[nodiscard]] std::string feeTable() const { return tableIn(files::kFees); }
    [[nodiscard]] std::string configuredTable() const { return tableIn(files::kConfigured); }
    [[nodiscard]] std::string customTable() const { return tableIn(files::kCustom); }
    [[nodiscard]] std::string tableIn(const std::string& folder) const {
        return folder + "/" + name + files::kTableEnding;
    }
};

/// Every family, in the order in which their tables are read.
const std::vector<RateFamily>& rateFamilies();

/// The names of futures' families: cost::Family has one word for both. The others have the word of theirs.
constexpr const char* kCommissionFamily = "commission";
constexpr const char* kMarginFamily = "margin";

/// The family of that name. Throws std::out_of_range when there is none.
const RateFamily& rateFamily(std::string_view name);

/// The family whose rates trades of a cost::Family pay: of futures the commission.
const RateFamily& rateFamilyOf(cost::Family charged);

/// The columns of the family's rates in the tables of a market, in field order: as market.toml calls them where it may.
std::vector<std::string> rateColumnNames(const Market& market, const RateFamily& family);

/// What the host and its programs know of a kind of account.
struct AccountKindInfo {
    int kind;                             ///< a qmservice::AccountKind
    const char* name;                     ///< as accounts.csv has it
    std::optional<cost::Family> charged;  ///< in which such an account trades; empty for one that trades everything and
                                          ///< has no list of fees

    /// Whether an account of the kind may trade in the family.
    [[nodiscard]] bool trades(cost::Family family) const { return charged.value_or(family) == family; }
};

/// Every kind that the boundary names, in ascending order.
const std::vector<AccountKindInfo>& accountKinds();

/// The kind with this number; null when the boundary does not name it.
const AccountKindInfo* findAccountKind(int kind);

/// The kind's word in accounts.csv; the number itself where the boundary does not name the kind.
std::string accountKindName(int kind);

/// The family whose instruments accounts of the kind trade; null for a kind that trades everything.
const RateFamily* tradedFamily(int kind);

}  // namespace standalone

#endif  // STANDALONE_FAMILIES_H
