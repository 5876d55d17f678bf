#ifndef COST_PLACE_H
#define COST_PLACE_H

#include <array>
#include <string>
#include <string_view>

#include "cost/term.h"

namespace cost {

/// Where a trade is charged: an account's instrument.
struct Place {
    Family family = Family::kStock;  ///< whose charges are asked for
    std::string account;             ///< the account's number
    std::string market;              ///< as the instrument has it
    std::string code;                ///< within the market
    std::string product;             ///< product or board; may be empty

    /// "SH:600519".
    [[nodiscard]] std::string instrument() const { return market + ':' + code; }
};

/// How exactly a term names a place, to compare with another term's: account first, then code, product, market, then
/// the side. In each an exact text is above every pattern, a pattern above one with fewer characters besides its stars,
/// and every pattern above an empty text. The greater array is the more specific term.
using Specificity = std::array<int, 5>;

/// Whether the term is for that place: its family, and its four texts. Not its days, nor its side.
bool appliesTo(const Term& term, const Place& place);
/// @{
/// Both halves of it, whatever the family.
bool isForAccount(const Term& term, std::string_view account);
bool isForInstrument(const Term& term, std::string_view market, std::string_view code, std::string_view product);
/// @}

/// How exactly the term names a place.
Specificity specificity(const Term& term);

/// A term's text with "*" read as empty, since both stand for any.
std::string_view pattern(std::string_view text);

}  // namespace cost

#endif  // COST_PLACE_H
