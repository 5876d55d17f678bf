#ifndef TESTS_FEECENTER_SUPPORT_LIMIT_FAMILY_FIXTURE_H
#define TESTS_FEECENTER_SUPPORT_LIMIT_FAMILY_FIXTURE_H

#include <boost/smart_ptr/make_shared.hpp>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "support/fee_center_fixture.h"
#include "support/limit_families.h"

namespace test {

template <class Limit>
boost::shared_ptr<Limit> limitWith(double rate1) {
    auto limit = boost::make_shared<Limit>();
    limit->rate1 = rate1;
    return limit;
}

/// A custom limit of the numbered category.
template <class CustomLimit>
boost::shared_ptr<CustomLimit> customWith(const std::string& category, double rate1) {
    auto limit = limitWith<CustomLimit>(rate1);
    limit->category = category;
    return limit;
}

/// One account of the family, with the account key 7, and the family's operations on it.
template <class Family>
class LimitFamilyTest : public FeeCenterTest {
protected:
    using Limit = typename Family::Limit;
    using CustomLimit = typename Family::CustomLimit;
    using Records = std::vector<boost::shared_ptr<qmservice::IData>>;
    using Fees = std::vector<boost::shared_ptr<qmservice::CInstrumentFee>>;

    /// An instrument that the family's custom fees reach.
    boost::shared_ptr<qmservice::CInstrument> instrument(const std::string& code) {
        return host.addInstrument("XX", code, Family::listMask);
    }

    /// What the host configures for the instrument.
    boost::shared_ptr<Limit>& configured(const qmservice::CInstrument& of) {
        return (host.*Family::configured)[{of.market, of.code}];
    }

    static boost::shared_ptr<Limit> limit(double rate1) { return limitWith<Limit>(rate1); }

    /// A custom limit of the numbered category.
    static boost::shared_ptr<CustomLimit> custom(const std::string& category, double rate1) {
        return customWith<CustomLimit>(category, rate1);
    }

    static boost::shared_ptr<qmservice::CInstrumentFee> record(boost::shared_ptr<qmservice::CInstrument> of,
                                                               boost::shared_ptr<Limit> rates) {
        auto fee = boost::make_shared<qmservice::CInstrumentFee>();
        fee->instrument = std::move(of);
        (*fee).*Family::slot = std::move(rates);
        return fee;
    }

    void load(const Records& records) { (center.*Family::load)(account, records); }

    void loadOne(const boost::shared_ptr<qmservice::CInstrument>& of, const boost::shared_ptr<Limit>& rates) {
        load({record(of, rates)});
    }

    void apply(const std::vector<boost::shared_ptr<CustomLimit>>& limits) {
        auto fee = boost::make_shared<typename Family::CustomRecord>();
        fee->rateLimits = limits;
        (center.*Family::update)(account, fee);
    }

    /// Applies a custom limit whose system category holds every instrument.
    void applyToAll(const boost::shared_ptr<CustomLimit>& rates) {
        host.inSystemCategory = [](const auto&, const auto&, const auto&, int) { return true; };
        apply({rates});
    }

    /// The pooled record that the account's table names for the instrument; empty when it has no entry.
    boost::shared_ptr<Limit> stored(const qmservice::CInstrument& of) {
        const auto& table = center.*Family::table;
        const auto entries = table.find(accountKey);
        if (entries == table.end() || entries->second.count(instrumentKey(of)) == 0) {
            return {};
        }
        return (center.*Family::pool).at(entries->second.at(instrumentKey(of)));
    }

    /// The rate that the account's table names for the instrument; -1 when it has no entry.
    double storedRate(const qmservice::CInstrument& of) {
        const auto pooled = stored(of);
        return pooled ? pooled->rate1 : -1;
    }

    std::size_t poolSize() { return (center.*Family::pool).size(); }

    boost::shared_ptr<Limit> fallback() { return center.*Family::fallback; }

    boost::shared_ptr<qmservice::CInstrumentFee> find(const qmservice::CInstrument& of, int unit = 100) {
        return findFee<Family>(center, accountKey, instrumentKey(of), unit);
    }

    boost::shared_ptr<Limit> limitOf(const qmservice::CInstrument& of, int unit = 100) {
        return (*find(of, unit)).*Family::slot;
    }

    bool list(Fees& fees) { return (center.*Family::list)(account, fees); }

    const uint64 accountKey = 7;
    const boost::shared_ptr<qmservice::CAccountInfo> account = makeAccount(Family::kind, accountKey);
};

}  // namespace test

#endif  // TESTS_FEECENTER_SUPPORT_LIMIT_FAMILY_FIXTURE_H
