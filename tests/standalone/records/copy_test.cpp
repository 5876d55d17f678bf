#include <gtest/gtest.h>

#include "sample_records.h"

namespace records_test {
namespace {

using namespace qmservice;

template <class Record>
boost::shared_ptr<Record> copyOf(const Record& record) {
    return boost::dynamic_pointer_cast<Record>(record.copy());
}

TEST(CopyOfAFee, SharesItsAccountAndInstrument) {
    const auto fee = wholeFee();
    const auto copy = copyOf(fee);
    EXPECT_EQ(copy->account, fee.account);
    EXPECT_EQ(copy->instrument, fee.instrument);
}

TEST(CopyOfAFee, HasRateRecordsOfItsOwn) {
    const auto fee = wholeFee();
    const auto copy = copyOf(fee);
    copy->commissionDetail->openRatioByMoney = 9;
    copy->marginDetails[2]->longMarginRatio = 9;
    copy->stkRateLimit->rate1 = 9;
    copy->stkOptionFeeRate->items.at("C12")->fee1 = 9;
    copy->hgtRateLimit->groupCategories[0]->category = 9;
    copy->sgtRateLimit->rate14 = 9;
    EXPECT_TRUE(fee.isEqual(wholeFee()));
}

TEST(CopyOfAFee, KeepsEmptyPointersAndEmptyEntries) {
    auto fee = wholeFee();
    fee.commissionDetail.reset();
    const auto copy = copyOf(fee);
    EXPECT_FALSE(copy->commissionDetail);
    ASSERT_EQ(copy->marginDetails.size(), 3u);
    EXPECT_FALSE(copy->marginDetails[1]);
}

TEST(CopyOfACustomFee, CopiesTheRecordsInItsListsDownToTheGroups) {
    CCustomStockInstrumentFee fee;
    fee.rateLimits = {newFilled<CCustomStkExchangeRateLimit>(), nullptr};
    const auto copy = copyOf(fee);
    ASSERT_EQ(copy->rateLimits.size(), 2u);
    EXPECT_FALSE(copy->rateLimits[1]);
    copy->rateLimits[0]->groupCategories[0]->excluded = 1;
    copy->rateLimits[0]->customCategories[30001].clear();
    EXPECT_EQ(fee.rateLimits[0]->groupCategories[0]->excluded, 0);
    EXPECT_EQ(fee.rateLimits[0]->customCategories[30001].size(), 2u);
}

TEST(CopyOfAFee, UsesTheCopyOfADerivedRateRecord) {
    class DoublingLimit : public CStkExchangeRateLimit {
    public:
        [[nodiscard]] boost::shared_ptr<IData> copy() const override {
            auto made = boost::make_shared<DoublingLimit>(*this);
            made->rate1 *= 2;
            return made;
        }
    };
    CInstrumentFee fee;
    fee.stkRateLimit = boost::make_shared<DoublingLimit>();
    fee.stkRateLimit->rate1 = 0.25;
    EXPECT_EQ(copyOf(fee)->stkRateLimit->rate1, 0.5);
}

TEST(CopyOfAFee, RefusesARateRecordWhoseCopyIsOfAForeignClass) {
    class ForeignLimit : public CStkExchangeRateLimit {
    public:
        [[nodiscard]] boost::shared_ptr<IData> copy() const override { return boost::make_shared<CAccountInfo>(); }
    };
    CInstrumentFee fee;
    fee.stkRateLimit = boost::make_shared<ForeignLimit>();
    EXPECT_THROW(static_cast<void>(fee.copy()), std::bad_cast);
}

}  // namespace
}  // namespace records_test
