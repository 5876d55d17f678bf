#include "feedesk/instruments/instrument_names.h"

#include <gtest/gtest.h>

#include <boost/make_shared.hpp>

namespace feedesk {
namespace {

struct ListedRow {
    std::string market;
    std::string code;
    std::string name;
};

InstrumentNames namesOf(const std::vector<ListedRow>& rows) {
    standalone::Market market;
    for (const ListedRow& row : rows) {
        standalone::ListedInstrument listed;
        listed.record = boost::make_shared<qmservice::CInstrument>();
        listed.record->market = row.market;
        listed.record->code = row.code;
        listed.record->name = row.name;
        market.instruments.push_back(listed);
    }
    return InstrumentNames(market);
}

InstrumentNames sampleNames() {
    return namesOf({{"SZ", "000001", "平安银行"},
                    {"SH", "600519", "贵州茅台"},
                    {"SH", "000001", "上证指数"},
                    {"SH", "688888", "中国平安"},
                    {"SZ", "000002", "万 科Ａ"},
                    {"SZ", "000004", "*ST国华"},
                    {"SZ", "000006", "甲*ST国华"},
                    {"HK", "00700", "腾讯控股"},
                    {"HK", "02318", "中国平安"},
                    {"SHFE", "rb2612", "螺纹钢2612"},
                    {"SHFE", "rb2610", "螺纹钢2610"},
                    {"CZCE", "RM610", "菜粕2610"},
                    {"CZCE", "SR610", "白糖2610"},
                    {"DCE", "m2609", "豆粕2609"},
                    {"INE", "M2609", "试验2609"},
                    {"WP.X", "a.b:c", ""}});
}

std::string foundIn(const InstrumentNames& names, const std::string& text, bool connect) {
    std::string all;
    for (const Question& question : names.find(text, connect)) {
        all += (all.empty() ? "" : ", ") + question.market + " " + question.code;
    }
    return all.empty() ? names.problem(text, connect) : all;
}

/// "market code" of each question, else the problem.
std::string found(const std::string& text, bool connect = false) { return foundIn(sampleNames(), text, connect); }

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

TEST(InstrumentNames, ReportWhatTheFolderDoesNotHave) {
    for (const std::string text : {"SH:", ":", "nothing", "XX:nothing"}) {
        EXPECT_EQ(found(text), "the market folder has no instrument " + text);
    }
    EXPECT_EQ(found(""), "the market folder has no instrument \"\"");
}

TEST(InstrumentNames, TakeTheMarketWithoutAMarkBetween) {
    for (const std::string text : {"SH600519", "sh600519", "600519SH", "SH 600519", "ＳＨ：６００５１９"}) {
        EXPECT_EQ(found(text), "SH 600519");
    }
}

TEST(InstrumentNames, TakeLettersInAnyCaseWhereOneInstrumentCanBeMeant) {
    EXPECT_EQ(found("RB2610"), "SHFE rb2610");
    EXPECT_EQ(found("shfe:Rb2610"), "SHFE rb2610");
    EXPECT_EQ(found("sr610"), "CZCE SR610");
    EXPECT_EQ(found("WP.X:A.B:C"), "WP.X a.b:c");
}

TEST(InstrumentNames, TakeACodeAsItIsWrittenWhereItsCaseMakesTheDifference) {
    EXPECT_EQ(found("m2609"), "DCE m2609");
    EXPECT_EQ(found("M2609"), "INE M2609");
    EXPECT_EQ(found("dce:M2609"), "DCE m2609");
}

TEST(InstrumentNames, NameTheCandidatesWhereLettersInAnyCaseMeanSeveral) {
    const InstrumentNames names = namesOf({{"DCE", "ab1", ""}, {"INE", "AB1", ""}});
    EXPECT_EQ(foundIn(names, "Ab1", false), "Ab1 may mean several instruments: write DCE:ab1 or INE:AB1");
}

TEST(InstrumentNames, TakeANameThatOneInstrumentHas) {
    EXPECT_EQ(found("贵州茅台"), "SH 600519");
    for (const std::string text : {"万科A", "万 科Ａ", "万　科　ａ", " 万科A "}) {
        EXPECT_EQ(found(text), "SZ 000002") << text;
    }
}

TEST(InstrumentNames, NameTheCandidatesOfANameThatSeveralInstrumentsHave) {
    EXPECT_EQ(found("中国平安"), "中国平安 may mean several instruments: write HK:02318 or SH:688888");
    EXPECT_EQ(found("SH:中国平安"), "SH 688888");
    EXPECT_EQ(found("中国平安.HK"), "HK 02318");
}

TEST(InstrumentNames, CountTheCandidatesPastTheEighth) {
    std::vector<ListedRow> rows;
    for (char digit = '1'; digit <= '9'; ++digit) {
        rows.push_back({"SH", std::string(1, digit), "同名"});
    }
    EXPECT_EQ(foundIn(namesOf(rows), "同名", false),
              "同名 may mean several instruments: write SH:1, SH:2, SH:3, SH:4, SH:5, SH:6, SH:7, SH:8 and 1 more");
}

TEST(InstrumentNames, NeverTakeAnEmptyNameForOne) {
    EXPECT_EQ(foundIn(namesOf({{"SH", "1", ""}}), " ", false), "the market folder has no instrument  ");
}

TEST(InstrumentNames, TakeAPatternOfCodesOrNamesByMarketAndCode) {
    EXPECT_EQ(found("SHFE:rb*"), "SHFE rb2610, SHFE rb2612");
    EXPECT_EQ(found("rb*.shfe"), "SHFE rb2610, SHFE rb2612");
    EXPECT_EQ(found("ＳＨＦＥ：ｒｂ＊"), "SHFE rb2610, SHFE rb2612");
    EXPECT_EQ(found("*610"), "CZCE RM610, CZCE SR610, SHFE rb2610");
    EXPECT_EQ(found("*茅台"), "SH 600519");
}

TEST(InstrumentNames, TakeAPatternOfMarkets) {
    EXPECT_EQ(found("S*:000001"), "SH 000001, SZ 000001");
    EXPECT_EQ(found("s*:*00*1"), "SH 000001, SZ 000001");
}

TEST(InstrumentNames, TakeAPatternInAnyCaseWhereNothingIsLikeItAsItIsWritten) {
    EXPECT_EQ(found("RB*"), "SHFE rb2610, SHFE rb2612");
    EXPECT_EQ(found("M*"), "INE M2609");
    EXPECT_EQ(found("万科*"), "SZ 000002");
}

TEST(InstrumentNames, TakeAWholeNameWithAStarForTheInstrument) { EXPECT_EQ(found("*ST国华"), "SZ 000004"); }

TEST(InstrumentNames, KnowTheChannelsInPatternsOfConnectAccounts) {
    EXPECT_EQ(found("hgt:007*", true), "HGT 00700");
    EXPECT_EQ(found("*:007*", true), "HK 00700");
    EXPECT_EQ(found("sgt00700", true), "SGT 00700");
    EXPECT_EQ(found("HGT:腾讯控股", true), "HGT 00700");
}

TEST(InstrumentNames, SayThatNothingIsLikeAPattern) {
    EXPECT_EQ(found("zz*"), "the market folder has no instrument like zz*");
    EXPECT_EQ(found("茅台*"),
              "the market folder has no instrument like 茅台*; '*茅台*' finds the text inside codes and names");
    EXPECT_EQ(found("SHFE:a:b*"), "the market folder has no instrument like SHFE:a:b*");
    EXPECT_EQ(found("XX:rb*"), "the market folder has no market XX; it has CZCE, DCE, HK, INE, SH, SHFE, SZ, WP.X");
    // CZCE:SR610 and SHFE:rb2610 are like what is left without the colon.
    EXPECT_EQ(found("S:R*"), "the market folder has no market S; it has CZCE, DCE, HK, INE, SH, SHFE, SZ, WP.X");
    EXPECT_EQ(found("R*:2610"), "the market folder has no market R*; it has CZCE, DCE, HK, INE, SH, SHFE, SZ, WP.X");
    EXPECT_EQ(found("a.b:*"), "WP.X a.b:c");
}

TEST(InstrumentNames, DoNotLookForAByteInsideACharacter) {
    EXPECT_EQ(found("*\x9B*"), "the market folder has no instrument like \"*\\x9b*\"");  // 国 is E5 9B BD
    EXPECT_EQ(found("*\xE5\x9B\xBD*"), "HK 02318, SH 688888, SZ 000004, SZ 000006");
}

TEST(InstrumentNames, NameTheMarketThatHasTheCode) {
    for (const std::string text : {"SZ:600519", "600519.SZ", "XX:600519", "sz600519"}) {
        EXPECT_EQ(found(text), "the market folder has no instrument " + text + "; did you mean SH:600519?");
    }
}

TEST(InstrumentNames, SuggestWhatIsNear) {
    EXPECT_EQ(found("600518"), "the market folder has no instrument 600518; did you mean SH:600519?");
    EXPECT_EQ(found("SH600518"), "the market folder has no instrument SH600518; did you mean SH:600519?");
    EXPECT_EQ(found("RB2690"), "the market folder has no instrument RB2690; did you mean SHFE:rb2610 or SHFE:rb2612?");
    EXPECT_EQ(found("SZ:000011"),
              "the market folder has no instrument SZ:000011; did you mean SZ:000001 or SZ:000002 or SZ:000004?");
}

TEST(InstrumentNames, SuggestTheNamesThatAreNearOrHoldTheText) {
    EXPECT_EQ(found("贵州茅苔"), "the market folder has no instrument 贵州茅苔; did you mean SH:600519 (贵州茅台)?");
    EXPECT_EQ(found("茅台"), "the market folder has no instrument 茅台; did you mean SH:600519 (贵州茅台)?");
    EXPECT_EQ(found("6"), "the market folder has no instrument 6; '*6*' finds the text inside codes and names");
}

}  // namespace
}  // namespace feedesk
