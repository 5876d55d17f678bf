#include <gtest/gtest.h>

#include <new>
#include <string>

#include "histories/fault_fixture.h"
#include "histories/trouble.h"
#include "support/shortage.h"

// Random histories in which memory runs out, for one allocation or until the call has ended, inside changes, inside
// queries, and when a change is queued.

namespace histories {
namespace {

#ifdef FAULT_HISTORIES_CALLS
constexpr std::uint64_t kCalls = FAULT_HISTORIES_CALLS;
#else
constexpr std::uint64_t kCalls = 400;
#endif

/// Each allocation is an occasion, the host's too.
class ShortMemory : public Trouble {
public:
    Result run(const std::function<void()>& work, long before, bool forGood) override {
        auto& shortage = test::Shortage::ofThisThread();
        Result result;
        try {
            shortage.begin(before, forGood);
            work();
            result.strikes = shortage.end();
        } catch (const std::bad_alloc&) {
            result.strikes = shortage.end();
            result.left = true;
        } catch (const std::exception& error) {
            result.strikes = shortage.end();
            result.other = error.what();
        }
        return result;
    }
};

class MemoryHistoriesTest : public ::testing::TestWithParam<Focus> {};

TEST_P(MemoryHistoriesTest, GoOnFromWhereMemoryRanOut) {
    ShortMemory trouble;
    expectHistoriesWithFaults(GetParam(), trouble, "allocations failed", "memory_histories_test", kCalls);
}

INSTANTIATE_TEST_SUITE_P(Focus, MemoryHistoriesTest, ::testing::ValuesIn(kFocuses), &testNameOf);

}  // namespace
}  // namespace histories
