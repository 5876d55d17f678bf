#ifndef TESTS_FEECENTER_SUPPORT_BAD_HOST_H
#define TESTS_FEECENTER_SUPPORT_BAD_HOST_H

#include <boost/smart_ptr/make_shared.hpp>
#include <functional>
#include <string>
#include <vector>

#include "support/host_error.h"
#include "support/scene.h"

namespace test {

/// A default fee that tells the host when it is copied.
class HookedFee : public qmservice::CInstrumentFee {
public:
    explicit HookedFee(const qmservice::CInstrumentFee& fee) : CInstrumentFee(fee) {}

    [[nodiscard]] boost::shared_ptr<qmservice::IData> copy() const override {
        FakeHost::instance().called("copy");
        return boost::make_shared<qmservice::CInstrumentFee>(*this);
    }
};

/// The scripted host with a fault that a test switches on: one chosen call fails, of whatever the host answers.
/// Services, key functions, the asking for a service, and the operations of the scene's records are all counted. For
/// one thread.
class BadHost {
public:
    explicit BadHost(FakeHost& spoilt) : host(spoilt) {
        host.onCall = host.onKeyCall = host.onInstance = [this](const std::string& operation) { called(operation); };
    }
    BadHost(const BadHost&) = delete;
    BadHost& operator=(const BadHost&) = delete;
    ~BadHost() { host.onCall = host.onKeyCall = host.onInstance = nullptr; }

    /// The fee center's defaults tell when they are copied.
    static void watchDefaults(OpenFeeCenter& center) {
        center.defaultFutureFee = boost::make_shared<HookedFee>(*center.defaultFutureFee);
        center.defaultIncomeSwapFutureFee = boost::make_shared<HookedFee>(*center.defaultIncomeSwapFutureFee);
    }

    /// Runs `work` with the call failing that follows `call` others, and says what left it: whatLeft().
    std::string run(const std::function<void()>& work, long call, Thrown what) {
        names.clear();
        fault = call;
        thrown = what;
        const std::string left = whatLeft(work, call);
        fault = kNone;
        return left;
    }

    /// How many calls `work` makes of a host that answers well.
    long callsOf(const std::function<void()>& work) {
        names.clear();
        work();
        return calls();
    }

    /// Since the last run began.
    [[nodiscard]] long calls() const { return static_cast<long>(names.size()); }
    [[nodiscard]] const std::vector<std::string>& calledNames() const { return names; }

private:
    static constexpr long kNone = -1;

    void called(const std::string& operation) {
        const long call = calls();
        names.push_back(operation);
        if (call == fault) {
            throwAt(call, thrown);
        }
    }

    FakeHost& host;
    std::vector<std::string> names;
    long fault = kNone;
    Thrown thrown = Thrown::kError;
};

/// A fee center with a scene's fees, whose defaults tell when they are copied.
struct WatchedFees {
    explicit WatchedFees(const Scene& scene) {
        scene.prepare(center);
        BadHost::watchDefaults(center);
    }

    OpenFeeCenter center;
};

}  // namespace test

#endif  // TESTS_FEECENTER_SUPPORT_BAD_HOST_H
