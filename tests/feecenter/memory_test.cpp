#include <gtest/gtest.h>

#include <new>
#include <optional>
#include <string>

#include "support/entry_mixes.h"
#include "support/memory_fixture.h"
#include "support/operations.h"

// Memory runs out inside each operation: what was there stays, no entry points anywhere but where it did or is to, and
// the same call then leads to where it leads without a shortage.

namespace {

using test::differences;
using test::kKnown;
using test::kNew;
using test::MemoryTest;
using test::OpenFeeCenter;
using test::Operation;
using test::Subject;
using test::uint64;

class MemoryOperationTest : public MemoryTest, public ::testing::WithParamInterface<Operation> {
protected:
    MemoryOperationTest() { stageOperations(scene); }

    void expectSurvives(const Subject& subject) {
        const auto run = [&](OpenFeeCenter& center) { return GetParam().run(scene, center, subject); };
        OpenFeeCenter before;
        scene.prepare(before);
        OpenFeeCenter expected;
        scene.prepare(expected);
        const std::string answer = run(expected);
        for (const bool forGood : {false, true}) {
            exhaust(run, forGood, [&](OpenFeeCenter& center) {
                EXPECT_EQ(test::lossesOf(center, before), "");
                EXPECT_EQ(test::strays(center, before, expected), "");
                EXPECT_EQ(run(center), answer);
                EXPECT_EQ(differences(center, expected), "");
                EXPECT_EQ(test::faultOf(center), "");
            });
        }
    }
};

TEST_P(MemoryOperationTest, CallThatFailedIsRepeated) {
    for (const uint64 account : {kKnown, kNew}) {
        SCOPED_TRACE("account " + std::to_string(account));
        expectSurvives(subjectOf(scene, GetParam(), account));
    }
}

INSTANTIATE_TEST_SUITE_P(Operations, MemoryOperationTest, ::testing::ValuesIn(test::allOperations()),
                         [](const auto& operation) { return operation.param.name; });

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
