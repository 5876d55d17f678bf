#include "cost/place.h"

#include <algorithm>
#include <limits>

#include "cost/pattern.h"

namespace cost {
namespace {

bool matches(std::string_view text, std::string_view termText) {
    const std::string_view wanted = pattern(termText);
    return wanted.empty() || matchesPattern(text, wanted);
}

int exactness(std::string_view termText) {
    const std::string_view wanted = pattern(termText);
    const auto stars = std::count(wanted.begin(), wanted.end(), '*');
    return stars == 0 && !wanted.empty() ? std::numeric_limits<int>::max()
                                         : static_cast<int>(wanted.size()) - static_cast<int>(stars);
}

}  // namespace

std::string_view pattern(std::string_view text) { return text == "*" ? std::string_view() : text; }

bool appliesTo(const Term& term, const Place& place) {
    return term.family == place.family && matches(place.market, term.market) && matches(place.product, term.product) &&
           matches(place.code, term.code) && matches(place.account, term.account);
}

Specificity specificity(const Term& term) {
    return {exactness(term.account), exactness(term.code), exactness(term.product), exactness(term.market),
            namesOneSide(term.side) ? 1 : 0};
}

}  // namespace cost
