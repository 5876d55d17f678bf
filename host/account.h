#ifndef HOST_ACCOUNT_H
#define HOST_ACCOUNT_H

#include <boost/shared_ptr.hpp>
#include <cstdint>
#include <string>
#include <utility>

#include "host/data.h"
#include "host/host_export.h"

namespace qmservice {

/// What an account trades, as CAccountInfo::accountType holds it. An account of any other kind has no fees.
enum AccountKind : std::int32_t {
    kFuturesAccount = 1,
    kStockAccount = 2,
    kCreditAccount = 3,
    kFutures5Account = 5,  ///< futures, as kind 1
    kOptionAccount = 6,
    kHgtAccount = 7,  ///< Shanghai-Hong Kong connect
    kIncomeSwapAccount = 8,
    kNeeqAccount = 10,
    kSgtAccount = 11,  ///< Shenzhen-Hong Kong connect
    kPrimeBrokerageAccount = 12,
    kIncomeSwapFuturesAccount = 16
};

/// A trading account.
///
/// getHashKey(0) is the account's key in every table: it depends on accountId alone, so it stays the same for the
/// account's life, whatever becomes of the other fields.
class HOST_EXPORT CAccountInfo : public RecordOf<CAccountInfo> {
public:
    CAccountInfo() = default;
    CAccountInfo(const CAccountInfo&) = default;
    CAccountInfo& operator=(const CAccountInfo&) = default;
    ~CAccountInfo() override;

    [[nodiscard]] uint64 getHashKey(uint64 seed) const override;

    std::int32_t accountType = 0;  ///< an AccountKind; other numbers are allowed
    /// The platform the account trades on; the configuration knows which platforms are simulations.
    std::int32_t platformId = 0;
    /// The account's number, unique within a host.
    std::string accountId;
    /// What a person calls the account.
    std::string accountName;
};

/// What a host's data center holds for one account. Immutable.
class HOST_EXPORT CAccountData {
public:
    /// The account record may be empty.
    explicit CAccountData(boost::shared_ptr<CAccountInfo> accountInfo) : info(std::move(accountInfo)) {}

    /// The account record, shared with the data center; may be empty.
    [[nodiscard]] boost::shared_ptr<CAccountInfo> getAccountInfo() const { return info; }

private:
    boost::shared_ptr<CAccountInfo> info;
};

}  // namespace qmservice

#endif  // HOST_ACCOUNT_H
