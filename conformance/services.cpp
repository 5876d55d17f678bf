#include "conformance/asking.h"
#include "conformance/promise.h"

namespace conformance {
namespace {

using qmservice::ConfigCollector;
using qmservice::TraderCenter;

void present(const Sample& /*sample*/, Witness& witness) {
    const auto isThere = [&](const char* description, const auto& ask) {
        auto service = witness.call(description, ask);
        Witness::expect(service != nullptr, "gave an empty pointer");
        return service;
    };
    const auto center = isThere("TraderCenter::instance()", &TraderCenter::instance);
    isThere("TraderCenter::getInstCenter()", [&] { return center->getInstCenter(); });
    isThere("TraderCenter::getDataCenter()", [&] { return center->getDataCenter(); });
    isThere("ConfigCollector::instance()", &ConfigCollector::instance);
    isThere("utils::CSingletonT<CppCategory>::instance()", &utils::CSingletonT<qmservice::CppCategory>::instance);
    isThere("utils::CSingletonT<StockTypeCenter>::instance()",
            &utils::CSingletonT<qmservice::StockTypeCenter>::instance);
    isThere("utils::CSingletonT<RPCEngine>::instance()", &utils::CSingletonT<net::RPCEngine>::instance);
}

template <class T>
void expectOne(Witness& witness, const char* description) {
    const T* const first = utils::CSingletonT<T>::instance();
    const T* const second = witness.call(description, &utils::CSingletonT<T>::instance);
    Witness::expect(first == second, "gave another object than the time before");
}

void oneObject(const Sample& /*sample*/, Witness& witness) {
    expectOne<qmservice::CppCategory>(witness, "utils::CSingletonT<CppCategory>::instance()");
    expectOne<qmservice::StockTypeCenter>(witness, "utils::CSingletonT<StockTypeCenter>::instance()");
    expectOne<net::RPCEngine>(witness, "utils::CSingletonT<RPCEngine>::instance()");
}

}  // namespace

Promises servicePromises() {
    return {
        {"services.present", "every service must be there for as long as a fee center lives",
         "make the object before the first fee center is built, and destroy it after the last", present},
        {"services.one-object",
         "a singleton must be one object for the whole program",
         "return the address of one static or long-lived object",
         oneObject,
         {"services.present"}},
    };
}

}  // namespace conformance
