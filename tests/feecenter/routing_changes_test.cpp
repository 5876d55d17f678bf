#include <gtest/gtest.h>

#include <map>
#include <string>

#include "support/family_marks.h"

// Which family's tables change, for every kind of account.

namespace {

using namespace qmservice;
using test::kAccount;

/// The families whose tables have the account, in the order of the class's members, each followed by a blank.
std::string changedFamilies(const test::OpenFeeCenter& center) {
    std::string names;
    const auto add = [&](const char* name, const auto& table) { names += table.count(kAccount) != 0 ? name : ""; };
    add("stock ", center.stockAccountTable);
    add("credit ", center.creditAccountTable);
    add("hgt ", center.hgtAccountTable);
    add("sgt ", center.sgtAccountTable);
    add("option ", center.stkOptionAccountTable);
    add("commission ", center.futureCommissionKeys);
    add("margin ", center.futureMarginKeys);
    add("neeq ", center.neeqAccountTable);
    return names;
}

struct Change {
    bool posted;           ///< whether anything is left for the strand to run
    std::string families;  ///< as changedFamilies tells them
};

bool operator==(const Change& a, const Change& b) { return a.posted == b.posted && a.families == b.families; }
void PrintTo(const Change& change, std::ostream* out) {
    *out << (change.posted ? "posted, " : "not posted, ") << change.families;
}

const Change kIgnored{false, ""};

class RoutingChangesTest : public test::FeeCenterTest {
protected:
    RoutingChangesTest() {
        rb = host.addInstrument("SHFE", "rb2605", ~0, ~0);
        host.inSystemCategory = [](auto&&...) { return true; };
    }

    /// A record with a rate for every family.
    [[nodiscard]] boost::shared_ptr<CInstrumentFee> makeFullFee() const {
        auto fee = test::makeFutureFee(rb, test::makeCommission(10), {test::makeMargin('1', 20)});
        fee->stkRateLimit = test::makeLimit(1);
        fee->hgtRateLimit = test::markedLimit<CCustomHGTExchangeRateLimit>(2);
        fee->sgtRateLimit = test::markedLimit<CCustomSgtExchangeRateLimit>(3);
        fee->stkOptionFeeRate = boost::make_shared<CStockOptionFeeRate>();
        return fee;
    }

    /// Calls `post(center, account)` on a fee center of its own; the change must not happen inside the call.
    template <class Post>
    Change changeBy(int kind, const Post& post) {
        test::OpenFeeCenter fees;
        post(fees, test::makeAccount(kind, kAccount));
        EXPECT_EQ(changedFamilies(fees), "") << "kind " << kind << " changed tables inside the call";
        const bool posted = host.runJobs() != 0;
        return {posted, changedFamilies(fees)};
    }

    Change customChange(int kind, const boost::shared_ptr<IData>& record) {
        return changeBy(kind, [&](auto& fees, const auto& account) { fees.updateCustomFee(account, record); });
    }

    void expectCustomChanges(const boost::shared_ptr<IData>& record, const std::map<int, Change>& expected) {
        for (int kind = -1; kind <= 20; ++kind) {
            const auto row = expected.find(kind);
            EXPECT_EQ(customChange(kind, record), row != expected.end() ? row->second : kIgnored) << "kind " << kind;
        }
    }

    boost::shared_ptr<CInstrument> rb;
};

TEST_F(RoutingChangesTest, LoadGoesToTheFamilyOfTheKind) {
    const std::map<int, Change> expected = {{1, {true, "commission margin "}},
                                            {5, {true, "commission margin "}},
                                            {2, {true, "stock "}},
                                            {3, {true, "credit "}},
                                            {6, {true, ""}},
                                            {7, {true, "hgt "}},
                                            {10, {true, "neeq "}},
                                            {11, {true, "sgt "}}};
    for (int kind = -1; kind <= 20; ++kind) {
        const auto row = expected.find(kind);
        const Change change =
            changeBy(kind, [&](auto& fees, const auto& account) { fees.initFees(account, {makeFullFee()}); });
        EXPECT_EQ(change, row != expected.end() ? row->second : kIgnored) << "kind " << kind;
    }
}

TEST_F(RoutingChangesTest, CustomStockFeeGoesToTheStockSideKinds) {
    expectCustomChanges(test::makeCustomFee(test::makeCustomLimit("5", 1)),
                        {{2, {true, "stock "}}, {3, {true, "credit "}}, {6, {true, "option "}}, {10, {true, "neeq "}}});
}

TEST_F(RoutingChangesTest, CustomShanghaiConnectFeeGoesToKindSevenAlone) {
    const auto limit = test::markedLimit<CCustomHGTExchangeRateLimit>(1);
    expectCustomChanges(test::makeCustomFee<CCustomHGTInstrumentFee>(limit), {{7, {true, "hgt "}}});
}

TEST_F(RoutingChangesTest, CustomShenzhenConnectFeeGoesToKindElevenAlone) {
    const auto limit = test::markedLimit<CCustomSgtExchangeRateLimit>(1);
    expectCustomChanges(test::makeCustomFee<CCustomSgtInstrumentFee>(limit), {{11, {true, "sgt "}}});
}

TEST_F(RoutingChangesTest, CustomFutureFeeGoesToFuturesAndPrimeBrokerage) {
    const Change futures{true, "commission margin "};
    expectCustomChanges(
        test::makeCustomFutureFee({test::makeCustomCommission("5", 10)}, {test::makeCustomMargin("5", '1', 20)}),
        {{1, futures}, {5, futures}, {12, futures}});
}

TEST_F(RoutingChangesTest, PlainFeeUpdatesTheInstrumentForFuturesAndPrimeBrokerageAlone) {
    const Change futures{true, "commission margin "};
    expectCustomChanges(makeFullFee(), {{1, futures}, {5, futures}, {12, futures}});
}

TEST_F(RoutingChangesTest, RecordOfAnotherClassIsDroppedForEveryKind) {
    expectCustomChanges(boost::make_shared<CAccountInfo>(), {});
    expectCustomChanges(test::makeCommission(10), {});
}

TEST_F(RoutingChangesTest, EmptyListIsDroppedForEveryKind) {
    for (int kind = -1; kind <= 20; ++kind) {
        const Change change = changeBy(kind, [](auto& fees, const auto& account) { fees.initFees(account, {}); });
        EXPECT_EQ(change, kIgnored) << "kind " << kind;
    }
}

/// A custom futures fee that is a plain fee as well.
class BothFees : public CCustomFutureInstrumentFee, public CInstrumentFee {};

TEST_F(RoutingChangesTest, CustomFutureFeeThatIsAPlainFeeTooIsACustomOne) {
    const auto both = boost::make_shared<BothFees>();
    both->CCustomFutureInstrumentFee::commissionDetails = {test::makeCustomCommission("5", 10)};
    both->CInstrumentFee::instrument = rb;
    both->CInstrumentFee::commissionDetail = test::makeCommission(70);
    both->CInstrumentFee::marginDetails = {test::makeMargin('1', 80)};
    const boost::shared_ptr<CCustomFutureInstrumentFee> asCustom = both;
    const boost::shared_ptr<CInstrumentFee> asPlain = both;
    for (const int kind : {1, 5, 12}) {
        EXPECT_EQ(customChange(kind, asCustom), (Change{true, "commission "})) << kind;
        EXPECT_EQ(customChange(kind, asPlain), (Change{true, "commission "})) << kind;
    }
}

}  // namespace
