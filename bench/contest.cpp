#include "bench/contest.h"

#include <benchmark/benchmark.h>

#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <tuple>

#include "bench/filled.h"
#include "bench/plain.h"

namespace bench {
namespace {

template <class Center>
void add(Contest& contest, const char* name, Center& center) {
    const auto ask = [&questions = contest.questions, &center](std::size_t first, std::size_t count) {
        for (std::size_t n = first; n < first + count; ++n) {
            const Question& question = questions[n % questions.size()];
            benchmark::DoNotOptimize(center.ask(question.account, question.key));
        }
    };
    contest.contestants.push_back({name, ask});
}

template <class Implementation>
void addCenter(Contest& contest, const Mix& mix, Shape shape) {
    auto& center = filled<Implementation>(shape);
    checkAll(mix, contest.questions, center);
    add(contest, Implementation::kName, center);
}

/// Each account's rates of every instrument that a question may be about.
template <class Way, class Rates>
void fillPlain(const Mix& mix, Shape shape, Plain<Way, Rates>& plain) {
    if (mix.answer == Answer::kNothing) {
        return;
    }
    const int count = mix.source == Source::kOwn ? shape.entries : kOthers;
    for (int number = 0; number < shape.accounts; ++number) {
        const Account account = accountOf(mix.kind, number);
        for (int n = 0; n < count; ++n) {
            const Question question{account, utils::voStockKey(mix.market, codeOf(mix.listing, mix.source, n)), number,
                                    n, nullptr};
            Rates rates;
            expect(mix, question, rates);
            plain.set(account, question.key, rates);
        }
    }
}

template <class Way, class Rates>
void checkPlain(const Mix& mix, const std::vector<Question>& questions, const Plain<Way, Rates>& plain) {
    for (const auto& question : questions) {
        Rates wanted;
        expect(mix, question, wanted);
        const auto given = plain.ask(question.account, question.key);
        const bool right = mix.answer == Answer::kNothing ? !given : given && *given == wanted;
        if (!right) {
            fail(std::string("wrong answer of ") + Way::kName + " in \"" + mix.name + "\" for " + question.key);
        }
    }
}

template <class Way>
void addPlain(Contest& contest, const Mix& mix, Shape shape) {
    withRates(mix, [&](auto rates) {
        using Table = Plain<Way, decltype(rates)>;
        static std::vector<std::unique_ptr<Table>> tables;  // kept as long as the contests
        tables.push_back(std::make_unique<Table>());
        fillPlain(mix, shape, *tables.back());
        checkPlain(mix, contest.questions, *tables.back());
        add(contest, Way::kName, *tables.back());
    });
}

}  // namespace

const Contest& contestOf(const Mix& mix, Shape shape) {
    static std::mutex mutex;
    static std::map<std::tuple<std::string, int, int>, std::unique_ptr<Contest>> all;
    const std::lock_guard<std::mutex> lock(mutex);
    auto& contest = all[{mix.name, shape.accounts, shape.entries}];
    if (!contest) {
        contest = std::make_unique<Contest>();
        contest->questions = questionsOf(mix, shape);
        if (tossCoin()) {
            filled<Floor>(shape);  // before the fee center's
        }
        addCenter<FeeCenter>(*contest, mix, shape);
        addCenter<Floor>(*contest, mix, shape);
        addPlain<SharedMutex>(*contest, mix, shape);
        addPlain<OneMutex>(*contest, mix, shape);
#if BOOST_VERSION >= 108100
        addPlain<FlatMap>(*contest, mix, shape);
#endif
    }
    return *contest;
}

}  // namespace bench
