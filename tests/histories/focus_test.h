#ifndef TESTS_HISTORIES_FOCUS_TEST_H
#define TESTS_HISTORIES_FOCUS_TEST_H

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <string>

#include "histories/world.h"

// What the tests that run random histories have in common.

namespace histories {

/// The same from run to run, so that a build that passed passes again, unless FEECENTER_SEED gives another.
inline std::uint64_t firstSeed() {
    const char* seed = std::getenv("FEECENTER_SEED");
    return seed != nullptr ? std::strtoull(seed, nullptr, 10) : 20260101;
}

/// The focus as part of a test's name.
inline std::string testNameOf(const ::testing::TestParamInfo<Focus>& focus) {
    switch (focus.param) {
        case Focus::stockLike:
            return "StockLike";
        case Focus::futures:
            return "Futures";
        case Focus::connect:
            return "Connect";
        case Focus::all:
            break;
    }
    return "AllKinds";
}

}  // namespace histories

#endif  // TESTS_HISTORIES_FOCUS_TEST_H
