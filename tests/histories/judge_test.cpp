#include "histories/judge.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <boost/make_shared.hpp>
#include <string>
#include <vector>

#include "histories/pooled.h"
#include "histories/side_by_side.h"
#include "histories/states.h"
#include "histories/world.h"
#include "support/builders.h"

// That the judge refuses answers that no history allows: too old, too new, put together from two states.

namespace histories {
namespace {

using namespace qmservice;
using ::testing::HasSubstr;

constexpr uint64 kKey = 104;  ///< of accounts of kinds 10 and 12 only
constexpr const char* kFirst = "830400";
constexpr const char* kSecond = "871232";

/// NEEQ fees of one account and, by prime brokerage, its stock and option fees, in states that one change each leads
/// to. The fee center is taken through them one by one.
class JudgeTest : public ::testing::Test {
protected:
    [[nodiscard]] Account account(int kind, uint64 key) const {
        for (const auto& each : world.accounts(Focus::all)) {
            if (each->accountType == kind && each->getHashKey(0) == key) {
                return each;
            }
        }
        return {};
    }

    [[nodiscard]] const World::Question& question(const std::string& key) const {
        for (const auto& each : world.questions) {
            if (each.key == key) {
                return each;
            }
        }
        return world.questions.back();
    }

    [[nodiscard]] FeeChange load(int kind, uint64 key, const std::string& market, const std::string& code,
                                 double rate) const {
        const auto& instrument = world.facts.catalogue.at(model::joinedKey(market, code));
        return {FeeChange::Kind::load, account(kind, key), {test::makeFee(instrument, test::makeLimit(rate))}, {}};
    }

    /// For the options of an account; category 5 holds some of the instruments.
    [[nodiscard]] FeeChange optionFee(uint64 key, double fee) const {
        auto limit = test::makeCustomLimit("five", 0);
        limit->optionFee1 = fee;
        limit->optionFirstKeyCode = limit->optionSecondKeyCode = limit->optionThirdKeyCode = '0';
        return {FeeChange::Kind::customFee, account(6, key), {}, test::makeCustomFee(limit)};
    }

    /// Makes the change on both sides.
    void make(const FeeChange& change) {
        states.add(change.copy());
        change.handTo(both.feeCenter());
        test::FakeHost::instance().runJobs();
        pairPools(both.sharedRecords(), states.last(), both.feeCenter());
    }

    [[nodiscard]] std::string complaint(const Account& asked, const World::Question& about, Window window,
                                        const Fee& fee) {
        return Judge(states, both.sharedRecords()).complaintOfFee(asked, about, window, fee);
    }

    [[nodiscard]] std::string listComplaint(Window window, bool known, const std::vector<Fee>& fees) {
        return Judge(states, both.sharedRecords()).complaintOfList(account(10, kKey), window, known, fees);
    }

