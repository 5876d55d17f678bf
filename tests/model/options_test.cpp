#include "model/model_fixture.h"

namespace model {
namespace {

using namespace qmservice;

class Options : public ModelTest {
protected:
    void SetUp() override {
        facts.categoryNumbers["options"] = 9;
        facts.systemMembers.insert({9, {"SHO", "1"}});
    }

    static Ptr<CCustomStkExchangeRateLimit> item(const std::string& characters, double fee1) {
        const auto limit = customLimit("options", 0);
        limit->optionFee1 = fee1;
        limit->optionFee2 = 2;
        limit->optionFee3 = 3;
        limit->optionFee4 = 4;
        limit->optionFee5 = 5;
        limit->optionFirstKeyCode = characters[0];
        limit->optionSecondKeyCode = characters[1];
        limit->optionThirdKeyCode = characters[2];
        return limit;
    }

    Instrument option = instrument("SHO", "1", 32);
    Model::Account account = accountOf(6);
};

TEST_F(Options, HaveTheDefaultRateItselfWithoutACustomFee) {
    load(account, {feeOf(option, [](auto& f) { f.stkOptionFeeRate = boost::make_shared<CStockOptionFeeRate>(); })});
    EXPECT_EQ(ask(account, option)->stkOptionFeeRate, model.defaultOptionRate);
    EXPECT_FALSE(knows(account));
}

TEST_F(Options, FileAnItemUnderTwoCharactersWhenTheSecondIsD) {
    update(account, customFee(item("0D1", 1)));
    update(account, customFee(item("011", 1)));
    const auto items = ask(account, option)->stkOptionFeeRate->items;
    ASSERT_EQ(items.size(), 2U);
    const auto expected = made<CStockOptionFeeItem>([](auto& i) {
        i.fee1 = 1, i.fee2 = 2, i.fee3 = 3, i.fee4 = 4, i.fee5 = 5;
        i.firstKeyCode = '0', i.secondKeyCode = 'D', i.thirdKeyCode = '1';
    });
    EXPECT_TRUE(items.at("0D")->isEqual(*expected));
    EXPECT_EQ(items.at("011")->secondKeyCode, '1');
}

TEST_F(Options, FileAnItemUnderThreeCharactersWhenTheSecondIsNotExactlyD) {
    update(account, customFee(item("0d1", 1)));
    const auto beyond = item("0D1", 2);
    beyond->optionSecondKeyCode = 'D' + 256;
    update(account, customFee(beyond));
    const auto items = ask(account, option)->stkOptionFeeRate->items;
    ASSERT_EQ(items.size(), 2U);
    EXPECT_EQ(items.at("0d1")->fee1, 1);
    EXPECT_EQ(items.at("0D1")->secondKeyCode, 324);
}

TEST_F(Options, MakeACharacterOfEveryCode) {
    const auto outside = item("000", 1);
    outside->optionFirstKeyCode = 0;
    outside->optionSecondKeyCode = -1;
    outside->optionThirdKeyCode = '1' - 512;
    update(account, customFee(outside));
    const auto items = ask(account, option)->stkOptionFeeRate->items;
    ASSERT_EQ(items.size(), 1U);
    EXPECT_EQ(items.begin()->first, (std::string{'\0', '\xFF', '1'}));
}

TEST_F(Options, ReplaceAnItemOfTheSameKeyAndShareThePooledOne) {
    update(account, customFee(item("011", 1)));
    update(account, customFee(item("011", 7)));
    const Fee fee = ask(account, option);
    ASSERT_EQ(fee->stkOptionFeeRate->items.size(), 1U);
    EXPECT_EQ(fee->stkOptionFeeRate->items.at("011")->fee1, 7);
    EXPECT_EQ(fee->stkOptionFeeRate->baseRate, 0);
    const Fee again = ask(account, option);
    EXPECT_NE(again->stkOptionFeeRate, fee->stkOptionFeeRate);
    EXPECT_EQ(again->stkOptionFeeRate->items, fee->stkOptionFeeRate->items);
    EXPECT_EQ(model.optionItems.size(), 2U);
}

TEST_F(Options, TakeTheNumberOfTheCategorysName) {
    facts.categoryNumbers.clear();
    update(account, customFee(item("011", 1)));
    EXPECT_FALSE(knows(account));
    facts.systemMembers.insert({-1, {"SHO", "1"}});
    update(account, customFee(item("011", 1)));
    EXPECT_EQ(listed(account).size(), 1U);
}

}  // namespace
}  // namespace model
