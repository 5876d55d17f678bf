#ifndef COST_SIDE_H
#define COST_SIDE_H

#include <array>
#include <cstddef>
#include <string>

#include "cost/words.h"

namespace cost {

/// Whose rates a trade pays. An income-swap or prime-brokerage account trades in one of these.
enum class Family { kStock, kCredit, kNeeq, kOption, kHgt, kSgt, kFutures };

/// Its words.
template <>
inline constexpr std::array<std::string_view, 7> kWords<Family> = {"stock", "credit", "neeq",   "option",
                                                                   "hgt",   "sgt",    "futures"};

/// What a trade did. "Long" and "short" name the position that is opened or closed: closing a long one sells.
enum class Side {
    kBuy,
    kSell,
    kOpenLong,
    kOpenShort,
    kCloseLong,
    kCloseShort,
    kCloseTodayLong,
    kCloseTodayShort,
    kExercise
};

/// Its words.
template <>
inline constexpr std::array<std::string_view, 9> kWords<Side> = {
    "buy",     "sell", "open_long", "open_short", "close_long", "close_short", "close_today_long", "close_today_short",
    "exercise"};

/// The sides that a charging term is for: some name several, then each side of its own. "close" is not "close_today":
/// those are different fees.
enum class TermSide {
    kBoth,
    kOpen,
    kClose,
    kCloseToday,
    kBuy,
    kSell,
    kOpenLong,
    kOpenShort,
    kCloseLong,
    kCloseShort,
    kCloseTodayLong,
    kCloseTodayShort,
    kExercise
};

/// The words of the sides of terms that name several.
constexpr std::array<std::string_view, 4> kWideTermSides = {"both", "open", "close", "close_today"};

/// Its words: these, then those of the sides of trades.
template <>
inline constexpr std::array<std::string_view, kWideTermSides.size() + kWords<Side>.size()> kWords<TermSide> = [] {
    std::array<std::string_view, kWideTermSides.size() + kWords<Side>.size()> words{};
    std::size_t count = 0;
    for (const std::string_view wide : kWideTermSides) {
        words[count++] = wide;
    }
    for (const std::string_view side : kWords<Side>) {
        words[count++] = side;
    }
    return words;
}();

/// @{
/// Sides as places of an array that has one for each.
constexpr std::size_t kSideCount = kWords<Side>.size();
constexpr std::size_t indexOf(Side side) { return static_cast<std::size_t>(side); }
constexpr Side sideAt(std::size_t index) { return static_cast<Side>(index); }
/// @}

/// Whether a term of that side is for this trade.
bool covers(TermSide term, Side trade);
/// Whether the term names one side and not several.
bool namesOneSide(TermSide term);
/// Whether the family has trades of that side.
bool has(Family family, Side side);
/// Whether the family has trades of a side that a term of that side is for.
bool has(Family family, TermSide side);
/// "buy, sell": the sides of the family's trades.
std::string sidesOf(Family family);
/// "both, buy, sell": the sides of the family's terms.
std::string termSidesOf(Family family);

/// Whether the trade gives what the account did not have: a purchase, or the opening of a position.
bool isOpening(Side side);
/// Whether the position is a short one.
bool isShort(Side side);
/// What the trade's turnover does to the account: +1 comes in, -1 goes out, 0 when it does not move.
int turnoverSign(Family family, Side side);

}  // namespace cost

#endif  // COST_SIDE_H
