#include "readme_sample.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "standalone/host.h"

// The README's program, run with the bundled market folder and with changed copies of it. Its account has thousands of
// records, so that a question asked too early is answered with the built-in default.

namespace {

namespace fs = std::filesystem;

class ReadmeSampleTest : public ::testing::Test {
protected:
    ReadmeSampleTest() {
        std::string name = (fs::temp_directory_path() / "readme_sample_XXXXXX").string();
        folder = mkdtemp(name.data());
        fs::copy(BUNDLED_MARKET, folder, fs::copy_options::recursive);
    }
    ~ReadmeSampleTest() override {
        standalone::stopEngine();
        standalone::uninstall();
        fs::remove_all(folder);
    }

    void append(const std::string& file, const std::string& line) const {
        std::ofstream(folder / file, std::ios::app) << line << '\n';
    }

    /// Takes every line with the text out of every table.
    void removeLinesWith(const std::string& text) const {
        for (const auto& entry : fs::recursive_directory_iterator(folder)) {
            if (entry.path().extension() != ".csv") {
                continue;
            }
            std::ifstream table(entry.path());
            std::string kept;
            for (std::string line; std::getline(table, line);) {
                kept += line.find(text) == std::string::npos ? line + '\n' : "";
            }
            std::ofstream(entry.path()) << kept;
        }
    }

    /// The program's exit status; what it prints is in `out` and `err`.
    int run() {
        std::string program = "client";
        std::string market = folder.string();
        char* arguments[] = {program.data(), market.data(), nullptr};
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
        const int status = readmeSample(2, arguments);
        out = testing::internal::GetCapturedStdout();
        err = testing::internal::GetCapturedStderr();
        return status;
    }

    fs::path folder;
    std::string out;
    std::string err;
};

TEST_F(ReadmeSampleTest, PrintsTheRateThatItLoads) {
    EXPECT_EQ(run(), 0) << err;
    EXPECT_EQ(out, "0.00025\n");
}

// Category 1001 is the main board of SH.
TEST_F(ReadmeSampleTest, PrintsTheCustomRateOfAnInstrumentThatTheCustomFeeReaches) {
    append("custom/stock.csv", "1000001,1,1001,0.0002,,,,,,");
    EXPECT_EQ(run(), 0) << err;
    EXPECT_EQ(out, "0.0002\n");
}

TEST_F(ReadmeSampleTest, PrintsThatTheHostDoesNotKnowTheInstrument) {
    removeLinesWith("SH,600519");
    EXPECT_EQ(run(), 0) << err;
    EXPECT_EQ(out, "the host knows no SH 600519: there is no fee, which is not a fee of zero\n");
}

TEST_F(ReadmeSampleTest, SaysWhatIsWrongInItsMarketFolder) {
    append("accounts.csv", "1000001");
    EXPECT_EQ(run(), 1);
    EXPECT_EQ(out, "");
    EXPECT_EQ(err.rfind((folder / "accounts.csv").string() + ':', 0), 0U) << err;
}

}  // namespace
