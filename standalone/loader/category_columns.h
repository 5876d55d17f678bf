#ifndef STANDALONE_LOADER_CATEGORY_COLUMNS_H
#define STANDALONE_LOADER_CATEGORY_COLUMNS_H

#include "standalone/loader/rule_line.h"

namespace standalone::loader {

// The column `category` of a table that refers to the categories of the folder, which have been read before.

/// A system or custom category.
RuleColumn memberCategoryColumn(const Load& load);
/// A category that a custom fee is matched by: a system or group category. Custom categories are refused.
RuleColumn categoryColumn(const Load& load);
/// The same for Shenzhen connect, which is matched by system categories alone.
RuleColumn systemCategoryColumn(const Load& load);

}  // namespace standalone::loader

#endif  // STANDALONE_LOADER_CATEGORY_COLUMNS_H
