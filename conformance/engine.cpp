#include <boost/asio/io_service_strand.hpp>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <stdexcept>

#include "conformance/asking.h"
#include "conformance/jobs.h"
#include "conformance/promise.h"

namespace conformance {
namespace {

void givesStrand(const Sample& sample, Witness& witness) {
    for (const std::string& name : {sample.strand, std::string("conformance: another strand")}) {
        const auto strand =
            witness.call("net::RPCEngine::getStrand(" + inQuotes(name) + ")", [&] { return strandOf(name); });
        Witness::expect(strand != nullptr, "gave an empty pointer");
    }
}

void runsJobs(const Sample& sample, Witness& witness) {
    witness.call(postTo(sample.strand), [] {});
    expectMarker(sample, "");
}

/// What jobs that must follow one another saw of each other. The jobs hold it, for they may outlive the check.
class Sequence {
public:
    explicit Sequence(std::chrono::milliseconds firstIsHeld) : hold(firstIsHeld) {}

    void run(int number) {
        std::unique_lock<std::mutex> lock(mutex);
        ++inside;
        overlapped = overlapped || inside > 1;
        inOrder = inOrder && number == begun;
        ++begun;
        changed.notify_all();
        if (number == 0) {
            changed.wait_for(lock, hold, [&] { return overlapped; });
        }
        --inside;
        ++ended;
        changed.notify_all();
    }

    /// Waits until so many have ended; false when they did not in that time.
    bool haveEnded(int count, std::chrono::milliseconds patience) {
        std::unique_lock<std::mutex> lock(mutex);
        return changed.wait_for(lock, patience, [&] { return ended == count; });
    }

    bool overlap() {
        const std::lock_guard<std::mutex> lock(mutex);
        return overlapped;
    }
    bool order() {
        const std::lock_guard<std::mutex> lock(mutex);
        return inOrder;
    }

private:
    const std::chrono::milliseconds hold;
    std::mutex mutex;
    std::condition_variable changed;
    int begun = 0;
    int inside = 0;
    int ended = 0;
    bool overlapped = false;
    bool inOrder = true;
};

void oneAtATime(const Sample& sample, Witness& witness) {
    constexpr int kJobs = 200;
    const auto jobs = std::make_shared<Sequence>(sample.hold);
    for (int number = 0; number < kJobs; ++number) {
        witness.call(postTo(sample.strand),
                     [&] { strandOf(sample.strand)->post([jobs, number] { jobs->run(number); }); });
    }
    Witness::expect(jobs->haveEnded(kJobs, sample.hold + sample.patience), "took jobs that were not all run");
    Witness::expect(!jobs->overlap(), "ran two jobs at once");
    Witness::expect(jobs->order(), "ran jobs in another order than they were posted in");
}

void outlivesExceptions(const Sample& sample, Witness& witness) {
    if (!sample.engineOutlivesExceptions) {
        throw NotChecked{
            "an engine without a catch around its jobs would end the program: set Sample::engineOutlivesExceptions"};
    }
    witness.call(postTo(sample.strand), [&] {
        strandOf(sample.strand)->post([] {
            throw std::runtime_error("conformance: thrown to see what the engine does");
        });
    });
    expectMarker(sample, ", behind one that threw,");
}

}  // namespace

boost::shared_ptr<boost::asio::io_service::strand> strandOf(const std::string& name) {
    return utils::CSingletonT<net::RPCEngine>::instance()->getStrand(name);
}

std::string postTo(const std::string& name) { return "net::RPCEngine::getStrand(" + inQuotes(name) + ")->post(job)"; }

bool markerRuns(const Sample& sample, const std::function<void()>& marker) {
    const auto jobs = std::make_shared<Sequence>(std::chrono::milliseconds(0));
    strandOf(sample.strand)->post([jobs, marker] {
        marker();
        jobs->run(0);
    });
    return jobs->haveEnded(1, sample.patience);
}

void expectMarker(const Sample& sample, const std::string& where) {
    Witness::expect(markerRuns(sample, [] {}), "took a job" + where + " that was not run within " +
                                                   std::to_string(sample.patience.count()) + " ms");
}

Promises enginePromises() {
    constexpr const char* kRuns = "engine.runs-jobs";
    return {
        {"engine.gives-strand",
         "every name must have a strand, made when it is first asked for",
         "make the strand where the name is not known yet",
         givesStrand,
         {"services.present"}},
        {kRuns,
         "the engine's threads must run what is posted, or no load is ever done",
         "start threads that call run() of the io_service, with work to keep them running, before the check",
         runsJobs,
         {"engine.gives-strand"}},
        {"engine.one-strand-of-a-name",
         "all who name a strand must share it, so that its jobs run one at a time and in the order of posting",
         "keep the strands by name and give out the one that is there",
         oneAtATime,
         {kRuns}},
    };
}

// A fee center that is asked behind it would not be answered.
Promises failurePromises() {
    return {
        {"engine.outlives-exceptions",
         "a job that throws must not keep the jobs behind it from running",
         "catch what leaves run() in the engine's threads, and call run() again",
         outlivesExceptions,
         {"engine.runs-jobs"}},
    };
}

}  // namespace conformance
