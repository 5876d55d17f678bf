#include <boost/bind/bind.hpp>
#include <boost/smart_ptr/make_shared.hpp>
#include <string>
#include <vector>

#include "CFeeCenter.h"
#include "feecenter/host_calls.h"
#include "feecenter/markets.h"
#include "host/records.h"
#include "host/services.h"

// The operations that a host calls. Changes are posted, never dispatched, so that a job does not run inside the call
// even when the caller is on the strand.

namespace qmservice {
namespace {

/// The key of the instrument that a joined key names. The connect channels trade the Hong Kong market's instruments: a
/// key that holds "HGT" or "SGT" anywhere has its first three characters replaced by "HK", wherever the text was found.
uint64 queriedInstrumentKey(const std::string& stockKey) {
    if (stockKey.find("HGT") == std::string::npos && stockKey.find("SGT") == std::string::npos) {
        return utils::hash(stockKey);
    }
    return utils::hash(std::string(stockKey).replace(0, 3, "HK"));
}

/// Stock and credit accounts answer with the instrument's own trade unit, the others with 100.
int queriedTradeUnit(int accountType, const std::string& stockKey) {
    if (accountType != 2 && accountType != 3) {
        return kDefaultTradeUnit;
    }
    std::string market;
    std::string code;
    utils::splitVoStockKey(stockKey, market, code);
    return getTradeMinUnit(market, code);
}

using Records = std::vector<boost::shared_ptr<IData>>;
using Load = void (CFeeCenter::*)(const boost::shared_ptr<CAccountInfo>&, const Records&);

/// A posted load. The records come by pointer because boost::bind copies what it binds several times over: a list of
/// thousands is copied once, for the job, and not again.
void runLoad(Load member, CFeeCenter* center, const boost::shared_ptr<CAccountInfo>& account,
             const boost::shared_ptr<const Records>& records) {
    (center->*member)(account, *records);
}

/// Posts `member(account, record)` when the record is of the class that the member takes; false when it is not. The
/// posted job owns both pointers.
template <class Record>
bool postIf(CFeeCenter* center, boost::asio::io_service::strand& strand,
            void (CFeeCenter::*member)(const boost::shared_ptr<CAccountInfo>&, const boost::shared_ptr<Record>&),
            const boost::shared_ptr<CAccountInfo>& account, const boost::shared_ptr<IData>& record) {
    const auto typed = boost::dynamic_pointer_cast<Record>(record);
    if (!typed) {
        return false;
    }
    strand.post(boost::bind(member, center, account, typed));
    return true;
}

}  // namespace

void CFeeCenter::initFees(const boost::shared_ptr<CAccountInfo>& account,
                          const std::vector<boost::shared_ptr<IData>>& records) {
    if (records.empty()) {
        return;
    }
    const auto post = [&](Load member) {
        strand->post(boost::bind(&runLoad, member, this, account, boost::make_shared<const Records>(records)));
    };
    switch (account->accountType) {
        case 1:
        case 5:
            return post(&CFeeCenter::doInitFutureFee);
        case 2:
            return post(&CFeeCenter::doInitStockFee);
        case 3:
            return post(&CFeeCenter::doInitCreditFee);
        case 6:
            return post(&CFeeCenter::doInitStkOptionFee);
        case 7:
            return post(&CFeeCenter::doInitHgtFee);
        case 10:
            return post(&CFeeCenter::doInitNeeqFee);
        case 11:
            return post(&CFeeCenter::doInitSgtFee);
        default:
            return;
    }
}

void CFeeCenter::updateCustomFee(const boost::shared_ptr<CAccountInfo>& account,
                                 const boost::shared_ptr<IData>& customFee) {
    const auto post = [&](auto member) { return postIf(this, *strand, member, account, customFee); };
    switch (account->accountType) {
        case 1:
        case 5:
        case 12:
            // Prime brokerage takes futures custom fees, though it takes no fee records.
            if (!post(&CFeeCenter::doUpdateFutureCustomFee)) {
                post(&CFeeCenter::doUpdateFutureInstrumentFee);
            }
            return;
        case 2:
            post(&CFeeCenter::doUpdateStockCustomFee);
            return;
        case 3:
            post(&CFeeCenter::doUpdateCreditCustomFee);
            return;
        case 6:
            post(&CFeeCenter::doUpdateStkOptionCustomFee);
            return;
        case 7:
            post(&CFeeCenter::doUpdateHgtCustomFee);
            return;
        case 10:
            post(&CFeeCenter::doUpdateNeeqCustomFee);
            return;
        case 11:
            post(&CFeeCenter::doUpdateSgtCustomFee);
            return;
        default:
            return;
    }
}

boost::shared_ptr<CInstrumentFee> CFeeCenter::getFee(const boost::shared_ptr<CAccountInfo>& account,
                                                     const std::string& stockKey) {
    const uint64 accountKey = account->getHashKey(0);
    const uint64 instrumentKey = queriedInstrumentKey(stockKey);
    const int accountType = account->accountType;
    const int tradeUnit = queriedTradeUnit(accountType, stockKey);
    const auto instrument = findInstrument(instrumentKey);
    if (!instrument) {
        return {};
    }
    auto fee = findFamilyFee(accountType, *instrument, accountKey, instrumentKey, tradeUnit);
    if (!fee) {
        return emptyFee;
    }
    fee->account = account;
    fee->instrument = instrument;
    return fee;
}

boost::shared_ptr<CInstrumentFee> CFeeCenter::getFee(const boost::shared_ptr<CAccountInfo>& account,
                                                     const std::string& market, const std::string& code) {
    return getFee(account, utils::voStockKey(market, code));
}

boost::shared_ptr<CInstrumentFee> CFeeCenter::findFamilyFee(int accountType, const CInstrument& instrument,
                                                            uint64 accountKey, uint64 instrumentKey, int tradeUnit) {
    switch (accountType) {
        case 1:
        case 5:
            return getFutureFee(accountKey, instrumentKey);
        case 2:
            return getStockFee(accountKey, instrumentKey, tradeUnit);
        case 3:
            return getCreditFee(accountKey, instrumentKey, tradeUnit);
        case 6:
            return getStkOptionFee(accountKey, instrumentKey);
        case 7:
            return getHgtFee(accountKey, instrumentKey);
        case 8:
            return isStockMarket(instrument.market) ? getStockFee(accountKey, instrumentKey, tradeUnit)
                                                    : getIncomeSwapFutureFee(accountKey, instrumentKey);
        case 10:
            return getNeeqFee(accountKey, instrumentKey, tradeUnit);
        case 11:
            return getSgtFee(accountKey, instrumentKey);
        case 12:
            return getPbFullFee(accountKey, instrumentKey, tradeUnit);
        case 16:
            return getIncomeSwapFutureFee(accountKey, instrumentKey);
        default:
            return {};
    }
}

bool CFeeCenter::getFees(const boost::shared_ptr<CAccountInfo>& account,
                         std::vector<boost::shared_ptr<CInstrumentFee>>& out) {
    switch (account->accountType) {
        case 1:
        case 5:
            return getFutureFees(account, out);
        case 2:
            return getStockFees(account, out);
        case 3:
            return getCreditFees(account, out);
        case 6:
            return getStkOptionFees(account, out);
        case 7:
            return getHgtFees(account, out);
        case 10:
            return getNeeqFees(account, out);
        case 11:
            return getSgtFees(account, out);
        default:
            return false;
    }
}

}  // namespace qmservice
