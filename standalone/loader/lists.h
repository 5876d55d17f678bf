#ifndef STANDALONE_LOADER_LISTS_H
#define STANDALONE_LOADER_LISTS_H

#include <string>

#include "standalone/families.h"
#include "standalone/loader/table_cell.h"

namespace standalone::loader {

/// Reads the names of lists, separated by spaces. False, with the error reported, when one is unknown.
bool readLists(TableCell& cell, Lists& lists);

/// The names of some lists: `stock`, `futures or futures_extra`.
std::string listNames(const Lists& lists);

}  // namespace standalone::loader

#endif  // STANDALONE_LOADER_LISTS_H
