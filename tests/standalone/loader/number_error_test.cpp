// Numbers that are none, and how their messages say how to correct them.

#include "fixture.h"

namespace standalone {
namespace {

struct BadRate {
    const char* name;
    const char* cell;  ///< as it is in the table
    const char* advice;
};

/// A rate of the credit fees that is refused with one error, whose end says how to correct it.
class LoaderRateError : public LoaderTest, public ::testing::WithParamInterface<BadRate> {};

TEST_P(LoaderRateError, IsRefusedWithWhatToDo) {
    write("fees/credit.csv", std::string("account,market,code,rate1\nC1,SH,*,") + GetParam().cell + "\n");
    const LoadResult result = load();
    ASSERT_EQ(result.errors.size(), 1U);
    EXPECT_EQ(result.errors[0].line, 2U);
    EXPECT_THAT(result.errors[0].message, ::testing::HasSubstr("a plain number such as 0.00025 was expected"));
    EXPECT_THAT(result.errors[0].message, ::testing::EndsWith(std::string("; ") + GetParam().advice));
}

const char* const kNoPoint = "write a point, not a comma, and do not group digits";

INSTANTIATE_TEST_SUITE_P(
    Rates, LoaderRateError,
    ::testing::Values(BadRate{"SignAlone", "+", "correct it"}, BadRate{"PlusAndNoNumber", "+x", "correct it"},
                      BadRate{"PlusAndInfinity", "+inf", "correct it"},
                      BadRate{"PlusAndANumberPastADouble", "+1e999", "correct it"},
                      BadRate{"PercentAlone", "%", "correct it"}, BadRate{"PercentOfNoNumber", "x%", "correct it"},
                      BadRate{"WordsWithAComma", "\"a,b\"", "correct it"}, BadRate{"CommaAlone", "\",\"", "correct it"},
                      BadRate{"CommaBeforeThreeDigits", "\",500\"", kNoPoint},
                      BadRate{"CommaBeforeFourDigits", "\"1,0000\"", kNoPoint},
                      BadRate{"FullwidthPercent", "5\xEF\xBC\x85", "rates are plain fractions: write 0.05"}),
    [](const auto& rate) { return rate.param.name; });

using LoaderNumberError = LoaderTest;

const LoaderError kNumberErrors[] = {
    error("TextForANumberThatIsNotNegative", replaced("instruments/a.csv", "10000", "many"), 7, "column multiplier",
          "\"many\"", "a plain number"),
    error("WholeNumberBelowTheLeast", replaced("accounts.csv", "-7", "-2147483649"), 12, "column platform",
          "\"-2147483649\"", "from -2147483648 to 2147483647"),
    error("TextForTheCategoryOfACustomFee", appended("custom/credit.csv", "C1,2,main,0.1,\n"), 3, "column category",
          "\"main\"", "a whole number from 1 to 2147483647"),
    error("CategoryNameThatIsANegativeNumber", appended("categories.csv", "30,-20,,,\n"), 5, "column name", "\"-20\"",
          "number of a category"),
    error("CategoryWhoseFirstNameIsBadMayHaveAGoodOneBehindIt", appended("categories.csv", "30,7,,,\n30,Good,,,\n"), 5,
          "column name", "\"7\""),
    error("GroupBehindTheLast", appended("group_categories.csv", "80002,10,include\n"), 4, "column group", "\"80002\"",
          "from 70001 to 80001"),
    error("SystemCategoriesWithoutTheirNumbersMakeNoCategoryUnknown",
          written("categories.csv", "name,market,code,product\nMain board,SH,60*,\n"), 1,
          "lacks the column \"category\""),
    error("CustomCategoriesWithoutTheirNumbersMakeNoCategoryUnknown",
          written("custom_categories.csv", "market,code\nSH,600001\n"), 1, "lacks the column \"category\""),
    error("GroupsWithoutTheirNumbersMakeNoGroupUnknown", written("group_categories.csv", "category,mode\n10,include\n"),
          1, "lacks the column \"group\""),
    error("FeeWithoutACodeIsRefusedForThatAlone", appended("fees/credit.csv", "C1,SH,,0.1,\n"), 3, "column code",
          "is empty"),
    error("ConfiguredLimitWithoutACodeIsRefusedForThatAlone", appended("configured/hgt.csv", "HK,,0.1,\n"), 3,
          "column code", "is empty"),
    error("InstrumentWithoutAMarketIsRefusedForThatAlone", appended("instruments/a.csv", ",600000,Bank,stock,,,,\n"), 8,
          "column market", "is empty"),
    error("FuturesFeeOfAStockNamesTheFuturesLists", appended("fees/commission.csv", "F1,SH,600000,1,,,,,,,\n"), 4,
          "matches no instrument", "futures", "futures_extra", "\"600000\"")};

INSTANTIATE_TEST_SUITE_P(NumberError, LoaderErrorTest, ::testing::ValuesIn(kNumberErrors), &nameOfError);

class LoaderOptionItemError : public LoaderTest, public ::testing::WithParamInterface<const char*> {};

TEST_P(LoaderOptionItemError, ThatIsNotThreeLettersOrDigitsIsRefused) {
    append("custom/option.csv", std::string("O1,1,20,") + GetParam() + ",,,,,\n");
    expectError("custom/option.csv", 3, {"column item", GetParam(), "three letters or digits"});
}

// In each place one character: before 0, between 9 and A, between Z and a, and behind z.
INSTANTIATE_TEST_SUITE_P(Items, LoaderOptionItemError,
                         ::testing::Values("/00", ":00", "[00", "{00", "0/0", "0:0", "0[0", "0{0", "00/", "00:", "00[",
                                           "00{"));

TEST_F(LoaderNumberError, OptionItemOfEveryKindOfCharacterIsTaken) {
    append("custom/option.csv", "O1,1,20,9Az,,,,,\nO1,1,20,0Za,,,,,\n");
    EXPECT_TRUE(load().ok());
}

TEST_F(LoaderNumberError, CategoryNameThatIsADashIsTaken) {
    append("categories.csv", "30,-,,,\n");
    EXPECT_EQ(loadGood().categories.back().name, "-");
}

// What could not be read of a folder may hold what another table names: that is no second error.

TEST_F(LoaderNumberError, BadSystemCategoryMakesNoCategoryUnknown) {
    append("categories.csv", "x,Lost,,,\n");
    append("group_categories.csv", "70001,30,include\n");
    append("custom/credit.csv", "C1,2,30,0.1,\n");
    expectError("categories.csv", 5, {"column category", "\"x\""});
}

TEST_F(LoaderNumberError, BadGroupMakesNoGroupUnknown) {
    append("group_categories.csv", "x,10,include\n");
    append("custom/credit.csv", "C1,2,70002,0.1,\n");
    expectError("group_categories.csv", 4, {"column group", "\"x\""});
}

TEST_F(LoaderNumberError, LineOfSystemCategoriesThatCannotBeReadMakesNoCategoryUnknown) {
    append("categories.csv", "30,\"Lost\"x,,,\n");
    append("custom/credit.csv", "C1,2,30,0.1,\n");
    expectError("categories.csv", 5, {"a closing quote is followed by \"x\""});
}

TEST_F(LoaderNumberError, LineOfCustomCategoriesThatCannotBeReadMakesNoCategoryUnknown) {
    append("custom_categories.csv", "10003,\"SH\"x,600000\n");
    append("group_categories.csv", "70001,10003,include\n");
    expectError("custom_categories.csv", 5, {"a closing quote is followed by \"x\""});
}

TEST_F(LoaderNumberError, LineOfGroupsThatCannotBeReadMakesNoGroupUnknown) {
    append("group_categories.csv", "70002,\"10\"x,include\n");
    append("custom/credit.csv", "C1,2,70002,0.1,\n");
    expectError("group_categories.csv", 4, {"a closing quote is followed by \"x\""});
}

// The number could be the one of a system category too, in the line that is lost.
TEST_F(LoaderNumberError, CustomCategoryOfAFeeIsNotJudgedWhileCategoriesAreMissing) {
    append("categories.csv", "x,Lost,,,\n");
    append("custom/credit.csv", "C1,2,10001,0.1,\n");
    expectError("categories.csv", 5, {"column category", "\"x\""});
}

}  // namespace
}  // namespace standalone
