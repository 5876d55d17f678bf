#ifndef TESTS_FEECENTER_SUPPORT_BAD_HOST_H
#define TESTS_FEECENTER_SUPPORT_BAD_HOST_H

#include <boost/smart_ptr/make_shared.hpp>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "support/scene.h"

namespace test {

/// What a bad host's services throw; `int` is the other thing they may throw.
class HostError : public std::runtime_error {
public:
    explicit HostError(long failedCall) : std::runtime_error("the host is ill"), call(failedCall) {}
    long call;
};

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
    enum class Throws { kError, kInt };
    static constexpr Throws kAllThrows[] = {Throws::kError, Throws::kInt};

    /// What run() says when that has left the work.
    static const char* nameOf(Throws what) { return what == Throws::kError ? "the error" : "the int"; }

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

    /// Runs `work` with the call failing that follows `call` others, and says what left it: "nothing", "the error",
    /// "the int", or what else.
    std::string run(const std::function<void()>& work, long call, Throws what) {
        names.clear();
        fault = call;
        thrown = what;
        std::string left = "nothing";
        try {
            work();
        } catch (const HostError& error) {
            left = error.call == call ? "the error" : "another error";
        } catch (const std::exception& error) {
            left = error.what();
        } catch (int error) {
            left = error == static_cast<int>(call) ? "the int" : "another int";
        } catch (...) {
            left = "something else";
        }
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
        if (call != fault) {
            return;
        }
        if (thrown == Throws::kInt) {
            throw static_cast<int>(call);
        }
        throw HostError(call);
    }

    FakeHost& host;
    std::vector<std::string> names;
    long fault = kNone;
    Throws thrown = Throws::kError;
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
