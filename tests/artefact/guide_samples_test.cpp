#include "guide_samples.h"

#include <gtest/gtest.h>

#include <boost/smart_ptr/make_shared.hpp>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <utility>

#include "standalone/host.h"

// The host guide's samples on the standalone host, whose engine runs its jobs on real threads.

namespace {

using namespace qmservice;

/// A loop whose one thread is the test's.
class Loop : public EventLoop {
public:
    void post(std::function<void()> event) override {
        const std::lock_guard<std::mutex> lock(mutex);
        events.push_back(std::move(event));
        more.notify_one();
    }
    void runOne() {
        std::unique_lock<std::mutex> lock(mutex);
        more.wait(lock, [this] { return !events.empty(); });
        const auto event = std::move(events.front());
        events.pop_front();
        lock.unlock();
        event();
    }

private:
    std::mutex mutex;
    std::condition_variable more;
    std::deque<std::function<void()>> events;
};

class GuideSamplesTest : public ::testing::Test {
protected:
    GuideSamplesTest() {
        account->accountType = kStockAccount;
        account->accountId = "1000001";
        market.accounts.resize(1);
        market.accounts[0].record = account;
        stock = list("SH", "600519", kStockList, 0);
        list("SHFE", "rb2610", 0, kFuturesType);
        standalone::install(market);
        standalone::startEngine(2);
    }
    ~GuideSamplesTest() override {
        standalone::stopEngine();
        standalone::uninstall();
    }

    boost::shared_ptr<CInstrument> list(const char* itsMarket, const char* code, int lists, int types) {
        standalone::ListedInstrument listed;
        listed.record = boost::make_shared<CInstrument>();
        listed.record->market = itsMarket;
        listed.record->code = code;
        listed.listMask = lists;
        listed.types = types;
        listed.tradeUnit = 1;
        market.instruments.push_back(listed);
        return listed.record;
    }

    standalone::Market market;
    boost::shared_ptr<CAccountInfo> account = boost::make_shared<CAccountInfo>();
    boost::shared_ptr<CInstrument> stock;
};

TEST_F(GuideSamplesTest, WindowIsDrawnWithWhatWasLoaded) {
    const auto record = boost::make_shared<CInstrumentFee>();
    record->instrument = stock;
    record->stkRateLimit = boost::make_shared<CStkExchangeRateLimit>();
    record->stkRateLimit->rate1 = 0.00025;
    CFeeCenter fees("fees");
    Loop loop;
    const auto window = std::make_shared<Window>(fees);
    loadDone(fees, account, {record}, loop, window);
    loop.runOne();
    EXPECT_EQ(window->shown, std::vector<double>{0.00025});
}

TEST_F(GuideSamplesTest, WindowThatIsClosedByThenIsLeftAlone) {
    const auto record = boost::make_shared<CInstrumentFee>();
    record->instrument = stock;
    CFeeCenter fees("fees");
    Loop loop;
    loadDone(fees, account, {record}, loop, std::make_shared<Window>(fees));
    loop.runOne();
}

TEST_F(GuideSamplesTest, ConformanceIsReported) {
    bool kept = false;
    ::testing::internal::CaptureStdout();
    checkConformance(account, kept);
    const std::string printed = ::testing::internal::GetCapturedStdout();
    EXPECT_TRUE(kept) << printed;
    EXPECT_NE(printed.find("promises kept, 0 broken, 2 not checked\n"), std::string::npos) << printed;
}

}  // namespace
