#include <boost/make_shared.hpp>

#include "standalone/loader/expand.h"
#include "standalone/loader/futures_fees.h"
#include "standalone/loader/rate_records.h"

namespace standalone::loader {
namespace {

template <class Records>
void addFees(const KeptFeeLine& kept, const Market& market, Account& account) {
    const auto limit = boost::make_shared<typename Records::Limit>();
    setRates(*limit, Records::kRates, kept.line);
    for (const std::size_t place : *kept.places) {
        const auto fee = boost::make_shared<qmservice::CInstrumentFee>();
        fee->account = account.record;
        fee->instrument = market.instruments[place].record;
        (*fee).*Records::kSlot = limit;
        account.fees.push_back({fee, kept.position, {}});
    }
}

}  // namespace

void expandFees(const CheckedFolder& folder, cost::Date day, std::size_t account, Market& market) {
    Account& expanded = market.accounts[account];
    FuturesFees futures(market);
    forEachInForce(folder.accountLines[account].fees, day, [&](const KeptFeeLine& kept) {
        visitRecords(kept.family->records, [&](auto records) {
            if constexpr (decltype(records)::kHasLimit) {
                addFees<decltype(records)>(kept, market, expanded);
            } else {
                futures.add(kept);
            }
        });
    });
    futures.addRecords(expanded);
}

}  // namespace standalone::loader
