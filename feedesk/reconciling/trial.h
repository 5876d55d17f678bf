#ifndef FEEDESK_RECONCILING_TRIAL_H
#define FEEDESK_RECONCILING_TRIAL_H

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "feedesk/reconciling/hypotheses.h"

namespace feedesk {

/// One disputed order, and what of single changes explains it: the workbench of the hypotheses. One thread.
class Trial {
public:
    /// The order, its amounts and the layout must outlive it.
    Trial(const Disputed& disputedOrder, const Layout& statementLayout)
        : disputed(disputedOrder), layout(statementLayout) {}

    [[nodiscard]] const Disputed& asked() const { return disputed; }
    [[nodiscard]] const Layout& columns() const { return layout; }
    [[nodiscard]] const Order& order() const { return disputed.order; }
    [[nodiscard]] const std::vector<Part>& parts() const { return disputed.charged.parts; }
    /// Whether the fills are lines of their own, so that each is charged exactly.
    [[nodiscard]] bool knowsFills() const { return disputed.order.trades.size() > 1; }

    /// What the statement says was paid.
    [[nodiscard]] cost::Decimal statedCosts() const { return order().stated.costs(layout, disputed.charged); }

    /// Keeps the change as an explanation when every figure of the statement agrees with its amounts.
    void note(Cause cause, const std::string& key, const std::string& sentence, const std::optional<Amounts>& amounts,
              TermCells cells = {}, const std::string& wider = "");
    /// The same of each tariff.
    void noteEach(Cause cause, const OtherTariffList& list);

    /// The order with its terms changed; nothing when the change contradicts itself.
    [[nodiscard]] std::optional<Amounts> withTermsChanged(const std::function<void(cost::Term&)>& change) const;
    /// The order with another amount of one of its parts().
    [[nodiscard]] std::optional<Amounts> withAmount(const Part& part, const Span& amount) const;
    /// The order as it is charged, to be changed.
    [[nodiscard]] std::optional<Amounts> copy() const { return disputed.charged; }
    [[nodiscard]] std::size_t indexOf(const Part& part) const;

    Explanations found;

private:
    Disputed disputed;
    const Layout& layout;
};

/// "the stamp_duty (charges.csv:6)".
std::string namedPart(const Part& part);

// The hypotheses that need nobody's answer, one function each.

void tryMinimumPer(Trial& trial);
void tryMinimumPerAsRange(Trial& trial);
void tryNoMinimum(Trial& trial);
void tryUsualMinimum(Trial& trial);
void tryRoundingPerFill(Trial& trial);
void tryFillByFill(Trial& trial);
void tryRoundingModes(Trial& trial);
void tryLeftOut(Trial& trial);
void tryChargedTwice(Trial& trial);
void tryAllIn(Trial& trial);
void tryOtherSide(Trial& trial);

}  // namespace feedesk

#endif  // FEEDESK_RECONCILING_TRIAL_H
