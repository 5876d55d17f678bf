#include <limits>
#include <string>
#include <vector>

#include "conformance/asking.h"
#include "conformance/promise.h"
#include "host/record_fields.h"

namespace conformance {
namespace {

using namespace qmservice;

int askUnit(Witness& witness, const std::string& market, const std::string& code) {
    return witness.call(callOf("getTradeMinUnit", market, code), [&] { return getTradeMinUnit(market, code); });
}

void tradeUnit(const Sample& sample, Witness& witness) {
    for (const SampleInstrument& known : instrumentsOf(sample)) {
        const int unit = askUnit(witness, known.market, known.code);
        Witness::expect(unit >= 1, "gave " + std::to_string(unit));
        const int again = askUnit(witness, known.market, known.code);
        Witness::expect(again == unit, "gave " + std::to_string(unit) + " and then " + std::to_string(again));
    }
}

// It is asked before the catalogue is, so also for what nobody knows.
void anyTradeUnit(const Sample& /*sample*/, Witness& witness) {
    askUnit(witness, kNoMarket, kNoCode);
    askUnit(witness, "", "");
}

template <class Limit>
struct Getter {
    const char* name;
    boost::shared_ptr<Limit> (ConfigCollector::*ask)(std::string, std::string);

    boost::shared_ptr<Limit> operator()(Witness& witness, const std::string& market, const std::string& code) const {
        return witness.call(callOf(name, market, code),
                            [&] { return (*ConfigCollector::instance().*ask)(market, code); });
    }
};

/// Calls visit(getter) for each of the three.
template <class Visit>
void forEachGetter(const Visit& visit) {
    visit(Getter<CStkExchangeRateLimit>{"ConfigCollector::getRateLimitPtr", &ConfigCollector::getRateLimitPtr});
    visit(Getter<CCustomHGTExchangeRateLimit>{"ConfigCollector::getHGTExchangeRateLimitPtr",
                                              &ConfigCollector::getHGTExchangeRateLimitPtr});
    visit(Getter<CCustomSgtExchangeRateLimit>{"ConfigCollector::getSgtExchangeRateLimitPtr",
                                              &ConfigCollector::getSgtExchangeRateLimitPtr});
}

void unknownLimit(const Sample& /*sample*/, Witness& witness) {
    forEachGetter([&](const auto& getter) { Witness::expect(!getter(witness, kNoMarket, kNoCode), "gave a limit"); });
}

template <class Limit>
bool sameLimit(const boost::shared_ptr<Limit>& one, const boost::shared_ptr<Limit>& other) {
    return (!one || !other) ? !one && !other : one->rate1 == other->rate1 && one->rate2 == other->rate2;
}

void limitsRepeat(const Sample& sample, Witness& witness) {
    for (const SampleInstrument& known : instrumentsOf(sample)) {
        forEachGetter([&](const auto& getter) {
            const auto before = getter(witness, known.market, known.code);
            Witness::expect(sameLimit(before, getter(witness, known.market, known.code)),
                            "gave another limit than the time before");
        });
    }
}

// An account may come with any number; its fee is asked for all the same.
void anyPlatform(const Sample& sample, Witness& witness) {
    std::vector<int> platforms = {0, 1, -1, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()};
    for (const auto& account : sample.accounts) {
        platforms.push_back(account->platformId);
    }
    for (const int platform : platforms) {
        const auto ask = [&] {
            return witness.call("ConfigCollector::isSimulationPlatform(" + std::to_string(platform) + ")",
                                [&] { return ConfigCollector::instance()->isSimulationPlatform(platform); });
        };
        const bool before = ask();
        Witness::expect(ask() == before, before ? "gave true and then false" : "gave false and then true");
    }
}

}  // namespace

Promises configurationPromises() {
    return {
        {"configuration.trade-unit",
         "the trade unit of an instrument must be 1 or more and stay the same",
         "return the unit of the instrument, or 100 where it has none of its own",
         tradeUnit,
         {"catalogue.knows"}},
        {"configuration.any-trade-unit", "it is asked before the instrument is looked up and must answer for any text",
         "return 100 for an instrument that you do not know", anyTradeUnit},
        {"configuration.unknown-limit-is-empty",
         "where nothing is configured an empty pointer must come back, or the "
         "account's default is hidden",
         "return an empty pointer where the instrument has no limit",
         unknownLimit,
         {"services.present"}},
        {"configuration.limits-repeat",
         "the limit of an instrument must stay the same while nobody configures another",
         "hand out the configured record and do not write it any more",
         limitsRepeat,
         {"services.present"}},
        {"configuration.any-platform",
         "any platform may be asked for and must be answered the same way each time",
         "return false for a platform that you do not know",
         anyPlatform,
         {"services.present"}},
    };
}

}  // namespace conformance
