#ifndef FEECENTER_CATEGORY_NUMBER_H
#define FEECENTER_CATEGORY_NUMBER_H

#include <string>

namespace qmservice {

/// The decimal number at the start of a category text, as atoi reads it on this platform: white space and a sign may
/// stand before it, anything may follow, and a text that does not begin with a number is 0. A number too long for an
/// int is read as this platform's atoi reads it, as the low half of a long that stops at its limits, but without the
/// undefined behaviour.
int categoryNumber(const std::string& text);

}  // namespace qmservice

#endif  // FEECENTER_CATEGORY_NUMBER_H
