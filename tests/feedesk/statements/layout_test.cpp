#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

#include "feedesk/failure.h"
#include "feedesk/statements/layout.h"
#include "tests/feedesk/support/sample_folder.h"

namespace feedesk::test {
namespace {

const std::string kLayout = R"(format = 1
title = "Test"
[columns]
date = "D"
code = "C"
operation = ["O", "P"]
quantity = "Q"
price = "R"
[operations]
buy = "B"
[charges.commission]
column = "K"
charges = "commission"
)";

class LayoutFile : public testing::Test {
protected:
    [[nodiscard]] std::string refusalOf(const std::string& text) const {
        folder.write("layouts/x.toml", text);
        try {
            static_cast<void>(FolderLayouts(folder.path()).named("x"));
        } catch (const Failure& failure) {
            const std::string reported = failure.what();
            const std::string path = folder.path() + "/layouts/";
            return reported.compare(0, path.size(), path) == 0 ? reported.substr(path.size()) : reported;
        }
        return "";
    }

    SampleFolder folder;
};

std::string with(const std::string& from, const std::string& to) {
    std::string text = kLayout;
    text.replace(text.find(from), from.size(), to);
    return text;
}

TEST_F(LayoutFile, IsReadByItsName) {
    folder.write("layouts/x.toml", kLayout);
    const Layout layout = FolderLayouts(folder.path()).named("x");
    EXPECT_EQ(layout.name, "x");
    EXPECT_EQ(layout.of(TradeFact::kOperation), (Titles{"O", "P"}));
    EXPECT_EQ(layout.operations.at("B"), cost::Side::kBuy);
    EXPECT_EQ(FolderLayouts(folder.path()).named(folder.path() + "/layouts/x.toml").title, "Test");
}

TEST_F(LayoutFile, ReportsWhatIsWrongWithItsLine) {
    EXPECT_EQ(refusalOf("x = "),
              "x.toml:1: the file is not TOML: Error while parsing key-value pair: encountered end-of-file");
    EXPECT_EQ(refusalOf(with("format = 1", "format = 2")),
              "x.toml:1: \"format\" holds 2, but 1 was expected; correct it");
    EXPECT_EQ(refusalOf(with("date = \"D\"", "")), "x.toml:3: \"columns.date\" is missing, but it is needed; add it");
    EXPECT_EQ(
        refusalOf(with("date = \"D\"", "date = [\"D\", 3]")),
        "x.toml:4: \"columns.date\" is a list, but a text in quotes or a list of such texts was expected; correct it");
    EXPECT_EQ(refusalOf(with("buy = \"B\"", "buy = \"B\"\nsell = \"B\"")),
              "x.toml:11: \"operations.sell\" holds B, which has a meaning already; keep one of them");
    EXPECT_EQ(
        refusalOf(with("column = \"K\"", "column = \"K\"\nstated = \"half\"")),
        "x.toml:13: \"charges.commission.stated\" holds half, but one of paid, own, whole was expected; correct it");
    EXPECT_NE(
        refusalOf(with("[operations]", "dat = \"D\"\n[operations]")).find("\"columns.dat\" is not a key of the format"),
        std::string::npos);
}

TEST_F(LayoutFile, ThatIsNotThereIsRefusedWithThoseThatAre) {
    folder.write("layouts/x.toml", kLayout);
    try {
        static_cast<void>(FolderLayouts(folder.path()).named("y"));
        ADD_FAILURE();
    } catch (const Failure& failure) {
        EXPECT_EQ(std::string(failure.what()),
                  "y is no layout of " + folder.path() + "/layouts, which has x, and no file that ends in .toml");
    }
}

TEST(BundledLayouts, AreTwo) {
    const std::vector<Layout> layouts = FolderLayouts(BUNDLED_MARKET).all();
    ASSERT_EQ(layouts.size(), 2U);
    EXPECT_EQ(layouts[0].name, "chinese");
    EXPECT_EQ(layouts[1].name, "split");
}

}  // namespace
}  // namespace feedesk::test
