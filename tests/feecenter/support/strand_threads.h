#ifndef TESTS_FEECENTER_SUPPORT_STRAND_THREADS_H
#define TESTS_FEECENTER_SUPPORT_STRAND_THREADS_H

#include <boost/asio/io_service.hpp>
#include <functional>
#include <memory>
#include <thread>
#include <vector>

#include "support/fake_host.h"

namespace test {

/// Runs the host's jobs on real threads until it goes, which is when all that were queued are done.
class StrandThreads {
public:
    /// Each thread calls `prepare` before it takes a job.
    explicit StrandThreads(
        FakeHost& host, int count = 1, const std::function<void()>& prepare = [] {})
        : work(std::make_unique<boost::asio::io_service::work>(host.service())) {
        host.service().restart();
        for (int i = 0; i < count; ++i) {
            threads.emplace_back([&host, prepare] {
                prepare();
                host.service().run();
            });
        }
    }
    StrandThreads(const StrandThreads&) = delete;
    StrandThreads& operator=(const StrandThreads&) = delete;
    ~StrandThreads() {
        work.reset();
        for (std::thread& thread : threads) {
            thread.join();
        }
    }

private:
    std::unique_ptr<boost::asio::io_service::work> work;
    std::vector<std::thread> threads;
};

}  // namespace test

#endif  // TESTS_FEECENTER_SUPPORT_STRAND_THREADS_H
