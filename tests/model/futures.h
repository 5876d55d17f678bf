#ifndef TESTS_MODEL_FUTURES_H
#define TESTS_MODEL_FUTURES_H

#include <boost/smart_ptr/make_shared.hpp>
#include <cstddef>
#include <string>
#include <vector>

#include "model/content_text.h"
#include "model/model.h"

// What an update of one instrument and a custom fee both do to the futures tables: they pool sparse copies.

namespace model {

template <class Detail>
void Model::storeSparseCommission(uint64 account, const std::string& key, const Detail& detail) {
    auto copy = boost::make_shared<qmservice::CCommissionRateDetail>();
    copy->openRatioByMoney = detail.openRatioByMoney;
    copy->openRatioByVolume = detail.openRatioByVolume;
    copy->closeRatioByMoney = detail.closeRatioByMoney;
    copy->closeRatioByVolume = detail.closeRatioByVolume;
    copy->closeTodayRatioByMoney = detail.closeTodayRatioByMoney;
    copy->closeTodayRatioByVolume = detail.closeTodayRatioByVolume;
    copy->commissionExtra1 = detail.commissionExtra1;
    copy->commissionExtra2 = detail.commissionExtra2;
    const std::string text = contentText(detail);
    commissions.emplace(text, copy);
    commissionTable[account][key] = text;
    stored();
}

/// The mode counts in the text and is not copied. A detail whose hedge flag has no slot changes nothing.
template <class Detail>
void Model::storeSparseMargin(uint64 account, const std::string& key, const Detail& detail) {
    if (detail.hedgeFlag < '1' || detail.hedgeFlag > '3') {
        return;
    }
    std::vector<std::string> slots;
    const auto entries = marginTable.find(account);
    if (entries != marginTable.end() && entries->second.count(key) != 0) {
        slots = entries->second.at(key);
    }
    if (slots.empty()) {
        slots.resize(3);
    }
    const auto slot = static_cast<std::size_t>(detail.hedgeFlag - '1');
    if (slot >= slots.size()) {
        return;
    }
    auto copy = boost::make_shared<qmservice::CMarginRateDetail>();
    copy->hedgeFlag = detail.hedgeFlag;
    copy->longMarginRatio = detail.longMarginRatio;
    copy->longMarginRatioByVolume = detail.longMarginRatioByVolume;
    copy->shortMarginRatio = detail.shortMarginRatio;
    copy->shortMarginRatioByVolume = detail.shortMarginRatioByVolume;
    copy->marginExtra1 = detail.marginExtra1;
    copy->marginExtra2 = detail.marginExtra2;
    slots[slot] = contentText(detail);
    margins.emplace(slots[slot], copy);
    marginTable[account][key] = slots;
    stored();
}

}  // namespace model

#endif  // TESTS_MODEL_FUTURES_H
