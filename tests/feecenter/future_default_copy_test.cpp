#include <gtest/gtest.h>

#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "support/future_builders.h"

// The fallback on a default fee must leave the default as it is, whatever the host's copy() does.

namespace {

using namespace qmservice;
using test::kAccount;
using test::OpenFeeCenter;

/// A fee whose copy() is the test's.
class ScriptedFee : public CInstrumentFee {
public:
    [[nodiscard]] boost::shared_ptr<IData> copy() const override { return copier(); }

    std::function<boost::shared_ptr<IData>()> copier;
};

/// Makes the default's center answer from a scripted default.
class Defaults : public OpenFeeCenter {
public:
    using Lookup = boost::shared_ptr<CInstrumentFee> (Defaults::*)(uint64, uint64);

    boost::shared_ptr<CInstrumentFee> future(uint64 account, uint64 key) { return getFutureFee(account, key); }
    boost::shared_ptr<CInstrumentFee> incomeSwap(uint64 account, uint64 key) {
        return getIncomeSwapFutureFee(account, key);
    }
    boost::shared_ptr<CInstrumentFee>& futureDefault() { return defaultFutureFee; }
    boost::shared_ptr<CInstrumentFee>& incomeSwapDefault() { return defaultIncomeSwapFutureFee; }
};

struct Family {
    const char* name;
    Defaults::Lookup find;
    boost::shared_ptr<CInstrumentFee>& (Defaults::*original)();
};

void PrintTo(const Family& family, std::ostream* out) { *out << family.name; }

class FutureDefaultCopyTest : public ::testing::TestWithParam<Family> {
protected:
    FutureDefaultCopyTest() {
        // Every adjustment that a fallback can make is called for.
        const auto instrument = boost::make_shared<CInstrument>();
        instrument->market = "SHFE";
        instrument->code = "rb2605";
        instrument->feeType = 1;
        instrument->openFee = 3;
        rb = host.add(instrument, 0, 2);
        const auto account = test::makeAccount(1, kAccount);
        account->platformId = 9;
        host.accounts[kAccount] = boost::make_shared<CAccountData>(account);
        host.simulationPlatforms = {9};

        original->commissionDetail = commission;
        original->marginDetails = {margin};
        (center.*GetParam().original)() = original;
    }
    FutureDefaultCopyTest(const FutureDefaultCopyTest&) = delete;
    FutureDefaultCopyTest& operator=(const FutureDefaultCopyTest&) = delete;
    ~FutureDefaultCopyTest() override {
        original->copier = nullptr;
        host.reset();
    }

    boost::shared_ptr<CInstrumentFee> find() { return (center.*GetParam().find)(kAccount, test::instrumentKey(*rb)); }

    void expectOriginalUnchanged() {
        EXPECT_EQ((center.*GetParam().original)(), original);
        EXPECT_FALSE(original->instrument);
        EXPECT_FALSE(original->account);
        EXPECT_EQ(original->commissionDetail, commission);
        EXPECT_EQ(original->marginDetails, test::Margins{margin});
        EXPECT_EQ(commission->instrumentId, "default");
        EXPECT_EQ(test::ratesOf(*commission), (std::vector<double>{11, 12, 13, 14, 15, 16, 17, 18}));
        EXPECT_EQ(test::ratesOf(*margin), (std::vector<double>{21, 22, 23, 24, 25, 26}));
    }

    /// The answer is made out for the instrument and the default is not; a second answer shares nothing with it that is
    /// written.
    void expectDetachedAnswers() {
        const auto fee = find();
        ASSERT_TRUE(fee);
        expectOriginalUnchanged();
        EXPECT_NE(fee, original);
        EXPECT_EQ(fee->instrument, rb);
        ASSERT_TRUE(fee->commissionDetail);
        EXPECT_NE(fee->commissionDetail, commission);
        EXPECT_EQ(fee->commissionDetail->instrumentId, "rb2605");
        ASSERT_EQ(fee->marginDetails.size(), 1U);
        EXPECT_EQ(test::ratesOf(*fee->marginDetails[0]), test::ratesOf(*margin));
        const auto second = find();
        EXPECT_NE(second, fee);
        EXPECT_NE(second->commissionDetail, fee->commissionDetail);
    }

