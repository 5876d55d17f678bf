#include <boost/smart_ptr/make_shared.hpp>
#include <cmath>

#include "model/lookup.h"
#include "model/model.h"

// Futures and income-swap answers.

namespace model {
namespace {

using namespace qmservice;

double feeOrZero(double fee) { return std::abs(fee - -1.0) <= 0.00001 ? 0 : fee; }

void adjustToExchange(CCommissionRateDetail& detail, const CInstrument& instrument) {
    const double open = feeOrZero(instrument.getOpenFee());
    const double close = feeOrZero(instrument.getCloseFee());
    const double closeToday = feeOrZero(instrument.getCloseTodayFee());
    if (instrument.getFeeType() == 1) {
        detail.openRatioByMoney = detail.closeRatioByMoney = detail.closeTodayRatioByMoney = 0;
        detail.openRatioByVolume = open;
        detail.closeRatioByVolume = close;
        detail.closeTodayRatioByVolume = closeToday;
    } else if (instrument.getFeeType() == 2) {
        detail.openRatioByMoney = open / 10000;
        detail.closeRatioByMoney = close / 10000;
        detail.closeTodayRatioByMoney = closeToday / 10000;
        detail.openRatioByVolume = detail.closeRatioByVolume = detail.closeTodayRatioByVolume = 0;
    }
}

/// A default fee with the instrument in it, its commission detail free to be written; an empty pointer without an
/// instrument.
Model::Fee defaultFor(const Model::Fee& fallback, const boost::shared_ptr<CInstrument>& instrument) {
    auto fee = boost::dynamic_pointer_cast<CInstrumentFee>(fallback->copy());
    if (!instrument) {
        return {};
    }
    fee->instrument = instrument;
    fee->commissionDetail = boost::make_shared<CCommissionRateDetail>(*fee->commissionDetail);
    fee->commissionDetail->instrumentId = instrument->code;
    return fee;
}

}  // namespace

Model::Fee Model::ownFutureFee(uint64 account, const std::string& key) const {
    auto fee = boost::make_shared<CInstrumentFee>();
    if (const auto* text = entryOf(commissionTable, account, key)) {
        fee->commissionDetail = commissions.at(*text);
    }
    if (const auto* texts = entryOf(marginTable, account, key)) {
        for (const std::string& text : *texts) {
            fee->marginDetails.push_back(valueOr(margins, text));
        }
    }
    if (!fee->commissionDetail && fee->marginDetails.empty()) {
        return {};
    }
    fee->instrument = findInstrument(key);
    return fee;
}

Model::Fee Model::futureFee(uint64 account, const std::string& key) const {
    if (const Fee own = ownFutureFee(account, key)) {
        if (own->marginDetails.empty()) {
            own->marginDetails = defaultFutureFee->marginDetails;
        }
        return own;
    }
    const Fee fee = defaultFor(defaultFutureFee, findInstrument(key));
    if (fee && isSimulated(account)) {
        adjustToExchange(*fee->commissionDetail, *fee->instrument);
    }
    return fee;
}

Model::Fee Model::incomeSwapFee(uint64 account, const std::string& key) const {
    const Fee own = ownFutureFee(account, key);
    return own ? own : defaultFor(defaultIncomeSwapFee, findInstrument(key));
}

}  // namespace model
