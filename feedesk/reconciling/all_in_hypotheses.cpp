#include <fmt/format.h>

#include <algorithm>
#include <set>

#include "feedesk/reconciling/changed_terms.h"
#include "feedesk/reconciling/trial.h"

namespace feedesk {
namespace {

/// The broker's own charge, which contains others where it is called all-in.
constexpr const char* kCommission = "commission";

bool isOnTop(const Part& part) { return part.isPaid() && part.charge != kCommission; }

/// What the statement's columns say that a commission may contain.
bool mayBeInCommission(const std::string& charge, const Layout& layout) {
    return std::any_of(layout.charges.begin(), layout.charges.end(), [&](const ChargeColumn& column) {
        return std::find(column.allIn.begin(), column.allIn.end(), charge) != column.allIn.end();
    });
}

using Charges = std::set<std::string>;

template <class Belongs>
Charges chargesOf(const Trial& trial, const Belongs& belongs) {
    Charges charges;
    for (const Part& part : trial.parts()) {
        if (isOnTop(part) && belongs(part)) {
            charges.insert(part.charge);
        }
    }
    return charges;
}

/// Whether the charge may simply be missing, which says less.
bool isLeftOut(const Part& part, const Trial& trial) {
    return std::any_of(trial.found.begin(), trial.found.end(), [&](const Explanation& each) {
        return each.cause == Cause::kLeftOut && each.key == part.charge;
    });
}

void tryInside(Trial& trial, const Charges& charges) {
    std::vector<std::string> names;
    TermCells cells;
    for (const Part& part : trial.parts()) {
        if (isOnTop(part) && charges.count(part.charge) != 0) {
            names.push_back(namedPart(part));
            cells.push_back({part.term->where, "inside", kCommission});
        }
    }
    const Amounts changed = putInside(trial.asked().charged, cells);
    trial.note(Cause::kAllIn, fmt::format("{}", fmt::join(charges, " ")),
               fmt::format("{} inside the {} and not on top of it", fmt::join(names, " and "), kCommission), changed,
               std::move(cells));
}

}  // namespace

/// What a broker puts into its commission: the exchange's fees, the transfer fee with them, or everything. The stamp
/// duty, which sales alone pay, is the last that it would take upon itself.
void tryAllIn(Trial& trial) {
    const auto& parts = trial.parts();
    if (std::none_of(parts.begin(), parts.end(), [](const Part& each) { return each.charge == kCommission; })) {
        return;
    }
    std::vector<Charges> sets;
    for (const Part& part : parts) {
        if (isOnTop(part) && !isLeftOut(part, trial)) {
            sets.push_back({part.charge});
        }
    }
    for (const Charges& each :
         {chargesOf(trial, [&](const Part& part) { return mayBeInCommission(part.charge, trial.columns()); }),
          chargesOf(trial, [](const Part& part) { return part.term->side == cost::TermSide::kBoth; }),
          chargesOf(trial, [](const Part& /*part*/) { return true; })}) {
        if (each.size() > 1) {
            sets.push_back(each);
        }
    }
    for (const Charges& each : sets) {
        tryInside(trial, each);
    }
}

}  // namespace feedesk
