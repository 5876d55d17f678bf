#ifndef FEEDESK_ANSWERS_LEVEL_H
#define FEEDESK_ANSWERS_LEVEL_H

#include <array>
#include <cstddef>
#include <string>

namespace feedesk {

/// Which kind of input a rate came from; the most certain first.
enum class Level {
    kOwnRecord,        ///< a fee record of the account
    kCustomFee,        ///< a custom fee of the account
    kConfiguredLimit,  ///< the client's own configuration
    kExchangeFee,      ///< the fee that the instrument carries, which a simulation platform charges
    kBuiltInDefault,   ///< no input at all
    kNotSet            ///< there is no rate
};

/// What a level is called.
struct LevelWords {
    Level level;
    const char* name;   ///< in a sentence and in the answers of commands
    const char* field;  ///< as the name of a field
    const char* title;  ///< over a column
};

/// Every level, in the order of the enumeration.
constexpr std::array<LevelWords, 6> kLevels = {
    {{Level::kOwnRecord, "own record", "own_record", "Own record"},
     {Level::kCustomFee, "custom fee", "custom_fee", "Custom fee"},
     {Level::kConfiguredLimit, "configured limit", "configured_limit", "Config. limit"},
     {Level::kExchangeFee, "exchange fee", "exchange_fee", "Exchange fee"},
     {Level::kBuiltInDefault, "built-in default", "built_in_default", "Built-in default"},
     {Level::kNotSet, "not set", "not_set", "Not set"}}};

constexpr const LevelWords& wordsOf(Level level) { return kLevels[static_cast<std::size_t>(level)]; }

/// "own record", "custom fee" and so on.
inline std::string levelName(Level level) { return wordsOf(level).name; }

}  // namespace feedesk

#endif  // FEEDESK_ANSWERS_LEVEL_H
