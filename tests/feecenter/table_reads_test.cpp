#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "support/fee_center_fixture.h"
#include "support/future_builders.h"
#include "support/limit_families.h"
#include "support/lock_waiters.h"

// A query that has to wait for a change reads the tables when the change is done, and not before. It waits for no other
// reader.

namespace {

using namespace qmservice;
using test::OpenFeeCenter;

constexpr uint64 kAccountKey = 7;
constexpr uint64 kRecordKey = 4711;
constexpr double kRate = 0.5;

struct Query {
    std::string name;
    boost::shared_mutex CFeeCenter::*mutex;
    void (*store)(OpenFeeCenter& center, uint64 instrumentKey);  ///< files a record with kRate
    bool (*finds)(OpenFeeCenter& center, uint64 instrumentKey);  ///< whether the query sees that
};

void PrintTo(const Query& query, std::ostream* out) { *out << query.name; }

template <class List>
bool lists(OpenFeeCenter& center, const List& list) {
    std::vector<boost::shared_ptr<CInstrumentFee>> fees;
    return (center.*list)(test::makeAccount(1, kAccountKey), fees) && fees.size() == 1;
}

template <class Family>
void storeLimit(OpenFeeCenter& center, uint64 instrumentKey) {
    const auto limit = boost::make_shared<typename Family::Limit>();
    limit->rate1 = kRate;
    (center.*Family::pool)[kRecordKey] = limit;
    (center.*Family::table)[kAccountKey][instrumentKey] = kRecordKey;
}

template <class Family>
void addQueries(std::vector<Query>& queries) {
    queries.push_back({std::string(Family::name) + "Lookup", Family::mutex, &storeLimit<Family>,
                       [](OpenFeeCenter& center, uint64 instrumentKey) {
                           const auto fee = test::findFee<Family>(center, kAccountKey, instrumentKey);
                           return ((*fee).*Family::slot)->rate1 == kRate;
                       }});
    queries.push_back({std::string(Family::name) + "List", Family::mutex, &storeLimit<Family>,
                       [](OpenFeeCenter& center, uint64) { return lists(center, Family::list); }});
}

void storeCommission(OpenFeeCenter& center, uint64 instrumentKey) {
    const auto detail = boost::make_shared<CCommissionRateDetail>();
    detail->openRatioByMoney = kRate;
    center.futureCommissionDetails[kRecordKey] = detail;
    center.futureCommissionKeys[kAccountKey][instrumentKey] = kRecordKey;
}

void storeItem(OpenFeeCenter& center, uint64 instrumentKey) {
    const auto item = boost::make_shared<CStockOptionFeeItem>();
    item->fee1 = kRate;
    center.stkOptionItemPool[kRecordKey] = item;
    center.stkOptionAccountTable[kAccountKey][instrumentKey]["000"] = kRecordKey;
}

bool findsItem(OpenFeeCenter& center, uint64 instrumentKey) {
    return center.getStkOptionFee(kAccountKey, instrumentKey)->stkOptionFeeRate->items.at("000")->fee1 == kRate;
}

bool listsItem(OpenFeeCenter& center, uint64 /*instrumentKey*/) {
    return lists(center, &OpenFeeCenter::getStkOptionFees);
}

std::vector<Query> allQueries() {
    std::vector<Query> queries = {
        {"FutureLookup", &OpenFeeCenter::futureMutex, &storeCommission,
         [](OpenFeeCenter& center, uint64 key) {
             return center.getFutureFee(kAccountKey, key)->commissionDetail->openRatioByMoney == kRate;
         }},
        {"IncomeSwapLookup", &OpenFeeCenter::futureMutex, &storeCommission,
         [](OpenFeeCenter& center, uint64 key) {
             return center.getIncomeSwapFutureFee(kAccountKey, key)->commissionDetail->openRatioByMoney == kRate;
         }},
        {"FutureList", &OpenFeeCenter::futureMutex, &storeCommission,
         [](OpenFeeCenter& center, uint64) { return lists(center, &OpenFeeCenter::getFutureFees); }},
        {"StkOptionLookup", &OpenFeeCenter::stkOptionMutex, &storeItem, &findsItem},
        {"StkOptionList", &OpenFeeCenter::stkOptionMutex, &storeItem, &listsItem},
        {"StkOptionLookupOfTheTables", &OpenFeeCenter::stkOptionTableMutex, &storeItem, &findsItem},
        {"StkOptionListOfTheTables", &OpenFeeCenter::stkOptionTableMutex, &storeItem, &listsItem}};
    addQueries<test::Stock>(queries);
    addQueries<test::Credit>(queries);
    addQueries<test::Neeq>(queries);
    addQueries<test::Hgt>(queries);
    addQueries<test::Sgt>(queries);
    return queries;
}

class TableReadsTest : public test::FeeCenterTest, public ::testing::WithParamInterface<Query> {};

TEST_P(TableReadsTest, QuerySeesWhatWasStoredWhileItWaitedForTheLock) {
    const uint64 instrumentKey = test::instrumentKey(*host.addInstrument("XX", "A"));
    boost::shared_mutex& mutex = center.*GetParam().mutex;
    ASSERT_FALSE(GetParam().finds(center, instrumentKey));
    bool found = false;
    mutex.lock();
    const bool waited = test::waitsFor(
        mutex, [&] { found = GetParam().finds(center, instrumentKey); },
        [&] {
            GetParam().store(center, instrumentKey);
            mutex.unlock();
        });
    EXPECT_TRUE(waited);
    EXPECT_TRUE(found);
}

TEST_P(TableReadsTest, QueryDoesNotWaitForAReader) {
    const uint64 instrumentKey = test::instrumentKey(*host.addInstrument("XX", "A"));
    GetParam().store(center, instrumentKey);
    boost::shared_mutex& mutex = center.*GetParam().mutex;
    bool found = false;
    mutex.lock_shared();
    EXPECT_FALSE(test::waitsFor(
        mutex, [&] { found = GetParam().finds(center, instrumentKey); }, [&] { mutex.unlock_shared(); }));
    EXPECT_TRUE(found);
}

INSTANTIATE_TEST_SUITE_P(Queries, TableReadsTest, ::testing::ValuesIn(allQueries()),
                         [](const auto& query) { return query.param.name; });

}  // namespace
