#ifndef TESTS_MODEL_MODEL_FIXTURE_H
#define TESTS_MODEL_MODEL_FIXTURE_H

#include <gtest/gtest.h>

#include <boost/smart_ptr/make_shared.hpp>
#include <string>
#include <utility>
#include <vector>

#include "model/model.h"

namespace model {

template <class Record>
using Ptr = boost::shared_ptr<Record>;

/// A record with some of its fields set: made<CMarginRateDetail>([](auto& m) { m.hedgeFlag = '1'; }).
template <class Record, class Fill>
Ptr<Record> made(Fill fill) {
    auto record = boost::make_shared<Record>();
    fill(*record);
    return record;
}

inline Ptr<qmservice::CAccountInfo> accountOf(int kind, const std::string& id = "A") {
    return made<qmservice::CAccountInfo>([&](auto& account) {
        account.accountType = kind;
        account.accountId = id;
    });
}

inline Ptr<qmservice::CStkExchangeRateLimit> limitOf(double rate1) {
    return made<qmservice::CStkExchangeRateLimit>([&](auto& limit) { limit.rate1 = rate1; });
}

template <class Custom = qmservice::CCustomStkExchangeRateLimit>
Ptr<Custom> customLimit(const std::string& category, double rate1) {
    return made<Custom>([&](auto& limit) {
        limit.category = category;
        limit.rate1 = rate1;
    });
}

/// A custom fee of one of the classes that hold a list of limits.
template <class Fee = qmservice::CCustomStockInstrumentFee, class... Limits>
Ptr<Fee> customFee(Limits... limits) {
    return made<Fee>([&](auto& fee) { fee.rateLimits = {limits...}; });
}

/// A model with a host that knows nothing yet.
class ModelTest : public ::testing::Test {
protected:
    using Instrument = Ptr<qmservice::CInstrument>;
    using Fee = Model::Fee;

    /// An instrument that the catalogue finds, in the lists of the mask and the maps of the types.
    Instrument instrument(const std::string& market, const std::string& code, int kindMask = 0, int types = 0) {
        auto added = made<qmservice::CInstrument>([&](auto& record) {
            record.market = market;
            record.code = code;
        });
        facts.catalogue[joinedKey(market, code)] = added;
        facts.listed.push_back({added, kindMask, types});
        return added;
    }

    void load(const Model::Account& account, const Model::Records& records) {
        model.initFees(account, records);
        model.runJobs();
    }

    void update(const Model::Account& account, const Ptr<qmservice::IData>& fee) {
        model.updateCustomFee(account, fee);
        model.runJobs();
    }

    /// The answer for an instrument.
    [[nodiscard]] Fee ask(const Model::Account& account, const Instrument& of) const {
        return model.getFee(account, of->market, of->code);
    }

    /// A record with an instrument, and what `fill` puts there.
    template <class Fill>
    static Fee feeOf(const Instrument& of, Fill fill) {
        return made<qmservice::CInstrumentFee>([&](auto& fee) {
            fee.instrument = of;
            fill(fee);
        });
    }

    static Fee stockFee(const Instrument& of, const Ptr<qmservice::CStkExchangeRateLimit>& limit) {
        return feeOf(of, [&](auto& fee) { fee.stkRateLimit = limit; });
    }

    [[nodiscard]] std::vector<Fee> listed(const Model::Account& account) const {
        bool known = false;
        return model.getFees(account, known);
    }

    [[nodiscard]] bool knows(const Model::Account& account) const {
        bool known = false;
        model.getFees(account, known);
        return known;
    }

    Facts facts;
    Model model{facts};
};

}  // namespace model

#endif  // TESTS_MODEL_MODEL_FIXTURE_H
