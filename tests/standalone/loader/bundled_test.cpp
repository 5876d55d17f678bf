// The market folder that comes with the project.

#include <functional>
#include <tuple>

#include "cost/pattern.h"
#include "fixture.h"
#include "standalone/families.h"

namespace standalone {
namespace {

using namespace qmservice;  // NOLINT(google-build-using-namespace): records

TEST(LoaderBundledMarket, LoadsWithoutErrors) {
    const LoadResult result = loadMarket(BUNDLED_MARKET);
    for (const LoadError& error : result.errors) {
        ADD_FAILURE() << error.text(BUNDLED_MARKET);
    }
    EXPECT_FALSE(result.market.instruments.empty());
    EXPECT_FALSE(result.market.accounts.empty());
}

/// Throws when two equally specific terms charge the same of one of the instruments.
void askTerms(const cost::Schedule& schedule, const Market& market, cost::Family family, const std::string& account,
              cost::Date day) {
    for (const ListedInstrument& listed : market.instruments) {
        if (!rateFamilyOf(family).lists.hold(listed)) {
            continue;
        }
        const CInstrument& record = *listed.record;
        std::ignore = schedule.termsFor({family, account, record.market, record.code, record.productId}, day);
    }
}

TEST(LoaderBundledMarket, ChargesNoInstrumentByTwoTermsAtOnce) {
    const MarketFolder folder = loadFolder(BUNDLED_MARKET).folder;
    const Market market = folder.marketOn(folder.defaultDay());
    for (const char* day : {"2021-02-05", "2025-06-29", "2025-06-30"}) {
        for (const char* account : {"1000001", "1000005"}) {
            EXPECT_NO_THROW(
                askTerms(folder.schedule(), market, cost::Family::kStock, account, *cost::Date::parse(day)));
        }
        for (std::size_t family = 1; family < cost::kWords<cost::Family>.size(); ++family) {
            EXPECT_NO_THROW(
                askTerms(folder.schedule(), market, static_cast<cost::Family>(family), "", *cost::Date::parse(day)));
        }
    }
}

/// A rate of the last record that matches, which is the one in force; -1 when there is none.
double stockRate(const Account& account, const std::string& pattern, double CStkExchangeRateLimit::*rate) {
    for (auto fee = account.fees.rbegin(); fee != account.fees.rend(); ++fee) {
        const CInstrument& instrument = *fee->record->instrument;
        if (cost::matchesPattern(instrument.market + ":" + instrument.code, pattern)) {
            return fee->record->stkRateLimit.get()->*rate;
        }
    }
    return -1;
}

TEST(LoaderBundledMarket, KnowsThePublishedRatesOfBothDaysOfEachChange) {
    using Stock = CStkExchangeRateLimit;
    const auto hgt = [](double CCustomHGTExchangeRateLimit::*rate) {
        return [rate](const Account& account) { return account.fees.at(0).record->hgtRateLimit.get()->*rate; };
    };
    const auto stock = [](const char* pattern, double Stock::*rate) {
        return [=](const Account& account) { return stockRate(account, pattern, rate); };
    };
    struct Change {
        const char* what;
        const char* account;
        const char* lastDay;
        const char* firstDay;
        double before;
        double after;
        std::function<double(const Account&)> rate;
    };
    const std::vector<Change> changes{
        {"stamp duty", "1000002", "2023-08-27", "2023-08-28", 0.001, 0.0005, stock("SH:600519", &Stock::rate6)},
        {"stamp duty of the statement's account", "1000005", "2023-08-27", "2023-08-28", 0.001, 0.0005,
         stock("SZ:300750", &Stock::rate6)},
        {"stamp duty of NEEQ", "7000001", "2023-08-27", "2023-08-28", 0.001, 0.0005, stock("NEEQ:*", &Stock::rate6)},
        {"stamp duty of credit", "2000001", "2023-08-27", "2023-08-28", 0.001, 0.0005,
         stock("SH:600519", &Stock::rate6)},
        {"transfer fee", "1000001", "2022-04-28", "2022-04-29", 0.00002, 0.00001, stock("SH:600519", &Stock::rate2)},
        {"transfer fee of Beijing", "1000003", "2022-04-28", "2022-04-29", 0.000025, 0.00001,
         stock("BJ:*", &Stock::rate2)},
        {"handling fee", "1000005", "2023-08-27", "2023-08-28", 0.0000487, 0.0000341,
         stock("SH:600519", &Stock::rate3)},
        {"handling fee of Beijing", "1000003", "2022-11-30", "2022-12-01", 0.0005, 0.00025,
         stock("BJ:*", &Stock::rate3)},
        {"and again", "1000003", "2023-08-27", "2023-08-28", 0.00025, 0.000125, stock("BJ:*", &Stock::rate3)},
        {"Hong Kong stamp duty", "5000001", "2023-11-16", "2023-11-17", 0.0013, 0.001,
         hgt(&CCustomHGTExchangeRateLimit::rate3)},
        {"Hong Kong settlement fee", "5000001", "2025-06-29", "2025-06-30", 0.00002, 0.000042,
         hgt(&CCustomHGTExchangeRateLimit::rate7)},
    };
    const MarketFolder folder = loadFolder(BUNDLED_MARKET).folder;
    for (const Change& change : changes) {
        const Market last = folder.marketOn(day(change.lastDay));
        const Market first = folder.marketOn(day(change.firstDay));
        EXPECT_EQ(change.rate(accountOf(last, change.account)), change.before) << change.what;
        EXPECT_EQ(change.rate(accountOf(first, change.account)), change.after) << change.what;
    }
}

}  // namespace
}  // namespace standalone
