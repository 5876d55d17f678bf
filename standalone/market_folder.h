#ifndef STANDALONE_MARKET_FOLDER_H
#define STANDALONE_MARKET_FOLDER_H

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "cost/schedule.h"
#include "standalone/coverage.h"
#include "standalone/market.h"

namespace standalone {

namespace loader {
struct CheckedFolder;
}

/// The machine's day, in its time zone.
cost::Date today();

/// How much is handed to a fee center for an account.
struct FeeCounts {
    std::size_t records = 0;     ///< fee records, all of one load
    std::size_t customFees = 0;  ///< custom fees, one update each
};

/// A market folder that has been read and checked, with the schedules of all its days. Immutable, cheap to copy, safe
/// from any thread; copies share one content.
///
/// The days between two change dates are an interval: on all of them the same lines are in force. Intervals are
/// counted from 0; the first begins with the first of all days and the last does not end.
class MarketFolder {
public:
    /// A folder of that name with nothing in it.
    explicit MarketFolder(const std::string& name = "");
    /// What the loader read; not for others.
    explicit MarketFolder(std::shared_ptr<const loader::CheckedFolder> content);

    /// The folder's path as it was given.
    [[nodiscard]] const std::string& name() const;
    /// The days that may be asked for. Nothing here refuses another one; programs that answer people do.
    [[nodiscard]] const Coverage& coverage() const;
    /// The day that is meant where none is named: `as_of` of market.toml, and without that the machine's today.
    [[nodiscard]] cost::Date defaultDay() const;
    /// The charging terms of all days.
    [[nodiscard]] const cost::Schedule& schedule() const;

    /// Ascending: on each of these days other lines come into force than on the day before.
    [[nodiscard]] const std::vector<cost::Date>& changeDates() const;
    /// The interval of a day.
    [[nodiscard]] std::size_t intervalOf(cost::Date day) const;

    /// The market with the lines that are in force on the day, in their order. Markets of several days share the
    /// records of instruments and accounts, whose places are the same in all of them; fees, custom fees and configured
    /// limits are made anew by each call. Throws nothing but std::bad_alloc.
    [[nodiscard]] Market marketOn(cost::Date day) const;

    /// The same without the fees and custom fees of its accounts: what they are answered from is made by accountOn(),
    /// one account at a time.
    [[nodiscard]] Market sharedMarketOn(cost::Date day) const;
    /// The account at a place of the market with its fees and custom fees of the day, made anew by each call.
    [[nodiscard]] Account accountOn(cost::Date day, std::size_t account) const;
    /// The custom fees of that account alone.
    [[nodiscard]] std::vector<CustomFee> customFeesOn(cost::Date day, std::size_t account) const;
    /// How many fee records and custom fees that account has; none is made.
    [[nodiscard]] FeeCounts feeCountsOn(cost::Date day, std::size_t account) const;

    /// What is the same on every day: the market without fees, custom fees and configured limits.
    [[nodiscard]] const Market& everyDay() const;

    /// What was read, for the parts of the standalone host.
    [[nodiscard]] const loader::CheckedFolder& content() const { return *checked; }

private:
    std::shared_ptr<const loader::CheckedFolder> checked;
};

}  // namespace standalone

#endif  // STANDALONE_MARKET_FOLDER_H
