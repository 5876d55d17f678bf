#ifndef BENCH_IMPLEMENTATIONS_H
#define BENCH_IMPLEMENTATIONS_H

#include <string>
#include <vector>

#include "CFeeCenter.h"
#include "bench/floor/change.h"
#include "bench/floor/lookup.h"
#include "bench/world.h"

namespace bench {

using Fee = boost::shared_ptr<qmservice::CInstrumentFee>;
using Fees = std::vector<Fee>;

/// The library. Its jobs are run in place, so that they are timed without the strand.
class FeeCenter {
public:
    static constexpr const char* kName = "fee center";

    Fee ask(const Account& account, const std::string& key) { return interface->getFee(account, key); }
    bool list(const Account& account, Fees& fees) { return interface->getFees(account, fees); }
    void load(const Account& account, const Records& records) { center.load(account, records); }
    void update(const Account& account, const boost::shared_ptr<qmservice::IData>& fee) { center.update(account, fee); }

private:
    class Opened : public qmservice::CFeeCenter {
    public:
        Opened() : CFeeCenter("bench") {}
        void load(const Account& account, const Records& records);
        void update(const Account& account, const boost::shared_ptr<qmservice::IData>& fee);
    };

    Opened center;
    qmservice::IFeeCenter* interface = &center;  ///< queries go the way of a host's
};

/// The required steps and nothing else.
class Floor {
public:
    static constexpr const char* kName = "floor";

    Floor() { floor::setDefaults(tables); }

    Fee ask(const Account& account, const std::string& key) { return floor::getFee(tables, account, key); }
    bool list(const Account& account, Fees& fees) { return floor::getFees(tables, account, fees); }
    void load(const Account& account, const Records& records) { floor::load(tables, account, records); }
    void update(const Account& account, const boost::shared_ptr<qmservice::IData>& fee) {
        floor::update(tables, account, fee);
    }

private:
    floor::Tables tables;
};

}  // namespace bench

#endif  // BENCH_IMPLEMENTATIONS_H
