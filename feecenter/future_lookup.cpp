#include <boost/smart_ptr/make_shared.hpp>
#include <cmath>
#include <utility>
#include <vector>

#include "CFeeCenter.h"
#include "feecenter/future_tables.h"
#include "feecenter/host_calls.h"

// Futures and income-swap lookups: the same tables, two defaults.

namespace qmservice {
namespace {

/// A new fee with what the tables hold for an instrument of an account; empty when they hold nothing. It has a margin
/// for each key, an empty one where the key has no record, as for an unset slot.
boost::shared_ptr<CInstrumentFee> findStoredFee(const FutureTables& tables, uint64 accountKey, uint64 instrumentKey) {
    boost::shared_ptr<CCommissionRateDetail> commission;
    if (const uint64* key = findEntry(*tables.commissionKeys, accountKey, instrumentKey)) {
        commission = findPooled(*tables.commissionDetails, *key);
    }
    const std::vector<uint64>* marginKeys = findEntry(*tables.marginKeys, accountKey, instrumentKey);
    const bool hasMargins = marginKeys != nullptr && !marginKeys->empty();
    if (!commission && !hasMargins) {
        return {};
    }
    auto fee = boost::make_shared<CInstrumentFee>();
    fee->commissionDetail = std::move(commission);
    if (hasMargins) {
        fee->marginDetails.reserve(marginKeys->size());
        for (const uint64 key : *marginKeys) {
            fee->marginDetails.push_back(findPooled(*tables.marginDetails, key));
        }
    }
    return fee;
}

/// Gives a copy a commission detail of its own: a host's copy() may be shallow, and a default is never written.
void detach(boost::shared_ptr<CInstrumentFee>& fee, const boost::shared_ptr<CInstrumentFee>& original) {
    if (fee == original) {
        fee = boost::make_shared<CInstrumentFee>(*original);
    }
    if (fee->commissionDetail == original->commissionDetail) {
        fee->commissionDetail = boost::make_shared<CCommissionRateDetail>(*original->commissionDetail);
    }
}

/// The default fee made out for the instrument; empty when the instrument is unknown or the host's copy of no use. The
/// default is copied in any case (rule "A default is copied for an unknown instrument too").
boost::shared_ptr<CInstrumentFee> defaultFor(const boost::shared_ptr<CInstrumentFee>& original,
                                             const boost::shared_ptr<CInstrument>& instrument) {
    auto fee = boost::dynamic_pointer_cast<CInstrumentFee>(original->copy());
    if (!instrument || !fee || !fee->commissionDetail) {
        return {};
    }
    detach(fee, original);
    fee->instrument = instrument;
    fee->commissionDetail->instrumentId = instrument->code;
    return fee;
}

bool tradesOnSimulation(uint64 accountKey) {
    const auto data = TraderCenter::instance()->getDataCenter()->getAccountData(accountKey);
    const auto account = data ? data->getAccountInfo() : boost::shared_ptr<CAccountInfo>();
    return account && ConfigCollector::instance()->isSimulationPlatform(account->platformId);
}

/// An exchange fee of -1 means not set and counts as 0.
double setOrZero(double exchangeFee) {
    constexpr double kTolerance = 1e-5;
    return std::fabs(exchangeFee + 1.0) <= kTolerance ? 0.0 : exchangeFee;
}

struct ExchangeFees {
    double open;
    double close;
    double closeToday;
};

ExchangeFees exchangeFees(const CInstrument& instrument, double divisor) {
    return {setOrZero(instrument.getOpenFee()) / divisor, setOrZero(instrument.getCloseFee()) / divisor,
            setOrZero(instrument.getCloseTodayFee()) / divisor};
}

void setByMoney(CCommissionRateDetail& commission, const ExchangeFees& fees) {
    commission.openRatioByMoney = fees.open;
    commission.closeRatioByMoney = fees.close;
    commission.closeTodayRatioByMoney = fees.closeToday;
}

void setByVolume(CCommissionRateDetail& commission, const ExchangeFees& fees) {
    commission.openRatioByVolume = fees.open;
    commission.closeRatioByVolume = fees.close;
    commission.closeTodayRatioByVolume = fees.closeToday;
}

/// A simulation charges what the exchange itself charges, where the instrument has it.
void applyExchangeFee(CCommissionRateDetail& commission, const CInstrument& instrument) {
    constexpr ExchangeFees kNone{0, 0, 0};
    const std::int32_t feeType = instrument.getFeeType();
    if (feeType == kPerLotFee) {
        setByMoney(commission, kNone);
        setByVolume(commission, exchangeFees(instrument, 1));
    } else if (feeType == kPerTurnoverFee) {
        setByMoney(commission, exchangeFees(instrument, kPartsOfTurnover));
        setByVolume(commission, kNone);
    }
}

}  // namespace

boost::shared_ptr<CInstrumentFee> CFeeCenter::getFutureFee(uint64 accountKey, uint64 instrumentKey) {
    const auto tables = Future::of(*this).read();  // held for the whole call
    if (auto fee = findStoredFee(*tables, accountKey, instrumentKey)) {
        fee->instrument = findInstrument(instrumentKey);
        if (fee->marginDetails.empty()) {
            fee->marginDetails = defaultFutureFee->marginDetails;
        }
        return fee;
    }
    const auto instrument = findInstrument(instrumentKey);
    auto fee = defaultFor(defaultFutureFee, instrument);
    if (!fee) {
        return emptyFee;
    }
    if (tradesOnSimulation(accountKey)) {
        applyExchangeFee(*fee->commissionDetail, *instrument);
    }
    return fee;
}

boost::shared_ptr<CInstrumentFee> CFeeCenter::getIncomeSwapFutureFee(uint64 accountKey, uint64 instrumentKey) {
    const auto tables = Future::of(*this).read();  // held for the whole call
    if (auto fee = findStoredFee(*tables, accountKey, instrumentKey)) {
        // Rule "Income swap keeps missing margins empty": the default's are not put in their place.
        fee->instrument = findInstrument(instrumentKey);
        return fee;
    }
    if (auto fee = defaultFor(defaultIncomeSwapFutureFee, findInstrument(instrumentKey))) {
        return fee;
    }
    return emptyFee;
}

bool CFeeCenter::getFutureFees(const boost::shared_ptr<CAccountInfo>& account,
                               std::vector<boost::shared_ptr<CInstrumentFee>>& fees) {
    // Rule "A futures list goes by commissions": instruments with margins but no commission are not listed.
    const auto readKeys = [this](uint64 accountKey) {
        return instrumentKeysOf(*Future::of(*this).read()->commissionKeys, accountKey);
    };
    return listFees(account, fees, readKeys, [this](uint64 accountKey, uint64 instrumentKey) {
        return getFutureFee(accountKey, instrumentKey);
    });
}

}  // namespace qmservice
