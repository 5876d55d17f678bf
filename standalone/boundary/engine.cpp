#include "host/engine.h"

#include "host/singleton.h"
#include "standalone/services/process.h"

namespace net {

boost::shared_ptr<boost::asio::io_service::strand> RPCEngine::getStrand(const std::string& name) {
    return standalone::strands().strand(name);
}

}  // namespace net

namespace utils {

template <>
net::RPCEngine* CSingletonT<net::RPCEngine>::instance() {
    return &standalone::onlyOne<net::RPCEngine>();
}

}  // namespace utils
