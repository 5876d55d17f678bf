#ifndef TESTS_FEECENTER_SUPPORT_FUTURE_BUILDERS_H
#define TESTS_FEECENTER_SUPPORT_FUTURE_BUILDERS_H

#include <boost/shared_ptr.hpp>
#include <boost/smart_ptr/make_shared.hpp>
#include <cstddef>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "support/fee_center_fixture.h"

namespace test {

using qmservice::CCommissionRateDetail;
using qmservice::CInstrument;
using qmservice::CInstrumentFee;
using qmservice::CMarginRateDetail;

/// The key in a slot that no margin was stored in.
constexpr uint64 kUnsetSlot = 0xFFFFFFFFFFFFFFFFU;

/// Sets the eight values, in layout order, to base + 1 up to base + 8.
template <class Detail>
void setCommissionRates(Detail& detail, double base) {
    detail.openRatioByMoney = base + 1;
    detail.openRatioByVolume = base + 2;
    detail.closeRatioByMoney = base + 3;
    detail.closeRatioByVolume = base + 4;
    detail.closeTodayRatioByMoney = base + 5;
    detail.closeTodayRatioByVolume = base + 6;
    detail.commissionExtra1 = base + 7;
    detail.commissionExtra2 = base + 8;
}

/// Sets the six rates, in layout order, to base + 1 up to base + 6.
template <class Detail>
void setMarginRates(Detail& detail, int hedgeFlag, double base) {
    detail.hedgeFlag = hedgeFlag;
    detail.longMarginRatio = base + 1;
    detail.longMarginRatioByVolume = base + 2;
    detail.shortMarginRatio = base + 3;
    detail.shortMarginRatioByVolume = base + 4;
    detail.marginExtra1 = base + 5;
    detail.marginExtra2 = base + 6;
}

inline boost::shared_ptr<CCommissionRateDetail> makeCommission(double base, const std::string& instrumentId = "id") {
    auto detail = boost::make_shared<CCommissionRateDetail>();
    detail->instrumentId = instrumentId;
    setCommissionRates(*detail, base);
    return detail;
}

inline boost::shared_ptr<CMarginRateDetail> makeMargin(int hedgeFlag, double base, int marginMode = 0) {
    auto detail = boost::make_shared<CMarginRateDetail>();
    setMarginRates(*detail, hedgeFlag, base);
    detail->marginMode = marginMode;
    return detail;
}

inline boost::shared_ptr<qmservice::CCustomCommissionRateDetail> makeCustomCommission(const std::string& category,
                                                                                      double base) {
    auto detail = boost::make_shared<qmservice::CCustomCommissionRateDetail>();
    detail->categoryId = category;
    setCommissionRates(*detail, base);
    return detail;
}

inline boost::shared_ptr<qmservice::CCustomMarginRateDetail> makeCustomMargin(const std::string& category,
                                                                              int hedgeFlag, double base,
                                                                              int marginMode = 0) {
    auto detail = boost::make_shared<qmservice::CCustomMarginRateDetail>();
    detail->categoryId = category;
    setMarginRates(*detail, hedgeFlag, base);
    detail->marginMode = marginMode;
    return detail;
}

using Commissions = std::vector<boost::shared_ptr<qmservice::CCustomCommissionRateDetail>>;
using CustomMargins = std::vector<boost::shared_ptr<qmservice::CCustomMarginRateDetail>>;
using Margins = std::vector<boost::shared_ptr<CMarginRateDetail>>;

inline boost::shared_ptr<qmservice::CCustomFutureInstrumentFee> makeCustomFutureFee(Commissions commissions,
                                                                                    CustomMargins margins) {
    auto fee = boost::make_shared<qmservice::CCustomFutureInstrumentFee>();
    fee->commissionDetails = std::move(commissions);
    fee->marginDetails = std::move(margins);
    return fee;
}

inline boost::shared_ptr<CInstrumentFee> makeFutureFee(boost::shared_ptr<CInstrument> instrument,
                                                       boost::shared_ptr<CCommissionRateDetail> commission,
                                                       Margins margins = {}) {
    auto fee = boost::make_shared<CInstrumentFee>();
    fee->instrument = std::move(instrument);
    fee->commissionDetail = std::move(commission);
    fee->marginDetails = std::move(margins);
    return fee;
}

/// The eight values in layout order.
inline std::vector<double> ratesOf(const CCommissionRateDetail& detail) {
    return {detail.openRatioByMoney,   detail.openRatioByVolume,      detail.closeRatioByMoney,
            detail.closeRatioByVolume, detail.closeTodayRatioByMoney, detail.closeTodayRatioByVolume,
            detail.commissionExtra1,   detail.commissionExtra2};
}

/// The six rates in layout order.
inline std::vector<double> ratesOf(const CMarginRateDetail& detail) {
    return {detail.longMarginRatio,  detail.longMarginRatioByVolume,
            detail.shortMarginRatio, detail.shortMarginRatioByVolume,
            detail.marginExtra1,     detail.marginExtra2};
}

constexpr uint64 kAccount = 501;

/// A fee center with one futures account and a view of the futures tables that adds nothing to them.
class FutureTest : public FeeCenterTest {
protected:
    using Records = std::vector<boost::shared_ptr<qmservice::IData>>;

    boost::shared_ptr<CInstrument> addFuture(const std::string& code, int types = 2) {
        return host.addInstrument("SHFE", code, 0, types);
    }

    void load(const Records& records) { center.doInitFutureFee(account, records); }

    [[nodiscard]] boost::shared_ptr<CCommissionRateDetail> storedCommission(const CInstrument& instrument,
                                                                            uint64 accountKey = kAccount) const {
        const auto keys = center.futureCommissionKeys.find(accountKey);
        if (keys == center.futureCommissionKeys.end() || keys->second.count(instrumentKey(instrument)) == 0) {
            return {};
        }
        const auto record = center.futureCommissionDetails.find(keys->second.at(instrumentKey(instrument)));
        return record == center.futureCommissionDetails.end() ? nullptr : record->second;
    }

    /// Empty when there are none.
    [[nodiscard]] std::vector<uint64> marginKeys(const CInstrument& instrument, uint64 accountKey = kAccount) const {
        const auto keys = center.futureMarginKeys.find(accountKey);
        if (keys == center.futureMarginKeys.end() || keys->second.count(instrumentKey(instrument)) == 0) {
            return {};
        }
        return keys->second.at(instrumentKey(instrument));
    }

    [[nodiscard]] bool poolsMargin(uint64 key) const { return center.futureMarginDetails.count(key) != 0; }

    /// How much each table holds: the pools, the accounts and their instruments.
    [[nodiscard]] std::vector<std::size_t> tableSizes() const {
        return {center.futureCommissionDetails.size(), center.futureCommissionKeys.size(),
                entries(center.futureCommissionKeys),  center.futureMarginDetails.size(),
                center.futureMarginKeys.size(),        entries(center.futureMarginKeys)};
    }

    const std::vector<std::size_t> emptyTables{0, 0, 0, 0, 0, 0};
    boost::shared_ptr<qmservice::CAccountInfo> account = makeAccount(1, kAccount);

private:
    template <class Table>
    static std::size_t entries(const Table& table) {
        std::size_t count = 0;
        for (const auto& accountEntries : table) {
            count += accountEntries.second.size();
        }
        return count;
    }
};

}  // namespace test

#endif  // TESTS_FEECENTER_SUPPORT_FUTURE_BUILDERS_H
