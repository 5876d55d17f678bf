#include <gtest/gtest.h>

#include <future>
#include <string>
#include <vector>

#include "support/fee_center_fixture.h"
#include "support/strand_threads.h"

// Changes are posted from several threads at once while another runs the strand.

namespace {

class PostingThreadsTest : public test::FeeCenterTest {};

TEST_F(PostingThreadsTest, ChangesPostedFromManyThreadsAllTakeEffect) {
    constexpr std::size_t kPosters = 4;
    constexpr std::size_t kEach = 25;
    const auto account = test::makeAccount(2, 77);
    std::vector<boost::shared_ptr<qmservice::CInstrument>> instruments;
    for (std::size_t i = 0; i < kPosters * kEach; ++i) {
        instruments.push_back(host.addInstrument("SH", "P" + std::to_string(i)));
    }
    const auto rateOf = [](std::size_t i) { return 0.001 * static_cast<double>(i); };
    {
        const test::StrandThreads strandThread(host);
        std::vector<std::future<void>> posters;
        for (std::size_t poster = 0; poster < kPosters; ++poster) {
            posters.push_back(std::async(std::launch::async, [&, poster] {
                for (std::size_t i = poster * kEach; i < (poster + 1) * kEach; ++i) {
                    center.initFees(account, {test::makeFee(instruments[i], test::makeLimit(rateOf(i)))});
                }
            }));
        }
        for (auto& poster : posters) {
            poster.get();
        }
    }
    for (std::size_t i = 0; i < instruments.size(); ++i) {
        EXPECT_EQ(center.getFee(account, "SH", instruments[i]->code)->stkRateLimit->rate1, rateOf(i));
    }
}

}  // namespace
