// What a session keeps from one question to the next.
#include <gtest/gtest.h>

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <string>

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

constexpr std::size_t kManyAccounts = 2 * Session::kKeptAccounts;

std::string accountOf(std::size_t number) { return fmt::format("H{}", 1000 + number); }

/// Accounts with a commission each of its own.
void writeManyAccounts(const SampleFolder& folder) {
    std::string accounts = "account,name,kind\n";
    std::string lines = "account,market,code,commission\n";
    for (std::size_t number = 0; number < kManyAccounts; ++number) {
        accounts += accountOf(number) + ",one of many,hgt\n";
        lines += fmt::format("{},HK,*,0.000{}\n", accountOf(number), 100 + number);
    }
    folder.write("accounts.csv", accounts);
    folder.write("fees/hgt.csv", lines);
    for (const char* name : {"fees/stock.csv", "fees/commission.csv", "fees/margin.csv", "custom"}) {
        std::filesystem::remove_all(folder.path() + "/" + name);
    }
}

TEST(Session, ForgetsAccountsBetweenQuestionsAndFeedsThemAgain) {
    const SampleFolder folder;
    writeManyAccounts(folder);
    Session session(SessionOptions{folder.path(), 0, {}});
    std::size_t most = 0;
    for (std::size_t question = 0; question < 2 * kManyAccounts; ++question) {
        const std::size_t number = question % kManyAccounts;
        session.forgetAccounts();
        const Replies replies = session.fees(session.account(accountOf(number)), {{"HK", "00700"}});
        EXPECT_EQ(replies.answers.at(0).lines.at(0).rates.at(0).rates.at(0).value,
                  std::stod(fmt::format("0.000{}", 100 + number)));
        EXPECT_EQ(replies.answers.at(0).lines.at(0).origin.position->line, number + 2);
        most = std::max(most, session.heldAccounts());
    }
    EXPECT_EQ(most, Session::kKeptAccounts + 1);
}

TEST(Session, HoldsTheAccountsOfAQuestionUntilTheNext) {
    const SampleFolder folder;
    writeManyAccounts(folder);
    Session session(SessionOptions{folder.path(), 0, {}});
    for (std::size_t number = 0; number < kManyAccounts; ++number) {
        session.fees(session.account(accountOf(number)), {{"HK", "00700"}});
    }
    EXPECT_EQ(session.heldAccounts(), kManyAccounts);
    session.begin({});
    EXPECT_EQ(session.heldAccounts(), 0U);
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
