#ifndef BENCH_MIXES_H
#define BENCH_MIXES_H

#include <boost/shared_ptr.hpp>
#include <string>
#include <vector>

#include "bench/rates.h"
#include "bench/world.h"

namespace bench {

/// What a mix is answered with.
enum class Answer { kStock, kConnect, kFutures, kOption, kFull, kNothing };

/// A mix of lookups: one kind of account asks for instruments of one listing, all answered from one source.
struct Mix {
    const char* name;
    int kind;  ///< of the account, a qmservice::AccountKind
    const Listing& listing;
    const char* market;  ///< under which the instruments are asked for
    Source source;
    Answer answer;
    bool isHit;  ///< whether it is one of the families' hits, which threads are measured by
};

const std::vector<Mix>& allMixes();

/// How much the tables hold: accounts, and instruments that each has records for.
struct Shape {
    int accounts;
    int entries;
};
constexpr Shape kUsualShape{1, kUsualOwn};

/// One lookup, with what its answer has to be made of.
struct Question {
    Account account;
    std::string key;
    int accountNumber;
    int instrumentNumber;
    boost::shared_ptr<qmservice::CInstrument> instrument;  ///< empty when the catalogue does not know it
};

/// Lookups of the mix in a random order, the same in each run.
std::vector<Question> questionsOf(const Mix& mix, Shape shape);

/// What has to be answered, worked out from the numbers of account and instrument.
void expect(const Mix& mix, const Question& question, StockRates& rates);
void expect(const Mix& mix, const Question& question, ConnectRates& rates);
void expect(const Mix& mix, const Question& question, FuturesRates& rates);
void expect(const Mix& mix, const Question& question, OptionRates& rates);
void expect(const Mix& mix, const Question& question, FullRates& rates);

/// Calls `use` with empty rates of the class that the mix is answered with; for no answer, with those of a stock.
template <class Use>
void withRates(const Mix& mix, const Use& use) {
    switch (mix.answer) {
        case Answer::kConnect:
            return use(ConnectRates());
        case Answer::kFutures:
            return use(FuturesRates());
        case Answer::kOption:
            return use(OptionRates());
        case Answer::kFull:
            return use(FullRates());
        default:
            return use(StockRates());
    }
}

}  // namespace bench

#endif  // BENCH_MIXES_H
