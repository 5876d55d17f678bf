#include "feedesk/answers/interval_center.h"

#include <algorithm>
#include <utility>

namespace feedesk {
namespace {

constexpr const char* kStrand = "fees";

}  // namespace

IntervalCenter::IntervalCenter(standalone::Market dayMarket)
    : loaded(std::move(dayMarket)), prepared(standalone::prepared(loaded)), center(kStrand) {}

IntervalCenter::IntervalCenter(const standalone::MarketFolder& folder, cost::Date day)
    : loaded(folder.sharedMarketOn(day)),
      source(Source{folder, day}),
      prepared(standalone::prepared(loaded)),
      center(kStrand) {}

standalone::Account IntervalCenter::whole(const standalone::Account& account) const {
    return source ? source->folder.accountOn(source->day, static_cast<std::size_t>(&account - loaded.accounts.data()))
                  : account;
}

void IntervalCenter::feedOnce(const standalone::Account& account) {
    if (fedAccounts.insert(&account).second) {
        standalone::feed(center->fees, whole(account));
        standalone::waitForStrand(kStrand);
    }
}

void IntervalCenter::forgetAccounts() {
    fedAccounts.clear();
    tracer.reset();
    center.emplace(kStrand);
}

IntervalCenter::Fees IntervalCenter::ask(const standalone::Account& account, const std::vector<Question>& questions) {
    qmservice::IFeeCenter& asked = center->fees;
    Fees fees(questions.size());
    std::transform(questions.begin(), questions.end(), fees.begin(), [&](const Question& question) {
        return asked.getFee(account.record, question.market, question.code);
    });
    return fees;
}

std::optional<IntervalCenter::Fees> IntervalCenter::list(const standalone::Account& account) {
    qmservice::IFeeCenter& asked = center->fees;
    Fees fees;
    return asked.getFees(account.record, fees) ? std::optional<Fees>(std::move(fees)) : std::nullopt;
}

std::vector<std::optional<Answer>> IntervalCenter::traced(const standalone::Account& account,
                                                          const std::vector<Question>& questions, const Fees& fees) {
    if (!tracer) {
        tracer.emplace(loaded, prepared);
    }
    if (!tracer->knows(account)) {
        tracer->feed(account, whole(account));
    }
    const Fees dyed = tracer->ask(account, questions);
    std::vector<std::optional<Answer>> answers(fees.size());
    for (std::size_t i = 0; i < fees.size(); ++i) {
        if (fees[i] && dyed[i]) {
            answers[i] = makeAnswer(*fees[i], *dyed[i], *tracer, loaded);
        }
    }
    return answers;
}

}  // namespace feedesk
