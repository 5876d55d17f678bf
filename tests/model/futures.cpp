#include "model/futures.h"

namespace model {

using namespace qmservice;

void Model::loadFutures(const Account& account, const Records& records) {
    const uint64 accountKey = account->getHashKey(0);
    for (const auto& record : records) {
        const auto fee = boost::dynamic_pointer_cast<CInstrumentFee>(record);
        if (!fee || !fee->instrument) {
            continue;
        }
        if (const auto& detail = fee->commissionDetail) {
            const std::string text = contentText(*detail);
            commissions.emplace(text, boost::make_shared<CCommissionRateDetail>(*detail));
            commissionTable[accountKey][joinedKey(fee->instrument->market, fee->instrument->code)] = text;
            stored();
        }
        if (!fee->marginDetails.empty()) {
            loadMargins(accountKey, *fee);
        }
    }
}

/// In the order of the list, whatever the hedge flags; the earlier margins of the instrument go. A list of nothing but
/// empty details brings nothing, and takes nothing away.
void Model::loadMargins(uint64 account, const CInstrumentFee& fee) {
    std::vector<std::string> texts;
    for (const auto& detail : fee.marginDetails) {
        if (detail) {
            texts.push_back(contentText(*detail));
            margins.emplace(texts.back(), boost::make_shared<CMarginRateDetail>(*detail));
        }
    }
    if (!texts.empty()) {
        marginTable[account][joinedKey(fee.instrument->market, fee.instrument->code)] = texts;
        stored();
    }
}

void Model::updateFuture(const Account& account, const Fee& fee) {
    if (!fee || !fee->instrument || !fee->commissionDetail || fee->commissionDetail->instrumentId.empty()) {
        return;
    }
    const uint64 accountKey = account->getHashKey(0);
    const std::string key = joinedKey(fee->instrument->market, fee->instrument->code);
    storeSparseCommission(accountKey, key, *fee->commissionDetail);
    for (const auto& detail : fee->marginDetails) {
        if (detail) {
            storeSparseMargin(accountKey, key, *detail);
        }
    }
}

}  // namespace model
