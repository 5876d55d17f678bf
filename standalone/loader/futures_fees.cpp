#include "standalone/loader/futures_fees.h"

#include <array>
#include <boost/make_shared.hpp>
#include <map>
#include <utility>

#include "standalone/loader/rate_records.h"
#include "standalone/loader/rule_line.h"

namespace standalone::loader {
namespace {

using namespace qmservice;  // NOLINT(google-build-using-namespace): records, kinds and lists

template <class Detail>
struct Placed {
    boost::shared_ptr<Detail> detail;  ///< empty while no line has given it
    Position position;
};

/// What the lines so far give to one instrument of an account.
struct FuturesFee {
    Placed<CCommissionRateDetail> commission;
    std::array<Placed<CMarginRateDetail>, 3> margins;  ///< by hedge flag
};

/// By account, then by place in the catalogue.
using FuturesFees = std::map<std::pair<std::size_t, std::size_t>, FuturesFee>;

/// Reads one of the tables; `apply` takes each good line with the fee of each instrument that it matches.
template <class Apply>
void readFuturesTable(Load& load, const Family& family, const std::vector<RuleColumn>& ownColumns, FuturesFees& fees,
                      Apply apply) {
    const std::string file = family.feeTable();
    const std::vector<RuleColumn> keys = joined(feeKeyColumns(load, file, family), ownColumns);
    readRateTable(load, file, family, keys, [&](const ReadRule& read) {
        const std::vector<std::size_t> places = matchInstruments(load, file, read, family.lists);
        if (!read.whole) return;
        for (const std::size_t place : places) apply(read, place, fees[{*read.line.account, place}]);
    });
}

void readCommissions(Load& load, FuturesFees& fees) {
    readFuturesTable(load, family("commission"), {}, fees,
                     [&](const ReadRule& read, std::size_t place, FuturesFee& fee) {
                         const auto detail = boost::make_shared<CCommissionRateDetail>();
                         detail->instrumentId = load.market.instruments[place].record->code;
                         setRates(*detail, records::commissionRates<CCommissionRateDetail>, read.line);
                         fee.commission = {detail, read.position};
                     });
}

boost::shared_ptr<CMarginRateDetail> marginDetail(const RuleLine& line) {
    auto detail = boost::make_shared<CMarginRateDetail>();
    detail->hedgeFlag = line.hedgeFlag;
    detail->marginMode = line.marginMode;
    setRates(*detail, records::marginRates<CMarginRateDetail>, line);
    return detail;
}

void readMargins(Load& load, FuturesFees& fees) {
    boost::shared_ptr<CMarginRateDetail> detail;  // one for all instruments of a line
    Position detailPosition;
    readFuturesTable(load, family("margin"), {hedgeFlagColumn(), marginModeColumn()}, fees,
                     [&](const ReadRule& read, std::size_t /*place*/, FuturesFee& fee) {
                         if (!detail || detailPosition.line != read.position.line) detail = marginDetail(read.line);
                         detailPosition = read.position;
                         fee.margins[static_cast<std::size_t>(read.line.hedgeFlag - '1')] = {detail, read.position};
                     });
}

FeeRecord record(const Market& market, std::size_t account, std::size_t place, const FuturesFee& fee) {
    const auto made = boost::make_shared<CInstrumentFee>();
    FeeRecord placed{made, fee.commission.position, {}};
    made->account = market.accounts[account].record;
    made->instrument = market.instruments[place].record;
    made->commissionDetail = fee.commission.detail;
    for (const Placed<CMarginRateDetail>& margin : fee.margins) {
        if (!margin.detail) continue;
        made->marginDetails.push_back(margin.detail);
        placed.margins.push_back(margin.position);
    }
    if (!fee.commission.detail) placed.position = placed.margins.front();
    return placed;
}

}  // namespace

void readFuturesFees(Load& load) {
    FuturesFees fees;
    readCommissions(load, fees);
    readMargins(load, fees);
    for (const auto& [key, fee] : fees) {
        const auto [account, place] = key;
        load.market.accounts[account].fees.push_back(record(load.market, account, place, fee));
    }
}

}  // namespace standalone::loader
