#ifndef BENCH_FILLED_H
#define BENCH_FILLED_H

#include <boost/shared_ptr.hpp>
#include <map>
#include <memory>
#include <mutex>
#include <random>
#include <utility>

#include "bench/fail.h"
#include "bench/implementations.h"
#include "bench/mixes.h"

namespace bench {

/// Heads or tails, for what should not be the same for all: memory that is asked for first lies closer together.
inline bool tossCoin() {
    static std::random_device coin;
    return coin() % 2 == 0;
}

/// Hands in the stock records of each account; those of every other family too where the shape is the usual one.
template <class Implementation>
void fill(Implementation& center, Shape shape) {
    using namespace qmservice;
    for (int n = 0; n < shape.accounts; ++n) {
        center.load(accountOf(kStockAccount, n), stockRecords(kShanghai, n, shape.entries));
        if (shape.entries != kUsualShape.entries) {
            continue;
        }
        center.load(accountOf(kCreditAccount, n), stockRecords(kShanghai, n, shape.entries));
        center.load(accountOf(kNeeqAccount, n), stockRecords(kThirdBoard, n, shape.entries));
        center.load(accountOf(kHgtAccount, n), connectRecords(n, shape.entries));
        center.load(accountOf(kSgtAccount, n), connectRecords(n, shape.entries));
        center.load(accountOf(kFuturesAccount, n), futuresRecords(n, shape.entries));
        for (const auto& fee : optionCustomFees(ownRate(n, 0))) {
            center.update(accountOf(kOptionAccount, n), fee);
        }
    }
}

/// The implementation with tables of this shape, made when it is first asked for. Safe from any thread.
template <class Implementation>
Implementation& filled(Shape shape) {
    static std::mutex mutex;
    static std::map<std::pair<int, int>, std::unique_ptr<Implementation>> all;
    const std::lock_guard<std::mutex> lock(mutex);
    auto& center = all[{shape.accounts, shape.entries}];
    if (!center) {
        center = std::make_unique<Implementation>();
        fill(*center, shape);
    }
    return *center;
}

/// Ends the program unless the answer is the right one.
inline void check(const Mix& mix, const Question& question, const Fee& fee, const std::string& who) {
    bool right = true;
    withRates(mix, [&](auto wanted) {
        auto given = wanted;
        expect(mix, question, wanted);
        right = mix.answer == Answer::kNothing
                    ? !fee
                    : fee && read(*fee, given) && given == wanted && fee->account == question.account &&
                          fee->instrument == question.instrument;
    });
    if (!right) {
        fail("wrong answer of " + who + " in \"" + mix.name + "\" for " + question.key);
    }
}

template <class Implementation>
void checkAll(const Mix& mix, const std::vector<Question>& questions, Implementation& center) {
    for (const auto& question : questions) {
        check(mix, question, center.ask(question.account, question.key), Implementation::kName);
    }
}

}  // namespace bench

#endif  // BENCH_FILLED_H
