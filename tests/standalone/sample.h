#ifndef TESTS_STANDALONE_SAMPLE_H
#define TESTS_STANDALONE_SAMPLE_H

#include <gtest/gtest.h>

#include <boost/make_shared.hpp>
#include <boost/shared_ptr.hpp>
#include <string>
#include <vector>

#include "host/services.h"
#include "standalone/host.h"

namespace sample {

using Instrument = boost::shared_ptr<qmservice::CInstrument>;

inline Instrument instrument(const std::string& market, const std::string& code) {
    const auto made = boost::make_shared<qmservice::CInstrument>();
    made->market = market;
    made->code = code;
    return made;
}

inline standalone::ListedInstrument listed(const std::string& market, const std::string& code, int listMask,
                                           int types = 0) {
    standalone::ListedInstrument made;
    made.record = instrument(market, code);
    made.listMask = listMask;
    made.types = types;
    return made;
}

inline standalone::Account account(const std::string& number) {
    standalone::Account made;
    made.record = boost::make_shared<qmservice::CAccountInfo>();
    made.record->accountId = number;
    return made;
}

inline standalone::MarketPlace place(const std::string& name, int tradeUnit, bool foreign = false) {
    standalone::MarketPlace made;
    made.market = name;
    made.tradeUnit = tradeUnit;
    made.foreign = foreign;
    return made;
}

inline standalone::CategoryRule rule(int category, const std::string& name, const std::string& market,
                                     const std::string& code, const std::string& product) {
    standalone::CategoryRule made;
    made.category = category;
    made.name = name;
    made.market = market;
    made.code = code;
    made.product = product;
    return made;
}

template <class Limit>
standalone::ConfiguredLimit<Limit> configured(const std::string& market, const std::string& code, double rate1) {
    standalone::ConfiguredLimit<Limit> made;
    made.market = market;
    made.code = code;
    made.limit = boost::make_shared<Limit>();
    made.limit->rate1 = rate1;
    return made;
}

inline qmservice::uint64 keyOf(const std::string& market, const std::string& code) {
    return utils::hash(utils::voStockKey(market, code));
}

inline qmservice::IInstrumentCenter& catalogue() { return *qmservice::TraderCenter::instance()->getInstCenter(); }

/// The codes of a list, in its order.
inline std::vector<std::string> codesOf(const std::vector<Instrument>& instruments) {
    std::vector<std::string> codes;
    for (const Instrument& each : instruments) {
        codes.push_back(each->code);
    }
    return codes;
}

/// A test that installs a market and leaves the process without one.
class ServicesTest : public testing::Test {
protected:
    ~ServicesTest() override { standalone::uninstall(); }

    void install() { standalone::install(market); }

    standalone::Market market;
};

}  // namespace sample

#endif  // TESTS_STANDALONE_SAMPLE_H
