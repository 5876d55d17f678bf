#include "histories/random_histories.h"

#include <rapidcheck.h>

#include <cstddef>
#include <unordered_map>
#include <utility>

namespace histories {
namespace {

constexpr std::size_t kSteps = 40;

/// Fewer bytes, or lower ones.
rc::Seq<Step> simplerSteps(const Step& step) {
    return rc::seq::concat(rc::shrink::removeChunks(step), rc::shrink::eachElement(step, [](std::uint8_t byte) {
                               return rc::shrink::towards<std::uint8_t>(byte, 0);
                           }));
}

/// Fewer steps, or simpler ones.
rc::Seq<History> simplerHistories(const History& history) {
    return rc::seq::concat(rc::shrink::removeChunks(history), rc::shrink::eachElement(history, &simplerSteps));
}

rc::Gen<History> histories() {
    return [](rc::Random random, int /*size*/) {
        return rc::shrinkable::shrinkRecur(makeHistory(kSteps, [&] { return random.next(); }), &simplerHistories);
    };
}

/// Says nothing: what fails is described by its history.
class Silence : public rc::detail::TestListener {
public:
    void onTestCaseFinished(const rc::detail::CaseDescription& /*description*/) override {}
    void onShrinkTried(const rc::detail::CaseDescription& /*shrink*/, bool /*accepted*/) override {}
    void onTestFinished(const rc::detail::TestMetadata& /*metadata*/,
                        const rc::detail::TestResult& /*result*/) override {}
};

std::string describeFailure(const History& history, Focus focus, const std::string& difference) {
    return "The fee center and the model differ " + difference + "\n" + describe(history, focus);
}

std::string lineToRunAgain(const History& history, const Trial& trial) {
    return std::string("To run it again: FEECENTER_HISTORY=") + nameOf(trial.focus) + ':' + toText(history) + ' ' +
           trial.test + '\n';
}

}  // namespace

std::string firstFailure(std::uint64_t seed, int count, const Trial& trial) {
    std::string failure;  // of the last history that failed, which is the simplest one
    const auto property = [&] {
        const History history = *histories();
        const std::string text = trial.failureOf(history);
        if (!text.empty()) {
            failure = text + lineToRunAgain(history, trial);
        }
        RC_ASSERT(text.empty());
    };
    rc::detail::TestParams params;
    params.seed = seed;
    params.maxSuccess = count;
    Silence listener;
    const std::unordered_map<std::string, rc::detail::Reproduce> nothingToReproduce;
    const auto result =
        rc::detail::checkTestable(property, rc::detail::TestMetadata(), params, listener, nothingToReproduce);
    return result.is<rc::detail::SuccessResult>() || !failure.empty() ? failure
                                                                      : "RapidCheck did not run the histories";
}

Trial sideBySide(Focus focus, Compare when, Totals& totals) {
    return {focus, "histories_test --gtest_filter='*AnswerAsTheModelDoes*'",
            [=, &totals, failed = false](const History& history) mutable {
                const Outcome outcome = runHistory(history, focus, when);
                if (!failed) {
                    ++totals.histories;
                    totals.steps += outcome.steps;
                    totals.answers += outcome.answers;
                    totals.reached.add(outcome.reached);
                }
                failed = failed || outcome.difference;
                return outcome.difference ? describeFailure(history, focus, *outcome.difference) : std::string();
            }};
}

std::string describe(const Totals& totals) {
    return "histories: " + std::to_string(totals.histories) + ", steps: " + std::to_string(totals.steps) +
           ", answers compared: " + std::to_string(totals.answers);
}

}  // namespace histories
