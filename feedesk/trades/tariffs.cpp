#include "feedesk/trades/tariffs.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "cost/refused.h"
#include "feedesk/failure.h"
#include "feedesk/instruments/instrument_text.h"
#include "feedesk/text/text.h"
#include "standalone/channels.h"
#include "standalone/families.h"

namespace feedesk {
namespace {

using cost::Refused;

constexpr std::size_t kManyTariffs = 20'000;
constexpr char kSeparator = '\0';  // in no text that a person writes

void refuse(const std::string& sentence) {
    if (!sentence.empty()) {
        throw Refused(sentence);
    }
}

/// A day that is not covered is the mistake of who asks for it.
void refuseDay(const std::string& sentence) {
    if (!sentence.empty()) {
        throw cost::WrongTrade(sentence);
    }
}

/// Every rate field of the family under its column's name.
cost::RateNames namesOf(cost::Family family, const standalone::Market& market) {
    const standalone::RateFamily& rates = standalone::rateFamilyOf(family);
    const std::vector<std::string> columns = standalone::rateColumnNames(market, rates);
    cost::RateNames names;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        names[family].push_back({rates.rates[i].field, columns[i]});
    }
    return names;
}

/// What a traced answer says about the part that holds a rate.
class Origins {
public:
    Origins(const Answer& tracedAnswer, const standalone::Market& marketOfDay)
        : answer(tracedAnswer), market(marketOfDay) {}

    template <class Rate>
    void fill(Rate& rate, std::string_view part, const std::string& item) const {
        const auto line = std::find_if(answer.lines.begin(), answer.lines.end(),
                                       [&](const FeeLine& each) { return each.part == part && each.item == item; });
        if (line == answer.lines.end()) {
            return;
        }
        rate.level = levelName(line->origin.level);
        rate.source = line->origin.position ? market.where(*line->origin.position) : "";
    }

private:
    const Answer& answer;
    const standalone::Market& market;
};

cost::Rates sourcedRates(const DatedFee& dated, cost::Family family) {
    cost::Rates rates = cost::ratesOf(*dated.fee, namesOf(family, *dated.market));
    const Origins origins(dated.answer, *dated.market);
    const std::string_view part = standalone::rateFamilyOf(family).name;
    for (cost::Rate& rate : rates.charges) {
        origins.fill(rate, part, rate.item);
    }
    for (cost::MarginRate& rate : rates.margins) {
        origins.fill(rate, kMarginPart, std::string(1, rate.hedgeFlag));
    }
    return rates;
}

cost::Decimal decimal(double number) { return cost::Decimal::fromRate(number).value_or(cost::Decimal()); }

/// The least quantity of a purchase is the trade unit of the answer, and its steps too unless the folder has others.
cost::Contract contractOf(const qmservice::CInstrumentFee& fee, const InstrumentName& instrument) {
    const int unit = fee.hgtRateLimit   ? fee.hgtRateLimit->tradeMinUnit
                     : fee.sgtRateLimit ? fee.sgtRateLimit->tradeMinUnit
                     : fee.stkRateLimit ? fee.stkRateLimit->unitVolume
                                        : 1;
    const cost::Decimal least(std::max(unit, 1));
    const cost::Decimal step = instrument.quantityStep == 0 ? least : cost::Decimal(instrument.quantityStep);
    return {decimal(fee.instrument->volumeMultiple), least, step};
}

/// A fee center answers for instruments that none of the family's lists holds, and the charging terms are not for them.
NamedInstrument listedAt(const InstrumentNames& instruments, const cost::Place& place) {
    const standalone::RateFamily& rates = standalone::rateFamilyOf(place.family);
    NamedInstrument listed = instruments.listed(rates.lists, place.market, place.code);
    if (!listed) {
        throw Refused(
            fmt::format("{} is in no list of {} instruments, and {} is answered with their rates; ask with an "
                        "account that trades it",
                        instrumentText(place), rates.instruments, place.account));
    }
    return listed;
}

/// As chargedOn(), whether or not the schedules cover the day.
Charged answered(Session& session, cost::Date date, const std::string& account, const Question& question) {
    DatedFee dated = session.feeOn(date, account, question);
    if (!dated.fee) {
        throw Refused(fmt::format("the fee center has no fee of {} for account {}", instrumentText(question), account));
    }
    return chargedBy(session, std::move(dated), account, date);
}

void refuseUncovered(const Session& session, cost::Date date, const cost::Tariff& tariff) {
    const standalone::Coverage& coverage = session.folder().coverage();
    refuseDay(coverage.refusal(date, tariff.place().family));
    refuseDay(coverage.refusal(date, tariff.place().market));
}

}  // namespace

