#include <gtest/gtest.h>

#include <iomanip>
#include <limits>
#include <locale>

#include "outputs.h"
#include "sample_records.h"

namespace records_test {
namespace {

using namespace qmservice;

TEST(LogLine, WritesTextsInQuotesAndNumbersShort) {
    CInstrument instrument;
    instrument.market = "SHFE";
    instrument.code = "cu2601";
    instrument.productId = "cu";
    instrument.name = "\xe9\x93\x9c";
    instrument.volumeMultiple = 5;
    instrument.priceTick = 0.1;
    instrument.feeType = 2;
    instrument.openFee = 0.00015;
    instrument.closeFee = -0.5;
    instrument.closeTodayFee = 1e21;
    EXPECT_EQ(
        logTextOf(instrument),
        "CInstrument{market=\"SHFE\", code=\"cu2601\", productId=\"cu\", name=\"\xe9\x93\x9c\", volumeMultiple=5, "
        "priceTick=0.1, feeType=2, openFee=0.00015, closeFee=-0.5, closeTodayFee=1e+21}");
}

TEST(LogLine, WritesListsMapsAndEmptyPointers) {
    CCustomMarginRateDetail detail;
    detail.categoryId = "30001";
    detail.customCategories = {{-1, {}}, {30001, {"SH600000", "SZ000001"}}};
    detail.groupCategories = {boost::make_shared<CGroupCategorySubInfo>(), nullptr};
    EXPECT_EQ(logTextOf(detail),
              "CCustomMarginRateDetail{categoryId=\"30001\", hedgeFlag=0, longMarginRatio=0, "
              "longMarginRatioByVolume=0, shortMarginRatio=0, shortMarginRatioByVolume=0, marginMode=0, "
              "marginExtra1=0, marginExtra2=0, customCategories={-1: [], 30001: [\"SH600000\", \"SZ000001\"]}, "
              "groupCategories=[CGroupCategorySubInfo{category=0, excluded=0}, null]}");
}

TEST(LogLine, WritesOptionItemsByKey) {
    CStockOptionFeeRate rate;
    rate.baseRate = 0.2;
    rate.items["1"] = nullptr;
    EXPECT_EQ(logTextOf(rate), "CStockOptionFeeRate{baseRate=0.2, items={\"1\": null}}");
}

TEST(LogLine, StaysOneLineWhateverATextHolds) {
    CAccountInfo account;
    account.accountId = "a\nb\r\t\x7f";
    account.accountName = std::string("\"quoted\\\"") + '\0';
    EXPECT_EQ(logTextOf(account),
              "CAccountInfo{accountType=0, platformId=0, accountId=\"a\\x0ab\\x0d\\x09\\x7f\", "
              "accountName=\"\\\"quoted\\\\\\\"\\x00\"}");
}

TEST(LogLine, ShowsTheBytesOfATextThatIsNotUtf8) {
    CAccountInfo account;
    account.accountId = "a\xd5\xc5";
    EXPECT_NE(logTextOf(account).find("accountId=\"a\\xd5\\xc5\""), std::string::npos);
}

TEST(LogLine, WritesNumbersThatAreNone) {
    CStkExchangeRateLimit limit;
    limit.rate1 = std::numeric_limits<double>::quiet_NaN();
    limit.rate2 = std::numeric_limits<double>::infinity();
    limit.rate3 = -std::numeric_limits<double>::infinity();
    limit.rate4 = -0.0;
    EXPECT_EQ(logTextOf(limit),
              "CStkExchangeRateLimit{rate1=nan, rate2=inf, rate3=-inf, rate4=-0, rate5=0, rate6=0, unitVolume=0}");
}

TEST(LogLine, IgnoresTheStreamsLocaleAndFlags) {
    struct CommaPoint : std::numpunct<char> {
        char do_decimal_point() const override { return ','; }
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };
    CStkExchangeRateLimit limit;
    limit.rate1 = 1234.5;
    limit.unitVolume = 100000;
    std::ostringstream out;
    out.imbue(std::locale(out.getloc(), new CommaPoint));
    out << std::hex << std::showpos << std::setfill('*') << std::setw(400);
    limit.toLogStream(out);
    EXPECT_EQ(out.str(),
              "CStkExchangeRateLimit{rate1=1234.5, rate2=0, rate3=0, rate4=0, rate5=0, rate6=0, unitVolume=100000}");
}

}  // namespace
}  // namespace records_test
