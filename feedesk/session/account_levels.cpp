#include "feedesk/session/account_levels.h"

#include <algorithm>

#include "feedesk/instruments/traded_instruments.h"

namespace feedesk {
namespace {

Level leastCertain(const Answer& answer) {
    const auto least = std::max_element(
        answer.lines.begin(), answer.lines.end(),
        [](const FeeLine& one, const FeeLine& other) { return one.origin.level < other.origin.level; });
    return least == answer.lines.end() ? Level::kNotSet : least->origin.level;
}

void count(LevelCounts& counts, Level level, std::size_t number) {
    counts.answered.at(static_cast<std::size_t>(level)) += number;
}

}  // namespace

LevelCounts countLevels(Session& session, const standalone::Account& account) {
    const std::vector<Question> traded = tradedInstruments(account.record->accountType, session.market());
    const Replies replies = session.fees(account, traded);
    LevelCounts counts;
    counts.instruments = traded.size();
    for (const Answer& answer : replies.answers) {
        count(counts, leastCertain(answer), 1);
    }
    count(counts, Level::kNotSet, replies.unanswered.size());
    return counts;
}

}  // namespace feedesk
