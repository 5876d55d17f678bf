#ifndef HOST_ENGINE_H
#define HOST_ENGINE_H

#include <boost/asio/io_service.hpp>
#include <boost/asio/io_service_strand.hpp>
#include <boost/shared_ptr.hpp>
#include <string>

#include "host/host_export.h"

namespace net {

/// The host's network engine, owner of the threads and of the strands that run on them:
/// utils::CSingletonT<net::RPCEngine>::instance().
class HOST_EXPORT RPCEngine {
public:
    /// The strand of that name, made on first request and shared by all who name it: the fee centers of that name, and
    /// the client that posts to it. Safe from any thread; never empty.
    ///
    /// A strand runs the jobs posted to it one at a time, in the order in which they were posted, on the engine's
    /// threads. So a job that is posted behind others, a marker, runs when they have ended, also if one of them ended
    /// with an exception and the engine went on. It says nothing of jobs posted behind it or to another strand.
    ///
    /// A job must not block: all that is queued behind it waits. A thread of the engine must never wait for a marker,
    /// nor one that is inside a service which the fee center called or holds a lock that a queued job needs: the wait
    /// may have no end.
    boost::shared_ptr<boost::asio::io_service::strand> getStrand(const std::string& name);
};

}  // namespace net

#endif  // HOST_ENGINE_H
