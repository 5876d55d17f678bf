#include "feedesk/explaining/trials.h"

#include <algorithm>
#include <utility>

#include "feedesk/answers/interval_center.h"

namespace feedesk {
namespace {

Answer answerOf(standalone::Market market) {
    const qmservice::CInstrument& instrument = *market.instruments.front().record;
    const std::vector<Question> questions = {{instrument.market, instrument.code}};
    IntervalCenter center(std::move(market));
    center.install();
    const standalone::Account& account = center.market().accounts.front();
    center.feedOnce(account);
    return center.traced(account, questions, center.ask(account, questions)).front().value_or(Answer());
}

/// A name that no category of a market folder has.
constexpr const char* kNoName = " ";

}  // namespace

Kept Trials::only(std::size_t line) const {
    Kept kept(lines().size());
    kept[line] = true;
    return kept;
}

Answer Trials::with(const Kept& kept) const { return answerOf(excerpt.market(kept)); }

Answer Trials::withOnly(std::size_t line) const { return with(only(line)); }

Answer Trials::withCategoryOfAll(std::size_t line) const {
    standalone::Market market = excerpt.market(only(line));
    market.categories.push_back({lines()[line].category, kNoName, "", "", "", {}});
    return answerOf(std::move(market));
}

Answer Trials::onSimulation(std::size_t line) const {
    standalone::Market market = excerpt.market(only(line));
    market.simulationPlatforms.push_back(market.accounts.front().record->platformId);
    return answerOf(std::move(market));
}

std::optional<std::size_t> Trials::lineOf(const Origin& origin) const {
    if (!origin.position) {
        return std::nullopt;
    }
    const auto found = std::find_if(lines().begin(), lines().end(), [&](const standalone::RateInput& line) {
        return line.position == *origin.position;
    });
    return found == lines().end() ? std::nullopt
                                  : std::make_optional(static_cast<std::size_t>(found - lines().begin()));
}

const FeeLine* lineFrom(const Answer& answer, const Trials& trials, std::size_t line) {
    const auto found = std::find_if(answer.lines.begin(), answer.lines.end(),
                                    [&](const FeeLine& each) { return trials.lineOf(each.origin) == line; });
    return found == answer.lines.end() ? nullptr : &*found;
}

}  // namespace feedesk
