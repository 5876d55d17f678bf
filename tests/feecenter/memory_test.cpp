#include <gtest/gtest.h>

#include <functional>
#include <new>
#include <optional>
#include <string>
#include <vector>

#include "histories/record_fields.h"
#include "support/entry_mixes.h"
#include "support/fee_center_fixture.h"
#include "support/future_builders.h"
#include "support/operations.h"
#include "support/shortage.h"
#include "support/table_checks.h"
#include "support/tally.h"

// Memory runs out inside each operation: what was there stays, no entry points anywhere but where it did or is to, and
// the same call then leads to where it leads without a shortage.

namespace {

using test::differences;
using test::faultOf;
using test::kKnown;
using test::kNew;
using test::OpenFeeCenter;
using test::Operation;
using test::Subject;
using test::uint64;

/// The kinds of account for which getFee answers.
constexpr int kAnsweredKinds[] = {1, 2, 3, 5, 6, 7, 8, 10, 11, 12, 16};

/// A scene's fees as a host got them and keeps them, for every kind of account, with entries and without, and what
/// was in every field then. The records in them are the tables' own: whatever happens to the tables may not be seen
/// in them.
class HeldAnswers {
public:
    explicit HeldAnswers(OpenFeeCenter& center) {
        for (const int kind : kAnsweredKinds) {
            for (const uint64 key : {test::kBystander, kKnown, kNew}) {
                const auto fee = center.getFee(test::makeAccount(kind, key), "SH", "A");
                EXPECT_TRUE(fee) << "kind " << kind << " account " << key;
                all.push_back({fee, histories::describe(fee.get())});
            }
        }
    }

    /// Which answer is another than it was; empty when none is.
    [[nodiscard]] std::string difference() const {
        for (const auto& held : all) {
            const std::string now = histories::describe(held.fee.get());
            if (now != held.text) {
                return "was " + held.text + " and is " + now;
            }
        }
        return "";
    }

private:
    struct Held {
        boost::shared_ptr<qmservice::CInstrumentFee> fee;
        std::string text;
    };
    std::vector<Held> all;
};

/// Memory runs out at every single allocation of an operation, for once and for good. What leaves the call is
/// std::bad_alloc; the tables stay whole, no lock stays behind, and no answer that somebody holds changes.
class MemoryTest : public ::testing::Test {
protected:
    using Run = std::function<void(OpenFeeCenter&)>;

    ~MemoryTest() override { host.reset(); }

    test::Shortage& shortage = test::Shortage::ofThisThread();

    /// Runs `run` under a shortage at each of its allocations in turn, on a new fee center each time. `check` is
    /// called with the fee center after a run that failed.
    template <class Check>
    void exhaust(const Run& run, bool forGood, const Check& check) {
        for (long allocations = 0;; ++allocations) {
            OpenFeeCenter center;
            scene.prepare(center);
            const HeldAnswers held(center);
            bool threw = false;
            shortage.begin(allocations, forGood);
            try {
                run(center);
            } catch (const std::bad_alloc&) {
                threw = true;
            }
            const long failed = shortage.end();
            test::tally("allocations failed", failed);
            EXPECT_EQ(threw, failed > 0);
            EXPECT_EQ(held.difference(), "");
            if (failed == 0) {
                return;
            }
            EXPECT_EQ(faultOf(center), "") << "allocation " << allocations << (forGood ? " and all after it" : "");
            check(center);
            EXPECT_EQ(held.difference(), "");
            if (HasFailure()) {
                return;
            }
        }
    }

    test::FreshHost freshHost;
    test::FakeHost& host = test::FakeHost::instance();
    test::Scene scene{{"A", "B"}};
};

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
                EXPECT_EQ(faultOf(center), "");
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

TEST_F(MemoryTest, EntryThatCouldNotBeStoredIsNotStoredForTheNextAccount) {
    constexpr uint64 kNext = 77;
    const auto load = [](OpenFeeCenter& center, uint64 account, const auto& instrument) {
        center.doUpdateFutureInstrumentFee(test::makeAccount(1, account),
                                           test::makeFutureFee(instrument, test::makeCommission(10)));
    };
    exhaust([&](OpenFeeCenter& center) { load(center, kNew, scene.instruments.front()); }, false,
            [&](OpenFeeCenter& center) {
                load(center, kNext, scene.instruments.back());
                EXPECT_EQ(center.futureCommissionKeys.at(kNext).size(), 1U);
            });
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
