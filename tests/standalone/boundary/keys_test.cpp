#include "host/keys.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <set>
#include <string>

namespace {

struct Parts {
    std::string market;
    std::string code;
};

Parts split(const std::string& key) {
    Parts parts{"left over", "left over"};
    utils::splitVoStockKey(key, parts.market, parts.code);
    return parts;
}

TEST(JoinedKey, PutsTheMarketFirst) { EXPECT_EQ(utils::voStockKey("SHFE", "rb2510"), "SHFE:rb2510"); }

TEST(JoinedKey, IsSplitAtTheFirstSeparator) {
    const Parts parts = split("SH:600:000");
    EXPECT_EQ(parts.market, "SH");
    EXPECT_EQ(parts.code, "600:000");
}

TEST(JoinedKey, WithoutSeparatorIsAllCode) {
    const Parts parts = split("600000");
    EXPECT_EQ(parts.market, "");
    EXPECT_EQ(parts.code, "600000");
}

TEST(JoinedKey, OfNothingHasEmptyParts) {
    const Parts parts = split("");
    EXPECT_EQ(parts.market, "");
    EXPECT_EQ(parts.code, "");
}

TEST(JoinedKey, MayBeSplitIntoItsOwnText) {
    std::string market = "SH:600000";
    std::string code;
    utils::splitVoStockKey(market, market, code);
    EXPECT_EQ(market, "SH");
    EXPECT_EQ(code, "600000");

    code = "SZ:000001";
    utils::splitVoStockKey(code, market, code);
    EXPECT_EQ(market, "SZ");
    EXPECT_EQ(code, "000001");
}

RC_GTEST_PROP(JoinedKey, SplitsIntoTheMarketAndCodeThatMadeIt, (const std::string& text, const std::string& code)) {
    const std::string market = text.substr(0, text.find(':'));
    const Parts parts = split(utils::voStockKey(market, code));
    RC_ASSERT(parts.market == market);
    RC_ASSERT(parts.code == code);
}

TEST(Hash, OfEqualTextsIsEqual) {
    const std::string one = "SH:600000";
    const std::string other(one.data(), one.size());
    EXPECT_EQ(utils::hash(one), utils::hash(other));
}

TEST(Hash, TakesInEveryByteOfTheText) {
    const std::string text = std::string("SH:6") + '\0' + "000";
    std::set<qmservice::uint64> seen = {utils::hash(text), utils::hash(text.substr(0, 7)), utils::hash(text + '\0')};
    for (std::size_t at = 0; at < text.size(); ++at) {
        std::string changed = text;
        changed[at] = static_cast<char>(changed[at] ^ 1);
        seen.insert(utils::hash(changed));
    }
    EXPECT_EQ(seen.size(), 11U);
}

TEST(Hash, KeepsTheKeysOfABigCatalogueApart) {
    std::set<qmservice::uint64> seen;
    for (int code = 0; code < 20000; ++code) {
        seen.insert(utils::hash(utils::voStockKey("SH", std::to_string(code))));
        seen.insert(utils::hash(utils::voStockKey("SZ", std::to_string(code))));
    }
    EXPECT_EQ(seen.size(), 40000U);
}

// The check value that the CRC catalogue gives for CRC-64/XZ.
constexpr qmservice::uint64 kSumOfNineDigits = 0x995DC9BBDF1939FAU;
const std::string kNineDigits = "123456789";

TEST(Crc64, OfTheNineDigitsIsTheCheckValue) {
    EXPECT_EQ(qmservice::crc64(0, kNineDigits.data(), kNineDigits.size()), kSumOfNineDigits);
}

TEST(Crc64, ContinuesFromTheSumOfWhatCameBefore) {
    for (std::size_t cut = 0; cut <= kNineDigits.size(); ++cut) {
        const qmservice::uint64 first = qmservice::crc64(0, kNineDigits.data(), cut);
        EXPECT_EQ(qmservice::crc64(first, kNineDigits.data() + cut, kNineDigits.size() - cut), kSumOfNineDigits) << cut;
    }
}

TEST(Crc64, OfNothingIsTheSeed) {
    EXPECT_EQ(qmservice::crc64(0, nullptr, 0), 0U);
    EXPECT_EQ(qmservice::crc64(kSumOfNineDigits, nullptr, 0), kSumOfNineDigits);
}

RC_GTEST_PROP(Crc64, OfPiecesIsTheSumOfTheWhole, (const std::string& head, const std::string& tail)) {
    const std::string whole = head + tail;
    const qmservice::uint64 first = qmservice::crc64(0, head.data(), head.size());
    RC_ASSERT(qmservice::crc64(first, tail.data(), tail.size()) == qmservice::crc64(0, whole.data(), whole.size()));
}

}  // namespace
