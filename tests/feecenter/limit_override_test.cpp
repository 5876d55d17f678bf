#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <vector>

#include "support/limit_family_fixture.h"

// Custom fees of the families that keep one limit per instrument.

namespace {

using namespace qmservice;

template <class Family>
class LimitOverrideTest : public test::LimitFamilyTest<Family> {
protected:
    using CustomLimit = typename Family::CustomLimit;

    /// The numbers in which each system category test was asked, all answered with "no".
    std::vector<int> numbersAsked(const std::vector<std::string>& categories) {
        std::vector<int> numbers;
        this->host.inSystemCategory = [&](const auto&, const auto&, const auto&, int number) {
            numbers.push_back(number);
            return false;
        };
        std::vector<boost::shared_ptr<CustomLimit>> limits;
        for (const auto& category : categories) {
            limits.push_back(this->custom(category, 0.1));
        }
        this->apply(limits);
        this->host.inSystemCategory = nullptr;
        return numbers;
    }
};
TYPED_TEST_SUITE(LimitOverrideTest, test::LimitFamilies, test::FamilyName);

TYPED_TEST(LimitOverrideTest, EmptyPointersAmongLimitsAndInstrumentsArePassedOver) {
    this->host.instruments.push_back({nullptr, TypeParam::listMask, 0});
    const auto a = this->instrument("A");
    this->host.systemMembers.insert({5, {"XX", "A"}});
    this->apply({nullptr, this->custom("5", 0.5), nullptr});
    EXPECT_EQ(this->storedRate(*a), 0.5);
    EXPECT_EQ(this->poolSize(), 1U);
}

TYPED_TEST(LimitOverrideTest, FirstMatchingLimitWins) {
    const auto a = this->instrument("A");
    const auto b = this->instrument("B");
    this->host.systemMembers = {{2, {"XX", "A"}}, {3, {"XX", "A"}}, {3, {"XX", "B"}}};
    this->apply({this->custom("1", 0.1), this->custom("2", 0.2), this->custom("3", 0.3)});
    EXPECT_EQ(this->storedRate(*a), 0.2);
    EXPECT_EQ(this->storedRate(*b), 0.3);
}

TYPED_TEST(LimitOverrideTest, LimitsAfterTheFirstMatchAreNotAsked) {
    this->instrument("A");
    std::vector<int> asked;
    this->host.inSystemCategory = [&](const auto&, const auto&, const auto&, int number) {
        asked.push_back(number);
        return number == 2;
    };
    this->apply({this->custom("1", 0.1), this->custom("2", 0.2), this->custom("3", 0.3)});
    EXPECT_EQ(asked, (std::vector<int>{1, 2}));
}

TYPED_TEST(LimitOverrideTest, CategoryTestGetsMarketCodeAndProductId) {
    auto listed = boost::make_shared<CInstrument>();
    listed->market = "MM";
    listed->code = "CC";
    listed->productId = "PP";
    listed->name = "NN";
    this->host.add(listed, TypeParam::listMask, 0);
    std::vector<std::string> seen;
    this->host.inSystemCategory = [&](const auto& market, const auto& code, const auto& product, int) {
        seen = {market, code, product};
        return false;
    };
    this->apply({this->custom("5", 0.5)});
    EXPECT_EQ(seen, (std::vector<std::string>{"MM", "CC", "PP"}));
}

TYPED_TEST(LimitOverrideTest, CategoryTextIsReadAsItsLeadingNumber) {
    this->instrument("A");
    EXPECT_EQ(this->numbersAsked({"12", " 12x", "\t\n 7", "+3", "-5", "007", "12.9", "1 2"}),
              (std::vector<int>{12, 12, 7, 3, -5, 7, 12, 1}));
}

TYPED_TEST(LimitOverrideTest, CategoryTextIsDecimalWhateverItsPrefix) {
    this->instrument("A");
    EXPECT_EQ(this->numbersAsked({"010001", "-010", "0x2711", "0b11"}), (std::vector<int>{10001, -10, 0, 0}));
}

TYPED_TEST(LimitOverrideTest, CategoryTextWithoutANumberIsZero) {
    this->instrument("A");
    EXPECT_EQ(this->numbersAsked({"", "abc", "x12", "+", "- 5", " "}), (std::vector<int>{0, 0, 0, 0, 0, 0}));
}

TYPED_TEST(LimitOverrideTest, CategoryTextBeyondAnIntIsTheLowHalfOfALongThatStopsAtItsLimits) {
    this->instrument("A");
    EXPECT_EQ(this->numbersAsked({"2147483647", "2147483648", "4294967301", "99999999999999999999",
                                  "-99999999999999999999", "-2147483648"}),
              (std::vector<int>{INT_MAX, INT_MIN, 5, -1, 0, INT_MIN}));
}

TYPED_TEST(LimitOverrideTest, CustomLimitGoesBeforeAConfiguredOne) {
    const auto a = this->instrument("A");
    this->configured(*a) = this->limit(0.7);
    this->applyToAll(this->custom("5", 0.5));
    EXPECT_EQ(this->limitOf(*a)->rate1, 0.5);
}

}  // namespace
