#include "support/fake_host.h"

#include <algorithm>
#include <boost/smart_ptr/make_shared.hpp>

#include "host/services.h"

namespace test {

FakeHost& FakeHost::instance() {
    static FakeHost host;
    return host;
}

void FakeHost::reset() {
    onCall = nullptr;
    onKeyCall = nullptr;
    onInstance = nullptr;
    onHash = nullptr;
    runJobs();
    callsOfReplaced.clear();
    strands.clear();
    instruments.clear();
    catalogue.clear();
    accounts.clear();
    tradeUnits.clear();
    rateLimits.clear();
    hgtLimits.clear();
    sgtLimits.clear();
    simulationPlatforms.clear();
    foreignMarkets.clear();
    categoryNumbers.clear();
    systemMembers.clear();
    groupMembers.clear();
    inSystemCategory = nullptr;
    inCustomCategory = nullptr;
    inGroupCategory = nullptr;
}

boost::shared_ptr<qmservice::CInstrument> FakeHost::addInstrument(const std::string& market, const std::string& code,
                                                                  int listMask, int types) {
    auto instrument = boost::make_shared<qmservice::CInstrument>();
    instrument->market = market;
    instrument->code = code;
    return add(instrument, listMask, types);
}

boost::shared_ptr<qmservice::CInstrument> FakeHost::add(boost::shared_ptr<qmservice::CInstrument> instrument,
                                                        int listMask, int types) {
    catalogue[instrumentKey(*instrument)] = instrument;
    instruments.push_back({instrument, listMask, types});
    return instrument;
}

void FakeHost::removeInstrument(const qmservice::CInstrument& instrument) {
    catalogue.erase(instrumentKey(instrument));
    instruments.erase(std::remove_if(instruments.begin(), instruments.end(),
                                     [&](const Listed& listed) { return listed.instrument.get() == &instrument; }),
                      instruments.end());
}

std::size_t FakeHost::runJobs() {
    io.restart();
    return io.poll();
}

bool FakeHost::runOneJob() {
    io.restart();
    return io.poll_one() == 1;
}

boost::shared_ptr<boost::asio::io_service::strand> FakeHost::strand(const std::string& name) {
    auto& strand = strands[name];
    if (!strand) {
        strand = boost::make_shared<boost::asio::io_service::strand>(io);
    }
    return strand;
}

void FakeHost::called(const char* operation) const {
    if (onCall) {
        onCall(operation);
    }
}

void FakeHost::keyCalled(const char* operation) const {
    if (onKeyCall) {
        onKeyCall(operation);
    }
}

void FakeHost::hashed(const std::string& text) const {
    if (onHash) {
        onHash(text);
    }
}

void FakeHost::instanceAsked(const char* operation) const {
    if (onInstance) {
        onInstance(operation);
    }
}

uint64 instrumentKey(const std::string& market, const std::string& code) {
    return utils::hash(utils::voStockKey(market, code));
}

uint64 instrumentKey(const qmservice::CInstrument& instrument) {
    return instrumentKey(instrument.market, instrument.code);
}

}  // namespace test
