#include "feedesk/checking/probe.h"

#include <fmt/format.h>

#include <boost/make_shared.hpp>
#include <vector>

#include "host/records.h"
#include "standalone/host.h"

namespace feedesk::checking {
namespace {

using namespace qmservice;  // NOLINT(google-build-using-namespace): the record classes

constexpr const char* kProbeStrand = "probe";

/// One entry of a custom fee in a fee of its own.
struct SingleEntry {
    std::string category;
    boost::shared_ptr<IData> fee;  ///< empty: the fee is of another class
};

template <class Fee>
void takeLimit(const standalone::CustomFee& custom, std::size_t entry, SingleEntry& single) {
    if (const auto* fee = dynamic_cast<const Fee*>(custom.record.get())) {
        const auto made = boost::make_shared<Fee>();
        made->rateLimits = {fee->rateLimits.at(entry)};
        single = {made->rateLimits.front()->category, made};
    }
}

/// A margin is tried as a commission of its category, because futures are listed by their commissions.
boost::shared_ptr<CCustomCommissionRateDetail> asCommission(const CCustomMarginRateDetail& margin) {
    auto commission = boost::make_shared<CCustomCommissionRateDetail>();
    commission->categoryId = margin.categoryId;
    commission->customCategories = margin.customCategories;
    commission->groupCategories = margin.groupCategories;
    return commission;
}

void takeDetail(const standalone::CustomFee& custom, std::size_t entry, SingleEntry& single) {
    if (const auto* fee = dynamic_cast<const CCustomFutureInstrumentFee*>(custom.record.get())) {
        const std::size_t commissions = fee->commissionDetails.size();
        const auto made = boost::make_shared<CCustomFutureInstrumentFee>();
        made->commissionDetails = {entry < commissions ? fee->commissionDetails[entry]
                                                       : asCommission(*fee->marginDetails.at(entry - commissions))};
        single = {made->commissionDetails.front()->categoryId, made};
    }
}

SingleEntry singleEntry(const standalone::CustomFee& custom, std::size_t entry) {
    SingleEntry single;
    takeLimit<CCustomStockInstrumentFee>(custom, entry, single);
    takeLimit<CCustomHGTInstrumentFee>(custom, entry, single);
    takeLimit<CCustomSgtInstrumentFee>(custom, entry, single);
    takeDetail(custom, entry, single);
    return single;
}

/// Prime brokerage has the futures of its custom fees in the futures tables, and no list.
int listedKind(int kind) { return kind == kPrimeBrokerageAccount ? kFuturesAccount : kind; }

boost::shared_ptr<CAccountInfo> newAccount(int kind, const std::string& number) {
    auto account = boost::make_shared<CAccountInfo>();
    account->accountType = kind;
    account->accountId = number;
    return account;
}

}  // namespace

Probe::Probe() : center(kProbeStrand) {}

InstrumentSet Probe::listed(int kind, const boost::shared_ptr<IData>& customFee) {
    const auto account = newAccount(kind, fmt::format("{}", known.size()));
    IFeeCenter& asked = center;
    asked.updateCustomFee(account, customFee);
    standalone::waitForStrand(kProbeStrand);
    std::vector<boost::shared_ptr<CInstrumentFee>> fees;
    InstrumentSet instruments;
    if (asked.getFees(account, fees)) {
        for (const auto& fee : fees) {
            instruments.insert(fee->instrument.get());
        }
    }
    return instruments;
}

const InstrumentSet& Probe::reachOf(const standalone::Account& account, const standalone::CustomFee& fee,
                                    std::size_t entry) {
    const int kind = listedKind(account.record->accountType);
    const SingleEntry single = singleEntry(fee, entry);
    const auto found = known.find({kind, single.category});
    if (found != known.end()) {
        return found->second;
    }
    return known.emplace(Key(kind, single.category), listed(kind, single.fee)).first->second;
}

std::set<std::string> Probe::builtInItems(const std::string& market, const std::string& code) {
    IFeeCenter& asked = center;
    const auto fee = asked.getFee(newAccount(kOptionAccount, "unfed"), market, code);
    std::set<std::string> keys;
    if (fee && fee->stkOptionFeeRate) {
        for (const auto& [key, item] : fee->stkOptionFeeRate->items) {
            keys.insert(key);
        }
    }
    return keys;
}

}  // namespace feedesk::checking
