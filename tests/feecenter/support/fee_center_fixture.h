#ifndef TESTS_FEECENTER_SUPPORT_FEE_CENTER_FIXTURE_H
#define TESTS_FEECENTER_SUPPORT_FEE_CENTER_FIXTURE_H

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/builders.h"
#include "support/fake_host.h"
#include "support/open_fee_center.h"

namespace test {

/// Empties the host before the fee center takes its strand from it. Each test has other services than the one before:
/// a service that was kept from one to the next is called after it was replaced.
struct FreshHost {
    FreshHost() {
        FakeHost::instance().reset();
        FakeHost::instance().replaceServices();
    }
};

/// An empty host and a fee center on it.
class FeeCenterTest : public ::testing::Test {
protected:
    /// Queued jobs hold the fee center: they run while it still exists.
    ~FeeCenterTest() override {
        EXPECT_THAT(host.callsOfReplaced, ::testing::IsEmpty());
        host.reset();
    }

    FreshHost freshHost;
    FakeHost& host = FakeHost::instance();
    OpenFeeCenter center;
};

}  // namespace test

#endif  // TESTS_FEECENTER_SUPPORT_FEE_CENTER_FIXTURE_H
