#include "bench/floor/change.h"

#include <boost/thread/lock_types.hpp>
#include <cstdlib>
#include <type_traits>
#include <utility>

#include "bench/floor/keys.h"
#include "host/record_fields.h"

namespace bench::floor {
namespace {

using namespace qmservice;
using Lock = boost::unique_lock<boost::shared_mutex>;

uint64 keyOf(const CInstrument& instrument) {
    return utils::hash(utils::voStockKey(instrument.market, instrument.code));
}

template <class Record, class Make>
void pool(Pool<Record>& records, uint64 key, const Make& make) {
    if (records.find(key) == records.end()) {
        records.emplace(key, make());
    }
}

template <class Record, class Make>
void storeLimit(LimitTables<Record>& tables, uint64 accountKey, uint64 instrumentKey, uint64 limitKey,
                const Make& make) {
    const Lock lock(tables.mutex);
    pool(tables.pool, limitKey, make);
    tables.entries[accountKey][instrumentKey] = limitKey;
}

/// `Slot` is where the record comes with a fee, `Unit` where it carries the trade unit. Stocks ask the configuration.
template <auto Slot, auto Unit, class Record>
void loadLimits(LimitTables<Record>& tables, uint64 accountKey, const std::vector<shared_ptr<IData>>& records) {
    for (const auto& record : records) {
        const auto* fee = dynamic_cast<const CInstrumentFee*>(record.get());
        if (fee == nullptr || !fee->instrument) {
            continue;
        }
        const std::string market = fee->instrument->market;
        const std::string code = fee->instrument->code;
        shared_ptr<Record> limit;
        if constexpr (std::is_same_v<Record, CStkExchangeRateLimit>) {
            limit = ConfigCollector::instance()->getRateLimitPtr(market, code);
        }
        if (!limit) {
            limit = fee->*Slot;
        }
        if (!limit) {
            continue;
        }
        const uint64 instrumentKey = utils::hash(utils::voStockKey(market, code));
        const int unit = getTradeMinUnit(market, code);
        storeLimit(tables, accountKey, instrumentKey, limitKey(*limit, unit), [&] {
            auto copy = boost::make_shared<Record>(*limit);
            (*copy).*Unit = unit;
            return copy;
        });
    }
}

void loadFutures(FuturesTables& tables, uint64 accountKey, const std::vector<shared_ptr<IData>>& records) {
    for (const auto& record : records) {
        const auto* fee = dynamic_cast<const CInstrumentFee*>(record.get());
        if (fee == nullptr || !fee->instrument) {
            continue;
        }
        const uint64 instrumentKey = keyOf(*fee->instrument);
        if (fee->commissionDetail) {
            const uint64 key = commissionKey(*fee->commissionDetail);
            const Lock lock(tables.mutex);
            pool(tables.commissions, key,
                 [&] { return boost::make_shared<CCommissionRateDetail>(*fee->commissionDetail); });
            tables.commissionKeys[accountKey][instrumentKey] = key;
        }
        if (!fee->marginDetails.empty()) {
            const Lock lock(tables.mutex);
            std::vector<uint64> keys;
            keys.reserve(fee->marginDetails.size());
            for (const auto& margin : fee->marginDetails) {
                keys.push_back(marginKey(*margin));
                pool(tables.margins, keys.back(), [&] { return boost::make_shared<CMarginRateDetail>(*margin); });
            }
            tables.marginKeys[accountKey][instrumentKey] = std::move(keys);
        }
    }
}

/// The first of the custom details whose system category holds the instrument. `number` reads the category.
template <class Details, class Number>
auto firstMatch(const CInstrument& instrument, const Details& details, const Number& number)
    -> decltype(details.front().get()) {
    for (const auto& detail : details) {
        if (utils::CSingletonT<CppCategory>::instance()->isStockInCategoryForTS(
                instrument.market, instrument.code, instrument.productId, number(*detail))) {
            return detail.get();
        }
    }
    return nullptr;
}

template <class Apply, class Number>
void forEachMatch(const CCustomStockInstrumentFee& fee, int list, const Number& number, const Apply& apply) {
    std::vector<shared_ptr<CInstrument>> instruments;
    TraderCenter::instance()->getInstCenter()->getInstrumentList(instruments, list);
    for (const auto& instrument : instruments) {
        if (const auto* limit = firstMatch(*instrument, fee.rateLimits, number)) {
            apply(*instrument, *limit);
        }
    }
}

void updateStock(Tables& tables, uint64 accountKey, const CCustomStockInstrumentFee& fee) {
    const auto number = [](const auto& limit) { return std::atoi(limit.category.c_str()); };
    forEachMatch(fee, kStockList, number, [&](const CInstrument& instrument, const auto& limit) {
        const uint64 instrumentKey = keyOf(instrument);
        const int unit = getTradeMinUnit(instrument.market, instrument.code);
        storeLimit(tables.stock, accountKey, instrumentKey, limitKey(limit, unit), [&] {
            auto record = boost::make_shared<CStkExchangeRateLimit>();
            records::copyFields(limit, records::stockRates<CCustomStkExchangeRateLimit>, *record,
                                records::stockRates<CStkExchangeRateLimit>);
            record->unitVolume = unit;
            return record;
        });
    });
}

std::string itemKey(const CCustomStkExchangeRateLimit& limit) {
    return {static_cast<char>(limit.optionFirstKeyCode), static_cast<char>(limit.optionSecondKeyCode),
            static_cast<char>(limit.optionThirdKeyCode)};
}

void updateOption(Tables& tables, uint64 accountKey, const CCustomStockInstrumentFee& fee) {
    const auto number = [](const auto& limit) {
        return utils::CSingletonT<CppCategory>::instance()->getCategorId(limit.category);
    };
    forEachMatch(fee, kOptionList, number, [&](const CInstrument& instrument, const auto& limit) {
        const uint64 instrumentKey = keyOf(instrument);
        const uint64 key = limitKey(limit, getTradeMinUnit(instrument.market, instrument.code));
        const Lock lock(tables.stock.mutex);
        const Lock tableLock(tables.option.tableMutex);
        pool(tables.option.pool, key, [&] {
            auto item = boost::make_shared<CStockOptionFeeItem>();
            records::copyFields(limit, records::optionFees<CCustomStkExchangeRateLimit>, *item,
                                records::optionFees<CStockOptionFeeItem>);
            records::copyFields(limit, records::optionKeyCodes<CCustomStkExchangeRateLimit>, *item,
                                records::optionKeyCodes<CStockOptionFeeItem>);
            return item;
        });
        tables.option.entries[accountKey][instrumentKey][itemKey(limit)] = key;
    });
}

void updateFutures(FuturesTables& tables, uint64 accountKey, const CCustomFutureInstrumentFee& fee) {
    auto* catalogue = TraderCenter::instance()->getInstCenter();
    std::map<std::string, shared_ptr<CInstrument>> instruments;
    catalogue->getInstrumentMap(kFuturesType, instruments);
    std::map<std::string, shared_ptr<CInstrument>> others;
    catalogue->getInstrumentMap(kFuturesExtraType, others);
    instruments.merge(others);
    const auto number = [](const auto& detail) { return std::atoi(detail.categoryId.c_str()); };
    for (const auto& entry : instruments) {
        const CInstrument& instrument = *entry.second;
        if (const auto* commission = firstMatch(instrument, fee.commissionDetails, number)) {
            const uint64 instrumentKey = keyOf(instrument);
            const uint64 key = commissionKey(*commission);
            const Lock lock(tables.mutex);
            pool(tables.commissions, key, [&] {
                auto record = boost::make_shared<CCommissionRateDetail>();
                records::copyFields(*commission, records::commissionRates<CCustomCommissionRateDetail>, *record,
                                    records::commissionRates<CCommissionRateDetail>);
                return record;
            });
            tables.commissionKeys[accountKey][instrumentKey] = key;
        }
        if (const auto* margin = firstMatch(instrument, fee.marginDetails, number)) {
            const uint64 instrumentKey = keyOf(instrument);
            const uint64 key = marginKey(*margin);
            const Lock lock(tables.mutex);
            pool(tables.margins, key, [&] {
                auto record = boost::make_shared<CMarginRateDetail>();
                record->hedgeFlag = margin->hedgeFlag;
                records::copyFields(*margin, records::marginRates<CCustomMarginRateDetail>, *record,
                                    records::marginRates<CMarginRateDetail>);
                return record;
            });
            auto& keys = tables.marginKeys[accountKey][instrumentKey];
            if (keys.empty()) {
                keys.assign(kHedgeFlags.size(), ~uint64(0));
            }
            keys[*hedgeSlot(margin->hedgeFlag)] = key;
        }
    }
}

}  // namespace

void load(Tables& tables, const shared_ptr<CAccountInfo>& account, const std::vector<shared_ptr<IData>>& records) {
    const uint64 accountKey = account->getHashKey(0);
    constexpr auto kStock = &CInstrumentFee::stkRateLimit;
    constexpr auto kUnit = &CStkExchangeRateLimit::unitVolume;
    switch (account->accountType) {
        case kStockAccount:
            return loadLimits<kStock, kUnit>(tables.stock, accountKey, records);
        case kCreditAccount:
            return loadLimits<kStock, kUnit>(tables.credit, accountKey, records);
        case kNeeqAccount:
            return loadLimits<kStock, kUnit>(tables.neeq, accountKey, records);
        case kHgtAccount:
            return loadLimits<&CInstrumentFee::hgtRateLimit, &CCustomHGTExchangeRateLimit::tradeMinUnit>(
                tables.hgt, accountKey, records);
        case kSgtAccount:
            return loadLimits<&CInstrumentFee::sgtRateLimit, &CCustomSgtExchangeRateLimit::tradeMinUnit>(
                tables.sgt, accountKey, records);
        case kFuturesAccount:
            return loadFutures(tables.futures, accountKey, records);
        default:
            return;
    }
}

void update(Tables& tables, const shared_ptr<CAccountInfo>& account, const shared_ptr<IData>& customFee) {
    const uint64 accountKey = account->getHashKey(0);
    if (account->accountType == kFuturesAccount) {
        updateFutures(tables.futures, accountKey, dynamic_cast<const CCustomFutureInstrumentFee&>(*customFee));
    } else if (account->accountType == kOptionAccount) {
        updateOption(tables, accountKey, dynamic_cast<const CCustomStockInstrumentFee&>(*customFee));
    } else {
        updateStock(tables, accountKey, dynamic_cast<const CCustomStockInstrumentFee&>(*customFee));
    }
}

}  // namespace bench::floor
