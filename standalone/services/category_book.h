#ifndef STANDALONE_SERVICES_CATEGORY_BOOK_H
#define STANDALONE_SERVICES_CATEGORY_BOOK_H

#include <boost/unordered_map.hpp>
#include <string>
#include <vector>

#include "standalone/market.h"

namespace standalone {

/// The system categories of a market. Immutable: safe from any thread.
class CategoryBook {
public:
    /// What getCategorId answers for a name that no category has.
    static constexpr int kNoCategory = -1;

    /// Without categories.
    CategoryBook() = default;
    explicit CategoryBook(const Market& market);

    /// Whether one rule of the category takes the instrument in; false for an unknown category.
    [[nodiscard]] bool holds(int category, const std::string& market, const std::string& code,
                             const std::string& product) const;

    /// The category with this name, or else the number that the whole text is, or else kNoCategory. The number need not
    /// be a system category's: custom and group categories are known by number alone.
    [[nodiscard]] int numberOf(const std::string& name) const;

private:
    boost::unordered_map<int, std::vector<CategoryRule>> rules;
    boost::unordered_map<std::string, int> numbers;
};

}  // namespace standalone

#endif  // STANDALONE_SERVICES_CATEGORY_BOOK_H
