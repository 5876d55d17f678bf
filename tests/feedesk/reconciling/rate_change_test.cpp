#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "tests/feedesk/support/naive_statement.h"
#include "tests/feedesk/support/program.h"

// The real statement with another rate from a day on: the rate is solved for, and the change that is proposed makes the
// folder agree.

namespace feedesk::test {
namespace {

namespace fs = std::filesystem;

struct RateChange {
    const char* description;
    const char* market;
    bool funds;
    long naive::Rates::*rate;
    long value;  ///< in ten-millionths
    const char* from;
    const char* reported;  ///< part of what is reported
};

/// A copy of the bundled market with a statement and a patch next to it.
class RateOfADay : public testing::TestWithParam<RateChange> {
protected:
    RateOfADay() {
        std::string name = (fs::temp_directory_path() / "feedesk_reconcile_XXXXXX").string();
        place = mkdtemp(name.data());
        fs::copy(BUNDLED_MARKET, place / "market", fs::copy_options::recursive);
    }
    ~RateOfADay() override {
        std::error_code ignored;
        fs::remove_all(place, ignored);
    }

    void writeStatement(const RateChange& change) const {
        std::ofstream file(place / "statement.csv");
        file << naive::header();
        for (const naive::Line& line : naive::realLines()) {
            naive::Charging charging = naive::usualCharging(line);
            const bool isMeant = line.market == change.market && line.isFund == change.funds &&
                                 line.beginning.substr(0, 8) >= change.from;
            if (isMeant) {
                charging.rates.*change.rate = change.value;
            }
            file << naive::written(line, charging, naive::charged(line, charging));
        }
    }

    [[nodiscard]] Outcome reconcile() const {
        return ask((place / "market").string(),
                   "reconcile 1000005 " + (place / "statement.csv").string() + " --differing --patch " + patch(),
                   "COLUMNS=1000");
    }

    [[nodiscard]] std::string patch() const { return (place / "rates.patch").string(); }

    [[nodiscard]] bool applyPatch() const {
        const std::string command = "patch -s -p1 -d " + (place / "market").string() + " <" + patch();
        return std::system(command.c_str()) == 0;
    }

    fs::path place;
};

TEST_P(RateOfADay, IsSolvedForAndItsPatchMakesTheFolderAgree) {
    writeStatement(GetParam());
    const Outcome before = reconcile();
    EXPECT_EQ(before.status, 1);
    EXPECT_NE(before.out.find(GetParam().reported), std::string::npos) << before.out;
    ASSERT_TRUE(applyPatch());
    fs::remove(patch());
    const Outcome after = reconcile();
    EXPECT_EQ(after.status, 0) << after.out << after.err;
    EXPECT_FALSE(fs::exists(patch()));
}

INSTANTIATE_TEST_SUITE_P(
    All, RateOfADay,
    testing::Values(
        RateChange{
            "ShanghaiFunds", "SH", true, &naive::Rates::commission, 2200, "20210304",
            "Lines 13, 16, 18, 19, 21, 25: the commission 0.00022 (any from 0.000219759707 to 0.000220342522) fits "
            "all 6 lines from 2021-03-04 on; the folder has 0.00025, custom/stock.csv:18"},
        RateChange{"ShenzhenFunds", "SZ", true, &naive::Rates::commission, 3500, "20210302",
                   "fits all 3 lines from 2021-03-02 on; the folder has 0.00025, custom/stock.csv:19"},
        RateChange{"ShanghaiStocks", "SH", false, &naive::Rates::transfer, 600, "20210305",
                   "lines from 2021-03-05 on; the folder has 0.00002, fees/stock.csv:49"},
        RateChange{"InsideFees", "SH", true, &naive::Rates::handling, 900, "20210304",
                   "lines from 2021-03-04 on; the folder has 0.000045, custom/stock.csv:18"}),
    [](const auto& param) { return std::string(param.param.description); });

}  // namespace
}  // namespace feedesk::test
