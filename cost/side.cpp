#include "cost/side.h"

namespace cost {
namespace {

/// The facts of a side. Where no wide term side covers it, `wide` is the term side of its own name.
struct SideFacts {
    TermSide wide;
    bool opening;
    bool shortPosition;
    int turnoverSign;  // where the turnover is paid at all
};

const SideFacts& facts(Side side) {
    static constexpr std::array<SideFacts, kSideCount> all = {{{TermSide::kBoth, true, false, -1},
                                                               {TermSide::kBoth, false, false, 1},
                                                               {TermSide::kOpen, true, false, -1},
                                                               {TermSide::kOpen, true, true, 1},
                                                               {TermSide::kClose, false, false, 1},
                                                               {TermSide::kClose, false, true, -1},
                                                               {TermSide::kCloseToday, false, false, 1},
                                                               {TermSide::kCloseToday, false, true, -1},
                                                               {TermSide::kExercise, false, false, 0}}};
    return all.at(indexOf(side));
}

TermSide itself(Side side) { return static_cast<TermSide>(indexOf(side) + kWideTermSides.size()); }

/// The words of the values that the family has.
template <class Enum>
std::string wordsOf(Family family) {
    std::string list;
    for (std::size_t i = 0; i < kWords<Enum>.size(); ++i) {
        if (has(family, static_cast<Enum>(i))) {
            list += list.empty() ? "" : ", ";
            list += kWords<Enum>[i];
        }
    }
    return list;
}

}  // namespace

bool covers(TermSide term, Side trade) { return term == itself(trade) || term == facts(trade).wide; }

bool namesOneSide(TermSide term) { return static_cast<std::size_t>(term) >= kWideTermSides.size(); }

bool has(Family family, Side side) {
    const TermSide wide = facts(side).wide;
    switch (family) {
        case Family::kOption:
            return wide == TermSide::kOpen || wide == TermSide::kClose || wide == TermSide::kExercise;
        case Family::kFutures:
            return wide == TermSide::kOpen || wide == TermSide::kClose || wide == TermSide::kCloseToday;
        default:
            return wide == TermSide::kBoth;
    }
}

bool has(Family family, TermSide side) {
    for (std::size_t i = 0; i < kSideCount; ++i) {
        if (covers(side, sideAt(i))) {
            return has(family, sideAt(i));
        }
    }
    return false;
}

std::string sidesOf(Family family) { return wordsOf<Side>(family); }

std::string termSidesOf(Family family) { return wordsOf<TermSide>(family); }

bool isOpening(Side side) { return facts(side).opening; }

bool isShort(Side side) { return facts(side).shortPosition; }

int turnoverSign(Family family, Side side) { return family == Family::kFutures ? 0 : facts(side).turnoverSign; }

}  // namespace cost
