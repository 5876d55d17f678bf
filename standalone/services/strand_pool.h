#ifndef STANDALONE_SERVICES_STRAND_POOL_H
#define STANDALONE_SERVICES_STRAND_POOL_H

#include <boost/asio/executor_work_guard.hpp>
#include <boost/asio/io_service.hpp>
#include <boost/asio/io_service_strand.hpp>
#include <boost/shared_ptr.hpp>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace standalone {

/// Named strands and the threads that run them. Every operation is safe from any thread.
///
/// Strands take jobs whether threads run or not; a job waits until a thread runs it. An exception that leaves a job is
/// reported on standard error and goes no further: what the job had left to do is lost, the jobs after it run.
class StrandPool {
public:
    using Strand = boost::asio::io_service::strand;

    StrandPool() = default;
    StrandPool(const StrandPool&) = delete;
    StrandPool& operator=(const StrandPool&) = delete;
    /// Stops the threads as stop() does. Strands must not be used afterwards.
    ~StrandPool();

    /// The strand of that name, made on first request and kept as long as the engine.
    boost::shared_ptr<Strand> strand(const std::string& name);

    /// Starts `threads` threads. Throws std::invalid_argument for fewer than one, std::logic_error when threads run
    /// already, and std::system_error, with no thread running, when the system gives too few.
    void start(int threads);

    /// Finishes the jobs that are queued, then joins the threads; nothing when none run. Throws std::logic_error on one
    /// of the engine's own threads.
    void stop();

    /// Waits until every job posted to the strand before has run. Throws std::logic_error when no threads run or the
    /// caller is one of them: the wait would have no end.
    void waitFor(const std::string& name);

private:
    using WorkGuard = boost::asio::executor_work_guard<boost::asio::io_service::executor_type>;

    [[nodiscard]] bool runs();
    void refuseOwnThread(const char* operation);
    void finishAndJoin();
    void work() noexcept;

    boost::asio::io_service service;

    std::mutex strandsMutex;
    std::map<std::string, boost::shared_ptr<Strand>> strands;  // guarded by strandsMutex

    std::mutex threadsMutex;
    std::optional<WorkGuard> keepsRunning;  // guarded by threadsMutex; set while threads run
    std::vector<std::thread> workers;       // guarded by threadsMutex
};

}  // namespace standalone

#endif  // STANDALONE_SERVICES_STRAND_POOL_H
