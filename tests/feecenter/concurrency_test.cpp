#include <gtest/gtest.h>

#include <cstddef>
#include <future>
#include <set>
#include <string>
#include <vector>

#include "support/concurrent_readers.h"
#include "support/fee_center_fixture.h"
#include "support/strand_threads.h"
#include "support/versioned_fees.h"

// Queries from many threads while changes run on the strand. Every rate record is made from one version number, so that
// a reader can tell which version it was given and whether it is whole.

namespace {

using namespace qmservice;
using test::VersionedFees;

TEST(VersionedFeesTest, RecordOfTwoVersionsIsNoticed) {
    CStkExchangeRateLimit limit;
    EXPECT_EQ(test::versionOf(limit), -1);
    test::setVersion(limit, 3);
    EXPECT_EQ(test::versionOf(limit), 3);
    limit.rate6 += 1;
    EXPECT_EQ(test::versionOf(limit), -1);

    CCustomHGTExchangeRateLimit connect;
    test::setVersion(connect, 4);
    EXPECT_EQ(test::versionOf(connect), 4);
    connect.rate14 += 1;
    EXPECT_EQ(test::versionOf(connect), -1);

    CStockOptionFeeItem item;
    item.fee1 = 5;
    item.fee2 = 10;
    item.fee3 = 15;
    item.fee4 = 20;
    item.fee5 = 25;
    EXPECT_EQ(test::versionOf(item), 5);
    item.fee5 = 20;
    EXPECT_EQ(test::versionOf(item), -1);
}

class ConcurrencyTest : public test::FeeCenterTest {
protected:
    VersionedFees fees{host, center};
};

TEST_F(ConcurrencyTest, OneThreadAloneSeesEveryVersionInTurn) {
    EXPECT_EQ(fees.complaint(0, 0), "");
    for (int version = 1; version <= 6; ++version) {
        fees.post(version);
        EXPECT_EQ(fees.complaint(version - 1, version - 1), "");
        host.runJobs();
        EXPECT_EQ(fees.complaint(version, version), "");
        EXPECT_EQ(fees.lastVersion(), version);
    }
}

TEST_F(ConcurrencyTest, AnswerThatIsTooOldOrTooNewIsNoticed) {
    fees.post(1);
    fees.post(2);
    host.runJobs();
    EXPECT_NE(fees.complaint(3, 4), "");
    EXPECT_NE(fees.complaint(0, 1), "");
}

TEST_F(ConcurrencyTest, ReadersSeeOnlyWholeVersionsThatTheHistoryAllows) {
    constexpr int kVersions = 150;
    constexpr std::size_t kReaders = 4;
    test::ConcurrentReaders readers(host, *center.strand);
    std::vector<std::set<int>> seen(kReaders);
    const auto complaints = readers.run(
        kVersions, kReaders, [&](int version) { fees.post(version); },
        [&](std::size_t reader) {
            const int oldest = readers.oldest();
            seen[reader].insert(fees.lastVersion());
            return fees.complaint(oldest, [&readers] { return readers.newest(); });
        });
    EXPECT_EQ(complaints, std::vector<std::string>(kReaders));
    EXPECT_EQ(seen, std::vector<std::set<int>>(kReaders, test::versionsUpTo(kVersions)));
    EXPECT_EQ(fees.complaint(kVersions, kVersions), "");
}

TEST_F(ConcurrencyTest, ChangesPostedFromManyThreadsAllTakeEffect) {
    constexpr int kPosters = 4;
    constexpr int kEach = 25;
    const auto account = test::makeAccount(2, 77);
    std::vector<boost::shared_ptr<CInstrument>> instruments;
    for (int i = 0; i < kPosters * kEach; ++i) {
        instruments.push_back(host.addInstrument("SH", "P" + std::to_string(i)));
    }
    {
        const test::StrandThreads strandThread(host);
        std::vector<std::future<void>> posters;
        for (int poster = 0; poster < kPosters; ++poster) {
            posters.push_back(std::async(std::launch::async, [&, poster] {
                for (int i = poster * kEach; i < (poster + 1) * kEach; ++i) {
                    center.initFees(
                        account, {test::makeFee(instruments[static_cast<std::size_t>(i)], test::makeLimit(0.001 * i))});
                }
            }));
        }
        for (auto& poster : posters) {
            poster.get();
        }
    }
    for (int i = 0; i < kPosters * kEach; ++i) {
        EXPECT_EQ(center.getFee(account, "SH", "P" + std::to_string(i))->stkRateLimit->rate1, 0.001 * i);
    }
}

}  // namespace
