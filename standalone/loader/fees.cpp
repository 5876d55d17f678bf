#include <boost/make_shared.hpp>

#include "standalone/loader/futures_fees.h"
#include "standalone/loader/rate_records.h"
#include "standalone/loader/rule_line.h"
#include "standalone/loader/tables.h"

namespace standalone::loader {
namespace {

template <class Records>
void addFees(Load& load, const ReadRule& read, const std::vector<std::size_t>& places) {
    const auto limit = boost::make_shared<typename Records::Limit>();
    setRates(*limit, Records::kRates, read.line);
    Account& account = load.market.accounts[*read.line.account];
    for (const std::size_t place : places) {
        const auto fee = boost::make_shared<qmservice::CInstrumentFee>();
        fee->account = account.record;
        fee->instrument = load.market.instruments[place].record;
        (*fee).*Records::kSlot = limit;
        account.fees.push_back({fee, read.position, {}});
    }
}

template <class Records>
void readFamily(Load& load, const Family& family) {
    const std::string file = family.feeTable();
    readRateTable(load, file, family, feeKeyColumns(load, file, family), [&](const ReadRule& read) {
        const std::vector<std::size_t> places = matchInstruments(load, file, read, family.lists);
        if (read.whole) addFees<Records>(load, read, places);
    });
}

}  // namespace

void readFees(Load& load) {
    for (const Family& family : families()) {
        if (family.feeAccounts.empty()) continue;
        visitRecords(family.records, [&](auto records) {
            if constexpr (decltype(records)::kHasLimit) readFamily<decltype(records)>(load, family);
        });
    }
    readFuturesFees(load);
}

}  // namespace standalone::loader
