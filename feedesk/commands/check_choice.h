#ifndef FEEDESK_COMMANDS_CHECK_CHOICE_H
#define FEEDESK_COMMANDS_CHECK_CHOICE_H

#include <string>
#include <vector>

#include "feedesk/checking/check.h"

namespace feedesk {

/// The names of all checks, in their order.
std::vector<std::string> checkNames();

/// Why the text names no check; empty when it does.
std::string checkProblem(const std::string& text);

/// The checks that are named (none: all) but for those that are switched off. Throws Failure where none is left.
std::vector<const checking::Check*> chosenChecks(const std::vector<std::string>& only,
                                                 const std::vector<std::string>& off);

}  // namespace feedesk

#endif  // FEEDESK_COMMANDS_CHECK_CHOICE_H
