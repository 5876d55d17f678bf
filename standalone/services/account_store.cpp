#include "standalone/services/account_store.h"

#include <boost/make_shared.hpp>

namespace standalone {

AccountStore::AccountStore(const Market& market) {
    byKey.reserve(market.accounts.size());
    for (const Account& account : market.accounts) {
        byKey.emplace(account.record->getHashKey(0), boost::make_shared<qmservice::CAccountData>(account.record));
    }
}

AccountStore::AccountData AccountStore::find(qmservice::uint64 accountKey) const {
    const auto found = byKey.find(accountKey);
    return found == byKey.end() ? AccountData() : found->second;
}

}  // namespace standalone
