#include "feedesk/json.h"

#include <gtest/gtest.h>

#include <limits>

namespace feedesk {
namespace {

TEST(JsonObject, KeepsTheOrderOfItsMembers) {
    EXPECT_EQ(JsonObject().text("b", "x").number("a", 0.0000341).null("c").str(),
              R"({"b":"x","a":0.0000341,"c":null})");
}

TEST(JsonObject, EscapesQuotesAndControlCharactersAndKeepsOtherText) {
    EXPECT_EQ(JsonObject().text("n", "贵\"\\\n\x01").str(), R"({"n":"贵\"\\\n\u0001"})");
}

TEST(JsonObject, IsUtf8WhateverTheTextIs) {
    EXPECT_EQ(JsonObject()
                  .text("n",
                        "a\x9B"
                        "31m茅\xE8\x8C\xC2\x9B")
                  .str(),
              R"({"n":"a\\x9b31m茅\\xe8\\x8c\u009b"})");
}

TEST(JsonObject, HoldsObjects) {
    EXPECT_EQ(JsonObject().object("o", JsonObject().number("n", std::size_t{3})).str(), R"({"o":{"n":3}})");
}

TEST(JsonObject, HasNullForWhatIsNoNumber) {
    EXPECT_EQ(JsonObject().number("n", std::numeric_limits<double>::quiet_NaN()).str(), R"({"n":null})");
}

TEST(JsonArray, HasOneObjectALine) {
    EXPECT_EQ(jsonArray({JsonObject(), JsonObject().null("a")}), "[\n{},\n{\"a\":null}\n]\n");
    EXPECT_EQ(jsonArray({}), "[]\n");
}

}  // namespace
}  // namespace feedesk
