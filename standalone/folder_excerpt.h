#ifndef STANDALONE_FOLDER_EXCERPT_H
#define STANDALONE_FOLDER_EXCERPT_H

#include <cstddef>
#include <memory>
#include <vector>

#include "cost/date.h"
#include "standalone/families.h"
#include "standalone/market_folder.h"

namespace standalone {

/// What a line of a market folder gives rates as.
enum class InputKind { kFeeLine, kCustomFee, kConfiguredLimit, kExchangeFee };

/// A line that can have a say in an account's rates.
struct RateInput {
    InputKind kind = InputKind::kFeeLine;
    const RateFamily* family = nullptr;  ///< of its table; null for an instrument's own fee
    Position position;
    cost::DateRange days;  ///< on which it is in force
    int update = 0;        ///< of a custom fee: the number of its update
    int category = 0;      ///< of a custom fee
};

/// What a market folder says of one account and some instruments, as a folder of its own: small, so that fee centers
/// can be fed and asked many times with other lines of it. Positions are those of the folder. Immutable, cheap to copy,
/// safe from any thread.
///
/// What a fee center answers for these instruments from the excerpt's market it answers from the folder's too, but for
/// one thing: a pool of records holds what other instruments brought in (rule "A pooled record is never replaced").
class FolderExcerpt {
public:
    /// Both by their place in the folder's market, the instruments ascending and each once.
    FolderExcerpt(const MarketFolder& folder, std::size_t account, const std::vector<std::size_t>& instruments);

    /// Every line that names the account or one of the instruments, whatever its days: those of configured/, of fees/
    /// and of custom/, each in the order of the market, then the instruments that carry a fee of the exchange.
    [[nodiscard]] const std::vector<RateInput>& lines() const { return inputs; }

    /// The market of the account and the instruments, made of those of lines() for which `kept` is true; their days do
    /// not count. `kept` has one entry for each of lines().
    [[nodiscard]] Market market(const std::vector<bool>& kept) const;
    /// The same with the lines in force on the day, and every instrument's own fee.
    [[nodiscard]] Market marketOn(cost::Date day) const;

private:
    std::shared_ptr<const loader::CheckedFolder> cut;
    std::vector<RateInput> inputs;
};

}  // namespace standalone

#endif  // STANDALONE_FOLDER_EXCERPT_H
