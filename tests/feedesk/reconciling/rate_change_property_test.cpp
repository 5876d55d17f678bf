#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "feedesk/reconciling/proven_proposals.h"
#include "feedesk/reconciling/reconciliation.h"
#include "tests/feedesk/support/naive_statement.h"

// Random statements of the bundled market in which one rate of one kind of instrument is another one from a random day
// on: what is proposed makes the folder agree with all of them.

namespace feedesk::test {
namespace {

namespace fs = std::filesystem;

using naive::Charging;
using naive::Line;
using naive::Rates;

constexpr int kStatements = RANDOM_FOLDERS + 1;

struct Instrument {
    const char* market;
    const char* code;
    bool isFund;
};

constexpr Instrument kTraded[] = {{"SH", "601668", false}, {"SH", "600138", false}, {"SZ", "002027", false},
                                  {"SH", "515050", true},  {"SH", "512560", true},  {"SZ", "159949", true}};

/// Days on both sides of the published changes of 2022 and 2023.
constexpr const char* kDays[] = {"20210304", "20210701", "20220427", "20220429", "20220705", "20230825",
                                 "20230828", "20230829", "20240102", "20240103", "20240506", "20250603"};

/// How many of them in a row a statement is of.
constexpr std::size_t kDaysOfOne = 5;

/// Large enough that no change of a rate hides behind the minimum or a rounding.
Line randomLine(std::size_t firstDay) {
    const Instrument& traded = kTraded[*rc::gen::inRange<std::size_t>(0, std::size(kTraded))];
    const std::string day = kDays[firstDay + *rc::gen::inRange<std::size_t>(0, kDaysOfOne)];
    const long lots = *rc::gen::inRange(600L, 3000L);
    const long cents = *rc::gen::inRange(100L, 5000L);
    Line line;
    line.market = traded.market;
    line.code = traded.code;
    line.isFund = traded.isFund;
    line.isSale = *rc::gen::inRange(0, 2) == 1;
    line.turnover = lots * 100 * cents * 10;
    char text[160];
    std::snprintf(text, sizeof text, "%s,%s,%s,%s,%s,%ld,%ld.%02ld,%ld.00,", day.c_str(), traded.market, traded.code,
                  line.isSale ? "证券卖出" : "证券买入", line.isSale ? "S" : "B", lots * 100, cents / 100, cents % 100,
                  lots * cents);
    line.beginning = text;
    return line;
}

std::string dayOf(const Line& line) { return line.beginning.substr(0, 8); }

/// As published: the transfer fee of 2022-04-29, the handling fee and the stamp duty of 2023-08-28.
Charging chargingOf(const Line& line) {
    Charging charging = naive::usualCharging(line);
    if (!line.isFund && dayOf(line) >= "20220429") {
        charging.rates.transfer = 100;
    }
    if (!line.isFund && dayOf(line) >= "20230828") {
        charging.rates.handling = 341;
        charging.rates.stamp = 5000;
    }
    return charging;
}

struct Change {
    Instrument kind;  ///< those of its market that are funds as it is, or are not
    long Rates::*rate;
    long thousandths;  ///< of the right rate
    std::string from;

