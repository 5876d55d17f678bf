// charges.csv: the terms that it gives, and what is wrong with its lines.

#include <map>

#include "fixture.h"

namespace standalone {
namespace {

using Cells = std::map<std::string, std::string>;

/// What every line needs.
const Cells kPlain{{"family", "stock"},   {"charge", "commission"}, {"side", "both"},
                   {"basis", "turnover"}, {"per", "order"},         {"currency", "CNY"}};

/// A table with a line for each of these cells, in the columns that any of them has.
std::string table(const std::vector<Cells>& lines) {
    std::map<std::string, bool> columns;
    for (const auto& [column, text] : kPlain) {
        columns[column] = true;
    }
    for (const Cells& line : lines) {
        for (const auto& [column, text] : line) {
            columns[column] = true;
        }
    }
    std::string text;
    for (const auto& [column, isThere] : columns) {
        text += (text.empty() ? "" : ",") + column;
    }
    for (const Cells& line : lines) {
        std::string cells;
        for (const auto& [column, isThere] : columns) {
            const auto own = line.find(column);
            const auto plain = kPlain.find(column);
            cells += own != line.end() ? own->second : plain != kPlain.end() ? plain->second : "";
            cells += ",";
        }
        text += "\n" + cells.substr(0, cells.size() - 1);
    }
    return text + "\n";
}

class LoaderCharges : public LoaderTest {
protected:
    /// The terms of a folder with such a table.
    [[nodiscard]] std::vector<cost::Term> terms(const std::vector<Cells>& lines) const {
        write("charges.csv", table(lines));
        return loadGoodFolder().schedule().terms();
    }
};

TEST_F(LoaderCharges, AreNoneWithoutTheTable) { EXPECT_TRUE(loadGoodFolder().schedule().terms().empty()); }

TEST_F(LoaderCharges, HaveAllTheirCells) {
    const std::vector<cost::Term> all =
        terms({{{"family", "option"},
                {"account", "O*"},
                {"market", "S*"},
                {"code", "100*"},
                {"product", "51*"},
                {"item", "0D"},
                {"charge", "handling"},
                {"title", "Handling fee"},
                {"side", "exercise"},
                {"basis", "quantity"},
                {"minimum", "0.1"},
                {"maximum", "100"},
                {"per", "day"},
                {"rounding", "0.01 half_even"},
                {"inside", "fee2"},
                {"currency", "HKD"},
                {"from", "2023-01-01"},
                {"until", "2023-12-31"},
                {"source", "the exchange"},
                {"checked", "2026-09-11"}},
               {{"family", "option"}, {"charge", "fee2"}, {"item", "000"}, {"side", "open_long"}, {"per", "fill"}}});
    ASSERT_EQ(all.size(), 2U);
    const cost::Term& term = all.front();
    EXPECT_EQ(term.family, cost::Family::kOption);
    EXPECT_EQ(term.account, "O*");
    EXPECT_EQ(term.market, "S*");
    EXPECT_EQ(term.code, "100*");
    EXPECT_EQ(term.product, "51*");
    EXPECT_EQ(term.item, "0D");
    EXPECT_EQ(term.charge, "handling");
    EXPECT_EQ(term.title, "Handling fee");
    EXPECT_EQ(term.side, cost::TermSide::kExercise);
    EXPECT_EQ(term.basis, cost::Basis::kQuantity);
    EXPECT_FALSE(term.rate);
    EXPECT_EQ(term.minimum, cost::Decimal::parse("0.1"));
    EXPECT_EQ(term.maximum, cost::Decimal::parse("100"));
    EXPECT_EQ(term.per, cost::Per::kDay);
    ASSERT_TRUE(term.rounding);
    EXPECT_EQ(term.rounding->text(), "0.01 half_even");
    EXPECT_EQ(term.inside, "fee2");
    EXPECT_EQ(term.currency, "HKD");
    EXPECT_EQ(term.dates.text(), "from 2023-01-01 until 2023-12-31");
    EXPECT_EQ(term.source, "the exchange");
    EXPECT_EQ(term.checked, day("2026-09-11"));
    EXPECT_EQ(term.where, "charges.csv:2");
    EXPECT_EQ(all.back().where, "charges.csv:3");
}

TEST_F(LoaderCharges, OfTheirOwnHaveAnExactRate) {
    const std::vector<cost::Term> all = terms({{{"charge", "desk_fee"}, {"rate", "0.1"}}});
    ASSERT_EQ(all.size(), 1U);
    EXPECT_EQ(all.front().rate, cost::Decimal::parse("0.1"));
}

TEST_F(LoaderCharges, AreForAnyFamilyAndItsAccounts) {
    const std::vector<cost::Term> all =
        terms({{{"family", "credit"}, {"charge", "rate6"}, {"account", "C1"}},
               {{"family", "futures"}, {"charge", "close_today_by_volume"}, {"side", "close_today"}, {"account", "F5"}},
               {{"family", "futures"}, {"charge", "open_by_money"}, {"side", "open"}, {"account", "P1"}},
               {{"family", "stock"}, {"account", "W1"}},
               {{"family", "neeq"}, {"charge", "rate1"}, {"account", "N1"}},
               {{"family", "sgt"}, {"charge", "rate14"}, {"account", "*"}}});
    EXPECT_EQ(all.size(), 6U);
}

TEST_F(LoaderCharges, MayFollowOneAnotherInTime) {
    EXPECT_EQ(terms({{{"until", "2023-08-27"}}, {{"from", "2023-08-28"}}}).size(), 2U);
}

/// One line that is wrong, and what the message says.
struct WrongCharge {
    const char* name;
    Cells cells;
    std::vector<std::string> words;
};

class LoaderChargeError : public LoaderTest, public ::testing::WithParamInterface<WrongCharge> {};

TEST_P(LoaderChargeError, IsReportedWithItsLine) {
    write("charges.csv", table({{{"charge", "rate2"}}, GetParam().cells}));
    expectError("charges.csv", 3, GetParam().words);
    EXPECT_THAT(load().errors.at(0).message,
                ::testing::ContainsRegex("; .*(correct|write|name|add|leave|fill|empty|did you mean)"));
}

INSTANTIATE_TEST_SUITE_P(
    Cells, LoaderChargeError,
    ::testing::Values(
        WrongCharge{"NoFamily", {{"family", ""}}, {"column family is empty"}},
        WrongCharge{
            "UnknownFamily", {{"family", "stocks"}}, {"column family", "\"stocks\"", "did you mean \"stock\"?"}},
        WrongCharge{"UnknownAccount", {{"account", "S9"}}, {"column account", "\"S9\"", "an account of accounts.csv"}},
        WrongCharge{"AccountOfAnotherFamily",
                    {{"account", "F1"}},
                    {"column account", "\"F1\"", "no such account of accounts.csv trades in family stock"}},
        WrongCharge{"PatternOfNoAccount", {{"account", "Q*"}}, {"column account", "\"Q*\"", "trades in family stock"}},
        WrongCharge{"PatternOfNoAccountOfTheFamily", {{"account", "F*"}}, {"\"F*\"", "trades in family stock"}},
        WrongCharge{"UnknownMarket", {{"market", "SX"}}, {"column market", "\"SX\"", "not a market of market.toml"}},
        WrongCharge{"MarketOfAnotherFamily", {{"market", "SHFE"}}, {"matches no instrument", "list stock", "\"SHFE\""}},
        WrongCharge{"PatternOfNoMarket", {{"market", "X*"}}, {"matches no instrument", "the market \"X*\""}},
        WrongCharge{"UnknownCode", {{"code", "600009"}}, {"matches no instrument", "the code \"600009\""}},
        WrongCharge{
            "PatternOfNoCode", {{"market", "SH"}, {"code", "9*"}}, {"matches no instrument", "\"SH\"", "\"9*\""}},
        WrongCharge{"UnknownProduct", {{"product", "ETF"}}, {"matches no instrument", "the product \"ETF\""}},
        WrongCharge{"ItemOfAStock", {{"item", "000"}}, {"the fee item \"000\"", "only options have fee items"}},
        WrongCharge{"ItemThatIsNone",
                    {{"family", "option"}, {"charge", "fee2"}, {"side", "open"}, {"item", "0"}},
                    {"column item", "\"0\"", "the key of a fee item, such as 000 or 0D"}},
        WrongCharge{"ItemInFull",
                    {{"family", "option"}, {"charge", "fee2"}, {"side", "open"}, {"item", "0D1"}},
                    {"column item", "\"0D1\"", "write 0D"}},
        WrongCharge{"NoItem",
                    {{"family", "option"}, {"charge", "fee2"}, {"side", "open"}},
                    {"does not name the fee item that holds it"}},
        WrongCharge{"NoCharge", {{"charge", ""}}, {"column charge is empty"}},
        WrongCharge{"ChargeThatIsNoRate",
                    {{"charge", "comission"}},
                    {"column charge", "\"comission\"", "a rate of family stock", "stamp_duty", "rate of its own",
                     "did you mean \"commission\"?"}},
        WrongCharge{"MarginForACharge",
                    {{"family", "futures"}, {"charge", "long_by_money"}, {"side", "open"}},
                    {"\"long_by_money\"", "a rate of family futures", "open_by_money"}},
        WrongCharge{
            "ChargeThatIsNoName", {{"charge", "Desk fee"}, {"rate", "1"}}, {"column charge", "lower-case letters"}},
        WrongCharge{"RateOfTheFeeCentersCharge",
                    {{"rate", "0.0003"}},
                    {"column charge", "\"commission\", a rate of the fee center", "column rate 0.0003"}},
        WrongCharge{"NoSide", {{"side", ""}}, {"column side is empty"}},
        WrongCharge{"UnknownSide", {{"side", "sale"}}, {"column side", "\"sale\"", "sell"}},
        WrongCharge{
            "SideOfAnotherFamily", {{"side", "open"}}, {"the side is \"open\"", "family stock has both, buy, sell"}},
        WrongCharge{"BuyingFutures",
                    {{"family", "futures"}, {"charge", "open_by_money"}, {"side", "buy"}},
                    {"the side is \"buy\"", "family futures has"}},
        WrongCharge{
            "UnknownBasis", {{"basis", "volume"}}, {"column basis", "\"volume\"", "turnover, quantity, order or day"}},
        WrongCharge{"BasisOrderOfADay",
                    {{"charge", "desk_fee"}, {"rate", "5"}, {"basis", "order"}, {"per", "day"}},
                    {"the basis is \"order\"", "per must be \"order\""}},
        WrongCharge{"BasisDayOfAnOrder",
                    {{"charge", "desk_fee"}, {"rate", "5"}, {"basis", "day"}},
                    {"the basis is \"day\"", "per must be \"day\""}},
        WrongCharge{"RateThatIsNoNumber", {{"charge", "desk_fee"}, {"rate", "0.1%"}}, {"column rate", "write 0.001"}},
        WrongCharge{"RateBelowZero",
                    {{"charge", "desk_fee"}, {"rate", "-1"}},
                    {"column rate", "\"-1\"", "a number that is not negative"}},
        WrongCharge{"MinimumWithAnExponent", {{"minimum", "5e0"}}, {"column minimum", "\"5e0\"", "a plain number"}},
        WrongCharge{"MaximumBelowZero", {{"maximum", "-5"}}, {"column maximum", "not negative"}},
        WrongCharge{"MaximumBelowTheMinimum",
                    {{"minimum", "5"}, {"maximum", "4.99"}},
                    {"the maximum 4.99 is below the minimum 5"}},
        WrongCharge{"UnknownPer", {{"per", "month"}}, {"column per", "\"month\"", "fill, order or day"}},
        WrongCharge{"RoundingWithoutAMode", {{"rounding", "0.01"}}, {"column rounding", "\"0.01\"", "0.01 half_up"}},
        WrongCharge{"RoundingOfAnotherMode",
                    {{"rounding", "0.01 nearest"}},
                    {"column rounding", "half_up, half_even, up or down"}},
        WrongCharge{"RoundingToNothing", {{"rounding", "0 up"}}, {"rounding", "above 0"}},
        WrongCharge{"InsideItself", {{"inside", "commission"}}, {"inside its own charge \"commission\""}},
        WrongCharge{"InsideNothing", {{"inside", "stamp_duty"}}, {"inside \"stamp_duty\"", "no line of family stock"}},
        WrongCharge{"NoCurrency", {{"currency", ""}}, {"column currency is empty"}},
        WrongCharge{"CurrencyInSmallLetters", {{"currency", "cny"}}, {"column currency", "three capital letters"}},
        WrongCharge{"LongCurrency", {{"currency", "YUAN"}}, {"column currency", "three capital letters"}},
        WrongCharge{"DaysBackwards",
                    {{"from", "2023-08-28"}, {"until", "2023-08-27"}},
                    {"column until", "2023-08-27", "before the 2023-08-28"}},
        WrongCharge{"CheckedOnNoDay",
                    {{"checked", "yesterday"}},
                    {"column checked", "\"yesterday\"", "a day of the calendar"}}),
    [](const auto& wrong) { return wrong.param.name; });

// --- lines that cannot both be right

TEST_F(LoaderCharges, EquallySpecificOnesOnOneDayAreAnErrorWithBothLines) {
    write("charges.csv", table({{{"until", "2023-08-28"}}, {{"from", "2023-08-28"}}}));
    expectError("charges.csv", 3, {"\"commission\"", "the same side and days as charges.csv:2", "more specific"});
}

const Cells kBegins{{"code", "60*"}};
const Cells kEnds{{"code", "*01"}};  // both match 600001 alone

Cells with(Cells cells, const Cells& more) {
    cells.insert(more.begin(), more.end());
    return cells;
}

struct Settled {
    const char* name;
    std::vector<Cells> lines;
};

class LoaderChargeTie : public LoaderTest, public ::testing::WithParamInterface<Settled> {};
class LoaderSettledCharges : public LoaderChargeTie {};

TEST_P(LoaderChargeTie, IsAnErrorWithBothLinesAndThePlace) {
    write("charges.csv", table(GetParam().lines));
    expectError("charges.csv", 3,
                {"the line charges \"commission\" of SH:600001 for account ", " as charges.csv:2 does",
                 "neither is more specific; make one of them so, or add a line"});
}

INSTANTIATE_TEST_SUITE_P(
    Lines, LoaderChargeTie,
    ::testing::Values(
        Settled{"Codes", {kBegins, kEnds}},
        Settled{"OfOneDay", {with(kBegins, {{"until", "2023-08-28"}}), with(kEnds, {{"from", "2023-08-28"}})}},
        Settled{"AccountsToo", {with(kBegins, {{"account", "S*"}}), with(kEnds, {{"account", "*1"}})}},
        Settled{"MarketsToo", {with(kBegins, {{"market", "S*"}}), with(kEnds, {{"market", "*H"}})}},
        Settled{"StarsForEverything", {with(kBegins, {{"product", "**"}}), kEnds}},
        Settled{"WithALineForAnother", {kBegins, kEnds, {{"code", "600000"}}}},
        Settled{"WithALineForOneSide", {kBegins, kEnds, {{"code", "600001"}, {"side", "buy"}}}},
        Settled{"WithALineForOneAccount", {kBegins, kEnds, {{"account", "S1"}}}},
        Settled{"WithALineOfLaterDays", {kBegins, kEnds, {{"code", "600001"}, {"from", "2023-08-28"}}}},
        Settled{"WithALineOfEarlierDays", {kBegins, kEnds, {{"code", "600001"}, {"until", "2023-08-28"}}}},
        Settled{"WithALineOfAnotherCharge", {kBegins, kEnds, {{"code", "600001"}, {"charge", "rate2"}}}}),
    [](const auto& tie) { return tie.param.name; });

TEST_P(LoaderSettledCharges, AreNoError) {
    write("charges.csv", table(GetParam().lines));
    EXPECT_EQ(loadGoodFolder().schedule().terms().size(), GetParam().lines.size());
}

INSTANTIATE_TEST_SUITE_P(
    Lines, LoaderSettledCharges,
    ::testing::Values(
        Settled{"NoInstrumentOfBoth", {{{"code", "60*"}}, {{"code", "68*"}}}},
        Settled{"NoCommonInstrument", {{{"code", "68*"}}, {{"code", "*00"}}}},
        Settled{"NoAccountOfBoth", {with(kBegins, {{"account", "S*"}}), with(kEnds, {{"account", "W*"}})}},
        Settled{"OtherDays", {with(kBegins, {{"until", "2023-08-27"}}), with(kEnds, {{"from", "2023-08-28"}})}},
        Settled{"OtherSides", {with(kBegins, {{"side", "buy"}}), with(kEnds, {{"side", "sell"}})}},
        Settled{"OtherCharges", {kBegins, with(kEnds, {{"charge", "rate2"}})}},
        Settled{"LongerPattern", {kBegins, {{"code", "*001"}}}},
        Settled{"LineForTheInstrument", {kBegins, kEnds, {{"code", "600001"}}}},
        Settled{"LineForTheAccounts", {kBegins, kEnds, {{"account", "*1"}}}},
        Settled{"LinesForBothSides",
                {kBegins, kEnds, {{"code", "600001"}, {"side", "buy"}}, {{"code", "600001"}, {"side", "sell"}}}},
        Settled{"LinesForAllDays",
                {kBegins,
                 kEnds,
                 {{"code", "600001"}, {"until", "2023-08-27"}},
                 {{"code", "600001"}, {"from", "2023-08-28"}}}}),
    [](const auto& settled) { return settled.param.name; });

TEST_F(LoaderCharges, AreNotComparedWhileOneOfThemCannotBeRead) {
    write("charges.csv", table({{}, {}, {{"inside", "stamp_duty"}}, {{"currency", "x"}}}));
    expectError("charges.csv", 5, {"column currency"});
}

TEST_F(LoaderCharges, OfUnknownAccountsAreNoErrorWhileAccountsAreUnknown) {
    write("accounts.csv", "account,name,kind\nS1,Stock\n");
    write("charges.csv", table({{{"account", "S9"}}, {{"account", "Q*"}, {"charge", "rate2"}}}));
    expectPlaces({"accounts.csv:2"});
}

TEST_F(LoaderCharges, OfUnknownRatesAreNoErrorWhileTheirNamesAreUnknown) {
    append("market.toml", "[rates.credit]\nrate1 = 3\n");
    write("charges.csv", table({{{"family", "credit"}, {"charge", "comission"}}}));
    expectPlaces({"market.toml:34"});
}

TEST_F(LoaderCharges, OfUnknownInstrumentsAreNoErrorWhileInstrumentsAreUnknown) {
    append("instruments/b.csv", "SHFE,cu2603,Copper\n");
    write("charges.csv", table({{{"code", "600009"}}}));
    expectPlaces({"instruments/b.csv:5"});
}

TEST_F(LoaderCharges, ComeLastAmongTheErrors) {
    append("custom/credit.csv", "C1,1,77,,\n");
    write("charges.csv", table({{{"per", "month"}}}));
    expectPlaces({"custom/credit.csv:3", "charges.csv:2"});
}

}  // namespace
}  // namespace standalone
