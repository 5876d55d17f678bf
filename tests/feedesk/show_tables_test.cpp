#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <boost/make_shared.hpp>

#include "feedesk/show.h"

namespace feedesk {
namespace {

using testing::HasSubstr;
using testing::Not;

/// The answer for SH:1 (One) with these rates as a table.
std::string table(const std::vector<TitledRates>& rates) {
    Answer answer;
    answer.account = boost::make_shared<qmservice::CAccountInfo>();
    answer.instrument = boost::make_shared<qmservice::CInstrument>();
    answer.instrument->market = "SH";
    answer.instrument->code = "1";
    answer.instrument->name = "One";
    FeeLine line;
    line.part = "stock";
    line.origin.level = Level::kOwnRecord;
    line.rates = rates;
    answer.lines = {line};
    return showAsTables({answer}, standalone::Market(), 80);
}

TitledRates rate(const std::string& title, const std::string& column, double value) {
    return {title, {{column, Unit::kFraction, value}}};
}

const TitledRates kTradeUnit{"Trade unit", {{"trade_unit", Unit::kCount, 100}}};

TEST(ShowAsTables, HasAColumnForEachOfTwoRatesOfOneTitle) {
    EXPECT_THAT(table({rate("Fee", "fee_buy", 0.01), rate("Fee", "fee_sell", 0.02)}),
                HasSubstr("Instrument  Name  Fee  Fee  Level\n"
                          "SH:1        One    1%   2%  own record\n"));
}

TEST(ShowAsTables, ShowsTheNamedRatesWhereAllAreZero) {
    const std::string text = table({rate("Fee", "fee", 0), rate("rate2", "rate2", 0), kTradeUnit});
    EXPECT_THAT(text, HasSubstr("Instrument  Name  Fee  Trade unit  Level\n"
                                "SH:1        One     0         100  own record\n"));
    EXPECT_THAT(text, Not(HasSubstr("not shown")));
}

TEST(ShowAsTables, ShowsEveryRateWhereAllAreZeroAndNoneIsNamed) {
    EXPECT_THAT(table({rate("rate1", "rate1", 0), rate("rate2", "rate2", 0)}),
                HasSubstr("Instrument  Name  rate1  rate2  Level\n"
                          "SH:1        One       0      0  own record\n"));
}

TEST(ShowAsTables, EscapesAControlCharacterInATitle) {
    EXPECT_THAT(table({rate("F\xE2\x80\xAE"
                            "e\ne",
                            "fee", 0.01)}),
                HasSubstr("Name  F\\xe2\\x80\\xaee\\ne  Level"));
}

}  // namespace
}  // namespace feedesk
