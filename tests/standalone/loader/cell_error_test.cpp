// What is wrong with cells and with what they refer to.

#include "fixture.h"

namespace standalone {
namespace {

using LoaderCellError = LoaderTest;

/// A table of credit fees with this rate, which is on line 2.
std::string creditRate(const std::string& rate) { return "account,market,code,rate1\nC1,SH,*," + rate + "\n"; }

const LoaderError kCellErrors[] = {
    error("TextForANumber", written("fees/credit.csv", creditRate("much")), 2, "column rate1", "\"much\"",
          "a plain number"),
    error("PercentIsTurnedIntoAFraction", written("fees/credit.csv", creditRate("0.025%")), 2, "column rate1",
          "\"0.025%\"", "plain fractions: write 0.00025"),
    error("PerMilleIsTurnedIntoAFraction", written("fees/credit.csv", creditRate("0.5 \xE2\x80\xB0")), 2,
          "plain fractions: write 0.0005"),
    error("GroupedDigits", written("fees/credit.csv", creditRate("\"1,000\"")), 2, "\"1,000\"",
          "not grouped: write 1000"),
    error("DecimalComma", written("fees/credit.csv", creditRate("\"0,5\"")), 2, "\"0,5\"", "write a point"),
    error("NumberWithSomethingBehindIt", written("fees/credit.csv", creditRate("0.5x")), 2, "\"0.5x\"",
          "a plain number"),
    error("PlusSign", written("fees/credit.csv", creditRate("+0.5")), 2, "\"+0.5\"", "leave out the plus sign"),
    error("NotANumber", written("fees/credit.csv", creditRate("nan")), 2, "\"nan\"", "a plain number"),
    error("Infinity", written("fees/credit.csv", creditRate("-inf")), 2, "\"-inf\"", "a plain number"),
    error("NumberPastADouble", written("fees/credit.csv", creditRate("1e999")), 2, "\"1e999\"", "a double"),
    error("NegativeTradeUnit", replaced("instruments/a.csv", "MAIN,200,", "MAIN,-200,"), 3, "column trade_unit",
          "\"-200\"", "from 1 to 2147483647"),
    error("QuantityStepOfNothing",
          written("instruments/c.csv", "market,code,name,lists,quantity_step\nSH,600009,Port,stock,0\n"), 2,
          "column quantity_step", "\"0\"", "from 1 to 2147483647"),
    error("WholeNumberOutOfRange", replaced("accounts.csv", "-7", "2147483648"), 12, "column platform",
          "\"2147483648\"", "to 2147483647"),
    error("FractionForAWholeNumber", replaced("accounts.csv", "-7", "7.5"), 12, "\"7.5\"", "a whole number"),
    error("NegativeMultiplier", replaced("instruments/a.csv", "10000", "-1"), 7, "column multiplier", "\"-1\"",
          "not negative"),
    error("EmptyNeededCell", replaced("accounts.csv", "S1,Stock,", "S1,,"), 2, "column name is empty", "fill it in"),
    error("UnknownMarketNamesTheKnownOnes", appended("fees/credit.csv", "C1,London,*,,\n"), 3, "column market",
          "\"London\"", "known are SH, HK, SHFE or CME"),
    error("MisspeltMarketIsComparedWithTheKnownOnes", appended("fees/commission.csv", "F1,SHFF,*,,,,,,,,\n"), 4,
          "did you mean \"SHFE\"?"),
    error("UnknownMarketOfAnInstrument", appended("instruments/a.csv", "XX,600000,Bank,stock,,,,\n"), 8,
          "column market", "\"XX\""),
    error("UnknownMarketOfACategory", appended("categories.csv", "20,Everything,XX,,\n"), 5, "column market", "\"XX\""),
    error("DuplicateInstrumentTellsWhereTheFirstStands",
          appended("instruments/b.csv", "SH,600001,Other,stock,,,,,,,\n"), 5, "SH \"600001\"", "instruments/a.csv:3"),
    error("PatternForAnInstrumentsCode", appended("instruments/a.csv", "SH,60*,Bank,stock,,,,\n"), 8, "column code",
          "\"60*\""),
    error("UnknownListNamesTheKnownOnes", replaced("instruments/a.csv", "Steel,stock", "Steel,stock credits"), 3,
          "\"credits\"", "stock, credit, option, hgt, neeq, sgt, futures or futures_extra", "did you mean \"credit\"?"),
    error("UnknownFeeType", replaced("instruments/b.csv", "per_lot", "lot"), 3, "column fee_type", "\"lot\"",
          "per_lot or per_turnover"),
    error("DuplicateAccountTellsWhereTheFirstStands", appended("accounts.csv", "S1,Again,stock,\n"), 13, "\"S1\"",
          "accounts.csv:2"),
    error("AccountWithASpace", appended("accounts.csv", "S 2,Again,stock,\n"), 13, "column account", "\"S 2\"",
          "without spaces"),
    error("UnknownKindNamesTheKnownOnes", appended("accounts.csv", "Z1,Name,futurs,\n"), 13, "column kind",
          "\"futurs\"",
          "futures, stock, credit, futures_5, option, hgt, income_swap, neeq, sgt, prime_brokerage or "
          "income_swap_futures",
          "did you mean \"futures\"?"),
    error("AccountOfAnotherKind", appended("fees/credit.csv", "S1,SH,*,,\n"), 3, "\"S1\"", "kind stock",
          "fees/credit.csv takes accounts of the kind credit"),
    error("FuturesFeesTakeTwoKinds", appended("fees/commission.csv", "P1,SHFE,*,,,,,,,,\n"), 4, "kind prime_brokerage",
          "kind futures or futures_5"),
    error("FuturesCustomFeesTakeThreeKinds", appended("custom/commission.csv", "X1,1,20,,,,,,,,\n"), 4,
          "kind income_swap_futures", "kind futures, futures_5 or prime_brokerage"),
    error("UnknownInstrumentOfAFee", appended("fees/credit.csv", "C1,SH,699999,,\n"), 3, "SH \"699999\"",
          "not in instruments/*.csv"),
    error("UnseenCharacterInACode", appended("fees/credit.csv", "C1,SH,600000\xE2\x80\x8B,,\n"), 3,
          "the instrument SH \"600000\\xe2\\x80\\x8b\", which has a zero-width space (U+200B) in it, is not in"),
    error("UnseenCharacterInAnAccount", appended("fees/credit.csv", "C1\xC2\xA0,SH,600000,,\n"), 3,
          "holds \"C1\\xc2\\xa0\", which has a no-break space (U+00A0) in it, but an account of accounts.csv was"),
    error("InstrumentOutsideTheFamilysList", appended("fees/credit.csv", "C1,SH,600001,,\n"), 3,
          "matches no instrument", "list credit", "\"600001\""),
    error("PatternThatMatchesNothing", appended("fees/stock.csv", "S1,SH,9*,,,,,,,\n"), 4, "matches no instrument",
          "market SH", "\"9*\""),
    error("ProductThatMatchesNothing", appended("fees/stock.csv", "S1,SH,60*,STAR,,,,,,\n"), 4, "matches no instrument",
          "product \"STAR\""),
    error("UnknownInstrumentOfAConfiguredLimit", appended("configured/stock.csv", "SH,699999,,,\n"), 4, "SH \"699999\"",
          "not in instruments/*.csv"),
    error("PatternInAConfiguredLimit", appended("configured/stock.csv", "SH,60*,,,\n"), 4, "\"60*\"", "one instrument"),
    error("SecondConfiguredLimitTellsWhereTheFirstStands", appended("configured/stock.csv", "SH,600000,,,\n"), 4,
          "SH \"600000\"", "configured/stock.csv:2"),
    error("UnknownInstrumentOfACustomCategory", appended("custom_categories.csv", "10001,HK,600000\n"), 5,
          "HK \"600000\"", "not in instruments/*.csv"),
    error("SecondMembershipTellsWhereTheFirstStands", appended("custom_categories.csv", "10001,SH,600001\n"), 5,
          "SH \"600001\"", "10001", "custom_categories.csv:2"),
    error("CategoryWithTwoNames", appended("categories.csv", "10,Main,,,\n"), 5, "category 10", "\"Main\"",
          "\"Main board\"", "categories.csv:2"),
    error("NameOfTwoCategories", appended("categories.csv", "30,Main board,,,\n"), 5, "category 30", "category 10",
          "\"Main board\"", "categories.csv:2"),
    error("GroupNumberOutOfRange", appended("group_categories.csv", "70000,10,include\n"), 4, "column group",
          "\"70000\"", "from 70001 to 80001"),
    error("GroupOfAnUnknownCategory", appended("group_categories.csv", "70001,99,include\n"), 4, "column category",
          "\"99\"", "system or custom category"),
    error("GroupIsNoPartOfAGroup", appended("group_categories.csv", "70002,70001,include\n"), 4, "column category",
          "\"70001\"", "system or custom category"),
    error("UnknownModeNamesTheKnownOnes", appended("group_categories.csv", "70001,20,without\n"), 4, "column mode",
          "\"without\"", "include or exclude"),
    error("SecondPartTellsWhereTheFirstStands", appended("group_categories.csv", "70001,10,exclude\n"), 4,
          "category 10", "group 70001", "group_categories.csv:2"),
    error("CustomFeeOfAnUnknownCategory", appended("custom/stock.csv", "S1,1,99,,,,,,\n"), 5, "column category",
          "\"99\"", "system or group category"),
    error("CustomFeeOfACustomCategoryIsPointedToGroups", appended("custom/stock.csv", "S1,1,10001,,,,,,\n"), 5,
          "column category", "\"10001\"", "a custom category", "put it into a group of group_categories.csv"),
    error("FuturesCustomFeeOfACustomCategory", appended("custom/commission.csv", "F1,5,10002,,,,,,,,\n"), 4,
          "\"10002\"", "group_categories.csv"),
    error("ShenzhenConnectTakesNoGroupCategory", appended("custom/sgt.csv", "G1,1,70001,,\n"), 3, "\"70001\"",
          "a group category", "system categories alone"),
    error("ShenzhenConnectTakesNoCustomCategory", appended("custom/sgt.csv", "G1,1,10002,,\n"), 3, "\"10002\"",
          "a custom category", "system categories alone"),
    error("CategoryNameThatIsANumber", appended("categories.csv", "30,20,,,\n"), 5, "column name", "\"20\"",
          "number of a category", "another name"),
    error("CodeThatNamesAChannel", appended("instruments/a.csv", "SH,60HGT,Bank,stock,,,,\n"), 8, "column code",
          "\"60HGT\"", "connect channels"),
    error("NegativeExchangeFee", replaced("instruments/b.csv", "per_lot,3,,", "per_lot,3,-1,"), 3, "column close_fee",
          "\"-1\"", "not negative"),
    error("CharactersThatTheTerminalObeysAreEscapedInMessages",
          appended("fees/credit.csv",
                   "C1,SH,*,\xC2\x9B"
                   "31m\xE2\x80\xAEx,\n"),
          3, "\"\\xc2\\x9b31m\\xe2\\x80\\xaex\""),
    error("AccountWithACharacterThatTurnsTheDirection",
          appended("accounts.csv",
                   "S\xE2\x81\xA6"
                   "2,Again,stock,\n"),
          13, "column account", "control characters"),
    error("UpdateFromOne", appended("custom/stock.csv", "S1,0,20,,,,,,\n"), 5, "column update", "\"0\"",
          "from 1 to 2147483647"),
    error("BadHedgeFlag", appended("fees/margin.csv", "F1,SHFE,*,4,,,,,,,\n"), 6, "column hedge_flag", "\"4\"",
          "1, 2 or 3"),
    error("BadHedgeFlagOfACustomFee", appended("custom/margin.csv", "F1,4,20,0,,,,,,,\n"), 3, "column hedge_flag",
          "\"0\"", "1, 2 or 3"),
    error("OptionItemOfTwoCharacters", appended("custom/option.csv", "O1,1,20,0D,,,,,\n"), 3, "column item", "\"0D\"",
          "three letters or digits"),
    error("OptionItemOfOtherCharacters", appended("custom/option.csv", "O1,1,20,0-1,,,,,\n"), 3, "column item",
          "\"0-1\"", "three letters or digits"),
    error("AccountOfABadLineIsNotUnknown", replaced("accounts.csv", "C1,Credit,credit", "C1,Credit,loan"), 3, "loan"),
    error("UnreadableInstrumentsMakeNoUnknownOnes",
          replaced("instruments/a.csv", "SH,600001,Steel", "SH,600001,Ste\"el"), 3, "quote"),
    error("UnreadableCategoriesMakeNoUnknownOnes", replaced("custom_categories.csv", "10002,HK,00700", "x,HK,00700"), 4,
          "column category", "\"x\"")};

INSTANTIATE_TEST_SUITE_P(CellError, LoaderErrorTest, ::testing::ValuesIn(kCellErrors), &nameOfError);

TEST_F(LoaderCellError, UnknownAccountIsComparedWithTheKnownOnes) {
    replace("accounts.csv", "W1,Swap", "1000001,Swap");
    append("fees/credit.csv", "1000007,SH,*,,\n");
    expectError("fees/credit.csv", 3, {"column account", "\"1000007\"", "accounts.csv", "did you mean \"1000001\"?"});
}

TEST_F(LoaderCellError, CategoryNumberFromOne) {
    append("categories.csv", "0,None,,,\n");
    // Nothing else may be said of the categories then: which one the line means is not known.
    expectError("categories.csv", 5, {"column category", "\"0\"", "from 1 to 2147483647"});
}

TEST_F(LoaderCellError, CustomCategoryThatIsASystemCategoryTooIsTaken) {
    append("categories.csv", "10001,Both,SH,,\n");
    append("custom/stock.csv", "S1,1,10001,,,,,,\n");
    EXPECT_TRUE(load().ok());
}

TEST_F(LoaderCellError, ShanghaiConnectTakesAGroupCategory) {
    append("custom/hgt.csv", "H1,1,70001,,\n");
    EXPECT_TRUE(load().ok());
}

TEST_F(LoaderCellError, CategoryNameWithANumberInsideIsTaken) {
    append("categories.csv", "30,20 best,,,\n");
    EXPECT_TRUE(load().ok());
}

TEST_F(LoaderCellError, NegativeRateIsTaken) {
    write("fees/credit.csv", creditRate("-0.00005"));
    EXPECT_TRUE(load().ok());
}

TEST_F(LoaderCellError, CellOfTooManyCharacters) {
    std::string name;
    for (int i = 0; i < 1001; ++i) {
        name += "\xE4\xB8\xAD";
    }
    append("accounts.csv", "Z1," + name + ",stock,\n");
    expectError("accounts.csv", 13, {"column name", "1001 characters", "at most 1000", "shorten"});
}

TEST_F(LoaderCellError, CellOfJustAsManyCharactersIsTaken) {
    std::string name;
    for (int i = 0; i < 1000; ++i) {
        name += "\xE4\xB8\xAD";
    }
    append("accounts.csv", "Z1," + name + ",stock,\n");
    EXPECT_TRUE(load().ok());
}

TEST_F(LoaderCellError, EveryMessageSaysWhatToDo) {
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

TEST_F(LoaderCellError, BadLineThatMatchesNoInstrumentIsReportedForBoth) {
    append("fees/stock.csv", "S1,SH,60*,,x,,,,,\nS1,SH,9*,,x,,,,,\n");
    expectPlaces({"fees/stock.csv:4", "fees/stock.csv:5", "fees/stock.csv:5"});
}

TEST_F(LoaderCellError, UnknownAccountsAreReportedWithABadLine) {
    replace("accounts.csv", "C1,Credit,credit", "C1,Credit,loan");
    append("fees/stock.csv", "S2,SH,60*,,,,,,,\n");
    expectPlaces({"accounts.csv:3", "fees/stock.csv:4"});
}

TEST_F(LoaderCellError, InstrumentOfABadLineIsNotUnknown) {
    replace("instruments/a.csv", "SH,688001,Chip,stock credit", "SH,688001,Chip,stokc credit");
    append("fees/stock.csv", "S1,SH,688001,,,,,,,\n");
    expectError("instruments/a.csv", 4, {"\"stokc\"", "did you mean \"stock\"?"});
}

}  // namespace
}  // namespace standalone
