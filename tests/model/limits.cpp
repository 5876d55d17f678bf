#include <boost/smart_ptr/make_shared.hpp>

#include "model/category.h"
#include "model/content_text.h"
#include "model/lookup.h"
#include "model/model.h"

// Stock, credit and NEEQ.

namespace model {
namespace {

using namespace qmservice;

boost::shared_ptr<CStkExchangeRateLimit> withUnit(const CStkExchangeRateLimit& limit, int unit) {
    auto copy = boost::make_shared<CStkExchangeRateLimit>(limit);
    copy->unitVolume = unit;
    return copy;
}

boost::shared_ptr<CStkExchangeRateLimit> plainLimit(const CCustomStkExchangeRateLimit& custom, int unit) {
    auto limit = boost::make_shared<CStkExchangeRateLimit>();
    limit->rate1 = custom.rate1;
    limit->rate2 = custom.rate2;
    limit->rate3 = custom.rate3;
    limit->rate4 = custom.rate4;
    limit->rate5 = custom.rate5;
    limit->rate6 = custom.rate6;
    limit->unitVolume = unit;
    return limit;
}

}  // namespace

void Model::loadLimits(LimitFamily& family, const Account& account, const Records& records) {
    const uint64 accountKey = account->getHashKey(0);
    for (const auto& record : records) {
        const auto fee = boost::dynamic_pointer_cast<CInstrumentFee>(record);
        if (!fee || !fee->instrument) {
            continue;
        }
        const std::string market = fee->instrument->market;
        const std::string code = fee->instrument->code;
        auto limit = valueOr(facts.rateLimits, Name(market, code));
        if (!limit) {
            limit = fee->stkRateLimit;
        }
        if (!limit) {
            continue;
        }
        const int unit = tradeUnit(market, code);
        const std::string text = contentText(*limit, unit);
        family.pool.emplace(text, withUnit(*limit, unit));
        family.table[accountKey][joinedKey(market, code)] = text;
        stored();
    }
}

void Model::overrideLimits(LimitFamily& family, int listMask, const Account& account, const CustomStockFee& custom) {
    if (custom->rateLimits.empty()) {
        return;
    }
    const uint64 accountKey = account->getHashKey(0);
    for (const Instrument& instrument : listInstruments(listMask)) {
        const auto limit = firstOf(custom->rateLimits, [&](const auto& candidate) {
            return applies(candidate, categoryNumber(candidate->category), *instrument);
        });
        if (!limit) {
            continue;
        }
        const int unit = tradeUnit(instrument->market, instrument->code);
        const std::string text = contentText(*limit, unit);
        family.pool.emplace(text, plainLimit(*limit, unit));
        family.table[accountKey][joinedKey(instrument->market, instrument->code)] = text;
        stored();
    }
}

Model::Fee Model::limitFee(const LimitFamily& family, uint64 account, const std::string& key, int unit) const {
    auto fee = boost::make_shared<CInstrumentFee>();
    if (const std::string* text = entryOf(family.table, account, key)) {
        fee->stkRateLimit = family.pool.at(*text);
        return fee;
    }
    if (const Instrument instrument = findInstrument(key)) {
        fee->stkRateLimit = valueOr(facts.rateLimits, Name(instrument->market, instrument->code));
    }
    if (!fee->stkRateLimit) {
        fee->stkRateLimit = family.fallback;
    }
    if (fee->stkRateLimit->unitVolume != unit) {
        fee->stkRateLimit = withUnit(*fee->stkRateLimit, unit);
    }
    return fee;
}

}  // namespace model
