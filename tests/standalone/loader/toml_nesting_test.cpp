// How deep market.toml may nest. The parser takes stack for each level, so that no deeper text may reach it.

#include <pthread.h>

#include <functional>

#include "fixture.h"
#include "standalone/loader/toml_nesting.h"

namespace standalone {
namespace {

using loader::lineNestedTooDeep;

std::string times(std::size_t count, const std::string& text) {
    std::string all;
    for (std::size_t i = 0; i < count; ++i) {
        all += text;
    }
    return all;
}

/// A shape of text that has one level more for each `count`.
struct Shape {
    const char* name;
    std::size_t ownLevels;  ///< that it has besides
    std::string (*text)(std::size_t count);
};

class TomlNesting : public LoaderTest, public ::testing::WithParamInterface<Shape> {
protected:
    /// A text of so many levels. Its first line is nobody's.
    [[nodiscard]] static std::string ofLevels(std::size_t levels) {
        return "# begin\n" + GetParam().text(levels - GetParam().ownLevels) + "\n";
    }
};

/// Runs the work on a thread with a stack of so many bytes.
void onStackOf(std::size_t bytes, std::function<void()> work) {
    pthread_attr_t attributes;
    ASSERT_EQ(pthread_attr_init(&attributes), 0);
    ASSERT_EQ(pthread_attr_setstacksize(&attributes, bytes), 0);
    pthread_t thread{};
    const auto run = [](void* what) -> void* {
        (*static_cast<std::function<void()>*>(what))();
        return nullptr;
    };
    ASSERT_EQ(pthread_create(&thread, &attributes, run, &work), 0);
    ASSERT_EQ(pthread_join(thread, nullptr), 0);
    pthread_attr_destroy(&attributes);
}

TEST_P(TomlNesting, IsTakenAtTheLimitOnASmallStack) {
    write("market.toml", ofLevels(loader::kMostLevels));
    LoadResult result;
    onStackOf(1 << 20, [&] { result = load(); });
    ASSERT_FALSE(result.ok());
    for (const LoadError& error : result.errors) {
        EXPECT_STRNE(nameOf(error.kind), "nesting") << error.message;
    }
}

TEST_P(TomlNesting, IsRefusedOneLevelDeeperWithItsLine) {
    write("market.toml", ofLevels(loader::kMostLevels + 1));
    expectError("market.toml", 2, {"more than 32 levels deep", "take the inner ones out"});
}

TEST_P(TomlNesting, OfFortyThousandLevelsIsRefusedOnASmallStack) {
    write("market.toml", ofLevels(40000));
    onStackOf(1 << 20, [&] { expectError("market.toml", 2, {"more than 32 levels deep"}); });
}

INSTANTIATE_TEST_SUITE_P(
    Shapes, TomlNesting,
    ::testing::Values(
        Shape{"DottedKey", 1, [](std::size_t n) { return times(n, "a.") + "a = 1"; }},
        Shape{"DottedKeyWithSpaces", 1, [](std::size_t n) { return times(n, "a \t. ") + "a = 1"; }},
        Shape{"QuotedKey", 1, [](std::size_t n) { return times(n, "\"a.\\\"#[\" . ") + "'a.#' = 1"; }},
        Shape{"Header", 1, [](std::size_t n) { return "[" + times(n, "a.") + "a]"; }},
        Shape{"HeaderOfAnArrayOfTables", 1, [](std::size_t n) { return "[[" + times(n, "a.") + "a]]"; }},
        Shape{"Lists", 1, [](std::size_t n) { return "a = " + times(n, "[") + times(n, "]"); }},
        Shape{"ListsThatAreNeverClosed", 1, [](std::size_t n) { return "a = " + times(n, "["); }},
        Shape{"ListsBehindOneAnother", 2, [](std::size_t n) { return "a = [" + times(n, "[1.5], ["); }},
        Shape{
            "InlineTables", 1,
            [](std::size_t n) { return "a = " + times(n / 2, "{a=") + (n % 2 == 0 ? "1" : "[]") + times(n / 2, "}"); }},
        Shape{"DottedKeyOfAnInlineTable", 3, [](std::size_t n) { return "a = {a = 1, " + times(n, "a.") + "a = 1}"; }},
        Shape{"KeyBelowAHeader", 2, [](std::size_t n) { return "[a] " + times(n, "a.") + "a = 1"; }},
        Shape{"KeyBehindAText", 3, [](std::size_t n) { return "b = { c = '''x''''', " + times(n, "a.") + "a = 1 }"; }}),
    [](const auto& shape) { return std::string(shape.param.name); });

TEST(TomlNestingScan, CountsWhatAHeaderHoldsBehindTheHeader) {
    const std::string header = "[" + times(20, "a.") + "a]\n";
    EXPECT_EQ(lineNestedTooDeep(header + times(10, "a.") + "a = 1\n"), std::nullopt);
    EXPECT_EQ(lineNestedTooDeep(header + "b = 1\n" + times(11, "a.") + "a = 1\n"), 3U);
    EXPECT_EQ(lineNestedTooDeep(header + "[b]\n" + times(11, "a.") + "a = 1\n"), std::nullopt);
}

TEST(TomlNestingScan, CountsOverTheLinesOfAList) {
    EXPECT_EQ(lineNestedTooDeep("a = [\n" + times(31, "[\n")), 32U);
    EXPECT_EQ(lineNestedTooDeep("a = [\n" + times(30, "[ # [\n")), std::nullopt);
}

TEST(TomlNestingScan, CountsLinesInsideTexts) {
    EXPECT_EQ(lineNestedTooDeep("a = \"\"\"\n\\\n\\\\\n\"\"\"\nb = '''\n'''\nc = " + times(40, "[")), 7U);
}

/// What is in texts and comments, or side by side, is not nested.
class TomlNestingHarmless : public ::testing::TestWithParam<std::string> {};

TEST_P(TomlNestingHarmless, IsTaken) { EXPECT_EQ(lineNestedTooDeep(GetParam()), std::nullopt); }

INSTANTIATE_TEST_SUITE_P(
    Texts, TomlNestingHarmless,
    ::testing::Values("", "\n", "[", "]}", "# " + times(99, "[a.{"), "a = 1 # " + times(99, "[a.{") + "\nb = 2",
                      "a = \"" + times(99, "[a.{\\\"") + "\"", "a = '" + times(99, "[a.{") + "\\'",
                      "a = \"\"\"" + times(99, "[.\n{=\"") + "\\\"\"\"\"\"\"",
                      "a = '''" + times(99, "[.\n{='") + "'''''", "\"" + times(99, "a.[") + "\" = 1",
                      "'" + times(99, "a.[") + "' = 1", "a = \"\"\nb = ''", "a = [" + times(9999, "1.5, ") + "]",
                      "a = [\n" + times(9999, "1.5,\n") + "]", "a = [" + times(99, "[1], {b.c = [2]}, ") + "]",
                      times(99, "a.b = 1\n"), times(99, "[a.b]\n"), times(99, "[[a.b]] # [\n"),
                      times(99, "a = 1979-05-27T07:32:00.999\n"), times(99, "a = { b.c = 1.5, d = [ 1.5 ] }\r\n")));

// A text that is not TOML is refused by the parser, whatever it holds.
TEST_F(LoaderTest, KeyOfFortyThousandPartsWithoutAValueIsNoToml) {
    write("market.toml", times(40000, "a.") + "a\n");
    expectError("market.toml", 1, {"not valid TOML"});
    write("market.toml", times(40000, "[") + "\n");
    expectError("market.toml", 1, {"not valid TOML"});
    write("market.toml", "[" + times(40000, "a.") + "a\n");
    expectError("market.toml", 1, {"not valid TOML"});
}

TEST_F(LoaderTest, VeryLongLineOfMarketTomlIsRead) {
    replace("market.toml", "[9001, 9002]", "[9001, " + times(200000, "9003, ") + "9002]");
    EXPECT_EQ(loadGood().simulationPlatforms.size(), 200002U);
    replace("market.toml", "title = \"Test market\"", "title = \"" + times(1000000, "x") + "\"");
    expectError("market.toml", 2, {"1000000 characters"});
}

TEST_F(LoaderTest, NulByteOfMarketTomlIsRefused) {
    append("market.toml", std::string("# \0\n", 4));
    expectError("market.toml", 33, {"NUL byte"});
}

}  // namespace
}  // namespace standalone
