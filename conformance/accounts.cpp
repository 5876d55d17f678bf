#include <boost/smart_ptr/make_shared.hpp>
#include <map>

#include "conformance/asking.h"
#include "conformance/promise.h"

namespace conformance {
namespace {

using namespace qmservice;

boost::shared_ptr<CAccountInfo> accountOf(const std::string& id) {
    auto account = boost::make_shared<CAccountInfo>();
    account->accountId = id;
    account->accountType = kStockAccount;
    return account;
}

std::string keyCall(const CAccountInfo& account) { return "getHashKey(0) of account " + inQuotes(account.accountId); }

uint64 askKey(Witness& witness, const CAccountInfo& account, const std::string& how = "") {
    return witness.call(keyCall(account) + how, [&] { return account.getHashKey(0); });
}

void knownAccount(const Sample& sample, Witness& witness) {
    for (const auto& account : accountsOf(sample)) {
        const uint64 key = account->getHashKey(0);
        const std::string call = "IDataCenter::getAccountData(key of account " + inQuotes(account->accountId) + ")";
        const auto data = witness.call(call, [&] { return accountStore()->getAccountData(key); });
        Witness::expect(data && data->getAccountInfo(), "gave no account");
        const uint64 otherKey = data->getAccountInfo()->getHashKey(0);
        Witness::expect(otherKey == key, "gave an account with the key " + hex(otherKey) + " for the key " + hex(key));
    }
}

void unknownAccount(const Sample& /*sample*/, Witness& witness) {
    const uint64 key = accountOf("conformance: no such account")->getHashKey(0);
    const auto data = witness.call("IDataCenter::getAccountData(key of an account that nobody has)",
                                   [&] { return accountStore()->getAccountData(key); });
    Witness::expect(!data, "gave an account's data");
}

void keyStays(const Sample& sample, Witness& witness) {
    std::vector<boost::shared_ptr<CAccountInfo>> accounts = sample.accounts;
    accounts.push_back(accountOf("1000001"));
    for (const auto& account : accounts) {
        const uint64 before = account->getHashKey(0);
        const uint64 again = askKey(witness, *account);
        Witness::expect(again == before, "gave " + hex(before) + " and then " + hex(again));
    }
    CAccountInfo& account = *accounts.back();
    const uint64 before = account.getHashKey(0);
    account.accountType = kFuturesAccount;
    account.platformId = 7;
    account.accountName = "another name";
    const uint64 after = askKey(witness, account, ", its kind, platform and name changed,");
    Witness::expect(after == before, "gave " + hex(after) + " where it gave " + hex(before) + " before");
}

void keysDiffer(const Sample& sample, Witness& witness) {
    std::vector<boost::shared_ptr<CAccountInfo>> accounts = sample.accounts;
    for (const char* id : {"1000001", "1000002", "10000011", "2000001"}) {
        accounts.push_back(accountOf(id));
    }
    std::map<uint64, std::string> ids;
    for (const auto& account : accounts) {
        const uint64 key = askKey(witness, *account);
        const std::string& id = ids.emplace(key, account->accountId).first->second;
        Witness::expect(id == account->accountId, "gave " + hex(key) + ", which it gives for " + inQuotes(id) + " too");
    }
}

}  // namespace

Promises accountPromises() {
    return {
        {"accounts.key-stays", "an account's key must depend on its number alone and stay for the account's life",
         "hash accountId and nothing else", keyStays},
        {"accounts.keys-differ", "accounts must differ in their key, or one is answered with the other's rates",
         "hash all of accountId with a good 64-bit hash", keysDiffer},
        {"accounts.known",
         "it must give the data of the account that has this key",
         "file every account under its getHashKey(0)",
         knownAccount,
         {"services.present", "accounts.key-stays"}},
        {"accounts.unknown-is-empty",
         "an account that nobody knows must be an empty pointer",
         "return an empty pointer where the key is not found",
         unknownAccount,
         {"services.present", "accounts.key-stays"}},
    };
}

}  // namespace conformance
