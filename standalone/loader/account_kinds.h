#ifndef STANDALONE_LOADER_ACCOUNT_KINDS_H
#define STANDALONE_LOADER_ACCOUNT_KINDS_H

#include <string>
#include <vector>

#include "standalone/loader/cell.h"

namespace standalone::loader {

/// The words of accounts.csv for the kinds.
const Words& accountKindWords();

/// The words of some kinds, in their order.
std::vector<std::string> kindNames(const std::vector<int>& kinds);

}  // namespace standalone::loader

#endif  // STANDALONE_LOADER_ACCOUNT_KINDS_H