    [[nodiscard]] bool reaches(const Line& line) const {
        return line.market == kind.market && line.isFund == kind.isFund && dayOf(line) >= from;
    }
};

/// Half as much again, or little more than half: away from every published rate and every other account's.
Change randomChange(std::size_t firstDay) {
    static constexpr long Rates::*kRates[] = {&Rates::commission, &Rates::handling, &Rates::transfer,
                                              &Rates::regulatory, &Rates::stamp};
    Change change;
    change.kind = kTraded[*rc::gen::inRange<std::size_t>(0, std::size(kTraded))];
    change.rate = kRates[*rc::gen::inRange<std::size_t>(0, change.kind.isFund ? 2 : std::size(kRates))];
    const bool isMore = *rc::gen::inRange(0, 2) == 1;
    change.thousandths = isMore ? *rc::gen::inRange(1130L, 1170L) : *rc::gen::inRange(580L, 620L);
    change.from = kDays[firstDay + *rc::gen::inRange<std::size_t>(0, kDaysOfOne)];
    return change;
}

std::vector<std::string> statementOf(const std::vector<Line>& lines, const Change& change) {
    std::vector<std::string> text{naive::header()};
    for (const Line& line : lines) {
        Charging charging = chargingOf(line);
        if (change.reaches(line)) {
            charging.rates.*change.rate = charging.rates.*change.rate * change.thousandths / 1000;
        }
        text.push_back(naive::written(line, charging, naive::charged(line, charging)));
    }
    for (std::string& each : text) {
        each.pop_back();
    }
    return text;
}

class RandomRateChange : public testing::Test {
protected:
    RandomRateChange() {
        std::string name = (fs::temp_directory_path() / "feedesk_rates_XXXXXX").string();
        place = mkdtemp(name.data());
        fs::copy(BUNDLED_MARKET, place / "market", fs::copy_options::recursive);
    }
    ~RandomRateChange() override {
        std::error_code ignored;
        fs::remove_all(place, ignored);
    }

    void patch(const std::string& options) const {
        const std::string command = "patch -s -p1 " + options + " -d " + market() + " <" + market() + ".patch";
        RC_ASSERT(std::system(command.c_str()) == 0);
    }

    [[nodiscard]] std::string market() const { return (place / "market").string(); }

    void check(const std::vector<Line>& lines, const Change& change) {
        std::vector<WrongLine> wrong;
        const Statement statement = statementIn(statementOf(lines, change), "statement", layouts, wrong);
        RC_ASSERT(wrong.empty());
        const Reconciliation found = reconciler.reconcile(statement);
        const auto reached = std::count_if(lines.begin(), lines.end(), [&](const Line& line) {
            return change.reaches(line) && (change.rate != &Rates::stamp || line.isSale);
        });
        RC_CLASSIFY(reached == 0, "nothing changed");
        RC_ASSERT(static_cast<std::ptrdiff_t>(found.count(ReconciledOrder::Outcome::kDiffers)) == reached);
        for (const ReconciledOrder& each : found.orders) {
            RC_ASSERT(each.outcome == ReconciledOrder::Outcome::kAgrees || each.cause == Cause::kOtherRate);
        }
        const Proposals proposals = provenProposals(found, statement, "1000005", market());
        RC_ASSERT(proposals.patch.empty() == (reached == 0));
        if (reached == 0) {
            return;
        }
        std::ofstream(market() + ".patch") << proposals.patch;
        patch("");
        Session patched(SessionOptions{market()});
        const Reconciliation after = Reconciler(patched, "1000005").reconcile(statement);
        patch("-R");
        RC_ASSERT(after.agrees());
    }

    std::vector<Layout> layouts = FolderLayouts(BUNDLED_MARKET).all();
    Session session{SessionOptions{BUNDLED_MARKET}};
    Reconciler reconciler{session, "1000005"};
    fs::path place;
};

TEST_F(RandomRateChange, IsSolvedForAndItsPatchMakesTheFolderAgree) {
    rc::detail::TestParams params = rc::detail::configuration().testParams;
    params.maxSuccess = kStatements;
    params.disableShrinking = true;  // each try loads a folder
    const auto property = [&] {
        const std::size_t firstDay = *rc::gen::inRange<std::size_t>(0, std::size(kDays) - kDaysOfOne + 1);
        const int count = *rc::gen::inRange(4, 30);
        std::vector<Line> lines;
        for (int i = 0; i < count; ++i) {
            lines.push_back(randomLine(firstDay));
        }
        const Change change = randomChange(firstDay);
        check(lines, change);
    };
    const auto result = rc::detail::checkTestable(property, rc::detail::TestMetadata{"RandomRateChange", ""}, params);
    EXPECT_TRUE(result.is<rc::detail::SuccessResult>()) << "RC_PARAMS=seed=" << params.seed << " runs it again";
}

}  // namespace
}  // namespace feedesk::test
