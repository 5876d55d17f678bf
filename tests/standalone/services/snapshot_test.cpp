// A reader that has begun sees all of the market that was installed then, whatever is installed meanwhile.

#include "standalone/services/snapshot.h"

#include "standalone/services/process.h"
#include "tests/standalone/sample.h"

namespace {

using qmservice::CStkExchangeRateLimit;
using standalone::published;
using standalone::Snapshot;

/// A market whose contents of every kind name it.
standalone::Market marketNamed(const std::string& name, int number) {
    standalone::Market market;
    market.instruments = {sample::listed(name, "600000", qmservice::kStockList)};
    market.accounts = {sample::account(name)};
    market.stockLimits = {sample::configured<CStkExchangeRateLimit>(name, "600000", number)};
    market.categories = {sample::rule(number, name, "", "", "")};
    market.markets = {sample::place(name, 7 * number, true)};
    market.simulationPlatforms = {number};
    return market;
}

/// Which contents of a snapshot are those of the market, in the order in which a reader takes them one by one.
std::vector<bool> contentsOf(const Snapshot& snapshot, const std::string& name, int number) {
    return {bool(snapshot.catalogue.find(sample::keyOf(name, "600000"))),
            bool(snapshot.accounts.find(sample::account(name).record->getHashKey(0))),
            snapshot.configuration.tradeUnit(name, "600000") == 7 * number,
            bool(snapshot.configuration.stock().valueOr(name, "600000", {})),
            snapshot.configuration.isSimulation(number),
            snapshot.categories.numberOf(name) == number,
            snapshot.foreignMarkets.holds(name)};
}

const std::vector<bool> kAll(7, true);
const std::vector<bool> kNothing(7, false);

class SnapshotTest : public testing::Test {
protected:
    SnapshotTest() {
        standalone::install(marketNamed("FIRST", 1));
        begun = published().hold();
        standalone::install(marketNamed("SECOND", 2));
    }
    ~SnapshotTest() override { standalone::uninstall(); }

    standalone::Published<Snapshot>::Pointer begun;
};

TEST_F(SnapshotTest, ReaderThatBeganBeforeTheSecondInstallSeesAllOfTheFirstMarket) {
    EXPECT_EQ(contentsOf(*begun, "FIRST", 1), kAll);
    EXPECT_EQ(contentsOf(*begun, "SECOND", 2), kNothing);
}

TEST_F(SnapshotTest, ReaderThatBeginsAfterTheSecondInstallSeesAllOfTheSecondMarket) {
    published().read([](const Snapshot& now) {
        EXPECT_EQ(contentsOf(now, "SECOND", 2), kAll);
        EXPECT_EQ(contentsOf(now, "FIRST", 1), kNothing);
        return 0;
    });
}

}  // namespace
