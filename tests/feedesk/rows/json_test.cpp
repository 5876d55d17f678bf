#include "feedesk/rows/json.h"

#include <gtest/gtest.h>

namespace feedesk {
namespace {

TEST(JsonObject, KeepsTheOrderOfItsMembers) {
    EXPECT_EQ(JsonObject().member("b", std::string("x")).member("a", 0.0000341).member("c", Nothing()).text(),
              R"({"b":"x","a":0.0000341,"c":null})");
}

TEST(JsonObject, EscapesQuotesAndControlCharactersAndKeepsOtherText) {
    EXPECT_EQ(JsonObject().member("n\"", std::string("贵\"\\\n\x01")).text(), R"({"n\"":"贵\"\\\n\u0001"})");
}

TEST(JsonObject, IsUtf8WhateverTheTextIs) {
    EXPECT_EQ(JsonObject()
                  .member("n", std::string("a\x9B"
                                           "31m茅\xE8\x8C\xC2\x9B"))
                  .text(),
              R"({"n":"a\\x9b31m茅\\xe8\\x8c\u009B"})");
}

TEST(JsonObject, HoldsObjects) {
    EXPECT_EQ(JsonObject().open("o").member("n", std::size_t{3}).close().member("p", Names()).text(),
              R"({"o":{"n":3},"p":[]})");
}

}  // namespace
}  // namespace feedesk
