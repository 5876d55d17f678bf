#include <gtest/gtest.h>

#include <string>

#include "support/future_builders.h"
#include "support/lock_watch.h"

// A futures change with nothing to store does not stop the readers.

namespace {

using namespace qmservice;

constexpr int kFlagsWithoutASlot[] = {0, '0', '4'};

class FutureNoChangeTest : public test::FutureTest {
protected:
    /// A custom fee that reaches every instrument with a margin of this hedge flag alone.
    void applyMargin(int hedgeFlag) {
        host.inSystemCategory = [](auto&&...) { return true; };
        center.doUpdateFutureCustomFee(account,
                                       test::makeCustomFutureFee({}, {test::makeCustomMargin("5", hedgeFlag, 20)}));
    }

    boost::shared_ptr<CInstrument> rb = addFuture("rb2605");
};

TEST_F(FutureNoChangeTest, LoadOfAFeeWithoutRatesDoesNotTakeTheLock) {
    EXPECT_FALSE(test::waitsToWrite(center.futureMutex, [&] { load({test::makeFutureFee(rb, nullptr)}); }));
    EXPECT_EQ(tableSizes(), emptyTables);
}

TEST_F(FutureNoChangeTest, CustomMarginWithoutASlotDoesNotTakeTheLock) {
    for (const int hedgeFlag : kFlagsWithoutASlot) {
        EXPECT_FALSE(test::waitsToWrite(center.futureMutex, [&] { applyMargin(hedgeFlag); })) << hedgeFlag;
        EXPECT_EQ(tableSizes(), emptyTables) << hedgeFlag;
    }
}

TEST_F(FutureNoChangeTest, CustomMarginWithoutASlotIsGivenNoKey) {
    int keysMade = 0;
    host.onKeyCall = [&](const std::string& operation) { keysMade += operation == "crc64" ? 1 : 0; };
    for (const int hedgeFlag : kFlagsWithoutASlot) {
        applyMargin(hedgeFlag);
        EXPECT_EQ(keysMade, 0) << hedgeFlag;
    }
    applyMargin('1');
    EXPECT_EQ(keysMade, 8);
}

}  // namespace
