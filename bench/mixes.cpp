#include "bench/mixes.h"

#include <algorithm>
#include <random>

#include "host/keys.h"

namespace bench {
namespace {

constexpr std::size_t kQuestions = 16001;  ///< no multiple of what is asked at a time

int howMany(const Mix& mix, Shape shape) {
    return mix.source == Source::kOwn ? std::min(shape.entries, mix.listing.own) : kOthers;
}

template <class Rates, class OfRate>
Rates expected(const Mix& mix, const Question& question, const OfRate& ofRate, const Rates& byDefault) {
    switch (mix.source) {
        case Source::kOwn:
            return ofRate(ownRate(question.accountNumber, question.instrumentNumber));
        case Source::kConfigured:
            return ofRate(configuredRate(question.instrumentNumber));
        default:
            return byDefault;
    }
}

}  // namespace

const std::vector<Mix>& allMixes() {
    using namespace qmservice;
    static const std::vector<Mix> mixes = {
        {"stock hit", kStockAccount, kShanghai, "SH", Source::kOwn, Answer::kStock, true},
        {"stock configured", kStockAccount, kShanghai, "SH", Source::kConfigured, Answer::kStock, false},
        {"stock default", kStockAccount, kShanghai, "SH", Source::kDefault, Answer::kStock, false},
        {"stock unknown", kStockAccount, kShanghai, "SH", Source::kUnknown, Answer::kNothing, false},
        {"credit hit", kCreditAccount, kShanghai, "SH", Source::kOwn, Answer::kStock, true},
        {"NEEQ hit", kNeeqAccount, kThirdBoard, "NEEQ", Source::kOwn, Answer::kStock, true},
        {"option hit", kOptionAccount, kShanghaiOptions, "SHO", Source::kOwn, Answer::kOption, true},
        {"option default", kOptionAccount, kShanghaiOptions, "SHO", Source::kDefault, Answer::kOption, false},
        {"HGT hit", kHgtAccount, kHongKong, "HGT", Source::kOwn, Answer::kConnect, true},
        {"HGT configured", kHgtAccount, kHongKong, "HGT", Source::kConfigured, Answer::kConnect, false},
        {"HGT default", kHgtAccount, kHongKong, "HGT", Source::kDefault, Answer::kConnect, false},
        {"SGT hit", kSgtAccount, kHongKong, "SGT", Source::kOwn, Answer::kConnect, true},
        {"futures hit", kFuturesAccount, kFuturesExchange, "SF", Source::kOwn, Answer::kFutures, true},
        {"futures default", kFuturesAccount, kFuturesExchange, "SF", Source::kDefault, Answer::kFutures, false},
        {"prime stock hit", kPrimeBrokerageAccount, kShanghai, "SH", Source::kOwn, Answer::kFull, true},
        {"prime futures hit", kPrimeBrokerageAccount, kFuturesExchange, "SF", Source::kOwn, Answer::kFutures, true},
    };
    return mixes;
}

std::vector<Question> questionsOf(const Mix& mix, Shape shape) {
    std::mt19937 random(1);
    std::uniform_int_distribution<int> anyAccount(0, shape.accounts - 1);
    std::uniform_int_distribution<int> anyInstrument(0, howMany(mix, shape) - 1);
    std::vector<Account> accounts;
    for (int account = 0; account < shape.accounts; ++account) {
        accounts.push_back(accountOf(mix.kind, account));
    }
    std::vector<Question> questions;
    questions.reserve(kQuestions);
    while (questions.size() < kQuestions) {
        const int account = anyAccount(random);
        const int n = anyInstrument(random);
        questions.push_back({accounts[static_cast<std::size_t>(account)],
                             utils::voStockKey(mix.market, codeOf(mix.listing, mix.source, n)), account, n,
                             instrumentOf(mix.listing, mix.source, n)});
    }
    return questions;
}

void expect(const Mix& mix, const Question& question, StockRates& rates) {
    rates = expected(mix, question, stockRates, defaultStockRates());
}

void expect(const Mix& mix, const Question& question, ConnectRates& rates) {
    rates = expected(mix, question, connectRates, defaultConnectRates());
}

void expect(const Mix& mix, const Question& question, FuturesRates& rates) {
    rates = expected(mix, question, futuresRates, FuturesRates());
}

void expect(const Mix& mix, const Question& question, OptionRates& rates) {
    // One custom fee serves a whole list, so that all options of an account have the rates of its first.
    rates = mix.source == Source::kOwn ? optionRates(ownRate(question.accountNumber, 0)) : defaultOptionRates();
}

void expect(const Mix& mix, const Question& question, FullRates& rates) {
    expect(mix, question, rates.stock);
    rates.option = defaultOptionRates();
}

}  // namespace bench
