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

void oneObject(const Sample& /*sample*/, Witness& witness) {
    const auto expectOne = [&](const char* description, const auto& ask) {
        // The first is held, so that another object cannot have its address.
        const auto first = ask();
        const auto second = witness.call(description, ask);
        Witness::expect(first == second, "gave another object than the time before");
    };
    expectOne("TraderCenter::instance()", &TraderCenter::instance);
    expectOne("ConfigCollector::instance()", &ConfigCollector::instance);
    expectOne("utils::CSingletonT<CppCategory>::instance()", &utils::CSingletonT<qmservice::CppCategory>::instance);
    expectOne("utils::CSingletonT<StockTypeCenter>::instance()",
              &utils::CSingletonT<qmservice::StockTypeCenter>::instance);
    expectOne("utils::CSingletonT<RPCEngine>::instance()", &utils::CSingletonT<net::RPCEngine>::instance);
}

}  // namespace

Promises servicePromises() {
    return {
        {"services.present", "every service must be there for as long as a fee center lives",
         "make the object before the first fee center is built, and destroy it after the last", present},
        {"services.one-object",
         "a singleton must be one object for the whole program",
         "hand out one static or long-lived object",
         oneObject,
         {"services.present"}},
    };
}

}  // namespace conformance
