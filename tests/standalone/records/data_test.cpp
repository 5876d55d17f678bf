// A class that defines nothing beyond what IData demands.

#include <gtest/gtest.h>

#include "outputs.h"
#include "sample_records.h"

namespace bare {

class Marker : public qmservice::IData {
public:
    [[nodiscard]] boost::shared_ptr<IData> copy() const override { return boost::make_shared<Marker>(); }
    [[nodiscard]] qmservice::uint64 getHashKey(qmservice::uint64 seed) const override { return seed; }
};

}  // namespace bare

namespace records_test {
namespace {

TEST(BareRecord, IsDescribedAsARecordWithoutFields) {
    EXPECT_EQ(bare::Marker().getStructDes(), "bare::Marker{}");
    EXPECT_EQ(logTextOf(bare::Marker()), "bare::Marker{}");
    EXPECT_EQ(jsonTextOf(bare::Marker()), R"({ "_type" : "bare::Marker" })");
    EXPECT_EQ(bare::Marker().getOffset("accountId"), -1);
}

TEST(BareRecord, AddsNoElementsToADocument) {
    const Bson document = emptyBson();
    bare::Marker().appendElementsWithNoTypeIdWithBson(document.get());
    EXPECT_EQ(bson_count_keys(document.get()), 0u);
}

TEST(BareRecord, EqualsRecordsOfItsClassOnly) {
    EXPECT_TRUE(bare::Marker().isEqual(bare::Marker()));
    EXPECT_FALSE(bare::Marker().isEqual(qmservice::CAccountInfo()));
}

TEST(DerivedInstrument, AnswersThroughTheBase) {
    class Fixed : public qmservice::CInstrument {
    public:
        [[nodiscard]] double getOpenFee() const override { return 3.5; }
    };
    const boost::shared_ptr<qmservice::CInstrument> instrument = boost::make_shared<Fixed>();
    EXPECT_EQ(instrument->getOpenFee(), 3.5);
    EXPECT_EQ(instrument->getCloseFee(), 0.0);
}

TEST(DerivedAccount, KeyThatItDefinesCountsInsideAFee) {
    class Numbered : public qmservice::CAccountInfo {
    public:
        explicit Numbered(qmservice::uint64 number) : key(number) {}
        [[nodiscard]] qmservice::uint64 getHashKey(qmservice::uint64) const override { return key; }

    private:
        qmservice::uint64 key;
    };
    qmservice::CInstrumentFee one;
    one.account = boost::make_shared<Numbered>(1);
    qmservice::CInstrumentFee two;
    two.account = boost::make_shared<Numbered>(2);
    EXPECT_NE(one.getHashKey(0), two.getHashKey(0));
}

}  // namespace
}  // namespace records_test
