#include "bench/floor/lookup.h"

#include <boost/thread/lock_types.hpp>
#include <string_view>
#include <utility>

namespace bench::floor {
namespace {

using namespace qmservice;
using Lock = boost::shared_lock<boost::shared_mutex>;
using Fee = shared_ptr<CInstrumentFee>;

constexpr int kUsualUnit = 100;

/// Whether "HGT" or "SGT" is in the key, in one pass over it.
bool namesConnect(const std::string& key) {
    for (std::size_t i = 2; i < key.size(); ++i) {
        if (key[i] == 'T' && key[i - 1] == 'G' && (key[i - 2] == 'H' || key[i - 2] == 'S')) {
            return true;
        }
    }
    return false;
}

uint64 instrumentKeyOf(const std::string& key) {
    const uint64 given = utils::hash(key);
    return namesConnect(key) ? utils::hash(std::string("HK").append(key, 3, std::string::npos)) : given;
}

int unitOf(const std::string& key) {
    std::string market;
    std::string code;
    utils::splitVoStockKey(key, market, code);
    return getTradeMinUnit(market, code);
}

[[gnu::always_inline]] inline shared_ptr<CInstrument> findInstrument(uint64 key) {
    return TraderCenter::instance()->getInstCenter()->findInstrument(key);
}

template <class Entry>
[[gnu::always_inline]] inline const Entry* find(const Entries<Entry>& entries, uint64 accountKey,
                                                uint64 instrumentKey) {
    const auto account = entries.find(accountKey);
    if (account == entries.end()) {
        return nullptr;
    }
    const auto entry = account->second.find(instrumentKey);
    return entry == account->second.end() ? nullptr : &entry->second;
}

shared_ptr<CStkExchangeRateLimit> inUnit(shared_ptr<CStkExchangeRateLimit> limit, int unit) {
    if (limit->unitVolume != unit) {
        limit = boost::make_shared<CStkExchangeRateLimit>(*limit);
        limit->unitVolume = unit;
    }
    return limit;
}

template <class Record>
shared_ptr<Record> inUnit(shared_ptr<Record> limit, int /*unit*/) {
    return limit;
}

template <auto Configured, class Record>
shared_ptr<Record> configuredOr(const shared_ptr<Record>& byDefault, uint64 instrumentKey) {
    if (const auto instrument = findInstrument(instrumentKey)) {
        if (auto limit = ((*ConfigCollector::instance()).*Configured)(instrument->market, instrument->code)) {
            return limit;
        }
    }
    return byDefault;
}

template <auto Slot, auto Configured, class Record>
Fee limitFee(LimitTables<Record>& tables, uint64 accountKey, uint64 instrumentKey, int unit) {
    const Lock lock(tables.mutex);
    auto fee = boost::make_shared<CInstrumentFee>();
    if (const uint64* key = find(tables.entries, accountKey, instrumentKey)) {
        (*fee).*Slot = tables.pool.find(*key)->second;
    } else {
        (*fee).*Slot = inUnit(configuredOr<Configured>(tables.byDefault, instrumentKey), unit);
    }
    return fee;
}

Fee stockFee(LimitTables<CStkExchangeRateLimit>& tables, uint64 accountKey, uint64 instrumentKey, int unit) {
    return limitFee<&CInstrumentFee::stkRateLimit, &ConfigCollector::getRateLimitPtr>(tables, accountKey, instrumentKey,
                                                                                      unit);
}

Fee optionFee(OptionTables& tables, uint64 accountKey, uint64 instrumentKey) {
    const Lock lock(tables.mutex);
    auto fee = boost::make_shared<CInstrumentFee>();
    const Lock tableLock(tables.tableMutex);
    const auto* keys = find(tables.entries, accountKey, instrumentKey);
    if (keys == nullptr) {
        fee->stkOptionFeeRate = tables.byDefault;
        return fee;
    }
    fee->stkOptionFeeRate = boost::make_shared<CStockOptionFeeRate>();
    auto& items = fee->stkOptionFeeRate->items;
    for (const auto& key : *keys) {
        items.emplace_hint(items.end(), key.first, tables.pool.find(key.second)->second);
    }
    if (const double* baseRate = find(tables.baseRates, accountKey, instrumentKey)) {
        fee->stkOptionFeeRate->baseRate = *baseRate;
    }
    return fee;
}

/// A copy of the default for the instrument. No account of a mix is on a simulation.
Fee defaultFuturesFee(const FuturesTables& tables, uint64 accountKey, const shared_ptr<CInstrument>& instrument) {
    auto fee = boost::dynamic_pointer_cast<CInstrumentFee>(tables.byDefault->copy());
    if (fee->commissionDetail == tables.byDefault->commissionDetail) {
        fee->commissionDetail = boost::make_shared<CCommissionRateDetail>(*fee->commissionDetail);
    }
    fee->instrument = instrument;
    fee->commissionDetail->instrumentId = instrument->code;
    if (TraderCenter::instance()->getDataCenter()->getAccountData(accountKey)) {
        return {};
    }
    return fee;
}

Fee futuresFee(FuturesTables& tables, uint64 accountKey, uint64 instrumentKey) {
    const Lock lock(tables.mutex);
    const uint64* commission = find(tables.commissionKeys, accountKey, instrumentKey);
    const auto* margins = find(tables.marginKeys, accountKey, instrumentKey);
    if (commission == nullptr || margins == nullptr) {
        return defaultFuturesFee(tables, accountKey, findInstrument(instrumentKey));
    }
    auto fee = boost::make_shared<CInstrumentFee>();
    fee->commissionDetail = tables.commissions.find(*commission)->second;
    fee->marginDetails.reserve(margins->size());
    for (const uint64 key : *margins) {
        fee->marginDetails.push_back(tables.margins.find(key)->second);
    }
    fee->instrument = findInstrument(instrumentKey);
    return fee;
}

template <class... Names>
bool isOneOf(std::string_view market, const Names&... names) {
    return ((market == names) || ...);
}

/// Of a stock or of a future: no mix asks for another market.
Fee fullFee(Tables& tables, uint64 accountKey, uint64 instrumentKey) {
    const auto instrument = findInstrument(instrumentKey);
    if (!instrument) {
        return {};
    }
    if (isOneOf(instrument->market, "SH", "SZ", "BJ", "SSE", "SZSE")) {
        auto fee = stockFee(tables.stock, accountKey, instrumentKey, kUsualUnit);
        fee->stkOptionFeeRate = std::move(optionFee(tables.option, accountKey, instrumentKey)->stkOptionFeeRate);
        return fee;
    }
    if (isOneOf(instrument->market, "DF", "DCE", "ZF", "CZCE", "SF", "SHFE", "GF", "GFEX")) {
        return futuresFee(tables.futures, accountKey, instrumentKey);
    }
    return {};
}

Fee familyFee(Tables& tables, int accountType, uint64 accountKey, uint64 instrumentKey, int unit) {
    switch (accountType) {
        case kFuturesAccount:
            return futuresFee(tables.futures, accountKey, instrumentKey);
        case kStockAccount:
            return stockFee(tables.stock, accountKey, instrumentKey, unit);
        case kCreditAccount:
            return stockFee(tables.credit, accountKey, instrumentKey, unit);
        case kOptionAccount:
            return optionFee(tables.option, accountKey, instrumentKey);
        case kHgtAccount:
            return limitFee<&CInstrumentFee::hgtRateLimit, &ConfigCollector::getHGTExchangeRateLimitPtr>(
                tables.hgt, accountKey, instrumentKey, unit);
        case kNeeqAccount:
            return stockFee(tables.neeq, accountKey, instrumentKey, unit);
        case kSgtAccount:
            return limitFee<&CInstrumentFee::sgtRateLimit, &ConfigCollector::getSgtExchangeRateLimitPtr>(
                tables.sgt, accountKey, instrumentKey, unit);
        case kPrimeBrokerageAccount:
            return fullFee(tables, accountKey, instrumentKey);
        default:
            return {};
    }
}

/// The keys of the account's instruments, copied under the lock.
bool readKeys(boost::shared_mutex& mutex, const Entries<uint64>& entries, uint64 accountKey,
              std::vector<uint64>& keys) {
    const Lock lock(mutex);
    const auto account = entries.find(accountKey);
    if (account == entries.end()) {
        return false;
    }
    keys.reserve(account->second.size());
    for (const auto& entry : account->second) {
        keys.push_back(entry.first);
    }
    return true;
}

template <class Lookup>
bool list(boost::shared_mutex& mutex, const Entries<uint64>& entries, const shared_ptr<CAccountInfo>& account,
          std::vector<Fee>& fees, const Lookup& lookup) {
    const uint64 accountKey = account->getHashKey(0);
    std::vector<uint64> keys;
    if (!readKeys(mutex, entries, accountKey, keys)) {
        return false;
    }
    fees.reserve(fees.size() + keys.size());
    for (const uint64 key : keys) {
        if (auto instrument = findInstrument(key)) {
            auto fee = lookup(accountKey, key);
            fee->account = account;
            fee->instrument = std::move(instrument);
            fees.push_back(std::move(fee));
        }
    }
    return true;
}

}  // namespace

Fee getFee(Tables& tables, const shared_ptr<CAccountInfo>& account, const std::string& key) {
    const uint64 accountKey = account->getHashKey(0);
    const uint64 instrumentKey = instrumentKeyOf(key);
    const int accountType = account->accountType;
    const int unit = accountType == kStockAccount || accountType == kCreditAccount ? unitOf(key) : kUsualUnit;
    auto instrument = findInstrument(instrumentKey);
    if (!instrument) {
        return {};
    }
    auto fee = familyFee(tables, accountType, accountKey, instrumentKey, unit);
    fee->account = account;
    fee->instrument = std::move(instrument);
    return fee;
}

bool getFees(Tables& tables, const shared_ptr<CAccountInfo>& account, std::vector<Fee>& fees) {
    if (account->accountType == kStockAccount) {
        return list(tables.stock.mutex, tables.stock.entries, account, fees,
                    [&](uint64 accountKey, uint64 key) { return stockFee(tables.stock, accountKey, key, kUsualUnit); });
    }
    return list(tables.futures.mutex, tables.futures.commissionKeys, account, fees,
                [&](uint64 accountKey, uint64 key) { return futuresFee(tables.futures, accountKey, key); });
}

}  // namespace bench::floor
