#ifndef FEEDESK_ALIKE_INSTRUMENT_INPUTS_H
#define FEEDESK_ALIKE_INSTRUMENT_INPUTS_H

#include <vector>

#include "feedesk/alike/account_inputs.h"

namespace feedesk {

/// A number for each instrument of a folder, by its place in the market: those with the same number have the same
/// inputs and are matched by the same of the account's lines, so that the account is answered alike for them.
std::vector<int> instrumentInputs(standalone::FolderContents& contents, cost::Date day, const AccountDayLines& lines);

}  // namespace feedesk

#endif  // FEEDESK_ALIKE_INSTRUMENT_INPUTS_H
