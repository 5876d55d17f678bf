#ifndef STANDALONE_LOADER_CHARGE_TIES_H
#define STANDALONE_LOADER_CHARGE_TIES_H

#include <vector>

#include "cost/term.h"
#include "standalone/loader/load.h"

namespace standalone::loader {

/// Which of the folder's charging terms contradict each other for an account and an instrument of the folder, though
/// their texts differ: a fault for each pair, of the later term, that names one such place.
std::vector<cost::TermFault> chargeTies(const Load& load);

}  // namespace standalone::loader

#endif  // STANDALONE_LOADER_CHARGE_TIES_H
