#ifndef COST_TERM_H
#define COST_TERM_H

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "cost/date.h"
#include "cost/decimal.h"
#include "cost/side.h"

namespace cost {

/// What a rate is multiplied with.
enum class Basis {
    kTurnover,  ///< quantity x price x multiplier
    kQuantity,  ///< shares, lots, contracts
    kOrder,     ///< 1 for each order
    kDay        ///< 1 for each day, account, instrument and side
};

/// Its words.
template <>
inline constexpr std::array<std::string_view, 4> kWords<Basis> = {"turnover", "quantity", "order", "day"};

/// What minimum, maximum and rounding apply to.
enum class Per {
    kFill,   ///< each fill by itself
    kOrder,  ///< the sum of an order's fills of one day
    kDay     ///< the sum of a day's fills of one account, instrument and side
};

/// Its words.
template <>
inline constexpr std::array<std::string_view, 3> kWords<Per> = {"fill", "order", "day"};

/// A charging term: how one charge becomes an amount, where and when. One line of charges.csv.
// Its fields are in groups of one meaning each, not by size: a folder has some tens of terms.
// NOLINTNEXTLINE(clang-analyzer-optin.performance.Padding)
struct Term {
    // Where it applies. '*' in the four texts means any run of characters; empty, as "*", is any.
    Family family = Family::kStock;  ///< the family of accounts
    std::string account;             ///< pattern of the account's number
    std::string market;              ///< pattern of the market
    std::string code;                ///< pattern of the code
    std::string product;             ///< pattern of the product
    DateRange dates;                 ///< the days on which it applies

    // What is charged.
    std::string charge;  ///< a rate of the answer ("stamp_duty"), or a name of its own when `rate` is given
    std::string item;    ///< options: key of the fee item whose rate it is ("000"); empty where the rate is the term's
    std::string title;   ///< what a person reads; may be empty
    TermSide side = TermSide::kBoth;  ///< of which trades
    std::optional<Decimal> rate;      ///< empty: the fee center's

    // How it becomes an amount.
    Basis basis = Basis::kTurnover;    ///< what the rate is multiplied with
    std::optional<Decimal> minimum;    ///< money, the least for one `per`; empty: none
    std::optional<Decimal> maximum;    ///< money, the most for one `per`; empty: none
    Per per = Per::kFill;              ///< what minimum, maximum and rounding apply to
    std::optional<Rounding> rounding;  ///< empty: the exact amount stays
    std::string inside;                ///< the charge that already contains this one; empty: it is paid by itself
    std::string currency;              ///< of its amounts, such as "CNY"

    // Who says so.
    std::string source;           ///< who published it
    std::optional<Date> checked;  ///< the day on which somebody last compared it with its source; empty: never
    std::string where;            ///< "charges.csv:12": its place, for messages; not looked into

    /// The title, or the charge where there is none.
    [[nodiscard]] const std::string& name() const { return title.empty() ? charge : title; }
};

/// What is wrong with one of several terms: its index and a sentence that does not name it.
struct TermFault {
    std::size_t term = 0;  ///< its index in the list
    std::string sentence;  ///< what is wrong and what was expected
};

/// What is wrong with a term by itself, a sentence for each fault.
std::vector<std::string> faultsOf(const Term& term);

/// What is wrong between terms that shall stand in one schedule, in their order: one that is inside a charge which no
/// term of its family has, and two equally specific ones for the same charge and side on the same day whose places are
/// the same text (the fault is the later term's and names the earlier one's `where`). Equally specific terms with
/// different patterns contradict each other only where a place matches both: ties.h.
std::vector<TermFault> conflictsOf(const std::vector<Term>& terms);

/// Both, in the order of the terms.
std::vector<TermFault> faultsOf(const std::vector<Term>& terms);

}  // namespace cost

#endif  // COST_TERM_H
