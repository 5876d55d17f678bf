#include <boost/smart_ptr/make_shared.hpp>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "CFeeCenter.h"
#include "feecenter/category_match.h"
#include "feecenter/content_key.h"
#include "feecenter/item_key.h"
#include "feecenter/option_tables.h"
#include "host/record_fields.h"

namespace qmservice {
namespace {

boost::shared_ptr<CStockOptionFeeItem> makeItem(const CCustomStkExchangeRateLimit& limit) {
    auto item = boost::make_shared<CStockOptionFeeItem>();
    using FeeItem = CStockOptionFeeItem;
    using Limit = CCustomStkExchangeRateLimit;
    records::copyFields(limit, records::optionFees<Limit>, *item, records::optionFees<FeeItem>);
    records::copyFields(limit, records::optionKeyCodes<Limit>, *item, records::optionKeyCodes<FeeItem>);
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
    const ItemKeys* keys = findEntry(*tables.entries, accountKey, instrumentKey);
    if (keys == nullptr) {
        return stored;
    }
    stored.found = true;
    for (const auto& key : *keys) {
        stored.items.emplace_hint(stored.items.end(), key.first, findPooled(*tables.items, key.second));
    }
    if (const double* baseRate = findEntry(*tables.baseRates, accountKey, instrumentKey)) {
        stored.baseRate = *baseRate;
    }
    return stored;
}

/// A new rate that holds the stored items. Rule "Stored items go into the host's new rate": what a host's new rate
/// already holds stays under every other key. The nodes move, nothing is allocated, and no host's item is destroyed
/// under the tables' lock.
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

struct CFeeCenter::StkOption {
    static constexpr InstrumentList kList = kOptionList;

    /// Rule "Stock options name their categories": every other family reads the number from the text.
    static bool matches(const CInstrument& instrument, CCustomStkExchangeRateLimit& limit) {
        return matchesCategory(instrument, limit,
                               utils::CSingletonT<CppCategory>::instance()->getCategorId(limit.category));
    }

    // Rule "Stock options are written under the stock lock".
    static OptionQuery query(CFeeCenter& center) { return {center.stkOptionMutex, OptionReader(tables(center))}; }
    static OptionUpdate update(CFeeCenter& center) { return {center.stockMutex, OptionWriter(tables(center))}; }

private:
    static Guarded<OptionTables> tables(CFeeCenter& center) {
        return {center.stkOptionTableMutex,
                {center.stkOptionItemPool, center.stkOptionAccountTable, center.stkOptionBaseRateTable}};
    }
};

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
    forEachMatch(fee->rateLimits, StkOption::kList, StkOption::matches,
                 [&](const CInstrument& instrument, const auto& limit) {
                     const uint64 instrumentKey = instrumentKeyOf(instrument);
                     const uint64 limitKey = contentKey(limit, getTradeMinUnit(instrument.market, instrument.code));

                     const auto options = StkOption::update(*this);
                     auto item = findPooled(*options->read().items, limitKey);
                     if (!item) {
                         item = makeItem(limit);
                     }
                     const std::string key = itemKey(*item);

                     auto tables = options->write();
                     (*tables->items).emplace(limitKey, item);
                     setItem(*tables->entries, accountKey, instrumentKey, key, limitKey);
                 });
}

boost::shared_ptr<CInstrumentFee> CFeeCenter::getStkOptionFee(uint64 accountKey, uint64 instrumentKey) {
    const auto options = StkOption::query(*this);
    auto fee = boost::make_shared<CInstrumentFee>();
    auto stored = findItems(*options->read(), accountKey, instrumentKey);
    fee->stkOptionFeeRate = stored.found ? makeRate(std::move(stored)) : defaultStkOptionFeeRate;
    return fee;
}

bool CFeeCenter::getStkOptionFees(const boost::shared_ptr<CAccountInfo>& account,
                                  std::vector<boost::shared_ptr<CInstrumentFee>>& fees) {
    const auto readKeys = [this](uint64 accountKey) {
        return instrumentKeysOf(*StkOption::query(*this)->read()->entries, accountKey);
    };
    return listFees(account, fees, readKeys, [this](uint64 accountKey, uint64 instrumentKey) {
        return getStkOptionFee(accountKey, instrumentKey);
    });
}

}  // namespace qmservice
