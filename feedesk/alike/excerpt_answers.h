#ifndef FEEDESK_ALIKE_EXCERPT_ANSWERS_H
#define FEEDESK_ALIKE_EXCERPT_ANSWERS_H

#include <cstddef>
#include <optional>
#include <vector>

#include "feedesk/answers/answer.h"
#include "standalone/market_folder.h"

namespace feedesk {

/// What a fee center of this account and these instruments alone answers as of the day, in their order; empty where it
/// has no fee. Both are places in the folder's market, the instruments ascending and each once. Positions are those of
/// the folder. The host's services hold another market from then on; the engine must run.
std::vector<std::optional<Answer>> excerptAnswers(const standalone::MarketFolder& folder, cost::Date day,
                                                  std::size_t account, const std::vector<std::size_t>& instruments);

}  // namespace feedesk

#endif  // FEEDESK_ALIKE_EXCERPT_ANSWERS_H
