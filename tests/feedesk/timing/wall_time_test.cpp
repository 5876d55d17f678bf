#include "feedesk/timing/wall_time.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <regex>

#include "tests/feedesk/support/program.h"
#include "tests/feedesk/support/sample_folder.h"

namespace feedesk::test {
namespace {

using std::chrono::microseconds;
using std::chrono::nanoseconds;
using testing::HasSubstr;

/// A time whose clock stands still until it is moved.
class WallTimeTest : public testing::Test {
protected:
    void pass(nanoseconds span) { clock += span; }

    WallTime::Clock::time_point clock{};
    WallTime time{[this] { return clock; }};
};

TEST_F(WallTimeTest, IsThatOfThePartsAndOfWhatIsInNone) {
    pass(microseconds(100));
    {
        const InPart reading("reading", time);
        pass(microseconds(1200));
    }
    pass(microseconds(30));
    {
        const InPart asking("asking", time);
        pass(microseconds(4));
    }
    EXPECT_EQ(time.text(), "1.334 ms: reading 1.200, asking 0.004, everything else 0.130");
}

TEST_F(WallTimeTest, OfAPartWithinAnotherIsCountedOnce) {
    {
        const InPart expanding("expanding", time);
        pass(microseconds(10));
        {
            const InPart reading("reading", time);
            pass(microseconds(200));
        }
        pass(microseconds(20));
    }
    EXPECT_EQ(time.text(), "0.230 ms: expanding 0.030, reading 0.200");
}

TEST_F(WallTimeTest, OfAPartThatComesAgainIsSummedUp) {
    for (const int span : {1000, 2000}) {
        const InPart asking("asking", time);
        pass(microseconds(span));
    }
    EXPECT_EQ(time.text(), "3.000 ms: asking 3.000");
}

// 1.6 + 1.6 + 1.6 us are 4.8: cut one by one the parts would sum up to 3 and the total be 4.
TEST_F(WallTimeTest, IsTheSumOfWhatIsShownOfItsParts) {
    for (const char* const name : {"a", "b", "c"}) {
        const InPart part(name, time);
        pass(nanoseconds(1600));
    }
    EXPECT_EQ(time.text(), "0.004 ms: a 0.001, b 0.002, c 0.001");
}

TEST_F(WallTimeTest, BeginsAnewWithEachCommand) {
    {
        const InPart reading("reading", time);
        pass(microseconds(5));
    }
    time.restart();
    pass(microseconds(7));
    EXPECT_EQ(time.text(), "0.007 ms: everything else 0.007");
}

/// Microseconds that a text such as "12.345" shows.
long microsecondsOf(const std::string& text) {
    const std::size_t point = text.find('.');
    return 1000 * std::stol(text.substr(0, point)) + std::stol(text.substr(point + 1));
}

/// What the total is, and what its parts sum up to.
struct Sums {
    std::optional<long> total;
    long parts = 0;
};

Sums sumsOf(const std::string& summary) {
    static const std::regex figure(R"([0-9]+\.[0-9]{3})");
    Sums sums;
    for (auto found = std::sregex_iterator(summary.begin(), summary.end(), figure); found != std::sregex_iterator();
         ++found) {
        const long span = microsecondsOf(found->str());
        sums.total ? sums.parts += span : sums.total.emplace(span);
    }
    return sums;
}

TEST(Summary, AccountsForAllOfItsTime) {
    const SampleFolder folder;
    for (const std::string arguments : {"fee S100 SH:600519", "fees S100 --csv", "accounts"}) {
        const Outcome outcome = ask(folder.path(), arguments + " --summary 2>&1");
        const std::string summary = lines(outcome.out).back();
        for (const char* const part : {"reading market.toml", "reading instruments", "expanding", "writing", "else"}) {
            EXPECT_THAT(summary, HasSubstr(part)) << arguments;
        }
        const Sums sums = sumsOf(summary);
        EXPECT_EQ(sums.total, sums.parts) << summary;
    }
}

}  // namespace
}  // namespace feedesk::test
