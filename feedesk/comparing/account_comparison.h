#ifndef FEEDESK_COMPARING_ACCOUNT_COMPARISON_H
#define FEEDESK_COMPARING_ACCOUNT_COMPARISON_H

#include <vector>

#include "feedesk/comparing/alike_instruments.h"
#include "feedesk/comparing/compared_folder.h"
#include "feedesk/comparing/rate_difference.h"

namespace feedesk {

/// Asks both folders' fee centers for the account's instruments as of the day, one for all of those for which both have
/// the same inputs, and reports where the answers differ. Parts and markets that one of the folders does not cover are
/// left out. `instruments` are those of the folders; the account's are those that its kind trades in either. Puts
/// markets into the host's services; the engine must run.
std::vector<RateDifference> compareAccount(ComparedFolder& before, ComparedFolder& after, cost::Date day,
                                           const AccountSides& account,
                                           const std::vector<InstrumentPlaces>& instruments);

}  // namespace feedesk

#endif  // FEEDESK_COMPARING_ACCOUNT_COMPARISON_H
