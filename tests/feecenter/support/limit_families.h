#ifndef TESTS_FEECENTER_SUPPORT_LIMIT_FAMILIES_H
#define TESTS_FEECENTER_SUPPORT_LIMIT_FAMILIES_H

#include <gtest/gtest.h>

#include <string>
#include <type_traits>

#include "support/fake_host.h"
#include "support/open_fee_center.h"

// The families that keep one limit per instrument, each as a table of what is its own: typed suites run over them.

namespace test {

struct StockSide {
    using Limit = qmservice::CStkExchangeRateLimit;
    using CustomLimit = qmservice::CCustomStkExchangeRateLimit;
    using CustomRecord = qmservice::CCustomStockInstrumentFee;
    static constexpr auto slot = &qmservice::CInstrumentFee::stkRateLimit;
    static constexpr auto unit = &Limit::unitVolume;
    static constexpr auto configured = &FakeHost::rateLimits;
    static constexpr auto askConfigured = "getRateLimitPtr";
};

struct Stock : StockSide {
    static constexpr auto name = "Stock";
    static constexpr int kind = 2;
    static constexpr int listMask = 1;
    static constexpr auto mutex = &OpenFeeCenter::stockMutex;
    static constexpr auto pool = &OpenFeeCenter::stockRateLimitPool;
    static constexpr auto table = &OpenFeeCenter::stockAccountTable;
    static constexpr auto fallback = &OpenFeeCenter::defaultStockRateLimit;
    static constexpr auto load = &OpenFeeCenter::doInitStockFee;
    static constexpr auto update = &OpenFeeCenter::doUpdateStockCustomFee;
    static constexpr auto find = &OpenFeeCenter::getStockFee;
    static constexpr auto list = &OpenFeeCenter::getStockFees;
};

struct Credit : StockSide {
    static constexpr auto name = "Credit";
    static constexpr int kind = 3;
    static constexpr int listMask = 8;
    static constexpr auto mutex = &OpenFeeCenter::creditMutex;
    static constexpr auto pool = &OpenFeeCenter::creditRateLimitPool;
    static constexpr auto table = &OpenFeeCenter::creditAccountTable;
    static constexpr auto fallback = &OpenFeeCenter::defaultCreditRateLimit;
    static constexpr auto load = &OpenFeeCenter::doInitCreditFee;
    static constexpr auto update = &OpenFeeCenter::doUpdateCreditCustomFee;
    static constexpr auto find = &OpenFeeCenter::getCreditFee;
    static constexpr auto list = &OpenFeeCenter::getCreditFees;
};

struct Neeq : StockSide {
    static constexpr auto name = "Neeq";
    static constexpr int kind = 10;
    static constexpr int listMask = 256;
    static constexpr auto mutex = &OpenFeeCenter::neeqMutex;
    static constexpr auto pool = &OpenFeeCenter::neeqRateLimitPool;
    static constexpr auto table = &OpenFeeCenter::neeqAccountTable;
    static constexpr auto fallback = &OpenFeeCenter::defaultNeeqRateLimit;
    static constexpr auto load = &OpenFeeCenter::doInitNeeqFee;
    static constexpr auto update = &OpenFeeCenter::doUpdateNeeqCustomFee;
    static constexpr auto find = &OpenFeeCenter::getNeeqFee;
    static constexpr auto list = &OpenFeeCenter::getNeeqFees;
};

struct Hgt {
    using Limit = qmservice::CCustomHGTExchangeRateLimit;
    using CustomLimit = Limit;
    using CustomRecord = qmservice::CCustomHGTInstrumentFee;
    static constexpr auto slot = &qmservice::CInstrumentFee::hgtRateLimit;
    static constexpr auto unit = &CustomLimit::tradeMinUnit;
    static constexpr auto configured = &FakeHost::hgtLimits;
    static constexpr auto askConfigured = "getHGTExchangeRateLimitPtr";
    static constexpr auto name = "Hgt";
    static constexpr int kind = 7;
    static constexpr int listMask = 128;
    static constexpr auto mutex = &OpenFeeCenter::hgtMutex;
    static constexpr auto pool = &OpenFeeCenter::hgtRateLimitPool;
    static constexpr auto table = &OpenFeeCenter::hgtAccountTable;
    static constexpr auto fallback = &OpenFeeCenter::defaultHgtRateLimit;
    static constexpr auto load = &OpenFeeCenter::doInitHgtFee;
    static constexpr auto update = &OpenFeeCenter::doUpdateHgtCustomFee;
    static constexpr auto find = &OpenFeeCenter::getHgtFee;
    static constexpr auto list = &OpenFeeCenter::getHgtFees;
};

struct Sgt {
    using Limit = qmservice::CCustomSgtExchangeRateLimit;
    using CustomLimit = Limit;
    using CustomRecord = qmservice::CCustomSgtInstrumentFee;
    static constexpr auto slot = &qmservice::CInstrumentFee::sgtRateLimit;
    static constexpr auto unit = &CustomLimit::tradeMinUnit;
    static constexpr auto configured = &FakeHost::sgtLimits;
    static constexpr auto askConfigured = "getSgtExchangeRateLimitPtr";
    static constexpr auto name = "Sgt";
    static constexpr int kind = 11;
    static constexpr int listMask = 16384;
    static constexpr auto mutex = &OpenFeeCenter::sgtMutex;
    static constexpr auto pool = &OpenFeeCenter::sgtRateLimitPool;
    static constexpr auto table = &OpenFeeCenter::sgtAccountTable;
    static constexpr auto fallback = &OpenFeeCenter::defaultSgtRateLimit;
    static constexpr auto load = &OpenFeeCenter::doInitSgtFee;
    static constexpr auto update = &OpenFeeCenter::doUpdateSgtCustomFee;
    static constexpr auto find = &OpenFeeCenter::getSgtFee;
    static constexpr auto list = &OpenFeeCenter::getSgtFees;
};

using LimitFamilies = ::testing::Types<Stock, Credit, Neeq, Hgt, Sgt>;
using StockLikeFamilies = ::testing::Types<Stock, Credit, Neeq>;
using ConnectFamilies = ::testing::Types<Hgt, Sgt>;

/// Names the instances of a typed suite.
struct FamilyName {
    template <class Family>
    static std::string GetName(int /*index*/) {
        return Family::name;
    }
};

/// Asks the family's lookup. The connect channels take no trade unit.
template <class Family>
boost::shared_ptr<qmservice::CInstrumentFee> findFee(OpenFeeCenter& center, uint64 accountKey, uint64 instrumentKey,
                                                     [[maybe_unused]] int unit = 100) {
    if constexpr (std::is_base_of_v<StockSide, Family>) {
        return (center.*Family::find)(accountKey, instrumentKey, unit);
    } else {
        return (center.*Family::find)(accountKey, instrumentKey);
    }
}

}  // namespace test

#endif  // TESTS_FEECENTER_SUPPORT_LIMIT_FAMILIES_H
