#include "CFeeCenter.h"

#include "host/records.h"
#include "host/services.h"

namespace qmservice {

CFeeCenter::CFeeCenter(const std::string& name)
    : strand(utils::CSingletonT<net::RPCEngine>::instance()->getStrand(name)) {
    initDefaultFees();
}

CFeeCenter::~CFeeCenter() = default;

}  // namespace qmservice
