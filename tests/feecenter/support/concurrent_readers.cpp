#include "support/concurrent_readers.h"

#include <algorithm>
#include <future>
#include <thread>
#include <utility>

#include "support/strand_threads.h"

namespace test {
namespace {

/// The version whose first call of the host is still to come; 0 for none, as on every thread but the strand's.
thread_local int toMeet = 0;

/// Nobody waits for a reader that is gone, however it went.
class Leaving {
public:
    Leaving(std::atomic<int>& ofReader, int lastVersion) : met(ofReader), last(lastVersion) {}
    Leaving(const Leaving&) = delete;
    Leaving& operator=(const Leaving&) = delete;
    ~Leaving() { met = last; }

private:
    std::atomic<int>& met;
    int last;
};

}  // namespace

ConcurrentReaders::ConcurrentReaders(FakeHost& theHost, boost::asio::io_service::strand& theStrand)
    : host(theHost), strand(theStrand) {
    host.onCall = host.onKeyCall = [this](const std::string& /*operation*/) {
        if (toMeet != 0) {
            paused = std::exchange(toMeet, 0);
            pause();
        }
    };
}

ConcurrentReaders::~ConcurrentReaders() { host.onCall = host.onKeyCall = nullptr; }

std::vector<std::string> ConcurrentReaders::run(int versions, std::size_t readers, const Post& post,
                                                const Round& round) {
    last = versions;
    met = std::vector<std::atomic<int>>(readers);
    std::vector<std::future<std::string>> complaints;
    {
        const StrandThreads strandThread(host);
        for (std::size_t reader = 0; reader < readers; ++reader) {
            complaints.push_back(std::async(std::launch::async, [&, reader] { return read(reader, round); }));
        }
        postAll(post);
    }
    std::vector<std::string> all;
    for (auto& complaint : complaints) {
        all.push_back(complaint.get());
    }
    if (unmet > 0) {
        all.push_back(std::to_string(unmet) + " versions made no call of the host");
    }
    return all;
}

void ConcurrentReaders::postAll(const Post& post) {
    for (int version = 1; version <= last; ++version) {
        posted = version;
        strand.post([version] { toMeet = version; });
        post(version);
        strand.post([this, version] {
            unmet += std::exchange(toMeet, 0) != 0 ? 1 : 0;
            done = version;
        });
        while (done < version - 1) {
            std::this_thread::yield();
        }
    }
}

void ConcurrentReaders::pause() {
    const auto hasMet = [this](const std::atomic<int>& reader) { return reader >= paused; };
    while (!std::all_of(met.begin(), met.end(), hasMet)) {
        std::this_thread::yield();
    }
}

std::string ConcurrentReaders::read(std::size_t reader, const Round& round) {
    const Leaving leaving(met[reader], last);
    std::string complaint;
    for (bool isLast = false; complaint.empty() && !isLast;) {
        isLast = done == last;
        const int begun = paused;
        complaint = round(reader);
        met[reader] = begun;
    }
    return complaint;
}

std::set<int> versionsUpTo(int last) {
    std::set<int> versions;
    for (int version = 0; version <= last; ++version) {
        versions.insert(version);
    }
    return versions;
}

}  // namespace test
