#include <boost/smart_ptr/make_shared.hpp>
#include <boost/thread/lock_types.hpp>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "CFeeCenter.h"
#include "feecenter/category_match.h"
#include "feecenter/content_key.h"
#include "feecenter/family_tables.h"
#include "feecenter/item_key.h"
#include "feecenter/limit_family.h"
#include "feecenter/option_tables.h"

// Rule "Stock options are written under the stock lock": the update runs under stockMutex and the queries under
// stkOptionMutex, so neither takes the other's lock. What keeps the tables whole between them is stkOptionTableMutex,
// always the last lock to be taken: they wait for each other no longer than one read or write of the tables takes.

namespace qmservice {
namespace {

boost::shared_ptr<CStockOptionFeeItem> makeItem(const CCustomStkExchangeRateLimit& limit) {
    auto item = boost::make_shared<CStockOptionFeeItem>();
    item->fee1 = limit.optionFee1;
    item->fee2 = limit.optionFee2;
    item->fee3 = limit.optionFee3;
    item->fee4 = limit.optionFee4;
    item->fee5 = limit.optionFee5;
    item->secondKeyCode = limit.optionSecondKeyCode;
    item->thirdKeyCode = limit.optionThirdKeyCode;
    item->firstKeyCode = limit.optionFirstKeyCode;
    return item;
}

/// What the tables hold for an instrument of an account, copied out of them.
struct StoredItems {
    bool found = false;
    std::map<std::string, boost::shared_ptr<CStockOptionFeeItem>> items;
    std::optional<double> baseRate;
};

StoredItems findItems(const OptionTables& tables, uint64 accountKey, uint64 instrumentKey) {
    StoredItems stored;
    const boost::shared_lock<boost::shared_mutex> lock(tables.tableMutex);
    const ItemKeys* keys = findEntry(tables.accounts, accountKey, instrumentKey);
    if (keys == nullptr) {
        return stored;
    }
    stored.found = true;
    for (const auto& key : *keys) {
        stored.items.emplace(key.first, findPooled(tables.items, key.second));
    }
    if (const double* baseRate = findEntry(tables.baseRates, accountKey, instrumentKey)) {
        stored.baseRate = *baseRate;
    }
    return stored;
}

/// A new rate that holds the stored items. What a host's new rate already holds stays under every other key: the nodes
/// move, nothing is allocated, and no host's item is destroyed under the tables' lock.
boost::shared_ptr<CStockOptionFeeRate> makeRate(StoredItems&& stored) {
    auto rate = boost::make_shared<CStockOptionFeeRate>();
    stored.items.merge(rate->items);
    rate->items = std::move(stored.items);
    if (stored.baseRate) {
        rate->baseRate = *stored.baseRate;
    }
    return rate;
}

/// Other items of the instrument stay as they are.
void setItem(EntryTable<ItemKeys>& table, uint64 accountKey, uint64 instrumentKey, const std::string& item,
             uint64 limitKey) {
    if (ItemKeys* stored = findEntry(table, accountKey, instrumentKey)) {
        (*stored)[item] = limitKey;
    } else {
        setEntry(table, accountKey, instrumentKey, ItemKeys{{item, limitKey}});
    }
}

}  // namespace

void CFeeCenter::doInitStkOptionFee(const boost::shared_ptr<CAccountInfo>& /*account*/,
                                    const std::vector<boost::shared_ptr<IData>>& /*records*/) {
    // Rule "Stock options load nothing": the records are dropped, and custom fees alone fill the tables.
}

void CFeeCenter::doUpdateStkOptionCustomFee(const boost::shared_ptr<CAccountInfo>& account,
                                            const boost::shared_ptr<CCustomStockInstrumentFee>& fee) {
    if (fee->rateLimits.empty()) {
        return;
    }
    const uint64 accountKey = account->getHashKey(0);
    const auto matches = [](const CInstrument& instrument, CCustomStkExchangeRateLimit& limit) {
        // Rule "Stock options name their categories": every other family reads the number from the text.
        return matchesCategory(instrument, limit,
                               utils::CSingletonT<CppCategory>::instance()->getCategorId(limit.category));
    };
    forEachMatch(fee->rateLimits, 32, matches, [&](const CInstrument& instrument, const auto& limit) {
        const uint64 instrumentKey = instrumentKeyOf(instrument);
        const uint64 limitKey = contentKey(limit, getTradeMinUnit(instrument.market, instrument.code));

        const boost::unique_lock<boost::shared_mutex> lock(stockMutex);
        // Writers exclude each other by stockMutex, so this one may read without the tables' own lock.
        auto item = findPooled(stkOptionItemPool, limitKey);
        if (!item) {
            item = makeItem(limit);
        }
        const std::string key = itemKey(*item);

        const boost::unique_lock<boost::shared_mutex> tableLock(stkOptionTableMutex);
        stkOptionItemPool.emplace(limitKey, item);
        setItem(stkOptionAccountTable, accountKey, instrumentKey, key, limitKey);
    });
}

boost::shared_ptr<CInstrumentFee> CFeeCenter::getStkOptionFee(uint64 accountKey, uint64 instrumentKey) {
    const boost::shared_lock<boost::shared_mutex> lock(stkOptionMutex);
    auto fee = boost::make_shared<CInstrumentFee>();
    auto stored = findItems(FamilyTables::options(*this), accountKey, instrumentKey);
    fee->stkOptionFeeRate = stored.found ? makeRate(std::move(stored)) : defaultStkOptionFeeRate;
    return fee;
}

bool CFeeCenter::getStkOptionFees(const boost::shared_ptr<CAccountInfo>& account,
                                  std::vector<boost::shared_ptr<CInstrumentFee>>& fees) {
    struct ReadLocks {
        explicit ReadLocks(const OptionTables& options) : family(options.mutex), tables(options.tableMutex) {}

        boost::shared_lock<boost::shared_mutex> family;
        boost::shared_lock<boost::shared_mutex> tables;
    };
    const OptionTables options = FamilyTables::options(*this);
    return listFeesUnder(
        [&options] { return ReadLocks(options); }, options.accounts, account, fees,
        [this](uint64 accountKey, uint64 instrumentKey) { return getStkOptionFee(accountKey, instrumentKey); });
}

}  // namespace qmservice
