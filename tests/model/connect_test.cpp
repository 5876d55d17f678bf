#include "model/model_fixture.h"

namespace model {
namespace {

using namespace qmservice;

struct Shanghai {
    static constexpr const char* kName = "Shanghai";
    using Limit = CCustomHGTExchangeRateLimit;
    using Custom = CCustomHGTInstrumentFee;
    static constexpr int kKind = 7;
    static constexpr int kMask = 128;
    static constexpr auto kField = &CInstrumentFee::hgtRateLimit;
    static constexpr auto kFamily = &Model::hgt;
    static constexpr auto kConfigured = &Facts::hgtLimits;
};

struct Shenzhen {
    static constexpr const char* kName = "Shenzhen";
    using Limit = CCustomSgtExchangeRateLimit;
    using Custom = CCustomSgtInstrumentFee;
    static constexpr int kKind = 11;
    static constexpr int kMask = 16384;
    static constexpr auto kField = &CInstrumentFee::sgtRateLimit;
    static constexpr auto kFamily = &Model::sgt;
    static constexpr auto kConfigured = &Facts::sgtLimits;
};

template <class Channel>
class Connect : public ModelTest {
protected:
    using Limit = typename Channel::Limit;

    Ptr<Limit> limitAt(const Instrument& of) { return (*this->ask(account, of)).*Channel::kField; }
    static Fee withLimit(const Instrument& of, const Ptr<Limit>& limit) {
        return feeOf(of, [&](auto& fee) { fee.*Channel::kField = limit; });
    }
    auto& family() { return model.*Channel::kFamily; }

