#include "model/markets.h"
#include "model/model.h"

// The operations that ask.

namespace model {
namespace {

using namespace qmservice;

/// A key with either channel's name in it is the key of the Hong Kong instrument: the name is taken to be at the
/// start, wherever it was found.
std::string folded(const std::string& key) {
    const bool connect = key.find("HGT") != std::string::npos || key.find("SGT") != std::string::npos;
    return connect ? "HK" + key.substr(3) : key;
}

/// Market and code of a joined key.
Name split(const std::string& key) {
    const std::string::size_type bar = key.find('|');
    return bar == std::string::npos ? Name(key, "") : Name(key.substr(0, bar), key.substr(bar + 1));
}

}  // namespace

Model::Fee Model::getFee(const Account& account, const std::string& market, const std::string& code) const {
    return getFee(account, joinedKey(market, code));
}

Model::Fee Model::getFee(const Account& account, const std::string& stockKey) const {
    const std::string key = folded(stockKey);
    const Instrument instrument = findInstrument(key);
    if (!instrument) {
        return {};
    }
    const bool hostUnit = account->accountType == 2 || account->accountType == 3;
    const Name name = split(stockKey);
    const int unit = hostUnit ? tradeUnit(name.first, name.second) : 100;
    const Fee fee = feeByKind(*account, key, *instrument, unit);
    if (fee) {
        fee->account = account;
        fee->instrument = instrument;
    }
    return fee;
}

Model::Fee Model::feeByKind(const CAccountInfo& account, const std::string& key, const CInstrument& instrument,
                            int unit) const {
    const uint64 accountKey = account.getHashKey(0);
    switch (account.accountType) {
        case 1:
        case 5:
            return futureFee(accountKey, key);
        case 2:
            return limitFee(stock, accountKey, key, unit);
        case 3:
            return limitFee(credit, accountKey, key, unit);
        case 6:
            return optionFee(accountKey, key);
        case 7:
            return hgtFee(accountKey, key);
        case 8:
            return isStockMarket(instrument.market) ? limitFee(stock, accountKey, key, unit)
                                                    : incomeSwapFee(accountKey, key);
        case 10:
            return limitFee(neeq, accountKey, key, unit);
        case 11:
            return sgtFee(accountKey, key);
        case 12:
            return primeBrokerageFee(accountKey, key, unit);
        case 16:
            return incomeSwapFee(accountKey, key);
        default:
            return {};
    }
}

std::vector<Model::Fee> Model::getFees(const Account& account, bool& known) const {
    const uint64 accountKey = account->getHashKey(0);
    const auto limits = [&](const LimitFamily& listed, const LimitFamily& asked) {
        return answers(listed.table, account, known,
                       [&](const std::string& key) { return limitFee(asked, accountKey, key, 100); });
    };
    switch (account->accountType) {
        case 1:
        case 5:
            return answers(commissionTable, account, known,
                           [&](const std::string& key) { return futureFee(accountKey, key); });
        case 2:
            return limits(stock, stock);
        case 3:
            return limits(credit, credit);
        case 6:
            return answers(optionTable, account, known,
                           [&](const std::string& key) { return optionFee(accountKey, key); });
        case 7:
            return answers(hgt.table, account, known, [&](const std::string& key) { return hgtFee(accountKey, key); });
        case 10:
            // The stock family answers for every instrument of the list.
            return limits(neeq, stock);
        case 11:
            return answers(sgt.table, account, known, [&](const std::string& key) { return sgtFee(accountKey, key); });
        default:
            known = false;
            return {};
    }
}

/// What `ask` says of each instrument that the account has in the table and the host knows.
template <class Entries, class Ask>
std::vector<Model::Fee> Model::answers(const Entries& table, const Account& account, bool& known,
                                       const Ask& ask) const {
    std::vector<Fee> fees;
    const auto entries = table.find(account->getHashKey(0));
    known = entries != table.end();
    if (!known) {
        return fees;
    }
    for (const auto& [key, entry] : entries->second) {
        const Instrument instrument = findInstrument(key);
        const Fee fee = instrument ? ask(key) : Fee();
        if (fee) {
            fee->account = account;
            fee->instrument = instrument;
            fees.push_back(fee);
        }
    }
    return fees;
}

}  // namespace model
