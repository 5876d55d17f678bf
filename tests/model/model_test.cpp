#include <stdexcept>

#include "model/futures_fixture.h"

namespace model {
namespace {

using namespace qmservice;

/// What holds for every family: copies of the model, stores, exceptions.
class WholeModel : public FuturesTest {
protected:
    Instrument x = instrument("SH", "X", 1 + 32);
    Instrument y = instrument("SH", "Y", 1 + 32);
};

TEST_F(WholeModel, IsAStateOfItsOwnAsACopy) {
    const auto stock = accountOf(2);
    load(stock, {stockFee(x, limitOf(1))});
    model.initFees(stock, {stockFee(x, limitOf(2))});
    Model copy(model);
    model.runJobs();
    EXPECT_EQ(copy.queued(), 1U);
    EXPECT_EQ(copy.getFee(stock, "SH", "X")->stkRateLimit->rate1, 1);
    copy.runJobs();
    EXPECT_EQ(copy.getFee(stock, "SH", "X")->stkRateLimit->rate1, 2);
    EXPECT_EQ(copy.stock.fallback, model.stock.fallback);
}

TEST_F(WholeModel, TellsOfEachStoreOfALoad) {
    std::vector<std::size_t> sizes;
    model.onStore = [&] { sizes.push_back(model.stock.pool.size()); };
    load(accountOf(2), {stockFee(x, limitOf(1)), stockFee(y, nullptr), stockFee(y, limitOf(2))});
    EXPECT_EQ(sizes, (std::vector<std::size_t>{1, 2}));
}

TEST_F(WholeModel, TellsOfTheTwoSidesOfAFuturesLoadApart) {
    std::vector<std::string> seen;
    model.onStore = [&] {
        seen.push_back(std::to_string(model.commissions.size()) + std::to_string(model.margins.size()));
    };
    load(account, {fee(a, commission(1), {margin('1', 1), margin('2', 2)}), fee(a, commission(2))});
    EXPECT_EQ(seen, (std::vector<std::string>{"10", "12", "22"}));
}

TEST_F(WholeModel, TellsOfEachMarginOfAnUpdateApart) {
    std::vector<std::string> seen;
    model.onStore = [&] {
        seen.push_back(std::to_string(model.commissions.size()) + std::to_string(model.margins.size()));
    };
    update(account, fee(a, commission(1, "rb"), {margin('1', 1), margin('9', 9), nullptr, margin('2', 2)}));
    EXPECT_EQ(seen, (std::vector<std::string>{"10", "11", "12"}));
}

TEST_F(WholeModel, TellsOfEachInstrumentThatACustomFeeMatches) {
    facts.inSystemCategory = [](const auto&, const auto&, const auto&, int) { return true; };
    int stores = 0;
    model.onStore = [&] { ++stores; };
    update(accountOf(2), customFee(customLimit("1", 1)));
    EXPECT_EQ(stores, 2);
    update(accountOf(6), customFee(customLimit("1", 1)));
    EXPECT_EQ(stores, 4);
}

TEST_F(WholeModel, KeepsWhatAJobStoredBeforeTheHostThrew) {
    facts.inSystemCategory = [](const auto&, const auto& code, const auto&, int) {
        return code == "Y" ? throw std::runtime_error("host") : true;
    };
    model.updateCustomFee(accountOf(2), customFee(customLimit("1", 1)));
    model.initFees(accountOf(2), {stockFee(y, limitOf(5))});
    EXPECT_THROW(model.runJob(), std::runtime_error);
    EXPECT_EQ(ask(accountOf(2), x)->stkRateLimit->rate1, 1);
    EXPECT_EQ(ask(accountOf(2), y)->stkRateLimit, model.stock.fallback);
    EXPECT_EQ(model.queued(), 1U);
    model.runJobs();
    EXPECT_EQ(ask(accountOf(2), y)->stkRateLimit->rate1, 5);
}

TEST_F(WholeModel, KeepsTheFamiliesOfOneAccountApart) {
    load(accountOf(2), {stockFee(x, limitOf(1))});
    EXPECT_EQ(ask(accountOf(3), x)->stkRateLimit, model.credit.fallback);
    EXPECT_EQ(ask(accountOf(10), x)->stkRateLimit, model.neeq.fallback);
    EXPECT_EQ(ask(accountOf(8), x)->stkRateLimit->rate1, 1);
    EXPECT_EQ(ask(accountOf(2, "B"), x)->stkRateLimit, model.stock.fallback);
}

}  // namespace
}  // namespace model