    Instrument a = instrument("HK", "A", Channel::kMask);
    Instrument b = instrument("HK", "B", Channel::kMask);
    Model::Account account = accountOf(Channel::kKind);
};

using Channels = ::testing::Types<Shanghai, Shenzhen>;

struct ChannelNames {
    template <class Channel>
    static std::string GetName(int /*position*/) {
        return Channel::kName;
    }
};
TYPED_TEST_SUITE(Connect, Channels, ChannelNames);

TYPED_TEST(Connect, SharesEqualLimitsOfEqualUnits) {
    const auto limit = customLimit<typename TypeParam::Limit>("", 1);
    this->facts.tradeUnits[{"HK", "A"}] = 500;
    this->load(this->account, {this->withLimit(this->a, limit), this->withLimit(this->b, limit)});
    EXPECT_NE(this->limitAt(this->a), this->limitAt(this->b));
    EXPECT_EQ(this->limitAt(this->a)->tradeMinUnit, 500);
    EXPECT_EQ(this->limitAt(this->b)->tradeMinUnit, 100);
    EXPECT_EQ(limit->tradeMinUnit, 0);
    this->facts.tradeUnits.clear();
    this->load(this->account, {this->withLimit(this->a, limit)});
    EXPECT_EQ(this->limitAt(this->a), this->limitAt(this->b));
    EXPECT_EQ(this->family().pool.size(), 2U);
}

TYPED_TEST(Connect, SkipsARecordWithoutALimitEvenIfOneIsConfigured) {
    const auto configured = customLimit<typename TypeParam::Limit>("", 3);
    (this->facts.*TypeParam::kConfigured)[{"HK", "A"}] = configured;
    this->load(this->account, {nullptr, this->withLimit(this->a, nullptr),
                               this->withLimit(nullptr, customLimit<typename TypeParam::Limit>("", 1))});
    EXPECT_FALSE(this->knows(this->account));
    EXPECT_EQ(this->limitAt(this->a), configured);
}

TYPED_TEST(Connect, StoresTheLimitThatCameAlthoughOneIsConfigured) {
    (this->facts.*TypeParam::kConfigured)[{"HK", "A"}] = customLimit<typename TypeParam::Limit>("", 3);
    this->load(this->account, {this->withLimit(this->a, customLimit<typename TypeParam::Limit>("", 1))});
    EXPECT_EQ(this->limitAt(this->a)->rate1, 1);
}

TYPED_TEST(Connect, AnswersAnInstrumentOutsideTheTableWithTheDefaultItself) {
    EXPECT_EQ(this->limitAt(this->a), this->family().fallback);
    this->load(this->account, {this->withLimit(this->a, customLimit<typename TypeParam::Limit>("", 1))});
    EXPECT_EQ(this->limitAt(this->b), this->family().fallback);
    const auto fee = this->ask(this->account, this->b);
    EXPECT_EQ(!fee->hgtRateLimit, TypeParam::kKind == 11);
    EXPECT_EQ(!fee->sgtRateLimit, TypeParam::kKind == 7);
}

TYPED_TEST(Connect, CopiesTheWholeCustomLimit) {
    this->facts.systemMembers.insert({7, {"HK", "A"}});
    const auto limit = customLimit<typename TypeParam::Limit>("7", 1);
    limit->rate14 = 14;
    limit->customCategories[3] = {"X"};
    limit->groupCategories.push_back(boost::make_shared<CGroupCategorySubInfo>());
    this->update(this->account, customFee<typename TypeParam::Custom>(limit));
    const auto stored = this->limitAt(this->a);
    EXPECT_NE(stored, limit);
    EXPECT_EQ(stored->groupCategories, limit->groupCategories);
    limit->tradeMinUnit = 100;
    EXPECT_TRUE(stored->isEqual(*limit));
    EXPECT_EQ(this->limitAt(this->b), this->family().fallback);
}

TYPED_TEST(Connect, ListsWhatItHasStored) {
    EXPECT_FALSE(this->knows(this->account));
    this->load(this->account, {this->withLimit(this->a, customLimit<typename TypeParam::Limit>("", 1))});
    const auto fees = this->listed(this->account);
    ASSERT_EQ(fees.size(), 1U);
    EXPECT_EQ(fees[0]->instrument, this->a);
    EXPECT_EQ(fees[0]->account, this->account);
}

TYPED_TEST(Connect, LeavesTheInstrumentsOfTheOtherChannelAlone) {
    const auto other = this->instrument("HK", "C", 128 + 16384 - TypeParam::kMask);
    this->facts.inSystemCategory = [](const auto&, const auto&, const auto&, int) { return true; };
    this->update(this->account, customFee<typename TypeParam::Custom>(customLimit<typename TypeParam::Limit>("1", 1)));
    EXPECT_EQ(this->limitAt(other), this->family().fallback);
    EXPECT_EQ(this->listed(this->account).size(), 2U);
}

TYPED_TEST(Connect, InsertsAListThatIsAbsentInShanghaiOnlyAndStoresItWithTheCopy) {
    this->facts.inCustomCategory = [](const auto&, const auto&, const auto&) { return true; };
    const auto limit = customLimit<typename TypeParam::Limit>("10001", 1);
    for (int i = 0; i < 10002; ++i) {
        limit->customCategories[-1 - i];
    }
    this->update(this->account, customFee<typename TypeParam::Custom>(limit));
    const bool shanghai = TypeParam::kKind == 7;
    EXPECT_EQ(limit->customCategories.count(10001), shanghai ? 1U : 0U);
    EXPECT_EQ(this->limitAt(this->a)->customCategories.count(10001), shanghai ? 1U : 0U);
}

TYPED_TEST(Connect, TakesGroupsAndCustomListsInShanghaiOnly) {
    this->facts.groupMembers.insert({"HK", "A"});
    const auto limit = customLimit<typename TypeParam::Limit>("70001", 1);
    limit->groupCategories.push_back(boost::make_shared<CGroupCategorySubInfo>());
    this->update(this->account, customFee<typename TypeParam::Custom>(limit));
    EXPECT_EQ(this->knows(this->account), TypeParam::kKind == 7);
}

}  // namespace
}  // namespace model
