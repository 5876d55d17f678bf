#include <gtest/gtest.h>

#include <algorithm>
#include <boost/smart_ptr/make_shared.hpp>
#include <cstddef>
#include <map>
#include <ostream>
#include <set>
#include <string>
#include <vector>

#include "host/services.h"
#include "support/call_log.h"
#include "support/future_builders.h"
#include "support/lock_probe.h"
#include "support/operations.h"

// What each operation asks of the host, in which order, under which lock, and where it finds the services.

namespace {

using test::kNew;
using test::Operation;

/// What an operation has called of the host so far, in order.
using Names = std::vector<std::string>;

// How the parts of the operations go. A run of crc64 counts as one call.

const std::string kKey = "voStockKey hash ";
const std::string kStoreLimit = kKey + "getTradeMinUnit crc64 ";
const std::string kLoadStock = "getRateLimitPtr " + kStoreLimit;
const std::string kLoadFuture = kKey + "crc64 ";  // the commission's values and the margins'

// An update's first entry is for a group that "B" is in, its second for category 5, which all are in.
const std::string kGroupFirst = "isStockInCategoryForTS isStockInGroupCategory ";
const std::string kThenAll = kGroupFirst + "isStockInCategoryForTS ";
const std::string kMatchLimits = kThenAll + kStoreLimit + kGroupFirst + kStoreLimit + kThenAll + kStoreLimit;
const std::string kMatchAll = "isStockInCategoryForTS isStockInCategoryForTS ";
const std::string kNamedGroup = "getCategorId " + kGroupFirst;
const std::string kNamedAll = kNamedGroup + "getCategorId isStockInCategoryForTS ";
const std::string kStoreRates = kKey + "crc64 ";
const std::string kMatchOne = kThenAll + kStoreRates + kThenAll + kStoreRates;  // a commission, a margin
const std::string kMatchGroups = kGroupFirst + kStoreRates + kGroupFirst + kStoreRates;

const std::string kTwoMaps = "getInstrumentMap getInstrumentMap ";

// A lookup for an account without entries.
const std::string kFindStock = "findInstrument getRateLimitPtr ";
const std::string kFindHgt = "findInstrument getHGTExchangeRateLimitPtr ";
const std::string kFindSgt = "findInstrument getSgtExchangeRateLimitPtr ";
// An instrument's fee type and its three fees are asked for in any order; here they are sorted.
const std::string kFindFuture =
    "findInstrument getAccountData isSimulationPlatform getCloseFee getCloseTodayFee getFeeType getOpenFee ";
const std::string kFindIncomeSwap = "findInstrument ";
const std::string kFull = "findInstrument ";
const std::string kForeign = kFull + "isWPMarket ";

const std::string kEntry = "voStockKey getHashKey hash findInstrument ";
const std::string kEntryWithUnit = "voStockKey getHashKey hash splitVoStockKey getTradeMinUnit findInstrument ";

const std::map<std::string, std::string> kCalls = {
    {"doInitStockFee", "getHashKey " + kLoadStock + kLoadStock + kLoadStock},
    {"doInitCreditFee", "getHashKey " + kLoadStock + kLoadStock + kLoadStock},
    {"doInitNeeqFee", "getHashKey " + kLoadStock + kLoadStock + kLoadStock},
    {"doInitStkOptionFee", ""},
    {"doInitHgtFee", "getHashKey " + kStoreLimit + kStoreLimit + kStoreLimit},
    {"doInitSgtFee", "getHashKey " + kStoreLimit + kStoreLimit + kStoreLimit},
    {"doInitFutureFee", "getHashKey " + kLoadFuture + kLoadFuture + kLoadFuture},
    {"doUpdateStockCustomFee", "getHashKey getInstrumentList " + kMatchLimits},
    {"doUpdateCreditCustomFee", "getHashKey getInstrumentList " + kMatchLimits},
    {"doUpdateNeeqCustomFee", "getHashKey getInstrumentList " + kMatchLimits},
    {"doUpdateStkOptionCustomFee",
     "getHashKey getInstrumentList " + kNamedAll + kStoreLimit + kNamedGroup + kStoreLimit + kNamedAll + kStoreLimit},
    {"doUpdateHgtCustomFee", "getHashKey getInstrumentList " + kMatchLimits},
    {"doUpdateSgtCustomFee",
     "getHashKey getInstrumentList " + kMatchAll + kStoreLimit + kMatchAll + kStoreLimit + kMatchAll + kStoreLimit},
    {"doUpdateFutureCustomFee", "getHashKey " + kTwoMaps + kMatchOne + kMatchGroups + kMatchOne},
    {"doUpdateFutureInstrumentFee", "getHashKey " + kStoreRates},
    {"getStockFee", kFindStock},
    {"getCreditFee", kFindStock},
    {"getNeeqFee", kFindStock},
    {"getStkOptionFee", ""},
    {"getHgtFee", kFindHgt},
    {"getSgtFee", kFindSgt},
    {"getFutureFee", kFindFuture},
    {"getIncomeSwapFutureFee", kFindIncomeSwap},
    {"getPbFullFeeOfAStock", kFull + kFindStock},
    {"getPbFullFeeOfAFuture", kFull + kFindFuture},
    {"getPbFullFeeOfShanghaiConnect", kFull + kFindHgt},
    {"getPbFullFeeOfShenzhenConnect", kFull + kFindSgt},
    {"getPbFullFeeOfHongKong", kFull + kFindHgt + kFindSgt},
    {"getPbFullFeeOfAnOption", kFull},
    {"getPbFullFeeOfAForeignFuture", kForeign + kFindIncomeSwap},
    {"getPbFullFeeOfNeeq", kForeign + kFindStock},
    {"getPbFullFeeOfNoFamily", kForeign},
    {"getStockFees", "getHashKey "},
    {"getCreditFees", "getHashKey "},
    {"getNeeqFees", "getHashKey "},
    {"getStkOptionFees", "getHashKey "},
    {"getHgtFees", "getHashKey "},
    {"getSgtFees", "getHashKey "},
    {"getFutureFees", "getHashKey "},
    {"getFeeOfKind1", kEntry + kFindFuture},
    {"getFeeOfKind2", kEntryWithUnit + kFindStock},
    {"getFeeOfKind3", kEntryWithUnit + kFindStock},
    {"getFeeOfKind4", kEntry},
    {"getFeeOfKind5", kEntry + kFindFuture},
    {"getFeeOfKind6", kEntry},
    {"getFeeOfKind7", kEntry + kFindHgt},
    {"getFeeOfKind8", kEntry + kFindStock},
    {"getFeeOfKind8OfAFuture", kEntry + kFindIncomeSwap},
    {"getFeeOfKind10", kEntry + kFindStock},
    {"getFeeOfKind11", kEntry + kFindSgt},
    {"getFeeOfKind12", kEntry + kFull + kFindStock},
    {"getFeeOfKind12InHongKong", kEntry + kFull + kFindHgt + kFindSgt},
    {"getFeeOfKind16", kEntry + kFindIncomeSwap},
    {"getFeesOfKind1", "getHashKey "},
    {"getFeesOfKind2", "getHashKey "},
    {"getFeesOfKind3", "getHashKey "},
    {"getFeesOfKind5", "getHashKey "},
    {"getFeesOfKind6", "getHashKey "},
    {"getFeesOfKind7", "getHashKey "},
    {"getFeesOfKind10", "getHashKey "},
    {"getFeesOfKind11", "getHashKey "},
    {"getFeesOfKind12", ""},
};

class CallsTest : public test::FeeCenterTest, public ::testing::WithParamInterface<Operation> {
protected:
    CallsTest() {
        stageOperations(scene);
        const auto note = [this](const std::string& name) { calls.push_back(name); };
        host.onCall = note;
        host.onKeyCall = note;
    }

