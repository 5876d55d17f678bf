#include "feecenter/tables.h"

#include <gtest/gtest.h>

#include <boost/smart_ptr/make_shared.hpp>

namespace {

TEST(TablesTest, RecordIsMadeOnlyWhereNoneIsPooled) {
    qmservice::RecordPool<int> pool;
    int made = 0;
    const auto make = [&made] { return boost::make_shared<int>(++made); };
    const auto first = qmservice::poolRecord(pool, 5, make);
    EXPECT_EQ(qmservice::poolRecord(pool, 5, make), first);
    EXPECT_EQ(made, 1);
    EXPECT_NE(qmservice::poolRecord(pool, 6, make), first);
    EXPECT_EQ(made, 2);
}

}  // namespace
