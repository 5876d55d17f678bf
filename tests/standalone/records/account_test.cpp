#include <gtest/gtest.h>

#include "host/records.h"

namespace records_test {
namespace {

using qmservice::CAccountInfo;
using qmservice::CInstrument;

CAccountInfo accountWithId(const std::string& id) {
    CAccountInfo account;
    account.accountId = id;
    return account;
}

TEST(AccountKey, DependsOnTheAccountIdAlone) {
    CAccountInfo account = accountWithId("8800123");
    const auto key = account.getHashKey(0);
    account.accountType = 2;
    account.platformId = 11;
    account.accountName = "Zhang San";
    EXPECT_EQ(account.getHashKey(0), key);
}

TEST(AccountKey, DiffersForOtherIds) {
    EXPECT_NE(accountWithId("8800123").getHashKey(0), accountWithId("8800124").getHashKey(0));
    EXPECT_NE(accountWithId("").getHashKey(0), accountWithId(std::string(1, '\0')).getHashKey(0));
}

TEST(AccountData, HandsOutTheRecordThatItWasGiven) {
    const auto account = boost::shared_ptr<CAccountInfo>(new CAccountInfo);
    EXPECT_EQ(qmservice::CAccountData(account).getAccountInfo(), account);
}

TEST(Instrument, AnswersTheFeesInItsFields) {
    CInstrument instrument;
    instrument.feeType = 2;
    instrument.openFee = 0.5;
    instrument.closeFee = 0.25;
    instrument.closeTodayFee = -1.0;
    EXPECT_EQ(instrument.getFeeType(), 2);
    EXPECT_EQ(instrument.getOpenFee(), 0.5);
    EXPECT_EQ(instrument.getCloseFee(), 0.25);
    EXPECT_EQ(instrument.getCloseTodayFee(), -1.0);
}

}  // namespace
}  // namespace records_test
