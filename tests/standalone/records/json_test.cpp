#include <gtest/gtest.h>
#include <stdlib.h>

#include <locale.h>
#include <filesystem>
#include <limits>

#include "outputs.h"
#include "sample_records.h"

namespace records_test {
namespace {

using namespace qmservice;

/// The record's JSON text parsed again; fails the test when it is not JSON.
Bson reparsed(const IData& data) {
    std::string complaint;
    const auto json = jsonTextOf(data);
    Bson document = parseJson(json, complaint);
    EXPECT_TRUE(document) << complaint << " in " << json;
    return document;
}

TEST(Json, IsOneObjectWithTheClassName) {
    CGroupCategorySubInfo part;
    part.category = 30001;
    part.excluded = 1;
    EXPECT_EQ(jsonTextOf(part), R"({ "_type" : "CGroupCategorySubInfo", "category" : 30001, "excluded" : 1 })");
}

TEST(Json, HoldsNestedRecordsWithTheirClassNames) {
    CInstrumentFee fee;
    fee.account = boost::make_shared<CAccountInfo>();
    fee.account->accountId = "A\"1";
    fee.marginDetails = {nullptr};
    EXPECT_EQ(jsonTextOf(fee),
              R"({ "_type" : "CInstrumentFee", "instrument" : null, "commissionDetail" : null, )"
              R"("marginDetails" : [ null ], "account" : { "_type" : "CAccountInfo", "accountType" : 0, )"
              R"("platformId" : 0, "accountId" : "A\"1", "accountName" : "" }, "stkRateLimit" : null, )"
              R"("stkOptionFeeRate" : null, "hgtRateLimit" : null, "sgtRateLimit" : null })");
}

TEST(Json, ReadsBackAWholeFee) { EXPECT_TRUE(bson_equal(reparsed(wholeFee()).get(), bsonOf(wholeFee()).get())); }

TEST(Json, KeepsEveryBitOfADouble) {
    CStkExchangeRateLimit limit;
    limit.rate1 = 0.00015;
    limit.rate2 = 0.1 + 0.2;
    limit.rate3 = std::numeric_limits<double>::denorm_min();
    limit.rate4 = -std::numeric_limits<double>::max();
    EXPECT_TRUE(bson_equal(reparsed(limit).get(), bsonOf(limit).get()));
}

TEST(Json, StaysValidWithNumbersThatAreNone) {
    CStkExchangeRateLimit limit;
    limit.rate1 = std::numeric_limits<double>::quiet_NaN();
    limit.rate2 = -std::numeric_limits<double>::infinity();
    const Bson document = reparsed(limit);
    ASSERT_TRUE(document);
    bson_iter_t field;
    ASSERT_TRUE(bson_iter_init_find(&field, document.get(), "rate1"));
    EXPECT_TRUE(bson_iter_double(&field) != bson_iter_double(&field));
    ASSERT_TRUE(bson_iter_init_find(&field, document.get(), "rate2"));
    EXPECT_EQ(bson_iter_double(&field), -std::numeric_limits<double>::infinity());
}

TEST(Json, StaysValidWithAnyBytesInATextOrKey) {
    CStockOptionFeeRate rate;
    rate.items[std::string("\xff\0\"", 3)] = nullptr;
    EXPECT_TRUE(bson_equal(reparsed(rate).get(), bsonOf(rate).get()));
    CAccountInfo account;
    account.accountId = "\xd5\xc5\xc8\xfd";
    account.accountName = "line\nbreak \x01";
    EXPECT_TRUE(bson_equal(reparsed(account).get(), bsonOf(account).get()));
}

/// The process runs with German numbers, which have a decimal comma; the locale is compiled into a folder of its own.
class GermanNumbers : public ::testing::Test {
protected:
    void SetUp() override {
        const auto pattern = (std::filesystem::temp_directory_path() / "records-locale-XXXXXX").string();
        std::vector<char> name(pattern.c_str(), pattern.c_str() + pattern.size() + 1);
        ASSERT_NE(mkdtemp(name.data()), nullptr);
        folder = name.data();
        const auto command = "localedef --no-archive -i de_DE -f UTF-8 '" + folder.string() + "/de_DE.UTF-8' 2>&1";
        ASSERT_EQ(std::system(command.c_str()), 0)
            << "localedef cannot make the German locale; it needs the package locales";
        setenv("LOCPATH", folder.c_str(), 1);
        const char* german = setlocale(LC_NUMERIC, "de_DE.UTF-8");
        unsetenv("LOCPATH");
        ASSERT_NE(german, nullptr);
    }

    void TearDown() override {
        setlocale(LC_NUMERIC, "C");
        std::filesystem::remove_all(folder);
    }

    static std::string printed(double value) {
        char text[32];
        return {text, static_cast<std::size_t>(snprintf(text, sizeof text, "%.1f", value))};
    }

    std::filesystem::path folder;
};

TEST_F(GermanNumbers, DoNotGetIntoTheJson) {
    ASSERT_EQ(printed(0.5), "0,5");
    CStkExchangeRateLimit limit;
    limit.rate1 = 0.5;
    EXPECT_NE(jsonTextOf(limit).find("\"rate1\" : 0.5,"), std::string::npos) << jsonTextOf(limit);
}

TEST_F(GermanNumbers, DoNotGetIntoTheLogLine) {
    CStkExchangeRateLimit limit;
    limit.rate1 = 0.5;
    EXPECT_NE(logTextOf(limit).find("{rate1=0.5,"), std::string::npos) << logTextOf(limit);
}

TEST_F(GermanNumbers, StayTheProcessesOwnAfterwards) {
    static_cast<void>(jsonTextOf(CStkExchangeRateLimit()));
    EXPECT_EQ(printed(0.5), "0,5");
}

}  // namespace
}  // namespace records_test
