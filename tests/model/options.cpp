#include <boost/smart_ptr/make_shared.hpp>
#include <string>

#include "model/category.h"
#include "model/content_text.h"
#include "model/lookup.h"
#include "model/model.h"

// Stock options.

namespace model {
namespace {

using namespace qmservice;

boost::shared_ptr<CStockOptionFeeItem> itemOf(const CCustomStkExchangeRateLimit& custom) {
    auto item = boost::make_shared<CStockOptionFeeItem>();
    item->fee1 = custom.optionFee1;
    item->fee2 = custom.optionFee2;
    item->fee3 = custom.optionFee3;
    item->fee4 = custom.optionFee4;
    item->fee5 = custom.optionFee5;
    item->secondKeyCode = custom.optionSecondKeyCode;
    item->thirdKeyCode = custom.optionThirdKeyCode;
    item->firstKeyCode = custom.optionFirstKeyCode;
    return item;
}

/// The character of a code. Codes past the last character, and below the first, go round the 256 characters again.
char character(int code) {
    const int place = ((code % 256) + 256) % 256;
    return static_cast<char>(place < 128 ? place : place - 256);
}

/// The key has no third character after a second code of 68, which is 'D'; a code that only goes round to it has one.
std::string itemKeyOf(const CStockOptionFeeItem& item) {
    std::string key;
    for (const int code : {item.firstKeyCode, item.secondKeyCode, item.thirdKeyCode}) {
        key += character(code);
    }
    return key.substr(0, item.secondKeyCode == 68 ? 2 : 3);
}

}  // namespace

void Model::overrideOptions(const Account& account, const CustomStockFee& custom) {
    if (custom->rateLimits.empty()) {
        return;
    }
    const uint64 accountKey = account->getHashKey(0);
    for (const Instrument& instrument : listInstruments(32)) {
        const auto limit = firstOf(custom->rateLimits, [&](const auto& candidate) {
            return applies(candidate, valueOr(facts.categoryNumbers, candidate->category, -1), *instrument);
        });
        if (!limit) {
            continue;
        }
        const std::string text = contentText(*limit, tradeUnit(instrument->market, instrument->code));
        const auto item = optionItems.emplace(text, itemOf(*limit)).first->second;
        optionTable[accountKey][joinedKey(instrument->market, instrument->code)][itemKeyOf(*item)] = text;
        stored();
    }
}

Model::Fee Model::optionFee(uint64 account, const std::string& key) const {
    auto fee = boost::make_shared<CInstrumentFee>();
    const auto* items = entryOf(optionTable, account, key);
    if (items == nullptr) {
        fee->stkOptionFeeRate = defaultOptionRate;
        return fee;
    }
    fee->stkOptionFeeRate = boost::make_shared<CStockOptionFeeRate>();
    for (const auto& [itemKey, text] : *items) {
        fee->stkOptionFeeRate->items[itemKey] = optionItems.at(text);
    }
    return fee;
}

}  // namespace model
