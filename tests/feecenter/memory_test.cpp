#include <gtest/gtest.h>

#include <new>
#include <optional>
#include <vector>

#include "support/entry_mixes.h"
#include "support/memory_fixture.h"

// The shortage and the checks themselves, and a fee center that memory is too short to build.

namespace {

using test::differences;
using test::faultOf;
using test::HeldAnswers;
using test::kBystander;
using test::kKnown;
using test::kNew;
using test::lossesOf;
using test::MemoryTest;
using test::OpenFeeCenter;
using test::strays;
using test::uint64;

TEST_F(MemoryTest, ShortageStrikesTheChosenAllocation) {
    for (const bool forGood : {false, true}) {
        shortage.begin(1, forGood);
        bool results[3] = {};
        for (bool& result : results) {
            result = shortage.fails();
        }
        EXPECT_GT(shortage.end(), 0);
        EXPECT_FALSE(results[0]);
        EXPECT_TRUE(results[1]);
        EXPECT_EQ(results[2], forGood);
    }
    shortage.begin(1, true);
    EXPECT_EQ(shortage.end(), 0);
}

TEST_F(MemoryTest, CheckerNoticesBrokenTables) {
    OpenFeeCenter center;
    scene.prepare(center);
    ASSERT_EQ(faultOf(center), "");
    center.stockAccountTable[kNew];
    EXPECT_EQ(faultOf(center), "stock: an account without instruments; ");
    center.stockAccountTable[kNew][1] = 99;
    EXPECT_EQ(faultOf(center), "stock: an entry whose record is not in the pool; ");
    center.stockAccountTable.erase(kNew);
    center.futureMarginKeys[kNew][1];
    EXPECT_EQ(faultOf(center), "margin: an instrument without records; ");
    center.futureMarginKeys.erase(kNew);
    center.hgtRateLimitPool[99];
    EXPECT_EQ(faultOf(center), "hgt: an empty record in the pool; ");
    center.hgtRateLimitPool.erase(99);
    ASSERT_EQ(faultOf(center), "");
    center.sgtMutex.lock_shared();
    EXPECT_EQ(faultOf(center), "sgt: the lock is held");
    center.sgtMutex.unlock_shared();

    OpenFeeCenter before;
    scene.prepare(before);
    ASSERT_EQ(lossesOf(center, before) + differences(center, before), "");
    center.neeqAccountTable[kBystander].begin()->second = center.neeqAccountTable[kKnown].begin()->second;
    EXPECT_EQ(lossesOf(center, before), "neeq ");
    center.creditAccountTable.erase(kKnown);
    EXPECT_EQ(lossesOf(center, before), "credit neeq ");
    center.futureCommissionDetails.begin()->second = test::makeCommission(999);
    EXPECT_EQ(lossesOf(center, before), "credit commission neeq ");
    EXPECT_EQ(differences(center, before), "credit commission neeq ");
}

TEST_F(MemoryTest, CheckerNoticesEntriesThatPointElsewhere) {
    OpenFeeCenter center;
    OpenFeeCenter before;
    OpenFeeCenter after;
    for (auto* each : {&center, &before, &after}) {
        scene.prepare(*each);
    }
    uint64& entry = center.stockAccountTable[kKnown].begin()->second;
    uint64& toBe = after.stockAccountTable[kKnown].begin()->second;
    std::vector<uint64> others;
    for (const auto& other : center.stockAccountTable[kBystander]) {
        others.push_back(other.second);
    }
    ASSERT_EQ(others.size(), 2U);
    toBe = others[0];
    EXPECT_EQ(strays(center, before, after), "");
    entry = others[0];
    EXPECT_EQ(strays(center, before, after), "");
    entry = others[1];
    EXPECT_EQ(strays(center, before, after), "stock ");
    center.neeqAccountTable[kNew][1] = others[0];
    EXPECT_EQ(strays(center, before, after), "stock neeq ");
    center.stkOptionAccountTable[kBystander].begin()->second["0D"] = others[0];
    EXPECT_EQ(strays(center, before, after), "stock option neeq ");
    center.futureMarginKeys[kKnown].begin()->second.back() = others[0];
    EXPECT_EQ(strays(center, before, after), "stock option margin neeq ");
}

TEST_F(MemoryTest, ChangeOfAnAnswerThatIsHeldIsNoticed) {
    OpenFeeCenter center;
    scene.prepare(center);
    const HeldAnswers held(center);
    EXPECT_EQ(held.difference(), "");
    auto& rate = center.stockRateLimitPool.begin()->second->rate6;
    rate += 1;
    EXPECT_NE(held.difference(), "");
    rate -= 1;
    EXPECT_EQ(held.difference(), "");
    center.defaultNeeqRateLimit->rate1 += 1;
    EXPECT_NE(held.difference(), "");
}

/// std::optional destroys what it holds through its own class: it is to be the last one.
class LastFeeCenter final : public OpenFeeCenter {
public:
    using OpenFeeCenter::OpenFeeCenter;
};

TEST_F(MemoryTest, ConstructionThatFailedIsRepeated) {
    for (const bool forGood : {false, true}) {
        long allocations = 0;
        for (bool struck = true; struck; ++allocations) {
            std::optional<LastFeeCenter> center;
            host.reset();  // makes a new strand
            shortage.begin(allocations, forGood);
            try {
                center.emplace("fees");
            } catch (const std::bad_alloc&) {
            }
            const long failed = shortage.end();
            test::tally("allocations failed", failed);
            struck = failed > 0;
            EXPECT_EQ(center.has_value(), !struck);
            center.reset();
            EXPECT_TRUE(center.emplace("fees").defaultIncomeSwapFutureFee);
        }
        EXPECT_GT(allocations, 8) << "each default is an allocation of its own at least";
    }
}

}  // namespace
