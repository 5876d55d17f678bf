// A desktop client: one thread with an event loop, which asks for fees whenever it likes, hands on the loads that
// arrive, and redraws an account when its load is done.
//
// When is a load done? initFees() returns at once and calls nothing back. So the client posts a marker, a job of its
// own, behind it to the strand of the same name. The marker runs when the load has ended, on a thread of the engine; it
// touches nothing of the window and posts to the loop, where the window asks and redraws.

#include <boost/make_shared.hpp>
#include <boost/shared_ptr.hpp>
#include <condition_variable>
#include <deque>
#include <functional>
#include <iostream>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "CFeeCenter.h"
#include "host/records.h"
#include "host/services.h"
#include "standalone/host.h"

using boost::make_shared;
using boost::shared_ptr;
using qmservice::CAccountInfo;
using qmservice::CInstrumentFee;
using qmservice::IData;

namespace {

constexpr const char* kStrand = "fees";
constexpr const char* kMarket = "SH";
constexpr const char* kCode = "600519";

/// The loop of a user interface, as every toolkit has one: any thread posts, one thread runs what is posted.
class EventLoop {
public:
    void post(std::function<void()> event) {
        const std::lock_guard<std::mutex> lock(mutex);
        events.push_back(std::move(event));
        more.notify_one();
    }

    void run() {
        while (!ended) {
            next()();
        }
    }

    /// Called from inside an event.
    void end() { ended = true; }

private:
    std::function<void()> next() {
        std::unique_lock<std::mutex> lock(mutex);
        more.wait(lock, [this] { return !events.empty(); });
        std::function<void()> event = std::move(events.front());
        events.pop_front();
        return event;
    }

    std::mutex mutex;
    std::condition_variable more;
    std::deque<std::function<void()>> events;
    bool ended = false;
};

/// What the back end sends for one account.
struct Load {
    shared_ptr<CAccountInfo> account;
    std::vector<shared_ptr<IData>> records;
};

/// Shows what each account pays. Lives on the loop's thread alone.
class Window : public std::enable_shared_from_this<Window> {
public:
    Window(EventLoop& eventLoop, std::size_t accountCount) : loop(eventLoop), awaited(accountCount) {}

    /// A load has arrived: hand it on, and hear when it is done.
    void take(const Load& load) {
        shown[load.account->accountId] = "loading";
        fees.initFees(load.account, load.records);
        // The marker holds the window weakly: it may be closed by then. The loop outlives the engine's threads.
        auto marker = [&loop = loop, window = weak_from_this(), account = load.account] {
            loop.post([window, account] {
                if (const auto open = window.lock()) {
                    open->redraw(account);
                }
            });
        };
        utils::CSingletonT<net::RPCEngine>::instance()->getStrand(kStrand)->post(marker);
    }

    /// A question at any time, as a click or a timer makes it. Until the load is done the answer is the built-in
    /// default, which is why the window shows "loading" and not what it is answered.
    void ask(const shared_ptr<CAccountInfo>& account) {
        if (const auto fee = fees.getFee(account, kMarket, kCode)) {
            ++answers;
        }
    }

    [[nodiscard]] int answerCount() const { return answers; }

private:
    void redraw(const shared_ptr<CAccountInfo>& account) {
        const auto fee = fees.getFee(account, kMarket, kCode);
        shown[account->accountId] = fee ? std::to_string(fee->stkRateLimit->rate1) : "no such instrument";
        std::cout << "account " << account->accountId << ": " << shown[account->accountId] << '\n';
        if (--awaited == 0) {
            loop.end();
        }
    }

    EventLoop& loop;
    qmservice::CFeeCenter fees{kStrand};
    std::map<std::string, std::string> shown;
    std::size_t awaited;
    int answers = 0;
};

shared_ptr<qmservice::CInstrument> makeInstrument(const std::string& code) {
    const auto instrument = make_shared<qmservice::CInstrument>();
    instrument->market = kMarket;
    instrument->code = code;
    return instrument;
}

/// A load with many records, of which the last is the one that the window shows: one that asks too early sees another
/// rate.
Load makeLoad(const std::string& accountId, double rate, const shared_ptr<qmservice::CInstrument>& instrument) {
    Load load;
    load.account = make_shared<CAccountInfo>();
    load.account->accountId = accountId;
    load.account->accountType = qmservice::kStockAccount;
    constexpr int kRecords = 1000;
    for (int number = 0; number < kRecords; ++number) {
        const auto fee = make_shared<CInstrumentFee>();
        fee->instrument = number + 1 < kRecords ? makeInstrument(std::to_string(number)) : instrument;
        fee->stkRateLimit = make_shared<qmservice::CStkExchangeRateLimit>();
        fee->stkRateLimit->rate1 = rate;
        load.records.push_back(fee);
    }
    return load;
}

}  // namespace

int main() {
    // The host: a market made here. A client whose catalogue and accounts are files loads a market folder instead.
    standalone::Market market;
    standalone::ListedInstrument listed;
    listed.record = makeInstrument(kCode);
    listed.listMask = qmservice::kStockList;
    market.instruments.push_back(listed);
    standalone::install(market);
    standalone::startEngine(2);

    const std::vector<Load> loads = {makeLoad("1000001", 0.00025, listed.record),
                                     makeLoad("1000002", 0.0002, listed.record),
                                     makeLoad("1000003", 0.00008, listed.record)};
    EventLoop loop;
    auto window = std::make_shared<Window>(loop, loads.size());

    // The back end: another thread, which knows the loop and nothing else. Between its loads a timer makes the window
    // ask.
    std::thread backEnd([&] {
        for (const Load& load : loads) {
            loop.post([&] { window->take(load); });
            for (int tick = 0; tick < 100; ++tick) {
                loop.post([&] { window->ask(load.account); });
            }
        }
    });
    loop.run();
    backEnd.join();
    std::cout << (window->answerCount() > 0 ? "asked while the loads arrived\n" : "never asked\n");

    // The engine ends before the fee center: no job may run behind it. It ends on a thread that is none of its own.
    standalone::stopEngine();
    window.reset();
    standalone::uninstall();
}
