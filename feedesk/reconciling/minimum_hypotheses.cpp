#include <fmt/format.h>

#include <algorithm>

#include "feedesk/reconciling/fill_amounts.h"
#include "feedesk/reconciling/other_limit.h"
#include "feedesk/reconciling/trial.h"

namespace feedesk {
namespace {

using cost::Per;

std::string rangeText(const Span& amount, std::size_t fills) {
    return amount.isExact()
               ? ""
               : fmt::format(", a range: {} fills cost from {} to {}", fills, amount.low.text(2), amount.high.text(2));
}

/// Whether a fill by itself costs the minimum.
bool bindsAFill(const Trial& trial, const Part& part) {
    const auto& fills = trial.order().trades;
    return std::any_of(fills.begin(), fills.end(), [&](const cost::Trade& fill) {
        const auto amounts = amountsIfAny({fill}, trial.asked().charged.tariff);
        return amounts && std::any_of(amounts->parts.begin(), amounts->parts.end(), [&](const Part& each) {
                   return each.term == part.term && each.exact < *part.term->minimum;
               });
    });
}

/// `wide`: whether what is known of the fills leaves a range, which says little.
void tryPart(Trial& trial, const Part& part, bool wide) {
    const cost::Term& term = *part.term;
    const bool toFill = term.per == Per::kOrder;
    const std::string what = toFill ? "fill" : "order";
    const std::string key = term.charge + " per " + what;
    const std::string sentence =
        fmt::format("the least {} of {} charged for each {} and not for each {} ({})", term.charge,
                    term.minimum->text(), what, toFill ? "order" : "fill", term.where);
    const std::size_t fills = trial.order().fills;
    if (trial.knowsFills()) {
        if (wide || !bindsAFill(trial, part)) {
            return;
        }
        trial.note(Cause::kMinimumPer, key, sentence, trial.withTermsChanged([&](cost::Term& each) {
            const bool isMeant = each.where == term.where && each.charge == term.charge;
            each.per = isMeant ? (toFill ? Per::kFill : Per::kOrder) : each.per;
        }),
                   {{term.where, "per", what}});
    } else if (toFill && fills > 1) {
        const Span amount = withMinimumOfEachFill(part, fills);
        if (amount.isExact() != wide) {
            trial.note(Cause::kMinimumPer, key, sentence + rangeText(amount, fills), trial.withAmount(part, amount));
        }
    }
}

void tryParts(Trial& trial, bool wide) {
    for (const Part& part : trial.parts()) {
        if (part.term->minimum && part.term->basis != cost::Basis::kOrder && part.term->per != Per::kDay) {
            tryPart(trial, part, wide);
        }
    }
}

}  // namespace

void tryNoMinimum(Trial& trial) {
    for (const Part& part : trial.parts()) {
        const cost::Term& term = *part.term;
        if (!term.minimum) {
            continue;
        }
        const std::string none = "no least " + term.charge;
        trial.note(Cause::kOtherMinimum, none,
                   fmt::format("{} and not {} ({})", none, term.minimum->text(), term.where),
                   trial.withTermsChanged([&](cost::Term& each) {
                       if (each.where == term.where && each.charge == term.charge) {
                           each.minimum.reset();
                       }
                   }),
                   {{term.where, "minimum", ""}});
    }
}

/// Nothing but another minimum makes an order that the folder's minimum binds cost less.
void tryUsualMinimum(Trial& trial) {
    for (const Part& part : trial.parts()) {
        const cost::Term& term = *part.term;
        const bool isOne = term.per != Per::kFill || !trial.knowsFills();
        if (!term.minimum || !isOne || !part.isPaid() || part.exact > *term.minimum) {
            continue;
        }
        const OtherLimit other{Limit::kLeast,
                               part.amount.low + trial.statedCosts() - trial.asked().charged.costs().low};
        if (other.amount < *term.minimum && isUsual(other)) {
            noteLimit(trial, other, term);
        }
    }
}

void tryMinimumPer(Trial& trial) { tryParts(trial, false); }

void tryMinimumPerAsRange(Trial& trial) { tryParts(trial, true); }

}  // namespace feedesk
