#ifndef TESTS_HISTORIES_STRAND_THREADS_H
#define TESTS_HISTORIES_STRAND_THREADS_H

#include <boost/asio/io_service.hpp>
#include <memory>
#include <thread>
#include <vector>

#include "histories/lock_pauses.h"
#include "support/fake_host.h"

namespace histories {

/// Runs the host's jobs on real threads until it goes, which is when all that were queued are done. The threads pause
/// where they let a lock go.
class StrandThreads {
public:
    StrandThreads(test::FakeHost& host, int count)
        : work(std::make_unique<boost::asio::io_service::work>(host.service())) {
        host.service().restart();
        for (int i = 0; i < count; ++i) {
            threads.emplace_back([&host] {
                pauseAfterUnlocks();
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

}  // namespace histories

#endif  // TESTS_HISTORIES_STRAND_THREADS_H
