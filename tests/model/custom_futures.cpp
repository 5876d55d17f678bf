#include "model/category.h"
#include "model/futures.h"

// Futures rates by category.

namespace model {
namespace {

using namespace qmservice;

/// The instruments of one type by joined key; of two with one key the later stays.
std::map<std::string, boost::shared_ptr<CInstrument>> instrumentsOf(const Facts& facts, int type) {
    std::map<std::string, boost::shared_ptr<CInstrument>> instruments;
    for (const Facts::Listed& listed : facts.listed) {
        if ((listed.types & type) != 0 && listed.instrument) {
            instruments[joinedKey(listed.instrument->market, listed.instrument->code)] = listed.instrument;
        }
    }
    return instruments;
}

}  // namespace

template <class Detail>
boost::shared_ptr<Detail> Model::firstApplying(const std::vector<boost::shared_ptr<Detail>>& details,
                                               const CInstrument& instrument) const {
    return firstOf(details,
                   [&](const auto& detail) { return applies(detail, categoryNumber(detail->categoryId), instrument); });
}

void Model::overrideFutures(const Account& account, const boost::shared_ptr<CCustomFutureInstrumentFee>& custom) {
    if (custom->commissionDetails.empty() && custom->marginDetails.empty()) {
        return;
    }
    const uint64 accountKey = account->getHashKey(0);
    auto instruments = instrumentsOf(facts, 2);
    const auto further = instrumentsOf(facts, 1024);
    instruments.insert(further.begin(), further.end());
    for (const auto& [catalogueKey, instrument] : instruments) {
        const std::string key = joinedKey(instrument->market, instrument->code);
        if (const auto commission = firstApplying(custom->commissionDetails, *instrument)) {
            storeSparseCommission(accountKey, key, *commission);
        }
        if (const auto margin = firstApplying(custom->marginDetails, *instrument)) {
            storeSparseMargin(accountKey, key, *margin);
        }
    }
}

}  // namespace model
