#ifndef COST_TARIFF_H
#define COST_TARIFF_H

#include <array>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "cost/place.h"
#include "cost/rates.h"
#include "cost/schedule.h"

namespace cost {

/// What of an instrument matters to the amounts of its trades.
struct Contract {
    /// Units of the underlying in one lot or contract. 0: not known, and what needs it is refused; of shares it is 1 in
    /// any case.
    Decimal multiplier;
    Decimal minimum = Decimal(1);  ///< least quantity of a purchase or opening
    Decimal increment =
        Decimal(1);  ///< what a purchase or opening can have more than the minimum is a multiple of this
};

/// What one side of trades pays of one term. Plan::lines names its fields' meaning in full.
struct ChargeLine {
    const Term* term = nullptr;    ///< how it is charged; lives as long as the tariff
    const Rate* rate = nullptr;    ///< the fee center's; empty where the term has a rate of its own
    Decimal value;                 ///< the rate that applies; never 0
    const Term* inside = nullptr;  ///< the term that already contains this one; empty: it is paid by itself
};

/// What trades of one side pay, or why that cannot be said.
struct Plan {
    /// In the order of the answer's rates, then of the schedule. A rate of 0 has no line: it charges nothing, no
    /// minimum either.
    std::vector<ChargeLine> lines;
    std::string currency;  ///< of all lines; empty without lines
    /// Not empty: no answer, and the sentence around the date that says why.
    std::string problem;
    std::string afterDate;  ///< what follows the date in that sentence
};

/// What one account is charged on one instrument while neither its rates nor its terms change: rates and terms brought
/// together and checked once, so that many trades can be charged quickly. Immutable, safe from any thread; copies share
/// one content, which pointers handed out by them live as long as.
class Tariff {
public:
    /// Brings them together. Throws nothing but std::bad_alloc and std::overflow_error: planOf says
    /// what is missing.
    Tariff(Place place, Contract contract, Rates rates, TermSet terms);

    /// @{
    /// What it was made of; live as long as a copy of the tariff.
    [[nodiscard]] const Place& place() const { return content->place; }
    [[nodiscard]] const Contract& contract() const { return content->contract; }
    [[nodiscard]] const Rates& rates() const { return content->rates; }
    [[nodiscard]] const TermSet& terms() const { return content->terms; }
    /// @}

    /// What a trade of that side and day pays. Throws Refused, in a sentence that says what is missing:
    /// - the family has no such side, or no term charges it;
    /// - a rate that is not 0 has no term of any side (options: of the fee items that this side's terms name);
    /// - a term's rate or fee item is not in the answer, or is below 0;
    /// - a charge is inside one that this side does not pay, or inside itself by way of others;
    /// - the terms name two currencies;
    /// - the day is outside TermSet::dates().
    [[nodiscard]] const Plan& planOf(Side side, Date date) const;

private:
    struct Content {
        Place place;
        Contract contract;
        Rates rates;
        TermSet terms;
        std::array<Plan, kSideCount> plans;
    };

    std::shared_ptr<const Content> content;
};

}  // namespace cost

#endif  // COST_TARIFF_H
