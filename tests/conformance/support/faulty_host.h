#ifndef TESTS_CONFORMANCE_SUPPORT_FAULTY_HOST_H
#define TESTS_CONFORMANCE_SUPPORT_FAULTY_HOST_H

#include <boost/asio/executor_work_guard.hpp>
#include <boost/asio/io_service.hpp>
#include <boost/asio/io_service_strand.hpp>
#include <boost/shared_ptr.hpp>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "conformance/conformance.h"
#include "host/records.h"

namespace test {

/// A small host that keeps every promise but the one that its fault names. Its name begins with the promise's; a word
/// may follow that says in which way. A liberty is what no promise forbids. The services and the record operations of
/// the program answer from the host that lives; there is one at a time. Its data is not written while it lives.
class FaultyHost {
public:
    /// With an engine of two threads, unless the fault is that it has none.
    explicit FaultyHost(std::string faultOrLiberty);
    FaultyHost(const FaultyHost&) = delete;
    FaultyHost& operator=(const FaultyHost&) = delete;
    ~FaultyHost();

    /// The host that lives.
    static FaultyHost& current();
    /// Whether the host has this fault; false where no host lives.
    static bool breaks(const char* fault);
    /// Whether the host takes this liberty; likewise.
    static bool takes(const char* liberty) { return breaks(liberty); }
    /// Whether this is one of the engine's threads.
    static bool onEngine();

    /// A sample of what the host has, which leaves no promise unchecked.
    [[nodiscard]] conformance::Sample sample() const;

    struct Listed {
        boost::shared_ptr<qmservice::CInstrument> instrument;
        int lists = 0;
        int types = 0;
    };
    std::vector<Listed> instruments;
    std::vector<boost::shared_ptr<qmservice::CAccountInfo>> accounts;

    // For the services.
    boost::shared_ptr<qmservice::CInstrument> find(const std::string& market, const std::string& code) const;
    boost::shared_ptr<boost::asio::io_service::strand> strand(const std::string& name);

private:
    using WorkGuard = boost::asio::executor_work_guard<boost::asio::io_service::executor_type>;

    void add(const std::string& market, const std::string& code, int lists, int types);
    void work();

    const std::string fault;
    boost::asio::io_service io;
    WorkGuard keepsRunning{io.get_executor()};
    std::mutex strandsMutex;
    std::map<std::string, boost::shared_ptr<boost::asio::io_service::strand>> strands;  // guarded by strandsMutex
    std::vector<std::thread> threads;
};

}  // namespace test

#endif  // TESTS_CONFORMANCE_SUPPORT_FAULTY_HOST_H