    void run() {
        const auto subject = subjectOf(scene, operation, kNew);
        calls.clear();
        operation.run(scene, center, subject);
    }

    test::Scene scene{{"A", "B", "C"}};
    Names calls;
    const Operation& operation = GetParam();
};

bool isFeeGetter(const std::string& call) {
    static const std::set<std::string> getters = {"getFeeType", "getOpenFee", "getCloseFee", "getCloseTodayFee"};
    return getters.count(call) != 0;
}

/// The calls as the rows write them: of a run of crc64 the first alone, and an instrument's getters by the alphabet.
std::string textOf(Names calls) {
    for (auto from = calls.begin(); (from = std::find_if(from, calls.end(), isFeeGetter)) != calls.end();) {
        const auto to = std::find_if_not(from, calls.end(), isFeeGetter);
        std::sort(from, to);
        from = to;
    }
    std::string text;
    std::string last;
    for (const auto& call : calls) {
        text += call == "crc64" && last == call ? "" : call + " ";
        last = call;
    }
    return text;
}

TEST_P(CallsTest, HostIsAskedInThisOrder) {
    run();
    EXPECT_EQ(textOf(calls), kCalls.count(operation.name) != 0 ? kCalls.at(operation.name) : "no row");
}

// Under which lock.

std::size_t countOf(const Names& calls, const char* name) {
    return static_cast<std::size_t>(std::count(calls.begin(), calls.end(), name));
}

/// How many of a record's crc64 calls make the key of its commission: nine values, the others are the margins'.
constexpr std::size_t kCommissionValues = 9;

/// Of the changes, the futures load alone calls the host under its lock: for the margins' keys.
std::string heldByChange(const Operation& change, const Names& calls) {
    if (change.name != "doInitFutureFee" || calls.back() != "crc64") {
        return {};
    }
    const auto sinceHash = std::find(calls.rbegin(), calls.rend(), "hash") - calls.rbegin();
    return static_cast<std::size_t>(sinceHash) > kCommissionValues ? "future exclusive" : "";
}

/// A list asks for its instruments without a lock. Of the lookups that it makes of stored fees, those of futures alone
/// ask the host: for the same instrument again.
std::string heldByList(const Operation& list, const Names& calls) {
    const bool looksUp = list.shared.count("future") != 0 && countOf(calls, "findInstrument") % 2 == 0;
    return looksUp && calls.back() == "findInstrument" ? "future shared" : "";
}

/// A family lookup asks the host under its lock throughout. The entry and prime brokerage ask for the instrument
/// without one before they come to it.
std::string heldByLookup(const Operation& lookup, const Names& calls) {
    const bool isEntry = lookup.name.find("getFee") == 0;
    const std::size_t unlocked = (isEntry ? 1U : 0U) + (lookup.accountKind == 12 ? 1U : 0U);
    const std::size_t finds = countOf(calls, "findInstrument");
    if (finds <= unlocked && unlocked != 0) {
        return {};
    }
    if (lookup.market == "HK") {
        return finds - unlocked == 1 ? "hgt shared" : "sgt shared";
    }
    for (const char* lock : {"stock", "credit", "neeq", "hgt", "sgt", "future"}) {
        if (lookup.shared.count(lock) != 0) {
            return lock + std::string(" shared");
        }
    }
    return {};
}

/// What the operation holds while it makes the last of the calls: "stock shared", "future exclusive", or nothing.
std::string heldAt(const Operation& operation, const Names& calls) {
    if (operation.isChange()) {
        return heldByChange(operation, calls);
    }
    return operation.kind == Operation::Kind::kList ? heldByList(operation, calls) : heldByLookup(operation, calls);
}

TEST_P(CallsTest, HostIsAskedUnderTheLockOfTheLookupAlone) {
    for (const test::uint64 account : {test::kKnown, kNew}) {
        test::OpenFeeCenter fees;
        scene.prepare(fees);
        const auto subject = subjectOf(scene, operation, account);
        calls.clear();
        host.onCall = host.onKeyCall = [&](const std::string& name) {
            calls.push_back(name);
            EXPECT_EQ(test::heldLocks(fees), heldAt(operation, calls)) << name << ", account " << account;
        };
        operation.run(scene, fees, subject);
        host.onCall = host.onKeyCall = nullptr;
    }
}

/// Where the service of a call is asked for; empty for what is no service.
std::string placeOf(const std::string& call) {
    static const std::map<std::string, std::string> places = {
        {"findInstrument", "getInstCenter"},
        {"getInstrumentList", "getInstCenter"},
        {"getInstrumentMap", "getInstCenter"},
        {"getAccountData", "getDataCenter"},
        {"getRateLimitPtr", "ConfigCollector::instance"},
        {"getHGTExchangeRateLimitPtr", "ConfigCollector::instance"},
        {"getSgtExchangeRateLimitPtr", "ConfigCollector::instance"},
        {"isSimulationPlatform", "ConfigCollector::instance"},
        {"isStockInCategoryForTS", "CppCategory::instance"},
        {"isStockInCustomCategory", "CppCategory::instance"},
        {"isStockInGroupCategory", "CppCategory::instance"},
        {"getCategorId", "CppCategory::instance"},
        {"isWPMarket", "StockTypeCenter::instance"}};
    const auto place = places.find(call);
    return place != places.end() ? place->second : "";
}

// One answer may serve several calls of a run, but none outlives the run: a host may put another service in its place.
// That none is called after it was replaced is asserted at the end of every test.

TEST_P(CallsTest, EachRunAsksAnewForTheServicesThatItCallsAndForNoOthers) {
    std::map<std::string, int> asked;
    host.onInstance = [&](const std::string& place) { ++asked[place]; };
    for (const char* which : {"first", "second"}) {
        asked.clear();
        run();
        std::map<std::string, int> called;
        for (const auto& call : calls) {
            ++called[placeOf(call)];
        }
        called["TraderCenter::instance"] = called["getInstCenter"] + called["getDataCenter"];
        for (const char* place : {"TraderCenter::instance", "getInstCenter", "getDataCenter",
                                  "ConfigCollector::instance", "CppCategory::instance", "StockTypeCenter::instance"}) {
            EXPECT_GE(asked[place], called[place] != 0 ? 1 : 0) << place << ", " << which << " run";
            EXPECT_LE(asked[place], called[place]) << place << ", " << which << " run";
        }
        host.replaceServices();
    }
}

INSTANTIATE_TEST_SUITE_P(Operations, CallsTest, ::testing::ValuesIn(test::allOperations()),
                         [](const auto& operation) { return operation.param.name; });

// What a query by key hashes.

struct Hashed {
    const char* name;
    std::string key;
    Names texts;
};

void PrintTo(const Hashed& row, std::ostream* out) { *out << row.name; }

const Hashed kHashed[] = {{"OrdinaryKey", "SH|A", {"SH|A"}},
                          {"HongKongKey", "HK|A", {"HK|A"}},
                          {"ShanghaiConnectKey", "HGT|A", {"HGT|A", "HK|A"}},
                          {"ShenzhenConnectKey", "SGT|A", {"SGT|A", "HK|A"}},
                          {"ConnectTextInTheCode", "SH|6HGT1", {"SH|6HGT1", "HK6HGT1"}},
                          {"BothConnectTexts", "HGT|SGT", {"HGT|SGT", "HK|SGT"}},
                          {"TwoCharacters", "HG", {"HG"}},
                          {"ConnectTextWithAnotherEnd", "SH|HGX", {"SH|HGX"}},
                          {"ConnectTextWithAnotherMiddle", "SH|HXT", {"SH|HXT"}},
                          {"ConnectTextWithAnotherStart", "SH|XGT", {"SH|XGT"}},
                          {"EndOfAConnectText", "GT|A", {"GT|A"}},
                          {"LastLetterOfAConnectText", "T|A", {"T|A"}}};

class HashedKeyTest : public test::FeeCenterTest, public ::testing::WithParamInterface<Hashed> {};

TEST_P(HashedKeyTest, KeyIsHashedAsGivenAndAConnectKeyOnceMoreWhenItIsFolded) {
    const auto known = boost::make_shared<qmservice::CInstrument>();
    host.catalogue[utils::hash(GetParam().texts.back())] = known;
    Names texts;
    host.onHash = [&](const std::string& text) { texts.push_back(text); };
    const auto fee = center.getFee(test::makeAccount(7, kNew), GetParam().key);
    EXPECT_EQ(texts, GetParam().texts);
    ASSERT_TRUE(fee);
    EXPECT_EQ(fee->instrument, known);
}

INSTANTIATE_TEST_SUITE_P(Keys, HashedKeyTest, ::testing::ValuesIn(kHashed),
                         [](const auto& row) { return std::string(row.param.name); });

// Of an empty list: a load asks for the account's key first, an update looks at the list first.

using Account = boost::shared_ptr<qmservice::CAccountInfo>;

struct EmptyChange {
    const char* name;
    void (*run)(test::OpenFeeCenter& center, const Account& account);
    Names calls;
};

void PrintTo(const EmptyChange& change, std::ostream* out) { *out << change.name; }

const EmptyChange kEmptyChanges[] = {
    {"StockLoad", [](auto& center, const auto& account) { center.doInitStockFee(account, {}); }, {"getHashKey"}},
    {"CreditLoad", [](auto& center, const auto& account) { center.doInitCreditFee(account, {}); }, {"getHashKey"}},
    {"NeeqLoad", [](auto& center, const auto& account) { center.doInitNeeqFee(account, {}); }, {"getHashKey"}},
    {"StkOptionLoad", [](auto& center, const auto& account) { center.doInitStkOptionFee(account, {}); }, {}},
    {"HgtLoad", [](auto& center, const auto& account) { center.doInitHgtFee(account, {}); }, {"getHashKey"}},
    {"SgtLoad", [](auto& center, const auto& account) { center.doInitSgtFee(account, {}); }, {"getHashKey"}},
    {"FutureLoad", [](auto& center, const auto& account) { center.doInitFutureFee(account, {}); }, {"getHashKey"}},
    {"StockUpdate",
     [](auto& center, const auto& account) { center.doUpdateStockCustomFee(account, test::makeCustomFee()); },
     {}},
    {"CreditUpdate",
     [](auto& center, const auto& account) { center.doUpdateCreditCustomFee(account, test::makeCustomFee()); },
     {}},
    {"NeeqUpdate",
     [](auto& center, const auto& account) { center.doUpdateNeeqCustomFee(account, test::makeCustomFee()); },
     {}},
    {"StkOptionUpdate",
     [](auto& center, const auto& account) { center.doUpdateStkOptionCustomFee(account, test::makeCustomFee()); },
     {}},
    {"HgtUpdate",
     [](auto& center, const auto& account) {
         center.doUpdateHgtCustomFee(account, test::makeCustomFee<qmservice::CCustomHGTInstrumentFee>());
     },
     {}},
    {"SgtUpdate",
     [](auto& center, const auto& account) {
         center.doUpdateSgtCustomFee(account, test::makeCustomFee<qmservice::CCustomSgtInstrumentFee>());
     },
     {}},
    {"FutureUpdate",
     [](auto& center, const auto& account) {
         center.doUpdateFutureCustomFee(account, test::makeCustomFutureFee({}, {}));
     },
     {}},
    {"FutureInstrumentUpdate",
     [](auto& center, const auto& account) {
         center.doUpdateFutureInstrumentFee(account, test::makeFutureFee(nullptr, nullptr));
     },
     {}}};

class EmptyListTest : public test::FeeCenterTest, public ::testing::WithParamInterface<EmptyChange> {};

TEST_P(EmptyListTest, HostIsAskedForTheAccountsKeyByALoadAndForNothingByAnUpdate) {
    const test::Scene scene{{"A"}};
    const auto subject = subjectOf(scene, test::changes().front(), kNew);
    const test::CallLog log(host);
    GetParam().run(center, subject.account);
    EXPECT_EQ(log.calls(), GetParam().calls);
}

INSTANTIATE_TEST_SUITE_P(Changes, EmptyListTest, ::testing::ValuesIn(kEmptyChanges),
                         [](const auto& change) { return std::string(change.param.name); });

}  // namespace
