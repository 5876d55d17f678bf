#ifndef STANDALONE_MARKET_FILES_H
#define STANDALONE_MARKET_FILES_H

#include <array>

/// The names of the files and folders of a market folder.
namespace standalone::files {

constexpr const char* kMarket = "market.toml";
constexpr const char* kAccounts = "accounts.csv";
constexpr const char* kSystemCategories = "categories.csv";
constexpr const char* kCustomCategories = "custom_categories.csv";
constexpr const char* kGroupCategories = "group_categories.csv";
constexpr const char* kCharges = "charges.csv";

constexpr const char* kInstruments = "instruments";  ///< a folder: each of its tables is read
constexpr const char* kConfigured = "configured";    ///< a folder: one table for each family
constexpr const char* kFees = "fees";                ///< the same
constexpr const char* kCustom = "custom";            ///< the same
constexpr const char* kLayouts = "layouts";  ///< a folder: layouts of statements, which the loader does not read

constexpr const char* kTableEnding = ".csv";
constexpr const char* kLayoutEnding = ".toml";

/// What a load reads, in this order.
constexpr std::array<const char*, 10> kReadInOrder = {
    kMarket,          kAccounts,   kInstruments, kSystemCategories, kCustomCategories,
    kGroupCategories, kConfigured, kFees,        kCustom,           kCharges};

/// The files that no folder may lack. It may not lack tables of instruments either.
constexpr std::array<const char*, 2> kNeeded = {kMarket, kAccounts};

}  // namespace standalone::files

#endif  // STANDALONE_MARKET_FILES_H
