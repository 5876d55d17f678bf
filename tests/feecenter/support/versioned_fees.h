#ifndef TESTS_FEECENTER_SUPPORT_VERSIONED_FEES_H
#define TESTS_FEECENTER_SUPPORT_VERSIONED_FEES_H

#include <functional>
#include <string>
#include <vector>

#include "support/builders.h"
#include "support/fake_host.h"
#include "support/open_fee_center.h"

namespace test {

// Records whose rates are all multiples of one version number. -1 for a record that is of no version, 0 for a default.

void setVersion(qmservice::CStkExchangeRateLimit& limit, int version);
void setVersion(qmservice::CCustomHGTExchangeRateLimit& limit, int version);
int versionOf(const qmservice::CStkExchangeRateLimit& limit);
int versionOf(const qmservice::CCustomHGTExchangeRateLimit& limit);
int versionOf(const qmservice::CCustomSgtExchangeRateLimit& limit);
int versionOf(const qmservice::CStockOptionFeeItem& item);

/// Accounts of the stock, credit, NEEQ, stock-option and connect kinds with a few instruments, whose fees are set
/// version after version, by turns with a load and with a custom fee, and a reader that checks every answer.
///
/// Stock options take a custom fee each time: the item "000" for even versions, "0D" for odd ones. The NEEQ account has
/// the stock account's key, so that its list, which asks the stock tables, shows the stock versions.
class VersionedFees {
public:
    VersionedFees(FakeHost& host, OpenFeeCenter& center);

    /// Queues the changes that set every fee to this version, a family after the other.
    void post(int version);

    /// What is wrong with the answers, lists included, of an account of each kind: empty when each is of a version
    /// between `oldest` and `newest`. The latter is asked after each answer. Safe from any number of threads at once.
    [[nodiscard]] std::string complaint(int oldest, const std::function<int()>& newest) const;
    [[nodiscard]] std::string complaint(int oldest, int newest) const;

    /// The version of a fee of the account that post() changes last. Safe from any number of threads at once.
    [[nodiscard]] int lastVersion() const;

private:
    using Account = boost::shared_ptr<qmservice::CAccountInfo>;
    using Fee = boost::shared_ptr<qmservice::CInstrumentFee>;

    [[nodiscard]] std::vector<boost::shared_ptr<qmservice::IData>> records(int version) const;
    [[nodiscard]] std::string complaintAboutFees(const Account& account, int oldest,
                                                 const std::function<int()>& newest) const;
    [[nodiscard]] std::string complaintAboutList(const Account& account, int oldest,
                                                 const std::function<int()>& newest) const;

    OpenFeeCenter& center;
    std::vector<Account> accounts;
    std::vector<boost::shared_ptr<qmservice::CInstrument>> instruments;
};

}  // namespace test

#endif  // TESTS_FEECENTER_SUPPORT_VERSIONED_FEES_H
