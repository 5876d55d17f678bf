#include <gtest/gtest.h>

#include <string>

#include "support/limit_family_fixture.h"

// Queries fold the connect markets onto Hong Kong's, changes and lists do not.

namespace {

using namespace qmservice;

template <class Family>
class ConnectKeysTest : public test::LimitFamilyTest<Family> {
protected:
    using Fees = typename test::LimitFamilyTest<Family>::Fees;

    /// Each connect market in turn, with an instrument that Hong Kong has under the same code, and no entry yet.
    template <class Check>
    void forEachMarket(const Check& check) {
        for (const std::string market : {"HGT", "SGT"}) {
            SCOPED_TRACE(market);
            (this->center.*Family::table).clear();
            const auto traded = this->host.addInstrument(market, "00700", Family::listMask);
            check(traded);
            this->host.removeInstrument(*traded);
        }
    }

    /// Changes tables through the fee center's own operations, with a rate of 0.5.
    void load(const boost::shared_ptr<CInstrument>& traded) {
        this->center.initFees(this->account, {this->record(traded, this->limit(0.5))});
        this->host.runJobs();
    }

    void update() {
        this->host.inSystemCategory = [](auto&&...) { return true; };
        this->center.updateCustomFee(this->account,
                                     test::makeCustomFee<typename Family::CustomRecord>(this->custom("5", 0.5)));
        this->host.runJobs();
    }

    void expectListedAndNotFound(const CInstrument& traded) {
        EXPECT_EQ(this->storedRate(traded), 0.5);
        EXPECT_EQ(this->storedRate(*hongKong), -1);
        Fees fees;
        EXPECT_TRUE(this->center.getFees(this->account, fees));
        ASSERT_EQ(fees.size(), 1U);
        EXPECT_EQ(fees[0]->instrument->market, traded.market);
        EXPECT_EQ(((*fees[0]).*Family::slot)->rate1, 0.5);

        const auto found = this->center.getFee(this->account, traded.market, traded.code);
        ASSERT_TRUE(found);
        EXPECT_EQ(found->instrument, hongKong);
        EXPECT_EQ((*found).*Family::slot, this->fallback());
    }

    const boost::shared_ptr<CInstrument> hongKong = this->host.addInstrument("HK", "00700");
};

/// The families whose list asks their own lookup: the NEEQ list would show the stocks' default.
using OwnListFamilies = ::testing::Types<test::Stock, test::Credit, test::Hgt, test::Sgt>;
TYPED_TEST_SUITE(ConnectKeysTest, OwnListFamilies, test::FamilyName);

TYPED_TEST(ConnectKeysTest, LoadedInstrumentIsFiledUnderItsOwnKeyListedAndNeverFound) {
    this->forEachMarket([this](const auto& traded) {
        this->load(traded);
        this->expectListedAndNotFound(*traded);
    });
}

TYPED_TEST(ConnectKeysTest, OverriddenInstrumentIsFiledUnderItsOwnKeyListedAndNeverFound) {
    this->forEachMarket([this](const auto& traded) {
        this->update();
        this->expectListedAndNotFound(*traded);
    });
}

TYPED_TEST(ConnectKeysTest, ListLeavesItOutWhereTheCatalogueKnowsHongKongsKeyAlone) {
    this->forEachMarket([this](const auto& traded) {
        this->load(traded);
        this->host.removeInstrument(*traded);
        typename TestFixture::Fees fees;
        EXPECT_TRUE(this->center.getFees(this->account, fees));
        EXPECT_TRUE(fees.empty());
    });
}

TYPED_TEST(ConnectKeysTest, QueryWithoutHongKongsInstrumentHasNoFee) {
    this->host.removeInstrument(*this->hongKong);
    this->forEachMarket([this](const auto& traded) {
        this->load(traded);
        EXPECT_FALSE(this->center.getFee(this->account, traded->market, traded->code));
    });
}

}  // namespace
