#ifndef FEEDESK_EXPLAINING_VERDICT_TEXT_H
#define FEEDESK_EXPLAINING_VERDICT_TEXT_H

#include <string>

#include "feedesk/explaining/explanation.h"

namespace feedesk {

/// "overridden", "other_category" and so on: names for programs, which do not change.
std::string verdictName(Verdict verdict);

/// The same for people, who find the place of the input that goes before it in the next column.
std::string verdictText(const Considered& input);

}  // namespace feedesk

#endif  // FEEDESK_EXPLAINING_VERDICT_TEXT_H
