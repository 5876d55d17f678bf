#ifndef TESTS_MODEL_FUTURES_FIXTURE_H
#define TESTS_MODEL_FUTURES_FIXTURE_H

#include <cstdint>
#include <string>
#include <vector>

#include "model/model_fixture.h"

namespace model {

/// A host with one future, and a futures account.
class FuturesTest : public ModelTest {
protected:
    static Ptr<qmservice::CCommissionRateDetail> commission(double openByMoney, const std::string& id = "") {
        return made<qmservice::CCommissionRateDetail>([&](auto& detail) {
            detail.openRatioByMoney = openByMoney;
            detail.instrumentId = id;
        });
    }

    static Ptr<qmservice::CMarginRateDetail> margin(std::int32_t hedgeFlag, double ratio) {
        return made<qmservice::CMarginRateDetail>([&](auto& detail) {
            detail.hedgeFlag = hedgeFlag;
            detail.longMarginRatio = ratio;
        });
    }

    static Fee fee(const Instrument& of, const Ptr<qmservice::CCommissionRateDetail>& detail,
                   const std::vector<Ptr<qmservice::CMarginRateDetail>>& margins = {}) {
        return feeOf(of, [&](auto& record) {
            record.commissionDetail = detail;
            record.marginDetails = margins;
        });
    }

    Instrument a = instrument("SHFE", "rb2501", 0, 2);
    Model::Account account = accountOf(1);
};

}  // namespace model

#endif  // TESTS_MODEL_FUTURES_FIXTURE_H
