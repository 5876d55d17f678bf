// The rules that hold for every record class alike.

#include <gtest/gtest.h>

#include <vector>

#include "outputs.h"
#include "record_cases.h"
#include "record_classes.h"

namespace records_test {
namespace {

using AllRecords = EveryRecordClass<::testing::Types>;

struct RecordName {
    template <class Record>
    static std::string GetName(int) {
        return RecordCase<Record>::name;
    }
};

template <class Record>
class RecordRules : public ::testing::Test {
protected:
    /// A class derived from the record that adds nothing, as a host's own may.
    class Derived : public Record {};

    std::vector<FieldCase<Record>> fields = fieldCases<Record>();
};

TYPED_TEST_SUITE(RecordRules, AllRecords, RecordName);

std::size_t roundedUp(std::size_t size, std::size_t alignment) {
    return (size + alignment - 1) / alignment * alignment;
}

std::vector<std::string> fieldNames(const bson_t* document) {
    std::vector<std::string> names;
    bson_iter_t iterator;
    EXPECT_TRUE(bson_iter_init(&iterator, document));
    while (bson_iter_next(&iterator)) {
        names.emplace_back(bson_iter_key(&iterator));
    }
    return names;
}

template <class Record>
std::vector<std::string> expectedNames(const std::vector<FieldCase<Record>>& fields) {
    std::vector<std::string> names;
    for (const auto& field : fields) {
        names.push_back(field.name);
    }
    return names;
}

TYPED_TEST(RecordRules, StartsWithZeroAndEmptyFields) {
    const TypeParam record;
    for (const auto& field : this->fields) {
        EXPECT_TRUE(field.isZero(record)) << field.name;
    }
}

TYPED_TEST(RecordRules, DescribesItsFieldsInLayoutOrder) {
    std::string expected;
    for (const auto& field : this->fields) {
        expected += (expected.empty() ? "" : ",") + field.name + ":" + field.type;
    }
    EXPECT_EQ(TypeParam().getStructDes(), RecordCase<TypeParam>::name + ("{" + expected + "}"));
}

TYPED_TEST(RecordRules, OffsetLeadsToTheField) {
    const TypeParam record;
    const auto* start = reinterpret_cast<const char*>(&record);
    for (const auto& field : this->fields) {
        EXPECT_EQ(start + record.getOffset(field.name), field.place(record)) << field.name;
    }
}

TYPED_TEST(RecordRules, FieldsFollowEachOtherWithoutAGapToTheEnd) {
    const TypeParam record;
    std::size_t end = sizeof(void*);  // the virtual table comes first
    for (const auto& field : this->fields) {
        const auto start = roundedUp(end, field.alignment);
        EXPECT_EQ(record.getOffset(field.name), static_cast<std::ptrdiff_t>(start)) << field.name;
        end = start + field.size;
    }
    EXPECT_EQ(sizeof(TypeParam), roundedUp(end, alignof(TypeParam)));
}

TYPED_TEST(RecordRules, UnknownFieldHasNoOffset) {
    for (const char* name : {"", "noSuchField", "_type"}) {
        EXPECT_EQ(TypeParam().getOffset(name), -1) << name;
    }
}

TYPED_TEST(RecordRules, RecordsWithEqualContentsAreEqualAndHaveEqualKeys) {
    EXPECT_TRUE(TypeParam().isEqual(TypeParam()));
    EXPECT_EQ(TypeParam().getHashKey(0), TypeParam().getHashKey(0));
    const auto one = filled<TypeParam>();
    const auto other = filled<TypeParam>();
    EXPECT_TRUE(one.isEqual(other));
    EXPECT_EQ(one.getHashKey(0), other.getHashKey(0));
    EXPECT_EQ(one.getHashKey(99), other.getHashKey(99));
}

TYPED_TEST(RecordRules, EveryFieldCountsForEquality) {
    const TypeParam original;
    for (const auto& field : this->fields) {
        TypeParam changed;
        field.change(changed);
        EXPECT_FALSE(changed.isEqual(original)) << field.name;
        EXPECT_FALSE(original.isEqual(changed)) << field.name;
    }
}

TYPED_TEST(RecordRules, EveryFieldChangesTheKey) {
    const TypeParam original;
    for (const auto& field : this->fields) {
        if (std::is_same_v<TypeParam, qmservice::CAccountInfo> && field.name != "accountId") {
            continue;
        }
        TypeParam changed;
        field.change(changed);
        EXPECT_NE(changed.getHashKey(0), original.getHashKey(0)) << field.name;
    }
}

TYPED_TEST(RecordRules, KeyIsContinuedFromTheSeed) {
    const TypeParam record;
    EXPECT_NE(record.getHashKey(0), record.getHashKey(1));
    EXPECT_NE(record.getHashKey(1), record.getHashKey(2));
}

TYPED_TEST(RecordRules, RecordOfADerivedClassIsNotEqual) {
    const TypeParam record;
    const typename TestFixture::Derived derived;
    EXPECT_FALSE(record.isEqual(derived));
    EXPECT_FALSE(derived.isEqual(record));
    EXPECT_TRUE(derived.isEqual(typename TestFixture::Derived()));
}

TYPED_TEST(RecordRules, CopyIsANewEqualRecord) {
    const auto original = filled<TypeParam>();
    const auto copy = original.copy();
    ASSERT_TRUE(copy);
    EXPECT_NE(copy.get(), static_cast<const qmservice::IData*>(&original));
    EXPECT_TRUE(copy->isEqual(original));
    EXPECT_TRUE(TypeParam().copy()->isEqual(TypeParam()));
}

TYPED_TEST(RecordRules, WritingIntoACopyLeavesTheOriginalAlone) {
    const TypeParam original;
    for (const auto& field : this->fields) {
        const auto copy = boost::dynamic_pointer_cast<TypeParam>(original.copy());
        ASSERT_TRUE(copy);
        field.change(*copy);
        EXPECT_TRUE(field.isZero(original)) << field.name;
        EXPECT_FALSE(field.isZero(*copy)) << field.name;
    }
}

TYPED_TEST(RecordRules, CopyOfADerivedRecordIsTheRecordPart) {
    typename TestFixture::Derived derived;
    for (const auto& field : this->fields) {
        field.change(derived);
    }
    EXPECT_TRUE(derived.copy()->isEqual(filled<TypeParam>()));
}

TYPED_TEST(RecordRules, BsonHoldsTheClassNameAndThenEveryFieldInOrder) {
    auto expected = expectedNames(this->fields);
    expected.insert(expected.begin(), "_type");
    for (const auto& record : {TypeParam(), filled<TypeParam>()}) {
        const Bson document = bsonOf(record);
        EXPECT_EQ(fieldNames(document.get()), expected);
        bson_iter_t type;
        ASSERT_TRUE(bson_iter_init_find(&type, document.get(), "_type"));
        EXPECT_STREQ(bson_iter_utf8(&type, nullptr), RecordCase<TypeParam>::name);
    }
}

TYPED_TEST(RecordRules, BsonWithoutTypeIsAppendedToWhatTheDocumentHolds) {
    auto expected = expectedNames(this->fields);
    expected.insert(expected.begin(), "earlier");
    const Bson document = emptyBson();
    bson_append_int32(document.get(), "earlier", -1, 1);
    filled<TypeParam>().appendElementsWithNoTypeIdWithBson(document.get());
    EXPECT_EQ(fieldNames(document.get()), expected);
}

TYPED_TEST(RecordRules, JsonReadsBackAsTheSameDocument) {
    for (const auto& record : {TypeParam(), filled<TypeParam>()}) {
        std::string complaint;
        const auto json = jsonTextOf(record);
        const Bson parsed = parseJson(json, complaint);
        ASSERT_TRUE(parsed) << complaint << " in " << json;
        EXPECT_TRUE(bson_equal(parsed.get(), bsonOf(record).get())) << json;
        EXPECT_EQ(json.find('\n'), std::string::npos);
    }
}

TYPED_TEST(RecordRules, LogLineNamesTheClassAndEveryFieldInOrder) {
    const auto line = logTextOf(filled<TypeParam>());
    EXPECT_EQ(line.rfind(RecordCase<TypeParam>::name + std::string("{"), 0), 0u) << line;
    EXPECT_EQ(line.back(), '}');
    EXPECT_EQ(line.find('\n'), std::string::npos);
    std::size_t place = 0;
    for (const auto& field : this->fields) {
        place = line.find(field.name + "=", place);
        ASSERT_NE(place, std::string::npos) << field.name << " in " << line;
    }
}

}  // namespace
}  // namespace records_test
