#ifndef TESTS_FEECENTER_SUPPORT_FICKLE_FIXTURE_H
#define TESTS_FEECENTER_SUPPORT_FICKLE_FIXTURE_H

#include <functional>
#include <string>

#include "support/fee_center_fixture.h"
#include "support/operations.h"

namespace test {

/// A fee center with a scene's fees, on a host that answers the same question differently each time.
class FickleTest : public FeeCenterTest {
protected:
    FickleTest() {
        stageOperations(scene);
        scene.prepare(center);
    }

    /// Each time the catalogue is asked for an instrument, `answer(n)` sets it up, with n from 0.
    void beforeEachFind(const std::function<void(std::size_t)>& answer) {
        host.onCall = [this, answer](const std::string& operation) {
            if (operation == "findInstrument") {
                answer(finds++);
            }
        };
    }

    /// A configured limit of the family that `limits` belongs to.
    template <class Limits, class Limit>
    void configure(Limits& limits, boost::shared_ptr<Limit> qmservice::CInstrumentFee::*slot, const std::string& market,
                   double rate) {
        limits[{market, "A"}] = (*Scene::fullFee(nullptr, rate)).*slot;
    }

    void configureStock(const std::string& market, double rate) {
        configure(host.rateLimits, &qmservice::CInstrumentFee::stkRateLimit, market, rate);
    }

    Scene scene{{"A", "B", "C"}};
    std::size_t finds = 0;
};

/// Instruments are what changes: each step of a query uses its own answer from the host.
class BadHostFickleTest : public FickleTest {};

}  // namespace test

#endif  // TESTS_FEECENTER_SUPPORT_FICKLE_FIXTURE_H