    World world;
    SideBySide both{world};
    test::OpenFeeCenter& center = both.feeCenter();
    States states{both.state()};
};

TEST_F(JudgeTest, RefusesAnswersOutsideTheWindow) {
    const auto asked = account(10, kKey);
    const auto& about = question("NEEQ|871232");
    ASSERT_TRUE(both.compareAll().empty());
    make(load(10, kKey, "NEEQ", kSecond, 0.1));
    Fee fee = center.getFee(asked, about.key);
    make(load(10, kKey, "NEEQ", kSecond, 0.2));
    make(load(10, kKey, "NEEQ", kSecond, 0.3));
    ASSERT_EQ(states.count(), 4U);
    EXPECT_EQ(complaint(asked, about, {1, 1}, fee), "");
    EXPECT_EQ(complaint(asked, about, {0, 3}, fee), "");
    EXPECT_THAT(complaint(asked, about, {2, 3}, fee), HasSubstr("right in no state from 2 to 3"));
    EXPECT_THAT(complaint(asked, about, {0, 0}, fee), HasSubstr("right in no state from 0 to 0"));
    fee->stkRateLimit = boost::make_shared<CStkExchangeRateLimit>(*fee->stkRateLimit);
    EXPECT_THAT(complaint(asked, about, {0, 3}, fee), HasSubstr("not the shared record"));
    EXPECT_THAT(complaint(asked, about, {0, 3}, nullptr), HasSubstr("nothing"));
}

TEST_F(JudgeTest, LetsPrimeBrokerageTakeTheOptionRateFromALaterStateOnly) {
    // The account of kind 12 with the key of one of stock options and one of stocks.
    constexpr uint64 kShared = 103;
    const auto asked = account(12, kShared);
    ASSERT_TRUE(asked);
    const auto& about = question("SSE|510050");
    ASSERT_TRUE(both.compareAll().empty());
    const auto stock = [&](double rate) { make(load(2, kShared, "SSE", "510050", rate)); };
    const auto answer = [&] { return center.getFee(asked, about.key); };
    stock(0.1);
    make(optionFee(kShared, 1));
    const auto& tables = center.stkOptionAccountTable;
    ASSERT_EQ(tables.at(kShared).count(test::instrumentKey("SSE", "510050")), 1U) << "category 5 must hold it";
    const std::size_t first = states.count() - 1;
    const Fee oldLimit = answer();
    stock(0.2);
    const std::size_t second = states.count() - 1;
    make(optionFee(kShared, 2));
    const std::size_t third = states.count() - 1;
    const Fee newOption = answer();
    stock(0.3);
    const std::size_t fourth = states.count() - 1;
    const Fee newLimit = answer();

    EXPECT_EQ(complaint(asked, about, {first, first}, oldLimit), "");
    EXPECT_EQ(complaint(asked, about, {third, third}, newOption), "");
    EXPECT_EQ(complaint(asked, about, {first, fourth}, newLimit), "");
    newLimit->stkOptionFeeRate.swap(oldLimit->stkOptionFeeRate);
    EXPECT_NE(complaint(asked, about, {first, fourth}, newLimit), "") << "the option rate is older than the limit";
    EXPECT_EQ(complaint(asked, about, {first, third}, oldLimit), "") << "the option rate is newer than the limit";
    EXPECT_NE(complaint(asked, about, {first, second}, oldLimit), "") << "the option rate is too new";
    EXPECT_NE(complaint(asked, about, {second, third}, oldLimit), "") << "the limit is too old";
}

TEST_F(JudgeTest, RefusesListsThatGoBackInTime) {
    // The NEEQ list of an account is answered from the stock family.
    ASSERT_TRUE(both.compareAll().empty());
    make(load(10, kKey, "NEEQ", kFirst, 0.1));
    make(load(10, kKey, "NEEQ", kSecond, 0.1));
    std::vector<Fee> fees;
    ASSERT_TRUE(center.getFees(account(10, kKey), fees));
    ASSERT_EQ(fees.size(), 2U);
    EXPECT_EQ(listComplaint(states.whole(), true, fees), "");
    EXPECT_EQ(listComplaint({2, 2}, true, fees), "");
    EXPECT_THAT(listComplaint({0, 1}, true, fees), HasSubstr("no such list of instruments"));
    EXPECT_THAT(listComplaint({2, 2}, false, fees), HasSubstr("no such list of instruments"));
    EXPECT_THAT(listComplaint({2, 2}, true, {fees[0]}), HasSubstr("no such list of instruments"));
    EXPECT_THAT(listComplaint({2, 2}, true, {fees[0], fees[0]}), HasSubstr("no such list of instruments"));
    EXPECT_EQ(listComplaint({2, 2}, true, {fees[0], nullptr}), "an empty fee");
    EXPECT_EQ(listComplaint({0, 2}, false, {}), "");
    EXPECT_THAT(listComplaint({1, 2}, false, {}), HasSubstr("no such list of instruments"));
}

TEST_F(JudgeTest, LetsFeesOfAListComeFromLaterAndLaterStates) {
    // Account 100 of kind 2: three states of two instruments.
    const auto asked = account(2, 100);
    ASSERT_TRUE(both.compareAll().empty());
    const auto both2 = [&](double rate) {
        make(load(2, 100, "SH", "600000", rate));
        make(load(2, 100, "SZ", "000001", rate));
    };
    const auto list = [&] {
        std::vector<Fee> fees;
        center.getFees(asked, fees);
        return fees;
    };
    both2(0.1);
    const std::vector<Fee> older = list();
    both2(0.2);
    const std::vector<Fee> newer = list();
    ASSERT_EQ(older.size(), 2U);
    ASSERT_EQ(newer.size(), 2U);
    const auto complaintOf = [&](const Fee& first, const Fee& second) {
        const auto own = [](const Fee& fee) { return boost::make_shared<CInstrumentFee>(*fee); };
        std::vector<Fee> fees;
        fees.push_back(own(first));
        fees.push_back(own(second));
        return Judge(states, both.sharedRecords()).complaintOfList(asked, {2, states.count() - 1}, true, fees);
    };
    EXPECT_EQ(complaintOf(older[0], older[1]), "");
    EXPECT_EQ(complaintOf(newer[0], newer[1]), "");
    // One instrument changes in state 3, the other in state 4: with its old fee behind the other's new one the list
    // goes back.
    const bool firstChangesFirst = older[0]->instrument->code == "600000";
    const std::size_t early = firstChangesFirst ? 0 : 1;
    const std::size_t late = 1 - early;
    EXPECT_EQ(complaintOf(newer[early], older[late]), "") << "as in state 3";
    EXPECT_THAT(complaintOf(newer[late], older[early]), HasSubstr("right in no state from"));
    EXPECT_EQ(complaintOf(older[early], newer[late]), "")
        << "the first from before the changes, the second from after them";
}

}  // namespace
}  // namespace histories
