#include "model/model_fixture.h"

namespace model {
namespace {

using namespace qmservice;

/// What the two changing operations queue.
class Changes : public ModelTest {
protected:
    std::size_t queuedBy(int kind, const Ptr<IData>& customFee) {
        const std::size_t before = model.queued();
        model.updateCustomFee(accountOf(kind), customFee);
        return model.queued() - before;
    }
};

TEST_F(Changes, QueueNothingForAnEmptyListEvenWithoutAnAccount) {
    model.initFees(accountOf(2), {});
    model.initFees(nullptr, {});
    EXPECT_EQ(model.queued(), 0U);
}

TEST_F(Changes, QueueALoadForEightKindsOnly) {
    std::vector<int> kinds;
    for (int kind = -1; kind <= 20; ++kind) {
        const std::size_t before = model.queued();
        model.initFees(accountOf(kind), {boost::make_shared<CInstrumentFee>()});
        if (model.queued() != before) {
            kinds.push_back(kind);
        }
    }
    EXPECT_EQ(kinds, (std::vector<int>{1, 2, 3, 5, 6, 7, 10, 11}));
}

TEST_F(Changes, LoadBothKindsOfFuturesAccounts) {
    const auto future = instrument("SHFE", "rb2501");
    for (const int kind : {1, 5}) {
        const auto account = accountOf(kind, std::to_string(kind));
        load(account, {feeOf(future, [](auto& f) { f.commissionDetail = made<CCommissionRateDetail>([](auto&) {}); })});
        EXPECT_TRUE(knows(account));
    }
}

TEST_F(Changes, DropAListForAStockOptionAccount) {
    const auto option = instrument("SHO", "10001234", 32);
    model.initFees(accountOf(6), {stockFee(option, limitOf(1))});
    EXPECT_EQ(model.queued(), 1U);
    model.runJobs();
    EXPECT_FALSE(knows(accountOf(6)));
    EXPECT_EQ(ask(accountOf(6), option)->stkOptionFeeRate, model.defaultOptionRate);
}

TEST_F(Changes, WorkOnACopyOfTheListAndOnTheRecordsThemselves) {
    const auto stock = instrument("SH", "600000");
    Model::Records records{stockFee(stock, limitOf(1))};
    const auto fee = boost::dynamic_pointer_cast<CInstrumentFee>(records.front());
    model.initFees(accountOf(2), records);
    records.clear();
    fee->stkRateLimit = limitOf(2);
    model.runJobs();
    EXPECT_EQ(ask(accountOf(2), stock)->stkRateLimit->rate1, 2);
}

TEST_F(Changes, ShowOnlyOnceTheirJobHasRun) {
    const auto stock = instrument("SH", "600000");
    model.initFees(accountOf(2), {stockFee(stock, limitOf(1))});
    EXPECT_EQ(ask(accountOf(2), stock)->stkRateLimit, model.stock.fallback);
    EXPECT_TRUE(model.runJob());
    EXPECT_EQ(ask(accountOf(2), stock)->stkRateLimit->rate1, 1);
    EXPECT_FALSE(model.runJob());
}

TEST_F(Changes, AreDroppedWhenTheRecordIsNotOfTheKindsClass) {
    const auto stock = boost::make_shared<CCustomStockInstrumentFee>();
    const auto hgt = boost::make_shared<CCustomHGTInstrumentFee>();
    const auto sgt = boost::make_shared<CCustomSgtInstrumentFee>();
    const auto future = boost::make_shared<CCustomFutureInstrumentFee>();
    const auto plain = boost::make_shared<CInstrumentFee>();
    const std::map<Ptr<IData>, std::set<int>> kindsOf{{stock, {2, 3, 6, 10}}, {hgt, {7}},          {sgt, {11}},
                                                      {future, {1, 5, 12}},   {plain, {1, 5, 12}}, {nullptr, {}}};
    for (const auto& [record, kinds] : kindsOf) {
        for (int kind = -1; kind <= 20; ++kind) {
            EXPECT_EQ(queuedBy(kind, record), kinds.count(kind)) << kind;
        }
    }
}

TEST_F(Changes, ReachTheFuturesTablesForAPrimeBrokerageAccount) {
    const auto future = instrument("CFFEX", "IF2501");
    update(accountOf(12), feeOf(future, [](auto& f) {
               f.commissionDetail = made<CCommissionRateDetail>([](auto& d) {
                   d.instrumentId = "IF2501";
                   d.openRatioByVolume = 3;
               });
           }));
    EXPECT_EQ(ask(accountOf(12), future)->commissionDetail->openRatioByVolume, 3);
}

TEST_F(Changes, AreAppliedInTheOrderInWhichTheyWereMade) {
    const auto stock = instrument("SH", "600000", 1);
    facts.systemMembers.insert({1, {"SH", "600000"}});
    model.initFees(accountOf(2), {stockFee(stock, limitOf(1))});
    model.updateCustomFee(accountOf(2), customFee(customLimit("1", 2)));
    model.runJobs();
    EXPECT_EQ(ask(accountOf(2), stock)->stkRateLimit->rate1, 2);
}

}  // namespace
}  // namespace model
