#ifndef FEEDESK_RECONCILING_RECONCILIATION_H
#define FEEDESK_RECONCILING_RECONCILIATION_H

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "feedesk/reconciling/cause.h"
#include "feedesk/reconciling/folder_tariffs.h"
#include "feedesk/reconciling/solved_rate.h"
#include "feedesk/session/session.h"

namespace feedesk {

/// The figure of the money that was traded.
constexpr const char* kAmountFigure = "amount";

/// A change of charging terms that explains several orders.
struct SharedTerms {
    Explanation explanation;
    cost::DateRange days;  ///< from the first of the orders to the last
};

using SharedTermsList = std::vector<std::shared_ptr<const SharedTerms>>;

/// What was found of an order.
struct ReconciledOrder {
    enum class Outcome { kAgrees, kDiffers, kNotCharged };

    explicit ReconciledOrder(Order comparedOrder) : order(std::move(comparedOrder)) {}

    /// Whether it differs and a cause is still looked for.
    [[nodiscard]] bool isOpen() const {
        return outcome == Outcome::kDiffers && cause == Cause::kNotExplained && remark.empty();
    }

    Order order;
    Outcome outcome = Outcome::kNotCharged;
    std::string whyNotCharged;           ///< why the folder has no answer
    std::optional<cost::Tariff> tariff;  ///< by which it is charged
    std::string currency;
    cost::Decimal statedCosts;
    cost::Decimal costs;  ///< by the folder
    Figures figures;      ///< where it differs
    Cause cause = Cause::kNotExplained;
    Explanations causes;      ///< of that cause, each of which explains it
    Explanations alsoFit;     ///< of causes that are tried later
    Explanations lastCauses;  ///< those that other orders speak against: for what nothing else explains
    std::shared_ptr<const SolvedRate> solved;
    SolvedRates ratesToo;  ///< besides a cause: rates that fit several orders
    std::shared_ptr<const SharedTerms> terms;
    std::string remark;  ///< of what is not explained
};

/// What gives the rate in the folder that this one, of those that fit the order, takes the place of.
const RateSource& replacedBy(const SolvedRate& solved, const ReconciledOrder& reconciled);
/// The same of the order's solved one.
inline const RateSource& replacedBySolved(const ReconciledOrder& reconciled) {
    return replacedBy(*reconciled.solved, reconciled);
}

/// A statement and what the folder says of it, by the first lines of the orders.
struct Reconciliation {
    std::vector<ReconciledOrder> orders;
    SolvedRates rates;           ///< those that hold from a day on
    SolvedRates ratesElsewhere;  ///< the same of orders that have other rates of the folder for their cause
    SharedTermsList terms;

    [[nodiscard]] std::size_t count(ReconciledOrder::Outcome outcome) const;
    [[nodiscard]] bool agrees() const;
};

/// Compares statements of one account with the folder. Keeps what it has asked the fee centers of excerpts. One thread.
class Reconciler {
public:
    /// The account is one that the session's folder has.
    Reconciler(Session& openedSession, const std::string& accountOfStatements);

    /// Works every line out as of its day and looks for the causes of what differs.
    Reconciliation reconcile(const Statement& statement);

private:
    void tryHypotheses(const Statement& statement, std::vector<ReconciledOrder>& orders);
    void findCauses(const Statement& statement, Reconciliation& result);

    Session& session;
    std::string account;
    FolderTariffs others;
};

}  // namespace feedesk

#endif  // FEEDESK_RECONCILING_RECONCILIATION_H
