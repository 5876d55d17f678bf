#ifndef FEEDESK_RECONCILING_RECONCILIATION_H
#define FEEDESK_RECONCILING_RECONCILIATION_H

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "feedesk/reconciling/cause.h"
#include "feedesk/reconciling/folder_tariffs.h"
#include "feedesk/reconciling/rate_range.h"
#include "feedesk/session/session.h"

namespace feedesk {

/// The figure of the money that was traded.
constexpr const char* kAmountFigure = "amount";

/// An order that a rate does not fit, by its first line.
struct OtherLine {
    std::size_t line = 0;  ///< index into Statement::lines
    cost::Date date;
};

/// A rate that is solved for, and how far it reaches.
struct SolvedRate {
    SoughtRate sought;
    RateRange range;
    cost::Decimal rate;        ///< the simplest of them
    cost::Decimal folderRate;  ///< what the folder has
    std::string source;        ///< its line; empty where no line gives it
    bool isTermsOwn = false;   ///< the rate is the term's and not the fee center's
    bool isFraction = false;   ///< it is charged on turnover
    std::size_t lines = 0;     ///< how many lines of the statement it fits
    /// From this day on it fits every line that is charged by the same line of the folder; empty: it fits one order.
    std::optional<cost::Date> from;
    std::size_t otherLines = 0;        ///< from that day on: lines that differ in other ways, and are not among `lines`
    std::optional<OtherLine> against;  ///< where it fits one order: the first from its day on that it does not fit
    /// Rates of other charges that explain the same orders: the statement does not say which one it is.
    std::vector<SolvedRate> orElse;
};

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
    std::string problem;                 ///< why the folder has no answer
    std::optional<cost::Tariff> tariff;  ///< by which it is charged
    std::string currency;
    cost::Decimal statedCosts;
    cost::Decimal costs;  ///< by the folder
    Figures figures;      ///< where it differs
    Cause cause = Cause::kNotExplained;
    Explanations causes;   ///< of that cause, each of which explains it
    Explanations alsoFit;  ///< of causes that are tried later
    std::shared_ptr<const SolvedRate> solved;
    std::string remark;  ///< of what is not explained
};

/// A statement and what the folder says of it, by the first lines of the orders.
struct Reconciliation {
    std::vector<ReconciledOrder> orders;
    std::vector<std::shared_ptr<const SolvedRate>> rates;  ///< those that hold from a day on

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
    void tryHypotheses(const Layout& layout, std::vector<ReconciledOrder>& orders);
    static void findCauses(const Layout& layout, Reconciliation& result);

    Session& session;
    std::string account;
    FolderTariffs others;
};

}  // namespace feedesk

#endif  // FEEDESK_RECONCILING_RECONCILIATION_H
