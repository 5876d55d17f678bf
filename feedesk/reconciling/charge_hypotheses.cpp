#include <fmt/format.h>

#include <algorithm>

#include "feedesk/reconciling/trial.h"

namespace feedesk {
namespace {

using cost::Side;

/// The side that is mistaken for this one; the same where none is.
Side opposite(Side side) {
    switch (side) {
        case Side::kBuy:
            return Side::kSell;
        case Side::kSell:
            return Side::kBuy;
        case Side::kOpenLong:
            return Side::kOpenShort;
        case Side::kOpenShort:
            return Side::kOpenLong;
        case Side::kCloseLong:
            return Side::kCloseShort;
        case Side::kCloseShort:
            return Side::kCloseLong;
        default:
            return side;
    }
}

/// Puts what is inside another charge on top of it as well.
void addOnTop(Amounts& amounts, const Part& part) {
    amounts.parts.push_back(part);
    amounts.parts.back().inside.clear();
    amounts.parts.back().again = true;
}

/// Everything that one charge contains.
void tryAllInsideTwice(Trial& trial, const Part& around) {
    std::optional<Amounts> changed = trial.copy();
    std::vector<std::string> names;
    for (const Part& part : trial.parts()) {
        if (part.inside == around.charge) {
            addOnTop(*changed, part);
            names.push_back(namedPart(part));
        }
    }
    if (names.size() > 1) {
        trial.note(
            Cause::kChargedTwice, "inside " + around.charge,
            fmt::format("{} charged twice, inside the {} and on top of it", fmt::join(names, " and "), around.charge),
            changed);
    }
}

void tryAllTwice(Trial& trial) {
    std::optional<Amounts> changed = trial.copy();
    for (Part& part : changed->parts) {
        part.amount += Span(part.amount);
    }
    trial.note(Cause::kChargedTwice, "all", "every charge charged twice", changed);
}

}  // namespace

void tryLeftOut(Trial& trial) {
    for (const Part& part : trial.parts()) {
        std::optional<Amounts> changed = trial.copy();
        // What is inside a charge goes with it.
        const auto goes = [&](const Part& each) {
            return (each.charge == part.charge && each.item == part.item) || each.inside == part.charge;
        };
        changed->parts.erase(std::remove_if(changed->parts.begin(), changed->parts.end(), goes), changed->parts.end());
        trial.note(Cause::kLeftOut, part.charge, namedPart(part) + " left out", changed);
    }
    if (trial.parts().size() > 1) {
        std::optional<Amounts> none = trial.copy();
        none->parts.clear();
        trial.note(Cause::kLeftOut, "all", "nothing charged at all", none);
    }
}

void tryChargedTwice(Trial& trial) {
    for (const Part& part : trial.parts()) {
        if (part.isPaid()) {
            trial.note(Cause::kChargedTwice, part.charge, namedPart(part) + " charged twice",
                       trial.withAmount(part, part.amount + part.amount));
            continue;
        }
        std::optional<Amounts> changed = trial.copy();
        addOnTop(*changed, part);
        trial.note(Cause::kChargedTwice, part.charge,
                   fmt::format("{} charged twice, inside the {} and on top of it", namedPart(part), part.inside),
                   changed);
    }
    for (const Part& part : trial.parts()) {
        tryAllInsideTwice(trial, part);
    }
    if (trial.parts().size() > 1) {
        tryAllTwice(trial);
    }
}

void tryOtherSide(Trial& trial) {
    std::vector<cost::Trade> trades = trial.order().trades;
    const Side was = trial.order().side();
    const Side other = opposite(was);
    if (other == was) {
        return;
    }
    for (cost::Trade& trade : trades) {
        trade.side = other;
    }
    std::optional<Amounts> changed = amountsIfAny(trades, trial.asked().charged.tariff);
    const std::string key(cost::wordFor(other));
    const std::string sentence = fmt::format("charged as {} and not as {}", key, cost::wordFor(was));
    trial.note(Cause::kOtherSide, key + " booked", sentence + ", and booked so", changed);
    if (changed) {
        changed->sign = trial.asked().charged.sign;
    }
    trial.note(Cause::kOtherSide, key, sentence, changed);
}

}  // namespace feedesk
