#ifndef FEEDESK_RECONCILING_RATE_CAUSES_H
#define FEEDESK_RECONCILING_RATE_CAUSES_H

#include <memory>
#include <vector>

#include "feedesk/reconciling/common_causes.h"
#include "feedesk/reconciling/rate_search.h"

namespace feedesk {

/// Gives differing orders the rates that are their causes.
class RateCauses {
public:
    /// All of them must outlive it; the orders are those of the lines.
    RateCauses(const OrdersByDay& ordersByDay, const ChargedLines& chargedLines, const Layout& statementLayout,
               OtherTariffs& otherTariffs)
        : orders(ordersByDay), lines(chargedLines), layout(statementLayout), others(otherTariffs) {}

    /// Takes those of the changes that explain several orders which no single change explains together, and each of the
    /// common causes that it meets as a whole: what explains all lines goes before what explains a part of them.
    void takeBefore(const std::vector<CommonCause>& commonCauses, RateChanges changes);

    /// Takes the changes, those first that explain most. Each explains at least one order that no single change does,
    /// or two at least that go without the cause which explains most orders of their line of the folder.
    /// Where the rates of several charges explain the same orders, the first of them is given and says so; of a single
    /// order none is.
    void take(RateChanges changes);

    /// Gives the order, which no single change explains, its fills charged one by one where the range of these may be
    /// the cause, or else the rate that fits it alone; or says in its remark that the rates of several charges do.
    /// Where a later order has another rate, adds the minimum or maximum that fits it alone as well.
    void takeOfOrder(ReconciledOrder& charged);

    /// Where the order alone has another minimum or maximum for its cause, adds the rates that fit it as well.
    void addBesidesLimit(ReconciledOrder& charged);

    /// Adds to orders that have another cause the changes that explain several orders, them among these.
    void addBesidesCauses(const RateChanges& changes);

    /// Of those besides causes the rates that may have been agreed on: the folder has them in another place, which is
    /// the orders' cause, and no rate of another charge explains these as well.
    [[nodiscard]] const SolvedRates& takenElsewhere() const { return ratesElsewhere; }

    /// The rates that were given and hold from a day on.
    [[nodiscard]] const SolvedRates& taken() const { return rates; }

private:
    void removeNeedless(RateChanges& changes) const;
    [[nodiscard]] std::vector<SolvedRate> ratesOf(const ReconciledOrder& charged);
    [[nodiscard]] std::shared_ptr<const SolvedRate> oneOf(const RateChanges& changes);

    const OrdersByDay& orders;
    const ChargedLines& lines;
    const Layout& layout;
    OtherTariffs& others;
    SolvedRates rates;
    SolvedRates ratesElsewhere;
};

}  // namespace feedesk

#endif  // FEEDESK_RECONCILING_RATE_CAUSES_H
