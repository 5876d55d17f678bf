#ifndef FEEDESK_UNLISTED_H
#define FEEDESK_UNLISTED_H

#include <string>
#include <vector>

#include "feedesk/answer.h"
#include "standalone/market.h"

namespace feedesk {

/// One sentence for each answer whose instrument is in no list of the instruments that accounts of the kind trade. A
/// fee center answers for such an instrument as for any other. `market` is the one that the answers come from.
std::vector<std::string> unlistedNotes(const standalone::Account& account, const std::vector<Answer>& answers,
                                       const standalone::Market& market);

}  // namespace feedesk

#endif  // FEEDESK_UNLISTED_H
