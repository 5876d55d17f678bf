#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "support/fickle_fixture.h"

// Whose instrument an answer carries when the catalogue answers with another record each time.

namespace {

using namespace qmservice;
using test::instrumentKey;
using test::kKnown;
using test::Operation;
using test::Scene;

class StampTest : public test::FickleTest {
protected:
    StampTest() {
        // Every second record is of another market, and has the same key.
        host.onCall = [this](const std::string& operation) {
            if (operation == "findInstrument") {
                for (auto& known : host.catalogue) {
                    known.second = test::makeSceneInstrument(finds % 2 == 0 ? "first" : "second", "X");
                }
                ++finds;
            }
        };
    }
};

TEST_F(StampTest, ListedFeeCarriesTheListsInstrumentAndNotTheLookups) {
    for (const int kind : {1, 2, 3, 5, 6, 7, 10, 11}) {
        // Futures lookups ask for the instrument themselves; of the others the NEEQ list's alone, which finds nothing
        // among the stocks' entries.
        if (kind == 10) {
            center.stockAccountTable.erase(kKnown);
        }
        std::vector<boost::shared_ptr<CInstrumentFee>> fees;
        finds = 0;
        std::set<boost::shared_ptr<CInstrument>> stamped;
        const auto account = test::makeAccount(kind, kKnown);
        ASSERT_TRUE(center.getFees(account, fees));
        // The scene's known account: options of all three instruments, in other families entries of two.
        ASSERT_EQ(fees.size(), kind == 6 ? 3U : 2U) << kind;
        const bool asksTwice = kind == 1 || kind == 5 || kind == 10;
        EXPECT_EQ(finds, fees.size() * (asksTwice ? 2 : 1)) << kind;
        for (const auto& fee : fees) {
            stamped.insert(fee->instrument);
            EXPECT_EQ(fee->account, account);
            if (asksTwice) {
                EXPECT_EQ(fee->instrument->market, "first") << kind;
            }
        }
        EXPECT_EQ(stamped.size(), fees.size()) << kind;
    }
}

TEST_F(StampTest, FeeCarriesTheEntrysInstrumentAndNotTheLookups) {
    const auto& a = *scene.instruments.front();
    for (const int kind : {1, 5, 8, 16}) {
        for (const uint64 key : {test::kKnown, test::kNew}) {
            finds = 0;
            const auto fee = center.getFee(test::makeAccount(kind, key), a.market, a.code);
            ASSERT_TRUE(fee);
            EXPECT_EQ(finds, 2U) << kind;
            EXPECT_EQ(fee->instrument->market, "first") << kind;
        }
    }
}

}  // namespace
