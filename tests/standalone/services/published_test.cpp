#include "standalone/services/published.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

using Shared = std::shared_ptr<int>;
using standalone::Published;

TEST(Published, ContentsEndWithTheirLastHolder) {
    auto value = std::make_shared<int>(7);
    const std::weak_ptr<int> alive = value;
    Published<Shared>::Pointer held = std::make_shared<const Shared>(std::move(value));
    {
        Published<Shared> published;
        published.swap(held);
        held = published.hold();
    }
    EXPECT_EQ(**held, 7);
    held.reset();
    EXPECT_TRUE(alive.expired());
}

}  // namespace
