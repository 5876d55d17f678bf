#include <gtest/gtest.h>

#include <set>
#include <string>
#include <typeinfo>
#include <utility>
#include <vector>

#include "support/memory_fixture.h"
#include "support/operations.h"

// Memory runs out inside an entry operation that queues a change, on every way that leads from one to the strand.

namespace {

using namespace qmservice;
using test::differences;
using test::faultOf;
using test::kKnown;
using test::kNew;
using test::OpenFeeCenter;
using test::Operation;
using test::Scene;

/// The kinds of account at which the entry operation queues this change.
std::vector<int> kindsOf(const Operation& change) {
    if (change.exclusive.count("future") == 0) {
        return {change.accountKind};
    }
    return change.kind == Operation::Kind::kLoad ? std::vector<int>{1, 5} : std::vector<int>{1, 5, 12};
}

/// Every change at every such kind.
std::vector<Operation> routes() {
    std::vector<Operation> all;
    for (const Operation& change : test::changes()) {
        for (const int kind : kindsOf(change)) {
            all.push_back(change);
            all.back().accountKind = kind;
            all.back().name += "OfKind" + std::to_string(kind);
        }
    }
    return all;
}

/// What a host hands in for a change, made before memory is short.
class HandedIn {
public:
    HandedIn(const Operation& change, const Scene& scene)
        : records(change.customFee ? std::vector<Scene::Record>() : scene.records(test::kChangedRate)),
          customFee(change.customFee ? change.customFee(scene) : Scene::Record()) {}

    void post(OpenFeeCenter& center, const boost::shared_ptr<CAccountInfo>& account) const {
        if (customFee) {
            center.updateCustomFee(account, customFee);
        } else {
            center.initFees(account, records);
        }
    }

    /// What the way to the strand depends on besides the kind of account.
    [[nodiscard]] std::string className() const {
        const auto* fee = customFee.get();
        return fee != nullptr ? typeid(*fee).name() : "records";
    }

private:
    std::vector<Scene::Record> records;
    Scene::Record customFee;
};

class MemoryPostTest : public test::MemoryTest {
protected:
    MemoryPostTest() { test::stageOperations(scene); }
};

TEST_F(MemoryPostTest, RoutesAreAllThatLeadToTheStrand) {
    std::set<std::pair<int, std::string>> known;
    for (const Operation& route : routes()) {
        known.insert({route.accountKind, HandedIn(route, scene).className()});
    }
    std::set<std::pair<int, std::string>> posting;
    for (const Operation& change : test::changes()) {
        const HandedIn handed(change, scene);
        for (int kind = -1; kind <= 20; ++kind) {
            OpenFeeCenter center;
            handed.post(center, test::makeAccount(kind, kNew));
            if (host.runJobs() != 0) {
                posting.insert({kind, handed.className()});
            }
        }
    }
    EXPECT_EQ(known, posting);
}

class MemoryRouteTest : public MemoryPostTest, public ::testing::WithParamInterface<Operation> {
protected:
    /// Nothing is queued by a call that failed, one job by the same call afterwards, which then does what it is to do.
    void expectPostSurvives(uint64 accountKey, bool forGood) {
        const Operation& route = GetParam();
        const HandedIn handed(route, scene);
        const auto subject = subjectOf(scene, route, accountKey);
        OpenFeeCenter before;
        scene.prepare(before);
        OpenFeeCenter expected;
        scene.prepare(expected);
        route.run(scene, expected, subject);
        const bool changesNothing = route.name == "doInitStkOptionFeeOfKind6";
        ASSERT_EQ(differences(expected, before) == "", changesNothing);
        const Run post = [&](OpenFeeCenter& center) { handed.post(center, subject.account); };
        EXPECT_GT(exhaust(post, forGood,
                          [&](OpenFeeCenter& center) {
                              EXPECT_EQ(host.runJobs(), 0U);
                              EXPECT_EQ(differences(center, before), "");
                              post(center);
                              EXPECT_EQ(host.runJobs(), 1U);
                              EXPECT_EQ(differences(center, expected), "");
                              EXPECT_EQ(faultOf(center), "");
                          }),
                  0);
    }
};

TEST_P(MemoryRouteTest, PostingThatFailedQueuesNothing) {
    for (const uint64 accountKey : {kKnown, kNew}) {
        for (const bool forGood : {false, true}) {
            SCOPED_TRACE("account " + std::to_string(accountKey) + (forGood ? " for good" : " for once"));
            expectPostSurvives(accountKey, forGood);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Routes, MemoryRouteTest, ::testing::ValuesIn(routes()),
                         [](const auto& route) { return route.param.name; });

}  // namespace
