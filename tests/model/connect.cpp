#include <boost/smart_ptr/make_shared.hpp>

#include "model/category.h"
#include "model/content_text.h"
#include "model/lookup.h"
#include "model/model.h"

// The two Hong Kong connect channels.

namespace model {
namespace {

using namespace qmservice;

template <class Limit>
void store(Model::ConnectFamily<Limit>& family, uint64 account, const CInstrument& instrument, const Limit& limit,
           int unit) {
    const auto copy = boost::make_shared<Limit>(limit);
    copy->tradeMinUnit = unit;
    const std::string text = contentText(*copy, unit);
    family.pool.emplace(text, copy);
    family.table[account][joinedKey(instrument.market, instrument.code)] = text;
}

/// The limit of the channel that a record brings for its instrument; an empty pointer when it brings none.
template <class Limit>
boost::shared_ptr<Limit> broughtLimit(const boost::shared_ptr<CInstrumentFee>& fee,
                                      boost::shared_ptr<Limit> CInstrumentFee::*field) {
    return fee && fee->instrument ? (*fee).*field : nullptr;
}

template <class Limit>
boost::shared_ptr<Limit> limitOf(const Model::ConnectFamily<Limit>& family, uint64 account, const std::string& key,
                                 const boost::shared_ptr<CInstrument>& instrument,
                                 const std::map<Name, boost::shared_ptr<Limit>>& configured) {
    if (const std::string* text = entryOf(family.table, account, key)) {
        return family.pool.at(*text);
    }
    const auto limit = instrument ? valueOr(configured, Name(instrument->market, instrument->code)) : nullptr;
    return limit ? limit : family.fallback;
}

}  // namespace

void Model::loadHgt(const Account& account, const Records& records) {
    const uint64 accountKey = account->getHashKey(0);
    for (const auto& record : records) {
        const auto fee = boost::dynamic_pointer_cast<CInstrumentFee>(record);
        if (const auto limit = broughtLimit(fee, &CInstrumentFee::hgtRateLimit)) {
            store(hgt, accountKey, *fee->instrument, *limit, tradeUnit(fee->instrument->market, fee->instrument->code));
            stored();
        }
    }
}

void Model::loadSgt(const Account& account, const Records& records) {
    const uint64 accountKey = account->getHashKey(0);
    for (const auto& record : records) {
        const auto fee = boost::dynamic_pointer_cast<CInstrumentFee>(record);
        if (const auto limit = broughtLimit(fee, &CInstrumentFee::sgtRateLimit)) {
            store(sgt, accountKey, *fee->instrument, *limit, tradeUnit(fee->instrument->market, fee->instrument->code));
            stored();
        }
    }
}

void Model::overrideHgt(const Account& account, const boost::shared_ptr<CCustomHGTInstrumentFee>& custom) {
    if (custom->rateLimits.empty()) {
        return;
    }
    const uint64 accountKey = account->getHashKey(0);
    for (const Instrument& instrument : listInstruments(128)) {
        const auto limit = firstOf(custom->rateLimits, [&](const auto& candidate) {
            return applies(candidate, categoryNumber(candidate->category), *instrument);
        });
        if (limit) {
            store(hgt, accountKey, *instrument, *limit, tradeUnit(instrument->market, instrument->code));
            stored();
        }
    }
}

/// Here the system category alone decides.
void Model::overrideSgt(const Account& account, const boost::shared_ptr<CCustomSgtInstrumentFee>& custom) {
    if (custom->rateLimits.empty()) {
        return;
    }
    const uint64 accountKey = account->getHashKey(0);
    for (const Instrument& instrument : listInstruments(16384)) {
        const auto limit = firstOf(custom->rateLimits, [&](const auto& candidate) {
            return inSystemCategory(*instrument, categoryNumber(candidate->category));
        });
        if (limit) {
            store(sgt, accountKey, *instrument, *limit, tradeUnit(instrument->market, instrument->code));
            stored();
        }
    }
}

Model::Fee Model::hgtFee(uint64 account, const std::string& key) const {
    auto fee = boost::make_shared<CInstrumentFee>();
    fee->hgtRateLimit = limitOf(hgt, account, key, findInstrument(key), facts.hgtLimits);
    return fee;
}

Model::Fee Model::sgtFee(uint64 account, const std::string& key) const {
    auto fee = boost::make_shared<CInstrumentFee>();
    fee->sgtRateLimit = limitOf(sgt, account, key, findInstrument(key), facts.sgtLimits);
    return fee;
}

}  // namespace model
