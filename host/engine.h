#ifndef HOST_ENGINE_H
#define HOST_ENGINE_H

#include <boost/asio/io_service.hpp>
#include <boost/asio/io_service_strand.hpp>
#include <boost/shared_ptr.hpp>
#include <string>

namespace net {

/// The host's network engine, owner of the threads and of the strands that run on them:
/// utils::CSingletonT<net::RPCEngine>::instance().
class RPCEngine {
public:
    /// The strand of that name, made on first request and shared by all who name it. Safe from any thread; never empty.
    boost::shared_ptr<boost::asio::io_service::strand> getStrand(const std::string& name);
};

}  // namespace net

#endif  // HOST_ENGINE_H
