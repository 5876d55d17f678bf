#include "feedesk/program.h"

#include <gtest/gtest.h>

#include "tests/feedesk/support/market_folder.h"

namespace feedesk::test {
namespace {

TEST(Program, EndsWhatIsAnsweredWhereTheNextRowFails) {
    const MarketFolder folder;
    const Session session({folder.path(), 0});
    for (const auto& [format, text] : std::vector<std::pair<Format, std::string>>{
             {Format::kTable, "V\nx\n"}, {Format::kCsv, "v\nx\n"}, {Format::kJson, "[\n{\"v\":\"x\"}\n]\n"}}) {
        Program program;
        program.format = format;
        const auto failing = [](RowSink& sink) -> Remarks {
            sink.row({0, {std::string("x")}, false});
            throw Failure(kNoAnswer, "line 2 is wrong");
        };
        testing::internal::CaptureStdout();
        EXPECT_THROW(program.answer(session, {{"", {{"v", "V"}}}}, failing), Failure);
        EXPECT_EQ(testing::internal::GetCapturedStdout(), text);
        EXPECT_TRUE(program.hasAnswered);
    }
}

}  // namespace
}  // namespace feedesk::test
