#include "cost/pattern.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace {

using cost::matchesPattern;

/// The definition itself: a star takes nothing, or one byte and then goes on.
bool matchesByDefinition(std::string_view code, std::string_view pattern) {
    if (pattern.empty()) {
        return code.empty();
    }
    if (pattern.front() == '*') {
        return matchesByDefinition(code, pattern.substr(1)) ||
               (!code.empty() && matchesByDefinition(code.substr(1), pattern));
    }
    return !code.empty() && code.front() == pattern.front() && matchesByDefinition(code.substr(1), pattern.substr(1));
}

TEST(CodePattern, WithoutStarIsTheWholeCode) {
    EXPECT_TRUE(matchesPattern("600000", "600000"));
    EXPECT_FALSE(matchesPattern("600000", "60000"));
    EXPECT_FALSE(matchesPattern("60000", "600000"));
    EXPECT_FALSE(matchesPattern("600000", ""));
    EXPECT_TRUE(matchesPattern("", ""));
}

TEST(CodePattern, StarAloneTakesEveryCode) {
    EXPECT_TRUE(matchesPattern("600000", "*"));
    EXPECT_TRUE(matchesPattern("", "*"));
    EXPECT_TRUE(matchesPattern("", "**"));
}

TEST(CodePattern, StarAtTheEndTakesEveryCodeThatBeginsSo) {
    EXPECT_TRUE(matchesPattern("600000", "60*"));
    EXPECT_TRUE(matchesPattern("60", "60*"));
    EXPECT_FALSE(matchesPattern("6", "60*"));
    EXPECT_FALSE(matchesPattern("160", "60*"));
}

TEST(CodePattern, StarAtTheStartTakesEveryCodeThatEndsSo) {
    EXPECT_TRUE(matchesPattern("rb2510", "*2510"));
    EXPECT_TRUE(matchesPattern("2510", "*2510"));
    EXPECT_FALSE(matchesPattern("rb2511", "*2510"));
}

TEST(CodePattern, WhatOneStarTookIsNotTakenAgain) {
    EXPECT_FALSE(matchesPattern("aba", "ab*ba"));
    EXPECT_TRUE(matchesPattern("abba", "ab*ba"));
    EXPECT_FALSE(matchesPattern("a", "a*a"));
    EXPECT_FALSE(matchesPattern("xay", "*a*a*"));
}

TEST(CodePattern, LaterOccurrenceOfAPieceCounts) {
    EXPECT_TRUE(matchesPattern("m2509-C-3000", "m*-C-*"));
    EXPECT_TRUE(matchesPattern("aXaXbXb", "a*Xb*b"));
    EXPECT_TRUE(matchesPattern("ababac", "*abac"));
}

TEST(CodePattern, NothingButTheStarIsSpecial) {
    for (const std::string text : {"?", "[a-z]", "\\", ".", "^", "$", "+", "{2}", "(a|b)"}) {
        EXPECT_TRUE(matchesPattern("x" + text + "y", "x" + text + "*")) << text;
        EXPECT_FALSE(matchesPattern("xay", "x" + text + "*")) << text;
    }
    EXPECT_FALSE(matchesPattern("RB2510", "rb*"));
    EXPECT_FALSE(matchesPattern("a*", "a\\*"));
}

/// Every text of up to `longest` of the letters.
std::vector<std::string> textsOf(const std::string& letters, std::size_t longest) {
    std::vector<std::string> texts = {""};
    for (std::size_t at = 0; at < texts.size(); ++at) {
        if (const std::string text = texts[at]; text.size() < longest) {
            for (const char letter : letters) {
                texts.push_back(text + letter);
            }
        }
    }
    return texts;
}

TEST(CodePattern, AgreesWithItsDefinitionOnEveryShortCodeAndPattern) {
    const std::vector<std::string> codes = textsOf("ab", 6);
    for (const std::string& pattern : textsOf("ab*", 6)) {
        for (const std::string& code : codes) {
            ASSERT_EQ(matchesPattern(code, pattern), matchesByDefinition(code, pattern)) << code << ' ' << pattern;
        }
    }
}

}  // namespace
