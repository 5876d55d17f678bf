#include "readme_sample.h"

#include <gtest/gtest.h>

#include <boost/smart_ptr/make_shared.hpp>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

#include "host/records.h"
#include "standalone/host.h"

// The README's sample on the standalone host, whose engine runs its jobs on real threads.

void letJobsEnd() { standalone::waitForStrand("fees"); }

namespace {

using namespace qmservice;

/// Keeps what is printed to standard output from it.
class Printed {
public:
    Printed() : standard(std::cout.rdbuf(text.rdbuf())) {}
    Printed(const Printed&) = delete;
    Printed& operator=(const Printed&) = delete;
    ~Printed() { std::cout.rdbuf(standard); }

    [[nodiscard]] std::string str() const { return text.str(); }

private:
    std::ostringstream text;
    std::streambuf* standard;
};

class ReadmeSampleTest : public ::testing::Test {
protected:
    static constexpr int kRounds = 250;

    ReadmeSampleTest() {
        standalone::CategoryRule rule;
        rule.category = 5;
        rule.market = "SH";
        market.categories = {rule};
        standalone::startEngine(2);
    }
    ~ReadmeSampleTest() override {
        standalone::stopEngine();
        standalone::uninstall();
    }

    boost::shared_ptr<CInstrument> addInstrument() {
        standalone::ListedInstrument listed;
        listed.record = boost::make_shared<CInstrument>();
        listed.record->market = "SH";
        listed.record->code = "600519";
        listed.listMask = qmservice::kStockList;
        market.instruments = {listed};
        return listed.record;
    }

    static boost::shared_ptr<CInstrumentFee> record(const boost::shared_ptr<CInstrument>& instrument, double rate1) {
        const auto fee = boost::make_shared<CInstrumentFee>();
        fee->instrument = instrument;
        fee->stkRateLimit = boost::make_shared<CStkExchangeRateLimit>();
        fee->stkRateLimit->rate1 = rate1;
        return fee;
    }

    /// What the sample loads: the record comes last, so that a question asked too early is asked while the load runs.
    static std::vector<boost::shared_ptr<IData>> records(const boost::shared_ptr<CInstrument>& instrument,
                                                         double rate1) {
        const auto other = boost::make_shared<CInstrument>();
        other->market = "SH";
        other->code = "600000";
        std::vector<boost::shared_ptr<IData>> all(200, record(other, 0.0003));
        all.push_back(record(instrument, rate1));
        return all;
    }

    /// A custom fee for a category; 5 is all of SH and there is no other.
    static boost::shared_ptr<CCustomStockInstrumentFee> custom(const std::string& category, double rate1) {
        const auto limit = boost::make_shared<CCustomStkExchangeRateLimit>();
        limit->category = category;
        limit->rate1 = rate1;
        const auto fee = boost::make_shared<CCustomStockInstrumentFee>();
        fee->rateLimits = {limit};
        return fee;
    }

    /// Runs the sample over and over, each time with a fee center of its own, until it prints something else.
    void expectPrinted(const std::string& line, const std::vector<boost::shared_ptr<IData>>& loaded,
                       const boost::shared_ptr<IData>& customFee) {
        standalone::install(market);
        const auto account = boost::make_shared<CAccountInfo>();
        account->accountType = qmservice::kStockAccount;
        account->accountId = "1000001";
        for (int round = 1; round <= kRounds; ++round) {
            const Printed printed;
            readmeSample(account, loaded, customFee);
            ASSERT_EQ(printed.str(), line) << "in round " << round;
        }
    }

    standalone::Market market;
};

TEST_F(ReadmeSampleTest, PrintsTheRateThatItLoads) {
    expectPrinted("0.00025\n", records(addInstrument(), 0.00025), custom("6", 0.0002));
}

TEST_F(ReadmeSampleTest, PrintsTheCustomRateOfAnInstrumentThatTheCustomFeeReaches) {
    expectPrinted("0.0002\n", records(addInstrument(), 0.00025), custom("5", 0.0002));
}

TEST_F(ReadmeSampleTest, PrintsThatTheHostDoesNotKnowTheInstrument) {
    const auto instrument = addInstrument();
    market.instruments.clear();
    expectPrinted("the host knows no SH 600519: there is no fee, which is not a fee of zero\n",
                  records(instrument, 0.00025), custom("5", 0.0002));
}

}  // namespace
