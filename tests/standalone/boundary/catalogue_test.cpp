#include <map>
#include <string>
#include <vector>

#include "tests/standalone/sample.h"

namespace {

using qmservice::kCreditList;
using qmservice::kFuturesExtraType;
using qmservice::kFuturesType;
using qmservice::kHgtList;
using qmservice::kNeeqList;
using qmservice::kOptionList;
using qmservice::kSgtList;
using qmservice::kStockList;
using sample::catalogue;
using sample::codesOf;
using sample::Instrument;
using sample::keyOf;
using sample::listed;
using Strings = std::vector<std::string>;

class CatalogueTest : public sample::ServicesTest {
protected:
    CatalogueTest() {
        market.instruments = {listed("SZ", "000001", kStockList | kCreditList),
                              listed("SH", "600000", kStockList),
                              listed("HK", "00700", kHgtList | kSgtList),
                              listed("SHFE", "rb2510", 0, kFuturesType),
                              listed("SHFE", "cu2510", 0, kFuturesType | kFuturesExtraType),
                              listed("INE", "sc2510", 0, kFuturesExtraType),
                              listed("NEEQ", "430017", kNeeqList),
                              listed("SHO", "10008888", kOptionList)};
        install();
    }

    [[nodiscard]] Strings list(int listMask) const {
        std::vector<Instrument> instruments;
        catalogue().getInstrumentList(instruments, listMask);
        return codesOf(instruments);
    }

    [[nodiscard]] Strings mapKeys(int type) const {
        std::map<std::string, Instrument> instruments;
        catalogue().getInstrumentMap(type, instruments);
        Strings keys;
        for (const auto& each : instruments) {
            EXPECT_EQ(each.first, each.second->market + ":" + each.second->code);
            keys.push_back(each.first);
        }
        return keys;
    }
};

TEST_F(CatalogueTest, FindsAnInstrumentByTheHashOfItsJoinedKey) {
    EXPECT_EQ(catalogue().findInstrument(keyOf("SH", "600000")), market.instruments[1].record);
    EXPECT_EQ(catalogue().findInstrument(keyOf("SHFE", "rb2510")), market.instruments[3].record);
}

TEST_F(CatalogueTest, FindsNothingForAnUnknownKey) {
    EXPECT_FALSE(catalogue().findInstrument(keyOf("SZ", "600000")));
    EXPECT_FALSE(catalogue().findInstrument(0));
}

TEST_F(CatalogueTest, ListsTheInstrumentsOfEachKind) {
    EXPECT_EQ(list(1), (Strings{"000001", "600000"}));
    EXPECT_EQ(list(8), (Strings{"000001"}));
    EXPECT_EQ(list(32), (Strings{"10008888"}));
    EXPECT_EQ(list(128), (Strings{"00700"}));
    EXPECT_EQ(list(256), (Strings{"430017"}));
    EXPECT_EQ(list(16384), (Strings{"00700"}));
}

TEST_F(CatalogueTest, ListsAnInstrumentOfSeveralKindsOnce) {
    EXPECT_EQ(list(1 | 8 | 256), (Strings{"000001", "600000", "430017"}));
}

TEST_F(CatalogueTest, ListsNothingForAnUnknownKind) {
    EXPECT_EQ(list(0), Strings{});
    EXPECT_EQ(list(2), Strings{});
}

TEST_F(CatalogueTest, MapsTheInstrumentsOfATypeByJoinedKey) {
    EXPECT_EQ(mapKeys(2), (Strings{"SHFE:cu2510", "SHFE:rb2510"}));
    EXPECT_EQ(mapKeys(1024), (Strings{"INE:sc2510", "SHFE:cu2510"}));
}

TEST_F(CatalogueTest, MapsNothingForAnUnknownType) {
    EXPECT_EQ(mapKeys(0), Strings{});
    EXPECT_EQ(mapKeys(4), Strings{});
}

TEST_F(CatalogueTest, ReplacesWhatTheCallersListHeld) {
    std::vector<Instrument> instruments = {sample::instrument("SH", "old")};
    catalogue().getInstrumentList(instruments, kNeeqList);
    EXPECT_EQ(codesOf(instruments), (Strings{"430017"}));
}

TEST_F(CatalogueTest, ReplacesWhatTheCallersMapHeld) {
    std::map<std::string, Instrument> instruments = {{"old", Instrument()}};
    catalogue().getInstrumentMap(kFuturesType, instruments);
    EXPECT_EQ(instruments.size(), 2U);
    EXPECT_EQ(instruments.count("old"), 0U);
}

TEST_F(CatalogueTest, SharesItsRecordsWithEveryAnswer) {
    std::vector<Instrument> instruments;
    catalogue().getInstrumentList(instruments, kNeeqList);
    EXPECT_EQ(instruments.at(0), market.instruments[6].record);
}

TEST(TraderCenterTest, IsTheSameObjectForEveryCaller) {
    EXPECT_EQ(qmservice::TraderCenter::instance(), qmservice::TraderCenter::instance());
    EXPECT_EQ(qmservice::TraderCenter::instance()->getDataCenter(),
              qmservice::TraderCenter::instance()->getDataCenter());
    EXPECT_TRUE(qmservice::TraderCenter::instance()->getDataCenter());
    EXPECT_NE(qmservice::TraderCenter::instance()->getInstCenter(), nullptr);
}

TEST(TraderCenterTest, IsHandedOutWithoutAReferenceCount) {
    EXPECT_EQ(qmservice::TraderCenter::instance().use_count(), 0);
    EXPECT_EQ(qmservice::TraderCenter::instance()->getDataCenter().use_count(), 0);
    EXPECT_EQ(qmservice::ConfigCollector::instance().use_count(), 0);
}

using AccountStoreTest = sample::ServicesTest;

TEST_F(AccountStoreTest, FindsAnAccountByItsKey) {
    market.accounts = {sample::account("100001"), sample::account("100002")};
    install();
    const auto store = qmservice::TraderCenter::instance()->getDataCenter();
    for (const standalone::Account& account : market.accounts) {
        const auto data = store->getAccountData(account.record->getHashKey(0));
        ASSERT_TRUE(data);
        EXPECT_EQ(data->getAccountInfo(), account.record);
    }
}

TEST_F(AccountStoreTest, FindsNothingForAnUnknownKey) {
    market.accounts = {sample::account("100001")};
    install();
    const auto stranger = sample::account("100003").record->getHashKey(0);
    EXPECT_FALSE(qmservice::TraderCenter::instance()->getDataCenter()->getAccountData(stranger));
}

}  // namespace
