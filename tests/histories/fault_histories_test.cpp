#include <gtest/gtest.h>

#include <string>

#include "histories/fault_fixture.h"
#include "histories/trouble.h"
#include "support/fake_host.h"
#include "support/host_error.h"

// Random histories in which the host throws out of one of its functions, or out of it and all that are called after it,
// inside changes and queries.

namespace histories {
namespace {

#ifdef FAULT_HISTORIES_CALLS
constexpr std::uint64_t kCalls = FAULT_HISTORIES_CALLS;
#else
constexpr std::uint64_t kCalls = 400;
#endif

/// Each call of a service, of a key function, and for where a service is, is an occasion. Every other throws an int.
class ThrowingHost : public Trouble {
public:
    Result run(const std::function<void()>& work, long before, bool forGood) override {
        const auto what = before % 2 == 0 ? test::Thrown::kError : test::Thrown::kInt;
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
            test::throwAt(before, what);
        };
        const std::string left = test::whatLeft(work, before);
        result.left = left == nameOf(what);
        result.other = result.left || left == "nothing" ? "" : left;
        host.onCall = host.onKeyCall = host.onInstance = nullptr;
        return result;
    }

private:
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
