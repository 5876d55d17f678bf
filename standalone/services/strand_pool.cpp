#include "standalone/services/strand_pool.h"

#include <boost/make_shared.hpp>
#include <cstdio>
#include <exception>
#include <future>
#include <memory>
#include <stdexcept>

namespace standalone {

namespace {

// Allocates nothing: the exception may be that memory ran out.
void tellLostJob(const char* reason) noexcept {
    std::fprintf(stderr,
                 "engine: a job ended with an exception (%s); the rest of that job is lost, the next one runs\n",
                 reason);
}

}  // namespace

StrandPool::~StrandPool() { finishAndJoin(); }

boost::shared_ptr<StrandPool::Strand> StrandPool::strand(const std::string& name) {
    const std::lock_guard<std::mutex> lock(strandsMutex);
    boost::shared_ptr<Strand>& known = strands[name];
    if (!known) {
        known = boost::make_shared<Strand>(service);
    }
    return known;
}

void StrandPool::start(int threads) {
    if (threads < 1) {
        throw std::invalid_argument("engine: asked to start " + std::to_string(threads) +
                                    " threads, at least 1 is needed");
    }
    refuseOwnThread("start");
    const std::lock_guard<std::mutex> lock(threadsMutex);
    if (keepsRunning) {
        throw std::logic_error("engine: asked to start while it runs; stop it first");
    }
    service.restart();
    keepsRunning.emplace(service.get_executor());
    try {
        while (workers.size() < static_cast<std::size_t>(threads)) {
            workers.emplace_back([this] { work(); });
        }
    } catch (...) {
        finishAndJoin();
        throw;
    }
}

void StrandPool::stop() {
    refuseOwnThread("stop");
    const std::lock_guard<std::mutex> lock(threadsMutex);
    finishAndJoin();
}

void StrandPool::waitFor(const std::string& name) {
    refuseOwnThread("wait for a strand");
    if (!runs()) {
        throw std::logic_error("engine: asked to wait for strand \"" + name +
                               "\" while it does not run; start it first");
    }
    // The job owns the promise: it may still be inside set_value when the waiting thread goes on.
    const auto reached = std::make_shared<std::promise<void>>();
    std::future<void> arrival = reached->get_future();
    strand(name)->post([reached] { reached->set_value(); });
    arrival.wait();
}

bool StrandPool::runs() {
    const std::lock_guard<std::mutex> lock(threadsMutex);
    return keepsRunning.has_value();
}

void StrandPool::refuseOwnThread(const char* operation) {
    if (service.get_executor().running_in_this_thread()) {
        throw std::logic_error(std::string("engine: asked to ") + operation +
                               " on one of its own threads; ask from another thread");
    }
}

void StrandPool::finishAndJoin() {
    keepsRunning.reset();
    for (std::thread& worker : workers) {
        worker.join();
    }
    workers.clear();
}

void StrandPool::work() noexcept {
    for (;;) {
        try {
            service.run();
            return;
        } catch (const std::exception& error) {
            tellLostJob(error.what());
        } catch (...) {
            tellLostJob("of an unknown class");
        }
    }
}

}  // namespace standalone
