#ifndef STANDALONE_LOADER_CHARGE_COLUMNS_H
#define STANDALONE_LOADER_CHARGE_COLUMNS_H

#include <vector>

#include "cost/term.h"
#include "standalone/loader/table.h"

namespace standalone::loader {

/// The columns of charges.csv. They refer to the load, which outlives them. What several cells of a line must agree in
/// is not looked at.
std::vector<TableColumn<cost::Term>> chargeColumns(const Load& load);

}  // namespace standalone::loader

#endif  // STANDALONE_LOADER_CHARGE_COLUMNS_H
