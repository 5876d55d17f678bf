#include <boost/bind/bind.hpp>
#include <boost/smart_ptr/make_shared.hpp>
#include <cstddef>
#include <string>
#include <utility>
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

/// Whether "HGT" or "SGT" is anywhere in the key. One pass for both: nearly all keys have neither, and to search them
/// for one text and then for the other is a tenth of what a stock's lookup costs.
bool namesConnectChannel(const std::string& stockKey) {
    for (std::size_t i = 2; i < stockKey.size(); ++i) {
        if (stockKey[i] == 'T' && stockKey[i - 1] == 'G' && (stockKey[i - 2] == 'H' || stockKey[i - 2] == 'S')) {
            return true;
        }
    }
    return false;
}

/// The key of the instrument that a joined key names. The connect channels trade the Hong Kong market's instruments.
/// Rule "A connect key is folded at its start": wherever the text was found, the first three characters are replaced.
/// The host is asked for the hash of the key as given in any case.
uint64 queriedInstrumentKey(const std::string& stockKey) {
    const uint64 given = utils::hash(stockKey);
    return namesConnectChannel(stockKey) ? utils::hash(std::string("HK").append(stockKey, 3)) : given;
}

/// Stock and credit accounts answer with the instrument's own trade unit, the others with 100. Rule "The trade unit is
/// asked for by the key as given": connect keys are not folded for it.
int queriedTradeUnit(int accountType, const std::string& stockKey) {
    if (accountType != kStockAccount && accountType != kCreditAccount) {
        return kUsualTradeUnit;
    }
    std::string market;
    std::string code;
    utils::splitVoStockKey(stockKey, market, code);
    return getTradeMinUnit(market, code);
}

using Records = std::vector<boost::shared_ptr<IData>>;
using LoadMember = void (CFeeCenter::*)(const boost::shared_ptr<CAccountInfo>&, const Records&);

/// A posted load. The records come by pointer because boost::bind copies what it binds several times over: a list of
/// thousands is copied once, for the job, and not again.
void runLoad(LoadMember member, CFeeCenter* center, const boost::shared_ptr<CAccountInfo>& account,
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
    const auto post = [&](LoadMember member) {
        strand->post(boost::bind(&runLoad, member, this, account, boost::make_shared<const Records>(records)));
    };
    switch (account->accountType) {
        case kFuturesAccount:
        case kFutures5Account:
            return post(&CFeeCenter::doInitFutureFee);
        case kStockAccount:
            return post(&CFeeCenter::doInitStockFee);
        case kCreditAccount:
            return post(&CFeeCenter::doInitCreditFee);
        case kOptionAccount:
            return post(&CFeeCenter::doInitStkOptionFee);
        case kHgtAccount:
            return post(&CFeeCenter::doInitHgtFee);
        case kNeeqAccount:
            return post(&CFeeCenter::doInitNeeqFee);
        case kSgtAccount:
            return post(&CFeeCenter::doInitSgtFee);
        default:
            return;
    }
}

void CFeeCenter::updateCustomFee(const boost::shared_ptr<CAccountInfo>& account,
                                 const boost::shared_ptr<IData>& customFee) {
    const auto post = [&](auto member) { return postIf(this, *strand, member, account, customFee); };
    switch (account->accountType) {
        case kFuturesAccount:
        case kFutures5Account:
        case kPrimeBrokerageAccount:
            // Rule "Prime brokerage takes custom fees and no loads".
            if (!post(&CFeeCenter::doUpdateFutureCustomFee)) {
                post(&CFeeCenter::doUpdateFutureInstrumentFee);
            }
            return;
        case kStockAccount:
            post(&CFeeCenter::doUpdateStockCustomFee);
            return;
        case kCreditAccount:
            post(&CFeeCenter::doUpdateCreditCustomFee);
            return;
        case kOptionAccount:
            post(&CFeeCenter::doUpdateStkOptionCustomFee);
            return;
        case kHgtAccount:
            post(&CFeeCenter::doUpdateHgtCustomFee);
            return;
        case kNeeqAccount:
            post(&CFeeCenter::doUpdateNeeqCustomFee);
            return;
        case kSgtAccount:
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
    auto instrument = findInstrument(instrumentKey);
    if (!instrument) {
        return {};
    }
    auto fee = findFamilyFee(accountType, *instrument, accountKey, instrumentKey, tradeUnit);
    if (!fee) {
        return emptyFee;
    }
    fee->account = account;
    fee->instrument = std::move(instrument);
    return fee;
}

boost::shared_ptr<CInstrumentFee> CFeeCenter::getFee(const boost::shared_ptr<CAccountInfo>& account,
                                                     const std::string& market, const std::string& code) {
    return getFee(account, utils::voStockKey(market, code));
}

boost::shared_ptr<CInstrumentFee> CFeeCenter::findFamilyFee(int accountType, const CInstrument& instrument,
                                                            uint64 accountKey, uint64 instrumentKey, int tradeUnit) {
    switch (accountType) {
        case kFuturesAccount:
        case kFutures5Account:
            return getFutureFee(accountKey, instrumentKey);
        case kStockAccount:
            return getStockFee(accountKey, instrumentKey, tradeUnit);
        case kCreditAccount:
            return getCreditFee(accountKey, instrumentKey, tradeUnit);
        case kOptionAccount:
            return getStkOptionFee(accountKey, instrumentKey);
        case kHgtAccount:
            return getHgtFee(accountKey, instrumentKey);
        case kIncomeSwapAccount:
            return isStockMarket(instrument.market) ? getStockFee(accountKey, instrumentKey, tradeUnit)
                                                    : getIncomeSwapFutureFee(accountKey, instrumentKey);
        case kNeeqAccount:
            return getNeeqFee(accountKey, instrumentKey, tradeUnit);
        case kSgtAccount:
            return getSgtFee(accountKey, instrumentKey);
        case kPrimeBrokerageAccount:
            return getPbFullFee(accountKey, instrumentKey, tradeUnit);
        case kIncomeSwapFuturesAccount:
            return getIncomeSwapFutureFee(accountKey, instrumentKey);
        default:
            return {};
    }
}

bool CFeeCenter::getFees(const boost::shared_ptr<CAccountInfo>& account,
                         std::vector<boost::shared_ptr<CInstrumentFee>>& out) {
    switch (account->accountType) {
        case kFuturesAccount:
        case kFutures5Account:
            return getFutureFees(account, out);
        case kStockAccount:
            return getStockFees(account, out);
        case kCreditAccount:
            return getCreditFees(account, out);
        case kOptionAccount:
            return getStkOptionFees(account, out);
        case kHgtAccount:
            return getHgtFees(account, out);
        case kNeeqAccount:
            return getNeeqFees(account, out);
        case kSgtAccount:
            return getSgtFees(account, out);
        default:
            return false;
    }
}

}  // namespace qmservice
