#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "histories/fault_test.h"
#include "histories/trouble.h"
#include "support/fake_host.h"

// Random histories in which the host throws out of one of its functions, or out of it and all that are called after it,
// inside changes and queries.

namespace histories {
namespace {

#ifdef FAULT_HISTORIES_CALLS
constexpr std::uint64_t kCalls = FAULT_HISTORIES_CALLS;
#else
constexpr std::uint64_t kCalls = 400;
#endif

struct HostError : std::runtime_error {
    explicit HostError(long failedCall) : std::runtime_error("the host is ill"), call(failedCall) {}
    long call;
};

/// Each call of a service, of a key function, and for where a service is, is an occasion. Every other throws an int.
class ThrowingHost : public Trouble {
public:
    Result run(const std::function<void()>& work, long before, bool forGood) override {
        long calls = 0;
        bool looking = false;
        Result result;
        host.onCall = host.onKeyCall = host.onInstance = [&](const std::string& /*operation*/) {
            if (looking || calls++ < before || (result.strikes > 0 && !forGood)) {
                return;
            }
            if (result.strikes++ == 0 && onStrike) {
                looking = true;
                onStrike();
                looking = false;
            }
            if (before % 2 == 0) {
                throw HostError(before);
            }
            throw static_cast<int>(before);
        };
        runAndCatch(work, before, result);
        host.onCall = host.onKeyCall = host.onInstance = nullptr;
        return result;
    }

private:
    static void runAndCatch(const std::function<void()>& work, long before, Result& result) {
        try {
            work();
        } catch (const HostError& error) {
            result.left = error.call == before;
        } catch (int error) {
            result.left = error == before;
        } catch (const std::exception& error) {
            result.other = error.what();
        }
    }

    test::FakeHost& host = test::FakeHost::instance();
};

class FaultHistoriesTest : public ::testing::TestWithParam<Focus> {};

TEST_P(FaultHistoriesTest, GoOnFromWhereTheHostThrew) {
    ThrowingHost trouble;
    expectHistoriesWithFaults(GetParam(), trouble, "faults injected", "fault_histories_test", kCalls);
}

INSTANTIATE_TEST_SUITE_P(Focus, FaultHistoriesTest, ::testing::ValuesIn(kFocuses), &testNameOf);

}  // namespace
}  // namespace histories
