#include <boost/make_shared.hpp>

#include "standalone/loader/expand.h"
#include "standalone/loader/futures_fees.h"
#include "standalone/loader/needed_records.h"
#include "standalone/loader/rate_records.h"

namespace standalone::loader {
namespace {

/// Makes the records of the families with one limit for each instrument, whose lines share a limit.
class LimitFees {
public:
    LimitFees(const CheckedFolder& folder, std::size_t account)
        : market(folder.market), record(folder.market.accounts[account].record) {}

    void add(const KeptFeeLine& kept, std::size_t place) {
        visitRecords(kept.line->family->records, [&](auto records) {
            if constexpr (decltype(records)::kHasLimit) {
                addFee<decltype(records)>(kept, place);
            }
        });
    }

    std::vector<FeeRecord> fees;

private:
    template <class Records>
    void addFee(const KeptFeeLine& kept, std::size_t place) {
        const auto fee = boost::make_shared<qmservice::CInstrumentFee>();
        fee->account = record;
        fee->instrument = market.instruments[place].record;
        (*fee).*Records::kSlot = limitOf<Records>(kept);
        fees.push_back({fee, kept.position, {}});
    }

    template <class Records>
    boost::shared_ptr<typename Records::Limit> limitOf(const KeptFeeLine& kept) {
        if (!fees.empty() && fees.back().position == kept.position) {
            return (*fees.back().record).*Records::kSlot;
        }
        auto limit = boost::make_shared<typename Records::Limit>();
        setRates(*limit, Records::kRates, kept);
        return limit;
    }

    const Market& market;
    const boost::shared_ptr<qmservice::CAccountInfo>& record;
};

/// A futures account, by its place: its lines are not those of limits, and none has both.
bool hasFutures(const CheckedFolder& folder, std::size_t account) {
    const std::vector<KeptFeeLine>& lines = folder.accountLines[account].fees;
    return !lines.empty() && lines.front().line->family->charged == cost::Family::kFutures;
}

FuturesFees futuresFees(const CheckedFolder& folder, cost::Date day, std::size_t account) {
    FuturesFees futures(folder.market);
    forEachInForce(folder.accountLines[account].fees, day, [&](const KeptFeeLine& line) { futures.add(line); });
    return futures;
}

}  // namespace

std::vector<FeeRecord> expandFees(const CheckedFolder& folder, cost::Date day, std::size_t account) {
    if (hasFutures(folder, account)) {
        return futuresFees(folder, day, account).records(folder.market.accounts[account]);
    }
    LimitFees limits(folder, account);
    NeededRecords(folder, day, account).forEach([&](const KeptFeeLine& kept, std::size_t place) {
        limits.add(kept, place);
    });
    return std::move(limits.fees);
}

std::size_t countFees(const CheckedFolder& folder, cost::Date day, std::size_t account) {
    if (hasFutures(folder, account)) {
        return futuresFees(folder, day, account).count();
    }
    std::size_t count = 0;
    NeededRecords(folder, day, account).forEach([&](const KeptFeeLine& /*kept*/, std::size_t /*place*/) { ++count; });
    return count;
}

}  // namespace standalone::loader
