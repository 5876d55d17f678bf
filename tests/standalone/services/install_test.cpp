#include <atomic>
#include <map>
#include <string>
#include <thread>
#include <vector>

#include "tests/standalone/sample.h"

namespace {

using qmservice::CCustomHGTExchangeRateLimit;
using qmservice::CCustomSgtExchangeRateLimit;
using qmservice::ConfigCollector;
using qmservice::CppCategory;
using qmservice::CStkExchangeRateLimit;
using qmservice::StockTypeCenter;
using qmservice::TraderCenter;
using sample::catalogue;
using sample::Instrument;
using sample::keyOf;

constexpr int kAnyPlatform = 9001;
constexpr int kCategory = 1001;

/// A market in which every service answers with the same number: `edition` instruments with a multiplier of `edition`,
/// and so on. The yes-or-no services say yes in odd editions.
standalone::Market editionOf(int edition) {
    standalone::Market market;
    for (int each = 0; each < edition; ++each) {
        market.instruments.push_back(
            sample::listed("SH", std::to_string(600000 + each), qmservice::kStockList, qmservice::kFuturesType));
        market.instruments.back().tradeUnit = edition;
        market.instruments.back().record->volumeMultiple = edition;
    }
    market.accounts = {sample::account("100001")};
    market.accounts[0].record->platformId = edition;
    market.stockLimits = {sample::configured<CStkExchangeRateLimit>("SH", "600000", edition)};
    market.hgtLimits = {sample::configured<CCustomHGTExchangeRateLimit>("SH", "600000", edition)};
    market.sgtLimits = {sample::configured<CCustomSgtExchangeRateLimit>("SH", "600000", edition)};
    market.categories = {sample::rule(edition, "edition", "", "", "")};
    if (edition % 2 == 1) {
        market.markets = {sample::place("LME", 1, true)};
        market.simulationPlatforms = {kAnyPlatform};
        market.categories.push_back(sample::rule(kCategory, "odd", "SH", "60*", ""));
    }
    return market;
}

/// The edition of a list, 0 when its instruments are not all of one edition.
template <class Instruments, class RecordOf>
int editionOfAll(const Instruments& instruments, RecordOf recordOf) {
    const auto edition = static_cast<int>(instruments.size());
    for (const auto& each : instruments) {
        if (static_cast<int>(recordOf(each)->volumeMultiple) != edition) {
            return 0;
        }
    }
    return edition;
}

int editionOfList() {
    std::vector<Instrument> instruments;
    catalogue().getInstrumentList(instruments, qmservice::kStockList);
    return editionOfAll(instruments, [](const Instrument& each) { return each; });
}

int editionOfMap() {
    std::map<std::string, Instrument> instruments;
    catalogue().getInstrumentMap(qmservice::kFuturesType, instruments);
    return editionOfAll(instruments, [](const auto& each) { return each.second; });
}

qmservice::uint64 accountKey() { return sample::account("100001").record->getHashKey(0); }

/// What each numbering service answers just now.
std::vector<int> editionsSeen() {
    const auto configuration = ConfigCollector::instance();
    return {editionOfList(),
            editionOfMap(),
            static_cast<int>(catalogue().findInstrument(keyOf("SH", "600000"))->volumeMultiple),
            TraderCenter::instance()->getDataCenter()->getAccountData(accountKey())->getAccountInfo()->platformId,
            qmservice::getTradeMinUnit("SH", "600000"),
            static_cast<int>(configuration->getRateLimitPtr("SH", "600000")->rate1),
            static_cast<int>(configuration->getHGTExchangeRateLimitPtr("SH", "600000")->rate1),
            static_cast<int>(configuration->getSgtExchangeRateLimitPtr("SH", "600000")->rate1),
            utils::CSingletonT<CppCategory>::instance()->getCategorId("edition")};
}

/// What each service that says yes or no answers just now.
std::vector<bool> oddnessSeen() {
    CppCategory& categories = *utils::CSingletonT<CppCategory>::instance();
    return {utils::CSingletonT<StockTypeCenter>::instance()->isWPMarket("LME"),
            ConfigCollector::instance()->isSimulationPlatform(kAnyPlatform),
            categories.isStockInCategoryForTS("SH", "600000", "", kCategory)};
}

class InstallTest : public testing::Test {
protected:
    ~InstallTest() override { standalone::uninstall(); }
};

TEST_F(InstallTest, PutsTheMarketIntoEveryService) {
    standalone::install(editionOf(3));
    EXPECT_EQ(editionsSeen(), std::vector<int>(9, 3));
    EXPECT_EQ(oddnessSeen(), std::vector<bool>(3, true));
}

TEST_F(InstallTest, ReplacesWhatEveryServiceHeld) {
    standalone::install(editionOf(3));
    standalone::install(editionOf(2));
    EXPECT_EQ(editionsSeen(), std::vector<int>(9, 2));
    EXPECT_EQ(oddnessSeen(), std::vector<bool>(3, false));
    EXPECT_FALSE(catalogue().findInstrument(keyOf("SH", "600002")));
}

TEST_F(InstallTest, PreparedMarketsTakeTurns) {
    const standalone::PreparedMarket three = standalone::prepared(editionOf(3));
    const standalone::PreparedMarket two = standalone::prepared(editionOf(2));
    EXPECT_FALSE(catalogue().findInstrument(keyOf("SH", "600000")));
    standalone::install(three);
    EXPECT_EQ(editionsSeen(), std::vector<int>(9, 3));
    standalone::install(two);
    EXPECT_EQ(editionsSeen(), std::vector<int>(9, 2));
    standalone::install(three);
    EXPECT_EQ(editionsSeen(), std::vector<int>(9, 3));
}

TEST_F(InstallTest, UninstallEmptiesEveryService) {
    standalone::install(editionOf(3));
    standalone::uninstall();
    EXPECT_FALSE(catalogue().findInstrument(keyOf("SH", "600000")));
    EXPECT_EQ(editionOfList(), 0);
    EXPECT_EQ(editionOfMap(), 0);
    EXPECT_FALSE(TraderCenter::instance()->getDataCenter()->getAccountData(accountKey()));
    EXPECT_EQ(qmservice::getTradeMinUnit("SH", "600000"), 100);
    EXPECT_FALSE(ConfigCollector::instance()->getRateLimitPtr("SH", "600000"));
    EXPECT_FALSE(ConfigCollector::instance()->getHGTExchangeRateLimitPtr("SH", "600000"));
    EXPECT_FALSE(ConfigCollector::instance()->getSgtExchangeRateLimitPtr("SH", "600000"));
    EXPECT_EQ(utils::CSingletonT<CppCategory>::instance()->getCategorId("edition"), -1);
    EXPECT_EQ(oddnessSeen(), std::vector<bool>(3, false));
}

TEST_F(InstallTest, MarketMayEndAfterItsInstallation) {
    {
        const standalone::Market passing = editionOf(2);
        standalone::install(passing);
    }
    EXPECT_EQ(editionsSeen(), std::vector<int>(9, 2));
}

TEST_F(InstallTest, AnswerOutlivesTheMarketThatItCameFrom) {
    standalone::install(editionOf(2));
    const Instrument held = catalogue().findInstrument(keyOf("SH", "600001"));
    standalone::uninstall();
    EXPECT_EQ(held->code, "600001");
    EXPECT_EQ(held.use_count(), 1);
}

TEST_F(InstallTest, RecordsOfTheOldMarketEndOutsideEveryLock) {
    bool ended = false;
    standalone::Market market = editionOf(1);
    market.instruments[0].record = Instrument(new qmservice::CInstrument, [&ended](qmservice::CInstrument* record) {
        // Each of these would wait for ever if the lock of its service, or that of the installation, were held.
        ended = !catalogue().findInstrument(0) && qmservice::getTradeMinUnit("SH", "600000") == 100;
        standalone::uninstall();
        delete record;
    });
    standalone::install(market);
    market = standalone::Market();
    EXPECT_FALSE(ended);
    standalone::uninstall();
    EXPECT_TRUE(ended);
}

TEST_F(InstallTest, ReadersSeeTheOldMarketOrTheNewAndNothingElse) {
    constexpr int kReaders = 3;
    constexpr int kInstallations = 60;
    const standalone::Market markets[] = {editionOf(40), editionOf(41)};
    standalone::install(markets[0]);

    std::atomic<bool> done{false};
    std::atomic<int> torn{0};
    std::atomic<int> seen[2] = {{0}, {0}};
    std::atomic<int> passes[kReaders] = {{0}, {0}, {0}};
    std::vector<std::thread> readers;
    for (std::atomic<int>& pass : passes) {
        readers.emplace_back([&] {
            while (!done) {
                for (const int edition : editionsSeen()) {
                    const bool whole = edition == 40 || edition == 41;
                    ++(whole ? seen[edition - 40] : torn);
                }
                oddnessSeen();
                ++pass;
            }
        });
    }
    for (int installation = 1; installation <= kInstallations; ++installation) {
        standalone::install(markets[installation % 2]);
        // The second pass from here began after the installation, so that each market is seen.
        for (std::atomic<int>& pass : passes) {
            for (const int before = pass; pass < before + 2;) {
                std::this_thread::yield();
            }
        }
    }
    done = true;
    for (std::thread& reader : readers) {
        reader.join();
    }
    EXPECT_EQ(torn, 0);
    EXPECT_GT(seen[0], 0);
    EXPECT_GT(seen[1], 0);
}

TEST_F(InstallTest, MarketsInstalledAtOnceDoNotMix) {
    constexpr int kRounds = 2000;
    const standalone::Market markets[] = {editionOf(2), editionOf(3)};
    std::atomic<int> started{0};
    std::atomic<int> finished{0};
    // A waiting thread spins, so that the two installations of a round overlap.
    const auto waitUntil = [](const std::atomic<int>& counter, int count) {
        while (counter < count) {
            std::this_thread::yield();
        }
    };
    std::thread other([&] {
        for (int round = 1; round <= kRounds; ++round) {
            waitUntil(started, round);
            standalone::install(markets[0]);
            ++finished;
        }
    });
    int mixed = 0;
    for (int round = 1; round <= kRounds; ++round) {
        ++started;
        standalone::install(markets[1]);
        waitUntil(finished, round);
        const int edition = editionOfList();
        mixed += editionsSeen() != std::vector<int>(9, edition) || oddnessSeen() != std::vector<bool>(3, edition == 3);
    }
    other.join();
    EXPECT_EQ(mixed, 0);
}

}  // namespace
