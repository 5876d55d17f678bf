#ifndef STANDALONE_SERVICES_ACCOUNT_STORE_H
#define STANDALONE_SERVICES_ACCOUNT_STORE_H

#include <boost/shared_ptr.hpp>
#include <boost/unordered_map.hpp>

#include "standalone/market.h"

namespace standalone {

/// The accounts of a market by account key. Immutable: safe from any thread.
class AccountStore {
public:
    using AccountData = boost::shared_ptr<qmservice::CAccountData>;

    /// Without accounts.
    AccountStore() = default;
    explicit AccountStore(const Market& market);

    /// The data of the account with this key; empty when there is none.
    [[nodiscard]] AccountData find(qmservice::uint64 accountKey) const;

private:
    boost::unordered_map<qmservice::uint64, AccountData> byKey;
};

}  // namespace standalone

#endif  // STANDALONE_SERVICES_ACCOUNT_STORE_H
