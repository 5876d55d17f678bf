#include "standalone/services/category_book.h"

#include <algorithm>

#include "cost/pattern.h"
#include "standalone/text/numbers.h"

namespace standalone {

namespace {

bool isAnyOr(const std::string& wanted, const std::string& value) { return wanted.empty() || wanted == value; }

}  // namespace

bool CategoryRule::takesIn(const std::string& itsMarket, const std::string& itsCode,
                           const std::string& itsProduct) const {
    return isAnyOr(market, itsMarket) && isAnyOr(product, itsProduct) &&
           (code.empty() || cost::matchesPattern(itsCode, code));
}

CategoryBook::CategoryBook(const Market& market) {
    for (const CategoryRule& rule : market.categories) {
        rules[rule.category].push_back(rule);
        numbers.emplace(rule.name, rule.category);
    }
}

bool CategoryBook::holds(int category, const std::string& market, const std::string& code,
                         const std::string& product) const {
    const auto found = rules.find(category);
    return found != rules.end() &&
           std::any_of(found->second.begin(), found->second.end(),
                       [&](const CategoryRule& rule) { return rule.takesIn(market, code, product); });
}

int CategoryBook::numberOf(const std::string& name) const {
    const auto found = numbers.find(name);
    return found == numbers.end() ? numberIn<int>(name).value_or(kNoCategory) : found->second;
}

}  // namespace standalone