    test::FreshHost freshHost;
    test::FakeHost& host = test::FakeHost::instance();
    Defaults center;
    boost::shared_ptr<CInstrument> rb;
    boost::shared_ptr<ScriptedFee> original = boost::make_shared<ScriptedFee>();
    boost::shared_ptr<CCommissionRateDetail> commission = test::makeCommission(10, "default");
    boost::shared_ptr<CMarginRateDetail> margin = test::makeMargin('1', 20);
};

TEST_P(FutureDefaultCopyTest, CopyOfItsOwnIsTheAnswerItselfAndKeepsItsCommission) {
    const auto copy = boost::make_shared<CInstrumentFee>();
    const auto detail = test::makeCommission(30);
    copy->commissionDetail = detail;
    original->copier = [copy] { return copy; };
    EXPECT_EQ(find(), copy);
    EXPECT_EQ(copy->commissionDetail, detail);
    EXPECT_EQ(detail->instrumentId, "rb2605");
    expectOriginalUnchanged();
}

TEST_P(FutureDefaultCopyTest, ShallowCopyLeavesTheDefaultUnwritten) {
    original->copier = [this] { return boost::make_shared<CInstrumentFee>(*original); };
    expectDetachedAnswers();
}

TEST_P(FutureDefaultCopyTest, CopyThatIsTheDefaultItselfLeavesItUnwritten) {
    original->copier = [this] { return original; };
    expectDetachedAnswers();
}

TEST_P(FutureDefaultCopyTest, EmptyCopyIsNoFee) {
    original->copier = [] { return boost::shared_ptr<IData>(); };
    EXPECT_FALSE(find());
    expectOriginalUnchanged();
}

TEST_P(FutureDefaultCopyTest, CopyOfAnotherClassIsNoFee) {
    original->copier = [] { return boost::make_shared<CAccountInfo>(); };
    EXPECT_FALSE(find());
    expectOriginalUnchanged();
}

TEST_P(FutureDefaultCopyTest, CopyWithoutCommissionIsNoFee) {
    original->copier = [] { return boost::make_shared<CInstrumentFee>(); };
    EXPECT_FALSE(find());
    expectOriginalUnchanged();
}

TEST_P(FutureDefaultCopyTest, DefaultIsCopiedOnceWhetherTheInstrumentIsKnownOrNot) {
    int copies = 0;
    original->copier = [&] {
        ++copies;
        return boost::make_shared<CInstrumentFee>(*original);
    };
    EXPECT_TRUE(find());
    EXPECT_EQ(copies, 1);
    host.catalogue.clear();
    EXPECT_FALSE(find());
    EXPECT_EQ(copies, 2);
    expectOriginalUnchanged();
}

TEST_P(FutureDefaultCopyTest, NoFeeIsTheEmptyFeeMember) {
    center.emptyFee = boost::make_shared<CInstrumentFee>();
    original->copier = [] { return boost::shared_ptr<IData>(); };
    EXPECT_EQ(find(), center.emptyFee);
    original->copier = [this] { return boost::make_shared<CInstrumentFee>(*original); };
    host.catalogue.clear();
    EXPECT_EQ(find(), center.emptyFee);
}

TEST_P(FutureDefaultCopyTest, EmptyAnswerIsNotListed) {
    original->copier = [] { return boost::shared_ptr<IData>(); };
    center.futureCommissionKeys[kAccount][test::instrumentKey(*rb)] = 4711;
    std::vector<boost::shared_ptr<CInstrumentFee>> fees;
    // The list is the futures lookup's: only its own default is copied.
    const bool own = (center.*GetParam().original)() == center.defaultFutureFee;
    EXPECT_TRUE(center.getFutureFees(test::makeAccount(1, kAccount), fees));
    EXPECT_EQ(fees.size(), own ? 0U : 1U);
}

INSTANTIATE_TEST_SUITE_P(Families, FutureDefaultCopyTest,
                         ::testing::Values(Family{"future", &Defaults::future, &Defaults::futureDefault},
                                           Family{"incomeSwap", &Defaults::incomeSwap, &Defaults::incomeSwapDefault}),
                         [](const auto& family) { return std::string(family.param.name); });

}  // namespace
