#ifndef FEEDESK_ANSWERS_UNLISTED_H
#define FEEDESK_ANSWERS_UNLISTED_H

#include <string>
#include <vector>

#include "feedesk/answers/answer.h"
#include "standalone/market.h"

namespace feedesk {

/// Which of the answers' instruments are in no list of the instruments that accounts of the kind trade: one sentence
/// for those that are answered with the same levels. A fee center answers for such an instrument as for any other.
/// `market` is the one that the answers come from.
std::vector<std::string> unlistedNotes(const standalone::Account& account, const std::vector<Answer>& answers,
                                       const standalone::Market& market);

}  // namespace feedesk

#endif  // FEEDESK_ANSWERS_UNLISTED_H
