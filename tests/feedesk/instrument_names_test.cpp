#include "feedesk/instrument_names.h"

#include <gtest/gtest.h>

#include <boost/make_shared.hpp>

namespace feedesk {
namespace {

/// SH:600519, SH:000001, SZ:000001, HK:00700 and WP.X:a.b:c.
InstrumentNames sample() {
    standalone::Market market;
    for (const auto& [place, code] : std::vector<std::pair<std::string, std::string>>{
             {"SH", "600519"}, {"SH", "000001"}, {"SZ", "000001"}, {"HK", "00700"}, {"WP.X", "a.b:c"}}) {
        standalone::ListedInstrument listed;
        listed.record = boost::make_shared<qmservice::CInstrument>();
        listed.record->market = place;
        listed.record->code = code;
        market.instruments.push_back(listed);
    }
    return InstrumentNames(market);
}

/// "market code" of the question, else the problem.
std::string found(const std::string& text, bool connect = false) {
    const NamedInstrument named = sample().find(text, connect);
    return named.question ? named.question->market + " " + named.question->code : named.problem;
}

TEST(InstrumentNames, TakeTheMarketInFrontOrBehind) {
    EXPECT_EQ(found("SH:600519"), "SH 600519");
    EXPECT_EQ(found("600519.SH"), "SH 600519");
    EXPECT_EQ(found("000001.SZ"), "SZ 000001");
}

TEST(InstrumentNames, TakeTheMarketInSmallLetters) { EXPECT_EQ(found("sz:000001"), "SZ 000001"); }

TEST(InstrumentNames, TakeACodeThatOneMarketHas) { EXPECT_EQ(found("600519"), "SH 600519"); }

TEST(InstrumentNames, NameTheCandidatesOfACodeThatSeveralMarketsHave) {
    EXPECT_EQ(found("000001"), "several markets have the code 000001: write SH:000001 or SZ:000001");
}

TEST(InstrumentNames, TakePointsAndColonsInsideCodes) {
    EXPECT_EQ(found("WP.X:a.b:c"), "WP.X a.b:c");
    EXPECT_EQ(found("a.b:c"), "WP.X a.b:c");
}

TEST(InstrumentNames, KnowTheChannelsOfConnectAccounts) {
    EXPECT_EQ(found("HGT:00700", true), "HGT 00700");
    EXPECT_EQ(found("00700.SGT", true), "SGT 00700");
    EXPECT_EQ(found("HK:00700", true), "HK 00700");
}

TEST(InstrumentNames, KnowNoChannelsOfOtherAccounts) {
    EXPECT_EQ(found("HGT:00700"), "the market folder has no instrument HGT:00700; did you mean HK:00700?");
}

TEST(InstrumentNames, TellWhatTheFolderDoesNotHave) {
    for (const std::string text : {"SH:", ":", "nothing", "XX:nothing"}) {
        EXPECT_EQ(found(text), "the market folder has no instrument " + text);
    }
    EXPECT_EQ(found(""), "the market folder has no instrument \"\"");
}

TEST(InstrumentNames, TellHowToWriteWhatIsMeant) {
    for (const std::string text : {"SH600519", "sh600519", "600519SH", "SH 600519"}) {
        EXPECT_EQ(found(text), "the market folder has no instrument " + text + "; write SH:600519");
    }
    EXPECT_EQ(found("WP.X:A.B:C"), "the market folder has no instrument WP.X:A.B:C; write WP.X:a.b:c");
}

TEST(InstrumentNames, TellTheMarketThatHasTheCode) {
    for (const std::string text : {"SZ:600519", "600519.SZ", "XX:600519"}) {
        EXPECT_EQ(found(text), "the market folder has no instrument " + text + "; did you mean SH:600519?");
    }
}

TEST(InstrumentNames, TellWhatIsNear) {
    EXPECT_EQ(found("600518"), "the market folder has no instrument 600518; did you mean SH:600519?");
    EXPECT_EQ(found("SZ:000011"), "the market folder has no instrument SZ:000011; did you mean SZ:000001?");
}

}  // namespace
}  // namespace feedesk
