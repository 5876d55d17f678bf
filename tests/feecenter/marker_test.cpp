#include <gtest/gtest.h>

#include <boost/weak_ptr.hpp>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "host/services.h"
#include "support/fee_center_fixture.h"

// A client learns that its changes are done from a marker: a job of its own, posted to the strand that the host's
// engine keeps under the fee center's name.

namespace {

using namespace qmservice;
using test::makeCustomFee;
using test::makeCustomLimit;
using test::makeFee;
using test::makeLimit;

class MarkerTest : public test::FeeCenterTest {
protected:
    /// As a client does it, who knows the fee center's name and nothing of its inside.
    static void postMarker(const std::function<void()>& marker) {
        utils::CSingletonT<net::RPCEngine>::instance()->getStrand("fees")->post(marker);
    }

    boost::shared_ptr<IData> record(double rate1) { return makeFee(instrument, makeLimit(rate1)); }

    /// A custom fee that reaches the instrument.
    static boost::shared_ptr<IData> custom(double rate1) { return makeCustomFee(makeCustomLimit("5", rate1)); }

    /// The rate of an instrument now; the default is 0.00015.
    double rate(CFeeCenter& asked, const std::string& code = "600000") {
        return asked.getFee(account, "SH", code)->stkRateLimit->rate1;
    }

    const boost::shared_ptr<CAccountInfo> account = test::makeAccount(2, 7);
    const boost::shared_ptr<CInstrument> instrument = host.addInstrument("SH", "600000", 1);
    const bool isMember = host.systemMembers.insert({5, {"SH", "600000"}}).second;
    std::vector<double> seen;
};

TEST_F(MarkerTest, RunsBehindTheLoadAndTheUpdateBeforeIt) {
    const auto loaded = host.addInstrument("SH", "600001", 1);
    center.initFees(account, {makeFee(loaded, makeLimit(0.1))});
    center.updateCustomFee(account, custom(0.2));
    postMarker([&] { seen = {rate(center, "600001"), rate(center)}; });
    EXPECT_TRUE(seen.empty()) << "a posted job never runs inside the call";
    host.runJobs();
    EXPECT_EQ(seen, (std::vector<double>{0.1, 0.2}));
}

TEST_F(MarkerTest, SaysNothingOfAChangeBehindIt) {
    postMarker([&] { seen.push_back(rate(center)); });
    center.initFees(account, {record(0.1)});
    host.runJobs();
    EXPECT_EQ(seen, std::vector<double>{0.00015});
    EXPECT_EQ(rate(center), 0.1);
}

TEST_F(MarkerTest, RunsBehindTheChangesOfEveryFeeCenterOfTheName) {
    test::OpenFeeCenter other("fees");
    center.initFees(account, {record(0.1)});
    other.initFees(account, {record(0.4)});
    postMarker([&] { seen = {rate(center), rate(other)}; });
    host.runJobs();
    EXPECT_EQ(seen, (std::vector<double>{0.1, 0.4}));
}

TEST_F(MarkerTest, FindsAccountAndRecordsGivenBack) {
    auto owner = test::makeAccount(2, 8);
    auto fee = record(0.1);
    const boost::weak_ptr<CAccountInfo> watchedAccount = owner;
    const boost::weak_ptr<IData> watchedFee = fee;
    std::vector<bool> givenBack;
    center.initFees(owner, {fee});
    owner.reset();
    fee.reset();
    postMarker([&] { givenBack = {watchedAccount.expired(), watchedFee.expired()}; });
    EXPECT_FALSE(watchedFee.expired());
    host.runJobs();
    EXPECT_EQ(givenBack, (std::vector<bool>{true, true}));
}

TEST_F(MarkerTest, RunsBehindALoadThatThrewToo) {
    host.onCall = [](const std::string& operation) {
        if (operation == "getTradeMinUnit") {
            throw std::runtime_error("no trade unit");
        }
    };
    center.initFees(account, {record(0.1)});
    postMarker([&] { seen.push_back(1); });
    EXPECT_THROW(host.runJobs(), std::runtime_error);
    EXPECT_TRUE(seen.empty());
    host.onCall = nullptr;
    host.runJobs();
    EXPECT_EQ(seen, std::vector<double>{1});
    EXPECT_EQ(rate(center), 0.00015) << "that the marker ran does not say that the load came through";
}

}  // namespace
