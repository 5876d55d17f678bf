#ifndef STANDALONE_LOADER_FUTURES_FEES_H
#define STANDALONE_LOADER_FUTURES_FEES_H

#include <array>
#include <cstddef>
#include <map>
#include <vector>

#include "standalone/loader/kept_lines.h"

namespace standalone::loader {

/// The fees of one futures account: the lines of fees/commission.csv and fees/margin.csv together make its records. For
/// one thread.
class FuturesFees {
public:
    /// The market and the lines outlive this.
    explicit FuturesFees(const Market& instruments) : market(instruments) {}

    /// Takes a line of either table; a later one of the same table overrides an earlier one.
    void add(const KeptFeeLine& line);

    /// The records, for the account whose lines they were, in the order of the catalogue.
    [[nodiscard]] std::vector<FeeRecord> records(const Account& account) const;
    /// How many they are; none is made.
    [[nodiscard]] std::size_t count() const { return fees.size(); }

private:
    template <class Detail>
    struct Placed {
        boost::shared_ptr<Detail> detail;  ///< empty while no line has given it
        Position position;
    };

    /// What the lines so far give to one instrument.
    struct Fee {
        const KeptFeeLine* commission = nullptr;  ///< the line; its detail names the instrument and is made at the end
        std::array<Placed<qmservice::CMarginRateDetail>, qmservice::kHedgeFlags.size()> margins;  ///< by hedge flag
    };

    void addMargins(const KeptFeeLine& line);
    [[nodiscard]] FeeRecord recordOf(const Account& account, std::size_t place, const Fee& fee) const;

    const Market& market;
    std::map<std::size_t, Fee> fees;  ///< by place in the catalogue
};

}  // namespace standalone::loader

#endif  // STANDALONE_LOADER_FUTURES_FEES_H
