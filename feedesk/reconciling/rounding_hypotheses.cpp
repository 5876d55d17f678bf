#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "feedesk/reconciling/fill_amounts.h"
#include "feedesk/reconciling/trial.h"

namespace feedesk {
namespace {

using cost::Per;
using cost::RoundingMode;

constexpr const char* kEachFill = "each fill";

/// Whether the minimum or the maximum is charged, so that nothing is left to round.
bool isBound(const Part& part) {
    return (part.term->minimum && part.exact <= *part.term->minimum) ||
           (part.term->maximum && part.exact >= *part.term->maximum);
}

bool isRoundedPerOrder(const Part& part) { return part.term->rounding && isOfOrder(part) && !isBound(part); }

void tryKnownFills(Trial& trial) {
    const auto each = [&](cost::Term& term) {
        const auto& parts = trial.parts();
        const auto part = std::find_if(parts.begin(), parts.end(), [&](const Part& one) {
            return one.term->where == term.where && one.charge == term.charge;
        });
        if (part != parts.end() && isRoundedPerOrder(*part)) {
            // Bounds that do not hold for the order are not asked of its fills either.
            term.minimum.reset();
            term.maximum.reset();
            term.per = Per::kFill;
        }
    };
    trial.note(Cause::kRoundingPerFill, kEachFill, "each fill rounded by itself and not the order as a whole",
               trial.withTermsChanged(each));
}

/// `charge` is the one that is rounded otherwise; empty: all of them.
void tryMode(Trial& trial, RoundingMode mode, const std::string& charge) {
    const std::string word(cost::wordFor(mode));
    trial.note(Cause::kRoundingMode, word + ' ' + charge,
               fmt::format("{} rounded {}", charge.empty() ? "every charge" : "the " + charge, word),
               trial.withTermsChanged([&](cost::Term& term) {
                   if (term.rounding && (charge.empty() || term.charge == charge)) {
                       term.rounding->mode = mode;
                   }
               }));
}

void tryEveryMode(Trial& trial, const std::string& charge) {
    for (std::size_t mode = 0; mode < cost::kWords<RoundingMode>.size(); ++mode) {
        tryMode(trial, static_cast<RoundingMode>(mode), charge);
    }
}

}  // namespace

void tryRoundingPerFill(Trial& trial) {
    const std::size_t fills = trial.order().fills;
    if (trial.knowsFills()) {
        tryKnownFills(trial);
    } else if (fills > 1) {
        std::optional<Amounts> changed = trial.copy();
        for (Part& part : changed->parts) {
            part.amount = isRoundedPerOrder(part) ? withEachFillRounded(part, fills) : part.amount;
        }
        trial.note(Cause::kRoundingPerFill, kEachFill,
                   fmt::format("each of {} fills rounded by itself, a range of half a step for each of them", fills),
                   changed);
    }
}

void tryFillByFill(Trial& trial) {
    if (!trial.knowsFills()) {
        return;
    }
    TermCells cells;
    for (const Part& part : trial.parts()) {
        if (isOfOrder(part)) {
            cells.push_back({part.term->where, "per", std::string(cost::wordFor(Per::kFill))});
        }
    }
    trial.note(Cause::kFillByFill, kEachFill, "each fill charged as an order of its own, with its minimum and rounding",
               chargedFillByFill(trial.asked()), std::move(cells));
}

void tryRoundingModes(Trial& trial) {
    tryEveryMode(trial, "");
    for (std::size_t i = 0; trial.parts().size() > 1 && i < trial.parts().size(); ++i) {
        tryEveryMode(trial, trial.parts()[i].charge);
    }
}

}  // namespace feedesk
