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

bool isForAccount(const Term& term, std::string_view account) { return matches(account, term.account); }

bool isForInstrument(const Term& term, std::string_view market, std::string_view code, std::string_view product) {
    return matches(market, term.market) && matches(product, term.product) && matches(code, term.code);
}

bool appliesTo(const Term& term, const Place& place) {
    return term.family == place.family && isForInstrument(term, place.market, place.code, place.product) &&
           isForAccount(term, place.account);
}

Specificity specificity(const Term& term) {
    return {exactness(term.account), exactness(term.code), exactness(term.product), exactness(term.market),
            namesOneSide(term.side) ? 1 : 0};
}

}  // namespace cost
