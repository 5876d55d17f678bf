#include "feedesk/shell/history_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "tests/feedesk/support/sample_folder.h"

namespace feedesk {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class HistoryFileTest : public testing::Test {
protected:
    test::SampleFolder folder;  // for its directory
    std::string path = folder.path() + "/state/feedesk/history";
};

TEST_F(HistoryFileTest, GivesBackWhatWasAdded) {
    HistoryFile one(path);
    EXPECT_THAT(one.read(), IsEmpty());
    one.add("fee 1 贵州茅台");
    HistoryFile other(path);
    other.add("accounts");
    EXPECT_THAT(HistoryFile(path).read(), ElementsAre("fee 1 贵州茅台", "accounts"));
}

TEST_F(HistoryFileTest, TakesTheRightsOfOthersAway) {
    HistoryFile(path).read();
    std::ofstream(path) << "old\n";
    std::filesystem::permissions(path, std::filesystem::perms(0644));
    HistoryFile(path).add("new");
    EXPECT_EQ(std::filesystem::status(path).permissions(), std::filesystem::perms(0600));
}

TEST_F(HistoryFileTest, KeepsTheNewestLines) {
    HistoryFile history(path);
    history.read();
    std::ofstream file(path);
    for (std::size_t i = 0; i < 2 * HistoryFile::kMostLines + 1; ++i) {
        file << i << '\n';
    }
    file.close();
    const std::vector<std::string> lines = history.read();
    EXPECT_THAT(lines, SizeIs(1000));
    EXPECT_EQ(lines.front(), "1001");
    EXPECT_EQ(lines.back(), "2000");
    EXPECT_EQ(std::filesystem::status(path).permissions(), std::filesystem::perms(0600));
    EXPECT_EQ(std::filesystem::file_size(path), 5 * 1000U);  // four digits and a line end each; 1001 to 2000
}

TEST_F(HistoryFileTest, ThatCannotBeWrittenIsReportedOnce) {
    HistoryFile history(folder.path() + "/market.toml/feedesk/history");
    EXPECT_THAT(history.read(), IsEmpty());
    testing::internal::CaptureStderr();
    history.add("a");
    history.add("b");
    const std::string reported = testing::internal::GetCapturedStderr();
    EXPECT_THAT(reported, testing::HasSubstr("the lines are not kept"));
    EXPECT_EQ(reported.find("the lines are not kept"), reported.rfind("the lines are not kept"));
}

}  // namespace
}  // namespace feedesk
