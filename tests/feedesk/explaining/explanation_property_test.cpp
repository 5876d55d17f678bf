// What explain() names is what decides: held against the fee center's answers from folders without one line each.
#include <gtest/gtest.h>

#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <set>
#include <vector>

#include "feedesk/explaining/explanation.h"
#include "feedesk/session/session.h"
#include "feedesk/text/numbers.h"
#include "tests/feedesk/support/random_folder.h"

namespace feedesk::test {
namespace {

Question questionOf(const std::string& instrument) {
    const std::size_t colon = instrument.find(':');
    return {instrument.substr(0, colon), instrument.substr(colon + 1)};
}

std::string placeOf(const Session& session, const Origin& origin) {
    return origin.position ? session.market().where(*origin.position) : "";
}

/// Everything that an answer says: part, item, level, source and rates.
std::string textOf(const Session& session, const Answer& answer) {
    std::string text;
    for (const FeeLine& line : answer.lines) {
        text += fmt::format("{} {} {} {}", line.part, line.item, levelName(line.origin.level),
                            placeOf(session, line.origin));
        for (const TitledRates& titled : line.rates) {
            for (const ShownRate& rate : titled.rates) {
                text += " " + plainNumber(rate.value);
            }
        }
        text += "\n";
    }
    return text;
}

using Pair = std::pair<std::string, std::string>;  // account and instrument

Replies repliesOf(Session& session, const Pair& pair) {
    return session.fees(session.account(pair.first), {questionOf(pair.second)});
}

std::map<Pair, std::string> answersOf(const SampleFolder& folder) {
    Session session(SessionOptions{folder.path()});
    std::map<Pair, std::string> answers;
    for (const std::string& account : RandomFolder::accounts()) {
        for (const std::string& instrument : RandomFolder::instruments()) {
            const Replies replies = repliesOf(session, {account, instrument});
            answers[{account, instrument}] =
                replies.answers.empty() ? "none" : textOf(session, replies.answers.front());
        }
    }
    return answers;
}

/// The lines that each answer's explanation names as those that give it.
std::map<Pair, std::set<std::string>> namedIn(const SampleFolder& folder) {
    Session session(SessionOptions{folder.path()});
    std::map<Pair, std::set<std::string>> named;
    for (const std::string& account : RandomFolder::accounts()) {
        for (const std::string& instrument : RandomFolder::instruments()) {
            const Answer answer = repliesOf(session, {account, instrument}).answers.front();
            const Trials trials(session.excerpt(session.account(account), questionOf(instrument)));
            for (const Considered& input : explain(trials, session.day(), answer)) {
                if (input.turn == 1) {
                    named[{account, instrument}].insert(placeOf(session, input.line.origin));
                }
            }
        }
    }
    return named;
}

std::vector<RandomFolder::RateLine> linesToTakeAway(const RandomFolder& folder) {
    const std::vector<RandomFolder::RateLine> all = folder.rateLines();
    std::vector<RandomFolder::RateLine> lines;
    for (std::size_t i = 0; i < all.size(); i += ONE_LINE_OF) {
        lines.push_back(all[i]);
    }
    return lines;
}

class ExplainedFolder : public testing::TestWithParam<unsigned> {};

TEST_P(ExplainedFolder, ChangesItsAnswerWithoutTheNamedLineAndWithNoOtherTakenAway) {
    const RandomFolder whole(GetParam());
    const SampleFolder folder;
    whole.writeTo(folder);
    const auto answers = answersOf(folder);
    const auto named = namedIn(folder);
    std::size_t changes = 0;
    for (const RandomFolder::RateLine& line : linesToTakeAway(whole)) {
        RandomFolder without = whole;
        without.takeAway(line);
        without.writeTo(folder);
        for (const auto& [pair, answer] : answersOf(folder)) {
            const bool isNamed = named.at(pair).count(line.place()) == 1;
            changes += isNamed ? 1 : 0;
            EXPECT_EQ(answer != answers.at(pair), isNamed)
                << pair.first << " " << pair.second << " without " << line.place() << "\n"
                << answers.at(pair) << "becomes\n"
                << answer;
        }
    }
    EXPECT_GT(changes, 20U / ONE_LINE_OF);
}

TEST_P(ExplainedFolder, AnswersWithWhatIsNamedNextWhenTheNamedLineIsTakenAway) {
    const RandomFolder whole(GetParam());
    const SampleFolder folder;
    whole.writeTo(folder);
    struct Next {
        std::string named;
        std::string next;  // with its level
    };
    std::map<Pair, Next> stocks;
    {
        Session session(SessionOptions{folder.path()});
        for (const std::string& account : RandomFolder::accounts()) {
            for (const std::string& instrument : RandomFolder::instruments()) {
                const Answer answer = repliesOf(session, {account, instrument}).answers.front();
                const Trials trials(session.excerpt(session.account(account), questionOf(instrument)));
                const std::vector<Considered> considered = explain(trials, session.day(), answer);
                // One rate alone: what takes turns is one line after the other.
                if (answer.lines.size() == 1 && considered.size() > 1 && considered[1].turn == 2) {
                    const Origin& origin = considered[1].line.origin;
                    stocks[{account, instrument}] = {placeOf(session, considered[0].line.origin),
                                                     levelName(origin.level) + placeOf(session, origin)};
                }
            }
        }
    }
    EXPECT_GT(stocks.size(), 3U);
    for (const RandomFolder::RateLine& line : linesToTakeAway(whole)) {
        RandomFolder without = whole;
        without.takeAway(line);
        without.writeTo(folder);
        Session session(SessionOptions{folder.path()});
        for (const auto& [pair, next] : stocks) {
            if (next.named == line.place()) {
                const Origin origin = repliesOf(session, pair).answers.front().lines.front().origin;
                EXPECT_EQ(levelName(origin.level) + placeOf(session, origin), next.next)
                    << pair.first << " " << pair.second << " without " << line.place();
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Random, ExplainedFolder, testing::Range(1U, 1U + RANDOM_FOLDERS));

}  // namespace
}  // namespace feedesk::test
