#include "fuzz/last_record_check.h"

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "fuzz/fail.h"
#include "fuzz/rate_text.h"

namespace fuzz {
namespace {

using namespace standalone;
using qmservice::CCustomHGTExchangeRateLimit;
using qmservice::CCustomSgtExchangeRateLimit;
using qmservice::CInstrument;
using qmservice::CInstrumentFee;
using qmservice::CStkExchangeRateLimit;

template <class Limit>
struct Family {
    boost::shared_ptr<Limit> CInstrumentFee::*slot;
    const std::vector<ConfiguredLimit<Limit>>& configured;
    bool configuredFirst;  ///< a configured limit goes before a record
    std::int32_t Limit::*unit;
};

template <class Limit>
using Limits = std::map<const CInstrument*, const Limit*>;

template <class Limit>
Limits<Limit> lastRecords(const Account& account, const Family<Limit>& family) {
    Limits<Limit> last;
    for (const FeeRecord& fee : account.fees) {
        last[fee.record->instrument.get()] = ((*fee.record).*family.slot).get();
    }
    return last;
}

template <class Limit>
Limits<Limit> configuredLimits(const Market& market, const Family<Limit>& family) {
    std::map<std::pair<std::string, std::string>, const Limit*> named;
    for (const ConfiguredLimit<Limit>& limit : family.configured) {
        named[{limit.market, limit.code}] = limit.limit.get();
    }
    Limits<Limit> configured;
    for (const ListedInstrument& listed : market.instruments) {
        const auto limit = named.find({listed.record->market, listed.record->code});
        if (limit != named.end()) {
            configured[listed.record.get()] = limit->second;
        }
    }
    return configured;
}

/// A limit out of the tables is the one that was stored under the same rates and trade unit.
template <class Limit>
bool isStored(const Family<Limit>& family, const Limit& answer, const Limit& wanted, int tradeUnit) {
    return rateText(answer, answer.*family.unit) == rateText(wanted, tradeUnit);
}

/// A fallback has the configured limit's rates; which trade unit it carries depends on the family.
template <class Limit>
bool isFallback(const Limit& answer, const Limit& wanted) {
    return rateText(answer, 0) == rateText(wanted, 0);
}

template <class Limit>
void check(const Market& market, const Account& account, const Answers& answers, const Family<Limit>& family) {
    const Limits<Limit> records = lastRecords(account, family);
    const Limits<Limit> configured = configuredLimits(market, family);
    for (const ListedInstrument& listed : market.instruments) {
        const CInstrument* const instrument = listed.record.get();
        const auto record = records.find(instrument);
        const auto limit = configured.find(instrument);
        const Limit* answer = ((*answers.at(instrument)).*family.slot).get();
        const auto refuse = [&](const char* what) {
            fail(std::string(what) + ": account " + account.record->accountId + ", " + instrument->code);
        };
        if (answer == nullptr) {
            return refuse("an answer has the family's limit");
        }
        if (record != records.end()) {
            const bool replaced = family.configuredFirst && limit != configured.end();
            const Limit& wanted = replaced ? *limit->second : *record->second;
            if (!isStored(family, *answer, wanted, listed.tradeUnit)) {
                refuse("the last record is answered");
            }
        } else if (limit != configured.end() && !isFallback(*answer, *limit->second)) {
            refuse("the configured limit is answered");
        }
    }
}

}  // namespace

void checkLastRecords(const Market& market, const Account& account, const Answers& answers) {
    if (!account.customFees.empty()) {
        return;
    }
    switch (account.record->accountType) {
        case 2:
        case 3:
        case 10:
            check(market, account, answers,
                  Family<CStkExchangeRateLimit>{&CInstrumentFee::stkRateLimit, market.stockLimits, true,
                                                &CStkExchangeRateLimit::unitVolume});
            return;
        case 7:
            check(market, account, answers,
                  Family<CCustomHGTExchangeRateLimit>{&CInstrumentFee::hgtRateLimit, market.hgtLimits, false,
                                                      &CCustomHGTExchangeRateLimit::tradeMinUnit});
            return;
        case 11:
            check(market, account, answers,
                  Family<CCustomSgtExchangeRateLimit>{&CInstrumentFee::sgtRateLimit, market.sgtLimits, false,
                                                      &CCustomSgtExchangeRateLimit::tradeMinUnit});
            return;
        default:
            return;
    }
}

}  // namespace fuzz
