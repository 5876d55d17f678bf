#include "standalone/services/category_book.h"

#include <algorithm>

#include "cost/pattern.h"
#include "standalone/text/numbers.h"

namespace standalone {

namespace {

bool isAnyOr(const std::string& wanted, const std::string& value) { return wanted.empty() || wanted == value; }

bool takesIn(const CategoryRule& rule, const std::string& market, const std::string& code, const std::string& product) {
    return isAnyOr(rule.market, market) && isAnyOr(rule.product, product) &&
           (rule.code.empty() || cost::matchesPattern(code, rule.code));
}

}  // namespace

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
                       [&](const CategoryRule& rule) { return takesIn(rule, market, code, product); });
}

int CategoryBook::numberOf(const std::string& name) const {
    const auto found = numbers.find(name);
    return found == numbers.end() ? numberIn<int>(name).value_or(kNoCategory) : found->second;
}

}  // namespace standalone
