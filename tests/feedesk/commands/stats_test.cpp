#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/records.h"
#include "tests/feedesk/support/program.h"
#include "tests/feedesk/support/sample_folder.h"

namespace feedesk::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

/// Cells of the rows, numbers of bytes left out.
std::vector<std::string> counts(const Outcome& outcome) {
    std::vector<std::string> found;
    for (const std::string& line : lines(outcome.out)) {
        std::size_t end = 0;
        for (int i = 0; i < 4; ++i) {
            end = line.find(',', end) + 1;
        }
        found.push_back(line.substr(0, end - 1) + line.substr(line.rfind(',')));
    }
    return found;
}

TEST(Stats, CountEntriesAndTheRecordsThatTheyShare) {
    const SampleFolder folder;
    const Outcome outcome = ask(folder.path(), "stats --csv");
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    // S100: SH 600519 own, SH 600000 custom, SZ 000001 configured, SZ 300750 own, which differs from the first.
    // O100: two items. F100, F400: a commission and a margin each of the rebar; the gold of F400 has no commission and
    // is not listed. H100: one.
    EXPECT_THAT(counts(outcome), ElementsAre("family,accounts,entries,records,saved", "stock,1,4,4,0", "hgt,1,1,1,0",
                                             "option,1,2,2,0", "commission,2,2,2,0", "margin,2,2,2,0"));
}

TEST(Stats, CountEqualRecordsOnce) {
    const SampleFolder folder;
    folder.write("custom/stock.csv", "account,update,category,commission\n");
    folder.write("configured/stock.csv", "market,code,commission\n");
    folder.write("fees/stock.csv",
                 "account,market,code,commission\n"
                 "S100,SH,*,0.0003\n"
                 "S100,SZ,*,0.0003\n"
                 "S200,SH,600*,0.0003\n"
                 "S200,SZ,300750,0.0004\n");
    const std::string bytes = std::to_string(sizeof(qmservice::CStkExchangeRateLimit));
    const std::string pooled = std::to_string(2 * sizeof(qmservice::CStkExchangeRateLimit));
    const std::string unpooled = std::to_string(8 * sizeof(qmservice::CStkExchangeRateLimit));
    // Five and three entries; 0.0003 is one record for both accounts, 0.0004 another.
    EXPECT_EQ(ask(folder.path(), "stats --accounts 'S*' --json").out,
              "[\n"
              R"({"family":"stock","accounts":2,"entries":8,"records":2,"record_bytes":)" +
                  bytes + R"(,"bytes":)" + pooled + R"(,"bytes_unpooled":)" + unpooled +
                  R"(,"saved":0.75})"
                  "\n]\n");
    EXPECT_THAT(
        ask(folder.path(), "stats --accounts 'S*'").out,
        HasSubstr("8 entries in 2 records; " + pooled + " of " + unpooled + " bytes, of which pooling saves 75.0%"));
}

TEST(Stats, ReportAccountsWithoutAList) {
    const SampleFolder folder;
    EXPECT_EQ(ask(folder.path(), "stats --accounts 'S*' --accounts P100 --csv").err,
              "feedesk: without a list of fees, and not counted: 2 accounts (S200, P100)\n");
    const Outcome none = ask(folder.path(), "stats --accounts S200");
    EXPECT_EQ(none.status, 1);
    EXPECT_EQ(none.err, "feedesk: none of the 1 account has an entry\n");
}

}  // namespace
}  // namespace feedesk::test
