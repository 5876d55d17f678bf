// What is wrong with cells and with what they refer to.

#include "fixture.h"

namespace standalone {
namespace {

using LoaderCellError = LoaderTest;

/// A table of credit fees with this rate, which is on line 2.
std::string creditRate(const std::string& rate) { return "account,market,code,rate1\nC1,SH,*," + rate + "\n"; }

TEST_F(LoaderCellError, TextForANumber) {
    write("fees/credit.csv", creditRate("much"));
    expectError("fees/credit.csv", 2, {"column rate1", "\"much\"", "a plain number"});
}

TEST_F(LoaderCellError, PercentIsTurnedIntoAFraction) {
    write("fees/credit.csv", creditRate("0.025%"));
    expectError("fees/credit.csv", 2, {"column rate1", "\"0.025%\"", "plain fractions: write 0.00025"});
}

TEST_F(LoaderCellError, PerMilleIsTurnedIntoAFraction) {
    write("fees/credit.csv", creditRate("0.5 \xE2\x80\xB0"));
    expectError("fees/credit.csv", 2, {"plain fractions: write 0.0005"});
}

TEST_F(LoaderCellError, GroupedDigits) {
    write("fees/credit.csv", creditRate("\"1,000\""));
    expectError("fees/credit.csv", 2, {"\"1,000\"", "not grouped: write 1000"});
}

TEST_F(LoaderCellError, DecimalComma) {
    write("fees/credit.csv", creditRate("\"0,5\""));
    expectError("fees/credit.csv", 2, {"\"0,5\"", "write a point"});
}

TEST_F(LoaderCellError, NumberWithSomethingBehindIt) {
    write("fees/credit.csv", creditRate("0.5x"));
    expectError("fees/credit.csv", 2, {"\"0.5x\"", "a plain number"});
}

TEST_F(LoaderCellError, PlusSign) {
    write("fees/credit.csv", creditRate("+0.5"));
    expectError("fees/credit.csv", 2, {"\"+0.5\"", "leave out the plus sign"});
}

TEST_F(LoaderCellError, NotANumber) {
    write("fees/credit.csv", creditRate("nan"));
    expectError("fees/credit.csv", 2, {"\"nan\"", "a plain number"});
}

TEST_F(LoaderCellError, Infinity) {
    write("fees/credit.csv", creditRate("-inf"));
    expectError("fees/credit.csv", 2, {"\"-inf\"", "a plain number"});
}

TEST_F(LoaderCellError, NumberPastADouble) {
    write("fees/credit.csv", creditRate("1e999"));
    expectError("fees/credit.csv", 2, {"\"1e999\"", "a double"});
}

TEST_F(LoaderCellError, NegativeTradeUnit) {
    replace("instruments/a.csv", "MAIN,200,", "MAIN,-200,");
    expectError("instruments/a.csv", 3, {"column trade_unit", "\"-200\"", "from 1 to 2147483647"});
}

TEST_F(LoaderCellError, WholeNumberOutOfRange) {
    replace("accounts.csv", "-7", "2147483648");
    expectError("accounts.csv", 12, {"column platform", "\"2147483648\"", "to 2147483647"});
}

TEST_F(LoaderCellError, FractionForAWholeNumber) {
    replace("accounts.csv", "-7", "7.5");
    expectError("accounts.csv", 12, {"\"7.5\"", "a whole number"});
}

TEST_F(LoaderCellError, NegativeMultiplier) {
    replace("instruments/a.csv", "10000", "-1");
    expectError("instruments/a.csv", 7, {"column multiplier", "\"-1\"", "not negative"});
}

TEST_F(LoaderCellError, EmptyNeededCell) {
    replace("accounts.csv", "S1,Stock,", "S1,,");
    expectError("accounts.csv", 2, {"column name is empty", "fill it in"});
}

TEST_F(LoaderCellError, UnknownMarketNamesTheKnownOnes) {
    append("fees/credit.csv", "C1,London,*,,\n");
    expectError("fees/credit.csv", 3, {"column market", "\"London\"", "known are SH, HK, SHFE or CME"});
}

TEST_F(LoaderCellError, MisspeltMarketIsComparedWithTheKnownOnes) {
    append("fees/commission.csv", "F1,SHFF,*,,,,,,,,\n");
    expectError("fees/commission.csv", 4, {"did you mean \"SHFE\"?"});
}

TEST_F(LoaderCellError, UnknownMarketOfAnInstrument) {
    append("instruments/a.csv", "XX,600000,Bank,stock,,,,\n");
    expectError("instruments/a.csv", 8, {"column market", "\"XX\""});
}

TEST_F(LoaderCellError, UnknownMarketOfACategory) {
    append("categories.csv", "20,Everything,XX,,\n");
    expectError("categories.csv", 5, {"column market", "\"XX\""});
}

TEST_F(LoaderCellError, DuplicateInstrumentTellsWhereTheFirstStands) {
    append("instruments/b.csv", "SH,600001,Other,stock,,,,,,,\n");
    expectError("instruments/b.csv", 5, {"SH \"600001\"", "instruments/a.csv:3"});
}

TEST_F(LoaderCellError, PatternForAnInstrumentsCode) {
    append("instruments/a.csv", "SH,60*,Bank,stock,,,,\n");
    expectError("instruments/a.csv", 8, {"column code", "\"60*\""});
}

TEST_F(LoaderCellError, UnknownListNamesTheKnownOnes) {
    replace("instruments/a.csv", "Steel,stock", "Steel,stock credits");
    expectError(
        "instruments/a.csv", 3,
        {"\"credits\"", "stock, credit, option, hgt, neeq, sgt, futures or futures_extra", "did you mean \"credit\"?"});
}

TEST_F(LoaderCellError, UnknownFeeType) {
    replace("instruments/b.csv", "per_lot", "lot");
    expectError("instruments/b.csv", 3, {"column fee_type", "\"lot\"", "per_lot or per_turnover"});
}

TEST_F(LoaderCellError, DuplicateAccountTellsWhereTheFirstStands) {
    append("accounts.csv", "S1,Again,stock,\n");
    expectError("accounts.csv", 13, {"\"S1\"", "accounts.csv:2"});
}

TEST_F(LoaderCellError, AccountWithASpace) {
    append("accounts.csv", "S 2,Again,stock,\n");
    expectError("accounts.csv", 13, {"column account", "\"S 2\"", "without spaces"});
}

TEST_F(LoaderCellError, UnknownKindNamesTheKnownOnes) {
    append("accounts.csv", "Z1,Name,futurs,\n");
    expectError("accounts.csv", 13,
                {"column kind", "\"futurs\"",
                 "futures, stock, credit, futures_5, option, hgt, income_swap, neeq, sgt, prime_brokerage or "
                 "income_swap_futures",
                 "did you mean \"futures\"?"});
}

TEST_F(LoaderCellError, UnknownAccountIsComparedWithTheKnownOnes) {
    replace("accounts.csv", "W1,Swap", "1000001,Swap");
    append("fees/credit.csv", "1000007,SH,*,,\n");
    expectError("fees/credit.csv", 3, {"column account", "\"1000007\"", "accounts.csv", "did you mean \"1000001\"?"});
}

TEST_F(LoaderCellError, AccountOfAnotherKind) {
    append("fees/credit.csv", "S1,SH,*,,\n");
    expectError("fees/credit.csv", 3, {"\"S1\"", "kind stock", "fees/credit.csv takes accounts of the kind credit"});
}

TEST_F(LoaderCellError, FuturesFeesTakeTwoKinds) {
    append("fees/commission.csv", "P1,SHFE,*,,,,,,,,\n");
    expectError("fees/commission.csv", 4, {"kind prime_brokerage", "kind futures or futures_5"});
}

TEST_F(LoaderCellError, FuturesCustomFeesTakeThreeKinds) {
    append("custom/commission.csv", "X1,1,20,,,,,,,,\n");
    expectError("custom/commission.csv", 4, {"kind income_swap_futures", "kind futures, futures_5 or prime_brokerage"});
}

TEST_F(LoaderCellError, UnknownInstrumentOfAFee) {
    append("fees/credit.csv", "C1,SH,699999,,\n");
    expectError("fees/credit.csv", 3, {"SH \"699999\"", "not in instruments/*.csv"});
}

TEST_F(LoaderCellError, InstrumentOutsideTheFamilysList) {
    append("fees/credit.csv", "C1,SH,600001,,\n");
    expectError("fees/credit.csv", 3, {"matches no instrument", "list credit", "\"600001\""});
}

TEST_F(LoaderCellError, PatternThatMatchesNothing) {
    append("fees/stock.csv", "S1,SH,9*,,,,,,,\n");
    expectError("fees/stock.csv", 4, {"matches no instrument", "market SH", "\"9*\""});
}

TEST_F(LoaderCellError, ProductThatMatchesNothing) {
    append("fees/stock.csv", "S1,SH,60*,STAR,,,,,,\n");
    expectError("fees/stock.csv", 4, {"matches no instrument", "product \"STAR\""});
}

TEST_F(LoaderCellError, UnknownInstrumentOfAConfiguredLimit) {
    append("configured/stock.csv", "SH,699999,,,\n");
    expectError("configured/stock.csv", 4, {"SH \"699999\"", "not in instruments/*.csv"});
}

TEST_F(LoaderCellError, PatternInAConfiguredLimit) {
    append("configured/stock.csv", "SH,60*,,,\n");
    expectError("configured/stock.csv", 4, {"\"60*\"", "one instrument"});
}

TEST_F(LoaderCellError, SecondConfiguredLimitTellsWhereTheFirstStands) {
    append("configured/stock.csv", "SH,600000,,,\n");
    expectError("configured/stock.csv", 4, {"SH \"600000\"", "configured/stock.csv:2"});
}

TEST_F(LoaderCellError, UnknownInstrumentOfACustomCategory) {
    append("custom_categories.csv", "10001,HK,600000\n");
    expectError("custom_categories.csv", 5, {"HK \"600000\"", "not in instruments/*.csv"});
}

TEST_F(LoaderCellError, SecondMembershipTellsWhereTheFirstStands) {
    append("custom_categories.csv", "10001,SH,600001\n");
    expectError("custom_categories.csv", 5, {"SH \"600001\"", "10001", "custom_categories.csv:2"});
}

TEST_F(LoaderCellError, CategoryNumberFromOne) {
    append("categories.csv", "0,None,,,\n");
    // Nothing else may be said of the categories then: which one the line means is not known.
    expectError("categories.csv", 5, {"column category", "\"0\"", "from 1 to 2147483647"});
}

TEST_F(LoaderCellError, CategoryWithTwoNames) {
    append("categories.csv", "10,Main,,,\n");
    expectError("categories.csv", 5, {"category 10", "\"Main\"", "\"Main board\"", "categories.csv:2"});
}

TEST_F(LoaderCellError, NameOfTwoCategories) {
    append("categories.csv", "30,Main board,,,\n");
    expectError("categories.csv", 5, {"category 30", "category 10", "\"Main board\"", "categories.csv:2"});
}

TEST_F(LoaderCellError, GroupNumberOutOfRange) {
    append("group_categories.csv", "70000,10,include\n");
    expectError("group_categories.csv", 4, {"column group", "\"70000\"", "from 70001 to 80001"});
}

TEST_F(LoaderCellError, GroupOfAnUnknownCategory) {
    append("group_categories.csv", "70001,99,include\n");
    expectError("group_categories.csv", 4, {"column category", "\"99\"", "system or custom category"});
}

TEST_F(LoaderCellError, GroupIsNoPartOfAGroup) {
    append("group_categories.csv", "70002,70001,include\n");
    expectError("group_categories.csv", 4, {"column category", "\"70001\"", "system or custom category"});
}

TEST_F(LoaderCellError, UnknownModeNamesTheKnownOnes) {
    append("group_categories.csv", "70001,20,without\n");
    expectError("group_categories.csv", 4, {"column mode", "\"without\"", "include or exclude"});
}

TEST_F(LoaderCellError, SecondPartTellsWhereTheFirstStands) {
    append("group_categories.csv", "70001,10,exclude\n");
    expectError("group_categories.csv", 4, {"category 10", "group 70001", "group_categories.csv:2"});
}

TEST_F(LoaderCellError, CustomFeeOfAnUnknownCategory) {
    append("custom/stock.csv", "S1,1,99,,,,,,\n");
    expectError("custom/stock.csv", 5, {"column category", "\"99\"", "system or group category"});
}

TEST_F(LoaderCellError, CustomFeeOfACustomCategoryIsPointedToGroups) {
    append("custom/stock.csv", "S1,1,10001,,,,,,\n");
    expectError("custom/stock.csv", 5,
                {"column category", "\"10001\"", "a custom category", "put it into a group of group_categories.csv"});
}

TEST_F(LoaderCellError, FuturesCustomFeeOfACustomCategory) {
    append("custom/commission.csv", "F1,5,10002,,,,,,,,\n");
    expectError("custom/commission.csv", 4, {"\"10002\"", "group_categories.csv"});
}

TEST_F(LoaderCellError, CustomCategoryThatIsASystemCategoryTooIsTaken) {
    append("categories.csv", "10001,Both,SH,,\n");
    append("custom/stock.csv", "S1,1,10001,,,,,,\n");
    EXPECT_TRUE(load().ok());
}

TEST_F(LoaderCellError, ShenzhenConnectTakesNoGroupCategory) {
    append("custom/sgt.csv", "G1,1,70001,,\n");
    expectError("custom/sgt.csv", 3, {"\"70001\"", "a group category", "system categories alone"});
}

TEST_F(LoaderCellError, ShenzhenConnectTakesNoCustomCategory) {
    append("custom/sgt.csv", "G1,1,10002,,\n");
    expectError("custom/sgt.csv", 3, {"\"10002\"", "a custom category", "system categories alone"});
}

TEST_F(LoaderCellError, ShanghaiConnectTakesAGroupCategory) {
    append("custom/hgt.csv", "H1,1,70001,,\n");
    EXPECT_TRUE(load().ok());
}

TEST_F(LoaderCellError, CategoryNameThatIsANumber) {
    append("categories.csv", "30,20,,,\n");
    expectError("categories.csv", 5, {"column name", "\"20\"", "number of a category", "another name"});
}

TEST_F(LoaderCellError, CategoryNameWithANumberInsideIsTaken) {
    append("categories.csv", "30,20 best,,,\n");
    EXPECT_TRUE(load().ok());
}

TEST_F(LoaderCellError, CodeThatNamesAChannel) {
    append("instruments/a.csv", "SH,60HGT,Bank,stock,,,,\n");
    expectError("instruments/a.csv", 8, {"column code", "\"60HGT\"", "connect channels"});
}

TEST_F(LoaderCellError, NegativeExchangeFee) {
    replace("instruments/b.csv", "per_lot,3,,", "per_lot,3,-1,");
    expectError("instruments/b.csv", 3, {"column close_fee", "\"-1\"", "not negative"});
}

TEST_F(LoaderCellError, NegativeRateIsTaken) {
    write("fees/credit.csv", creditRate("-0.00005"));
    EXPECT_TRUE(load().ok());
}

TEST_F(LoaderCellError, CellOfTooManyCharacters) {
    std::string name;
    for (int i = 0; i < 1001; ++i) name += "\xE4\xB8\xAD";
    append("accounts.csv", "Z1," + name + ",stock,\n");
    expectError("accounts.csv", 13, {"column name", "1001 characters", "at most 1000", "shorten"});
}

TEST_F(LoaderCellError, CellOfJustAsManyCharactersIsTaken) {
    std::string name;
    for (int i = 0; i < 1000; ++i) name += "\xE4\xB8\xAD";
    append("accounts.csv", "Z1," + name + ",stock,\n");
    EXPECT_TRUE(load().ok());
}

TEST_F(LoaderCellError, CharactersThatTheTerminalObeysAreEscapedInMessages) {
    append("fees/credit.csv",
           "C1,SH,*,\xC2\x9B"
           "31m\xE2\x80\xAEx,\n");
    expectError("fees/credit.csv", 3, {"\"\\xc2\\x9b31m\\xe2\\x80\\xaex\""});
}

TEST_F(LoaderCellError, AccountWithACharacterThatTurnsTheDirection) {
    append("accounts.csv",
           "S\xE2\x81\xA6"
           "2,Again,stock,\n");
    expectError("accounts.csv", 13, {"column account", "control characters"});
}

TEST_F(LoaderCellError, EveryMessageTellsHowToMend) {
    append("fees/margin.csv", "F1,SHFE,*,4,,,,,,,\n");
    append("fees/credit.csv", "S1,SH,*,,\n");
    append("accounts.csv", "Z1,Name,wholesale,\n");
    append("instruments/a.csv", "SH,600009,Name,everything,,,,\n");
    append("custom/stock.csv", "S1,0,20,,,,,,\n");
    append("custom/option.csv", "O1,1,20,0D,,,,,\n");
    const LoadResult result = load();
    ASSERT_EQ(result.errors.size(), 6U);
    for (const LoadError& error : result.errors) {
        EXPECT_THAT(error.message, ::testing::ContainsRegex("; (write one of them|name such|correct it)"));
    }
}

TEST_F(LoaderCellError, UpdateFromOne) {
    append("custom/stock.csv", "S1,0,20,,,,,,\n");
    expectError("custom/stock.csv", 5, {"column update", "\"0\"", "from 1 to 2147483647"});
}

TEST_F(LoaderCellError, BadHedgeFlag) {
    append("fees/margin.csv", "F1,SHFE,*,4,,,,,,,\n");
    expectError("fees/margin.csv", 6, {"column hedge_flag", "\"4\"", "1, 2 or 3"});
}

TEST_F(LoaderCellError, BadHedgeFlagOfACustomFee) {
    append("custom/margin.csv", "F1,4,20,0,,,,,,,\n");
    expectError("custom/margin.csv", 3, {"column hedge_flag", "\"0\"", "1, 2 or 3"});
}

TEST_F(LoaderCellError, OptionItemOfTwoCharacters) {
    append("custom/option.csv", "O1,1,20,0D,,,,,\n");
    expectError("custom/option.csv", 3, {"column item", "\"0D\"", "three letters or digits"});
}

TEST_F(LoaderCellError, OptionItemOfOtherCharacters) {
    append("custom/option.csv", "O1,1,20,0-1,,,,,\n");
    expectError("custom/option.csv", 3, {"column item", "\"0-1\"", "three letters or digits"});
}

// --- all errors at once, and only those that do not follow from another

TEST_F(LoaderCellError, EveryBadCellOfARowIsReported) {
    append("fees/credit.csv", "Z9,XX,*,a,b\n");
    expectPlaces({"fees/credit.csv:3", "fees/credit.csv:3", "fees/credit.csv:3", "fees/credit.csv:3"});
}

TEST_F(LoaderCellError, ErrorsOfAllFilesComeInTheOrderOfReadingThenByLine) {
    append("fees/stock.csv", "S1,SH,60*,,x,,,,,\nS1,SH,60*,,,y,,,,\n");
    append("custom/sgt.csv", "G1,1,99,,\n");
    append("categories.csv", "x,Name,,,\n");
    replace("market.toml", "threads = 3", "threads = 65");
    append("accounts.csv", "Z1,Name,shares,\n");
    append("custom/stock.csv", "S1,1,20,x,,,,,\n");
    append("instruments/a.csv", "SH,600009,Name,shares,,,,\n");
    // custom/sgt.csv:3 follows from the category that could not be read.
    expectPlaces({"market.toml:5", "accounts.csv:13", "instruments/a.csv:8", "categories.csv:5", "fees/stock.csv:4",
                  "fees/stock.csv:5", "custom/stock.csv:5"});
}

TEST_F(LoaderCellError, BadLineThatMatchesNoInstrumentIsToldOfBoth) {
    append("fees/stock.csv", "S1,SH,60*,,x,,,,,\nS1,SH,9*,,x,,,,,\n");
    expectPlaces({"fees/stock.csv:4", "fees/stock.csv:5", "fees/stock.csv:5"});
}

TEST_F(LoaderCellError, AccountOfABadLineIsNotUnknown) {
    replace("accounts.csv", "C1,Credit,credit", "C1,Credit,loan");
    expectError("accounts.csv", 3, {"loan"});
}

TEST_F(LoaderCellError, UnknownAccountsAreReportedBesideABadLine) {
    replace("accounts.csv", "C1,Credit,credit", "C1,Credit,loan");
    append("fees/stock.csv", "S2,SH,60*,,,,,,,\n");
    expectPlaces({"accounts.csv:3", "fees/stock.csv:4"});
}

TEST_F(LoaderCellError, InstrumentOfABadLineIsNotUnknown) {
    replace("instruments/a.csv", "SH,688001,Chip,stock credit", "SH,688001,Chip,stokc credit");
    append("fees/stock.csv", "S1,SH,688001,,,,,,,\n");
    expectError("instruments/a.csv", 4, {"\"stokc\"", "did you mean \"stock\"?"});
}

TEST_F(LoaderCellError, UnreadableInstrumentsMakeNoUnknownOnes) {
    replace("instruments/a.csv", "SH,600001,Steel", "SH,600001,Ste\"el");
    expectError("instruments/a.csv", 3, {"quote"});
}

TEST_F(LoaderCellError, UnreadableCategoriesMakeNoUnknownOnes) {
    replace("custom_categories.csv", "10002,HK,00700", "x,HK,00700");
    expectError("custom_categories.csv", 4, {"column category", "\"x\""});
}

}  // namespace
}  // namespace standalone
