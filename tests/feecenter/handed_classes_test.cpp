#include <gtest/gtest.h>

#include <boost/smart_ptr/make_shared.hpp>
#include <string>
#include <vector>

#include "support/fee_center_fixture.h"
#include "support/operations.h"
#include "support/table_checks.h"

// A host may hand in records of classes that it derives from those of the boundary: they count as what they are derived
// from.

namespace {

using namespace qmservice;
using test::kNew;
using test::OpenFeeCenter;
using test::Operation;
using test::Scene;

/// The host's own kind of a record.
template <class Record>
class Derived : public Record {
public:
    explicit Derived(const Record& record) : Record(record) {}
};

/// The record as a derived one, where it is of this class.
template <class Record>
Scene::Record derivedIf(const Scene::Record& record) {
    const auto* typed = dynamic_cast<const Record*>(record.get());
    return typed != nullptr ? boost::make_shared<Derived<Record>>(*typed) : Scene::Record();
}

Scene::Record derived(const Scene::Record& record) {
    for (const auto& as :
         {derivedIf<CInstrumentFee>, derivedIf<CCustomStockInstrumentFee>, derivedIf<CCustomHGTInstrumentFee>,
          derivedIf<CCustomSgtInstrumentFee>, derivedIf<CCustomFutureInstrumentFee>}) {
        if (const auto one = as(record)) {
            return one;
        }
    }
    return {};
}

class HandedClassTest : public ::testing::TestWithParam<Operation> {
protected:
    HandedClassTest() { stageOperations(scene); }
    ~HandedClassTest() override { host.reset(); }

    test::FreshHost freshHost;
    test::FakeHost& host = test::FakeHost::instance();
    Scene scene{{"A", "B", "C"}};
};

TEST_P(HandedClassTest, RecordOfADerivedClassCounts) {
    const Operation& change = GetParam();
    const auto subject = subjectOf(scene, change, kNew);
    OpenFeeCenter expected;
    change.run(scene, expected, subject);
    OpenFeeCenter center;
    if (change.customFee) {
        const auto record = derived(change.customFee(scene));
        ASSERT_TRUE(record);
        center.updateCustomFee(subject.account, record);
    } else {
        std::vector<Scene::Record> records;
        for (const auto& record : scene.records(test::kChangedRate)) {
            records.push_back(derived(record));
        }
        center.initFees(subject.account, records);
    }
    EXPECT_EQ(host.runJobs(), 1U);
    EXPECT_EQ(test::differences(center, expected), "");
}

INSTANTIATE_TEST_SUITE_P(Changes, HandedClassTest, ::testing::ValuesIn(test::changes()),
                         [](const auto& change) { return change.param.name; });

}  // namespace
