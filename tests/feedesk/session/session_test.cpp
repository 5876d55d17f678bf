// What a session keeps from one question to the next.
#include <gtest/gtest.h>

#include <fmt/format.h>

#include "feedesk/session/session.h"
#include "tests/feedesk/support/sample_folder.h"

namespace feedesk::test {
namespace {

constexpr int kMonths = 9;

cost::Date monthOf(int month) { return cost::Date::of(2024, month, 1).value(); }

/// Another commission each month: 0.0001 in January, 0.0002 in February.
void writeMonths(const SampleFolder& folder) {
    std::string lines = "account,market,code,commission,from,until\n";
    for (int month = 1; month <= kMonths; ++month) {
        const std::string until = month == kMonths ? "" : monthOf(month + 1).previous()->text();
        lines += fmt::format("H100,HK,*,0.000{},{},{}\n", month, monthOf(month).text(), until);
    }
    folder.write("fees/hgt.csv", lines);
}

double commissionOn(Session& session, int month) {
    session.begin(monthOf(month));
    const Replies replies = session.fees(session.account("H100"), {{"HK", "00700"}});
    return replies.answers.at(0).lines.at(0).rates.at(0).rates.at(0).value;
}

TEST(Session, KeepsTheIntervalsThatWereAskedForLast) {
    const SampleFolder folder;
    writeMonths(folder);
    Session session(SessionOptions{folder.path(), 0, monthOf(1)});
    for (int round = 0; round < 2; ++round) {
        for (int month = 1; month <= kMonths; ++month) {
            EXPECT_EQ(commissionOn(session, month), std::stod(fmt::format("0.000{}", month)));
            EXPECT_LE(session.heldIntervals(), Session::kKeptIntervals);
        }
    }
    EXPECT_EQ(session.heldIntervals(), Session::kKeptIntervals);
}

TEST(Session, PutsItsMarketBackIntoTheServices) {
    const SampleFolder folder;
    writeMonths(folder);
    Session session(SessionOptions{folder.path(), 0, monthOf(3)});
    qmservice::CFeeCenter center("another");
    const auto isKnown = [&] {
        qmservice::IFeeCenter& asked = center;
        return asked.getFee(session.account("H100").record, "HK", "00700") != nullptr;
    };
    standalone::install(standalone::prepared(standalone::Market()));
    ASSERT_FALSE(isKnown());
    session.install();
    EXPECT_TRUE(isKnown());
}

}  // namespace
}  // namespace feedesk::test