Charged chargedBy(const Session& session, DatedFee dated, const std::string& account, cost::Date date) {
    const cost::Family family = cost::chargedFamilyOf(*dated.fee);
    cost::Rates rates = sourcedRates(dated, family);
    const qmservice::CInstrument& instrument = *dated.fee->instrument;
    const cost::Place place{family, account, instrument.market, instrument.code, instrument.productId};
    const NamedInstrument listed = listedAt(session.instruments(), place);
    return {cost::Tariff(place, contractOf(*dated.fee, *listed), std::move(rates),
                         session.folder().schedule().termsFor(place, date)),
            std::move(dated.answer)};
}

Charged chargedOn(Session& session, cost::Date date, const std::string& account, const Question& question) {
    refuseDay(session.folder().coverage().refusal(date));
    Charged charged = answered(session, date, account, question);
    refuseUncovered(session, date, charged.tariff);
    return charged;
}

Question Tariffs::question(const std::string& account, const std::string& market, const std::string& code) {
    const standalone::Account& asked = session.account(account);
    const bool connect = standalone::tradesThroughConnect(asked.record->accountType);
    const std::string text = instrumentText(market, code);
    const std::vector<Question> found = session.instruments().find(text, connect);
    if (found.size() > 1) {
        throw Refused(fmt::format("{} stands for {} instruments, and a trade is of one", echoed(text), found.size()));
    }
    if (found.empty()) {
        throw Refused(mayAdvise() ? session.instruments().problem(text, connect)
                                  : "the market folder has no instrument " + echoed(text));
    }
    return found.front();
}

Tariffs::Entry Tariffs::make(cost::Date date, const std::string& account, const std::string& market,
                             const std::string& code) {
    try {
        if (!session.hasAccount(account) && !mayAdvise()) {
            throw Refused("the market folder has no account " + echoed(account));
        }
        const Question asked = question(account, market, code);
        return {std::make_unique<const cost::Tariff>(answered(session, date, account, asked).tariff), ""};
    } catch (const Refused& refused) {
        return {nullptr, refused.what()};
    } catch (const Failure& unknownAccount) {
        return {nullptr, unknownAccount.what()};
    }
}

const cost::Tariff& Tariffs::on(cost::Date date, const std::string& account, const std::string& market,
                                const std::string& code) {
    const std::size_t asked = session.folder().intervalOf(date);
    if (asked != interval) {
        entries.clear();
        session.keepOnly(date);
        interval = asked;
    }
    key.assign(account).append(1, kSeparator).append(market).append(1, kSeparator).append(code);
    auto found = entries.find(key);
    if (found == entries.end()) {
        found = entries.emplace(key, make(date, account, market, code)).first;
    }
    refuse(found->second.problem);
    refuseUncovered(session, date, *found->second.tariff);
    return *found->second.tariff;
}

void Tariffs::requireCovered(cost::Date date) const { refuse(session.folder().coverage().refusal(date)); }

void Tariffs::forgetMany() {
    if (entries.size() > kManyTariffs) {
        entries.clear();
    }
}

}  // namespace feedesk
