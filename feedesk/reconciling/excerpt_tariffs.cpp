#include "feedesk/reconciling/excerpt_tariffs.h"

#include <algorithm>
#include <utility>

#include "cost/refused.h"
#include "feedesk/instruments/instrument_text.h"
#include "feedesk/trades/tariffs.h"

namespace feedesk {

ExcerptTariffs::ExcerptTariffs(Session& openedSession) : session(openedSession) {
    for (const standalone::ListedInstrument& one : session.market().instruments) {
        instrumentPlaces.emplace(instrumentText(one.record->market, one.record->code), instrumentPlaces.size());
    }
}

standalone::FolderExcerpt ExcerptTariffs::excerptOf(const std::string& accountId,
                                                    const std::vector<Question>& questions) const {
    const standalone::Market& market = session.market();
    const auto place = std::find_if(market.accounts.begin(), market.accounts.end(),
                                    [&](const auto& each) { return each.record->accountId == accountId; });
    std::vector<std::size_t> instruments;
    instruments.reserve(questions.size());
    for (const Question& question : questions) {
        instruments.push_back(instrumentPlaces.at(instrumentText(question.market, question.code)));
    }
    std::sort(instruments.begin(), instruments.end());
    return {session.folder(), static_cast<std::size_t>(place - market.accounts.begin()), instruments};
}

std::vector<std::optional<cost::Tariff>> ExcerptTariffs::tariffsFrom(standalone::Market market, cost::Date date,
                                                                     const std::vector<Question>& questions) const {
    IntervalCenter center(std::move(market));
    center.install();
    const standalone::Account& asked = center.market().accounts.front();
    center.feedOnce(asked);
    const IntervalCenter::Fees fees = center.ask(asked, questions);
    std::vector<std::optional<Answer>> answers = center.traced(asked, questions, fees);
    std::vector<std::optional<cost::Tariff>> tariffs(questions.size());
    for (std::size_t i = 0; i < questions.size(); ++i) {
        try {
            if (answers[i]) {
                tariffs[i] = chargedBy(session, {fees[i], std::move(*answers[i]), &center.market()},
                                       asked.record->accountId, date)
                                 .tariff;
            }
        } catch (const cost::Refused&) {
            tariffs[i].reset();  // what cannot be charged explains nothing
        }
    }
    return tariffs;
}

std::optional<cost::Tariff> ExcerptTariffs::tariffOn(cost::Date date, const std::string& accountId,
                                                     const Question& question) const {
    return tariffsFrom(excerptOf(accountId, {question}).marketOn(date), date, {question}).front();
}

}  // namespace feedesk
