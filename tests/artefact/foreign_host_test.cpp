// A host of another hand, whole in this file: it knows the exported headers and the boundary's, links the library and
// the records, and nothing else of the project. What does not fit its expectations does not compile.
#include <gtest/gtest.h>

#include <algorithm>
#include <boost/asio/io_service.hpp>
#include <boost/asio/io_service_strand.hpp>
#include <boost/shared_ptr.hpp>
#include <boost/smart_ptr/make_shared.hpp>
#include <boost/thread/shared_mutex.hpp>
#include <boost/unordered_map.hpp>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <iterator>
#include <map>
#include <string>
#include <type_traits>
#include <vector>

#include "CFeeCenter.h"
#include "host/records.h"
#include "host/services.h"

// The host.

namespace {

using qmservice::uint64;

struct ForeignHost {
    boost::asio::io_service jobs;
    std::map<uint64, boost::shared_ptr<qmservice::CInstrument>> catalogue;
    /// What getInstrumentMap answers, by type.
    std::map<int, std::map<std::string, boost::shared_ptr<qmservice::CInstrument>>> futures;
};

ForeignHost& foreignHost() {
    static ForeignHost host;
    return host;
}

/// An account that is no record of the records library's making.
class ForeignAccount : public qmservice::CAccountInfo {
public:
    ForeignAccount(int kind, uint64 accountKey) : key(accountKey) { accountType = kind; }
    [[nodiscard]] uint64 getHashKey(uint64 /*seed*/) const override { return key; }

private:
    uint64 key;
};

/// An instrument that answers for itself what its exchange charges.
class ForeignInstrument : public qmservice::CInstrument {
public:
    [[nodiscard]] std::int32_t getFeeType() const override { return 2; }
    [[nodiscard]] double getOpenFee() const override { return 0.5; }
    [[nodiscard]] double getCloseFee() const override { return -1; }
    [[nodiscard]] double getCloseTodayFee() const override { return 1; }
};

class ForeignCatalogue : public qmservice::IInstrumentCenter {
public:
    boost::shared_ptr<qmservice::CInstrument> findInstrument(uint64 instrumentKey) override {
        const auto found = foreignHost().catalogue.find(instrumentKey);
        return found != foreignHost().catalogue.end() ? found->second : nullptr;
    }
    void getInstrumentMap(int type,
                          std::map<std::string, boost::shared_ptr<qmservice::CInstrument>>& instruments) override {
        instruments = foreignHost().futures[type];
    }
    void getInstrumentList(std::vector<boost::shared_ptr<qmservice::CInstrument>>& instruments,
                           int /*listMask*/) override {
        for (const auto& entry : foreignHost().catalogue) {
            instruments.push_back(entry.second);
        }
    }
};

class ForeignAccounts : public qmservice::IDataCenter {
public:
    boost::shared_ptr<qmservice::CAccountData> getAccountData(uint64 accountKey) override {
        return boost::make_shared<qmservice::CAccountData>(boost::make_shared<ForeignAccount>(1, accountKey));
    }
};

}  // namespace

namespace qmservice {

boost::shared_ptr<TraderCenter> TraderCenter::instance() {
    static const auto center = boost::make_shared<TraderCenter>();
    return center;
}
IInstrumentCenter* TraderCenter::getInstCenter() const {
    static ForeignCatalogue catalogue;
    return &catalogue;
}
boost::shared_ptr<IDataCenter> TraderCenter::getDataCenter() const { return boost::make_shared<ForeignAccounts>(); }

boost::shared_ptr<ConfigCollector> ConfigCollector::instance() {
    static const auto collector = boost::make_shared<ConfigCollector>();
    return collector;
}
boost::shared_ptr<CStkExchangeRateLimit> ConfigCollector::getRateLimitPtr(std::string, std::string) { return {}; }
boost::shared_ptr<CCustomHGTExchangeRateLimit> ConfigCollector::getHGTExchangeRateLimitPtr(std::string, std::string) {
    return {};
}
boost::shared_ptr<CCustomSgtExchangeRateLimit> ConfigCollector::getSgtExchangeRateLimitPtr(std::string, std::string) {
    return {};
}
bool ConfigCollector::isSimulationPlatform(int) const { return true; }
int getTradeMinUnit(const std::string&, const std::string&) { return 100; }

bool CppCategory::isStockInCategoryForTS(const std::string&, const std::string&, const std::string&, int category) {
    return category == 5;
}
bool CppCategory::isStockInCustomCategory(const std::string&, const std::string&, const std::vector<std::string>&) {
    return false;
}
bool CppCategory::isStockInGroupCategory(const std::string&, const std::string&, const std::string&,
                                         const std::vector<boost::shared_ptr<CGroupCategorySubInfo>>&,
                                         std::map<int, std::vector<std::string>>) {
    return false;
}
int CppCategory::getCategorId(const std::string& name) { return name == "5" ? 5 : 0; }
bool StockTypeCenter::isWPMarket(const std::string&) const { return false; }

uint64 crc64(uint64 seed, const char* data, std::size_t length) {
    for (std::size_t i = 0; i < length; ++i) {
        seed = (seed ^ static_cast<unsigned char>(data[i])) * 1099511628211U;
    }
    return seed;
}

}  // namespace qmservice

namespace utils {

std::string voStockKey(const std::string& market, const std::string& code) { return market + "/" + code; }
void splitVoStockKey(const std::string& key, std::string& market, std::string& code) {
    market = key.substr(0, key.find('/'));
    code = key.substr(key.find('/') + 1);
}
uint64 hash(const std::string& text) { return std::hash<std::string>()(text); }

template <>
qmservice::CppCategory* CSingletonT<qmservice::CppCategory>::instance() {
    static qmservice::CppCategory category;
    return &category;
}
template <>
qmservice::StockTypeCenter* CSingletonT<qmservice::StockTypeCenter>::instance() {
    static qmservice::StockTypeCenter center;
    return &center;
}
template <>
net::RPCEngine* CSingletonT<net::RPCEngine>::instance() {
    static net::RPCEngine engine;
    return &engine;
}

}  // namespace utils

boost::shared_ptr<boost::asio::io_service::strand> net::RPCEngine::getStrand(const std::string&) {
    return boost::make_shared<boost::asio::io_service::strand>(foreignHost().jobs);
}

namespace {

using namespace qmservice;

using Account = const boost::shared_ptr<CAccountInfo>&;
using Records = const std::vector<boost::shared_ptr<IData>>&;
using Fee = boost::shared_ptr<CInstrumentFee>;
using Fees = std::vector<Fee>&;
using Text = const std::string&;

template <class Record>
using Pool = boost::unordered_map<uint64, boost::shared_ptr<Record>>;
template <class Entry>
using Table = std::map<uint64, boost::unordered_map<uint64, Entry>>;

/// Holds when the member has the signature to the letter.
template <class Expected, class Actual>
constexpr bool is(Actual) {
    return std::is_same_v<Expected, Actual>;
}

/// Tells which slot of the table of virtual operations is called.
class SlotNames {
public:
    virtual int first() { return 1; }
    virtual int second() { return 2; }
    virtual int third() { return 3; }
    virtual int fourth() { return 4; }
    virtual int fifth() { return 5; }
};

class ForeignFeeCenter : public CFeeCenter {
public:
    ForeignFeeCenter() : CFeeCenter("foreign") {}

    template <class... Members>
    static bool increasing(const Members*... members) {
        const void* places[] = {members...};
        return std::is_sorted(std::begin(places), std::end(places), std::less<const void*>());
    }

    /// Whether the members are in the documented order.
    [[nodiscard]] bool membersAreInOrder() const {
        return increasing(&strand, &stockMutex, &stockRateLimitPool, &stockAccountTable, &defaultStockRateLimit,
                          &creditMutex, &creditRateLimitPool, &creditAccountTable, &defaultCreditRateLimit, &hgtMutex,
                          &hgtRateLimitPool, &hgtAccountTable, &defaultHgtRateLimit, &sgtMutex, &sgtRateLimitPool,
                          &sgtAccountTable, &defaultSgtRateLimit, &stkOptionMutex, &stkOptionItemPool,
                          &stkOptionAccountTable, &stkOptionBaseRateTable, &defaultStkOptionFeeRate, &futureMutex,
                          &futureCommissionDetails, &futureCommissionKeys, &futureMarginDetails, &futureMarginKeys,
                          &defaultFutureFee, &defaultIncomeSwapFutureFee, &neeqMutex, &neeqRateLimitPool,
                          &neeqAccountTable, &defaultNeeqRateLimit, &emptyFee);
    }

    /// Nothing comes before the first member but the pointer to the table of virtual operations.
    [[nodiscard]] std::ptrdiff_t placeOfFirstMember() const {
        return reinterpret_cast<const char*>(&strand) - reinterpret_cast<const char*>(this);
    }

    void checkMemberTypes() const {
        static_assert(std::is_same_v<decltype(strand), boost::shared_ptr<boost::asio::io_service::strand>>);
        checkFamily<CStkExchangeRateLimit>(stockMutex, stockRateLimitPool, stockAccountTable, defaultStockRateLimit);
        checkFamily<CStkExchangeRateLimit>(creditMutex, creditRateLimitPool, creditAccountTable,
                                           defaultCreditRateLimit);
        checkFamily<CStkExchangeRateLimit>(neeqMutex, neeqRateLimitPool, neeqAccountTable, defaultNeeqRateLimit);
        checkFamily<CCustomHGTExchangeRateLimit>(hgtMutex, hgtRateLimitPool, hgtAccountTable, defaultHgtRateLimit);
        checkFamily<CCustomSgtExchangeRateLimit>(sgtMutex, sgtRateLimitPool, sgtAccountTable, defaultSgtRateLimit);
        static_assert(std::is_same_v<decltype(stkOptionMutex), boost::shared_mutex>);
        static_assert(std::is_same_v<decltype(stkOptionItemPool), Pool<CStockOptionFeeItem>>);
        static_assert(std::is_same_v<decltype(stkOptionAccountTable), Table<std::map<std::string, uint64>>>);
        static_assert(std::is_same_v<decltype(stkOptionBaseRateTable), Table<double>>);
        static_assert(std::is_same_v<decltype(defaultStkOptionFeeRate), boost::shared_ptr<CStockOptionFeeRate>>);
        static_assert(std::is_same_v<decltype(futureMutex), boost::shared_mutex>);
        static_assert(std::is_same_v<decltype(futureCommissionDetails), Pool<CCommissionRateDetail>>);
        static_assert(std::is_same_v<decltype(futureCommissionKeys), Table<uint64>>);
        static_assert(std::is_same_v<decltype(futureMarginDetails), Pool<CMarginRateDetail>>);
        static_assert(std::is_same_v<decltype(futureMarginKeys), Table<std::vector<uint64>>>);
        static_assert(std::is_same_v<decltype(defaultFutureFee), Fee>);
        static_assert(std::is_same_v<decltype(defaultIncomeSwapFutureFee), Fee>);
        static_assert(std::is_same_v<decltype(emptyFee), Fee>);
    }

    static void checkSignatures() {
        using Self = CFeeCenter;
        using Center = ForeignFeeCenter;
        using LoadMember = void (Self::*)(Account, Records);
        static_assert(is<LoadMember>(&Center::initFees) && is<LoadMember>(&Center::doInitStockFee));
        static_assert(is<LoadMember>(&Center::doInitCreditFee) && is<LoadMember>(&Center::doInitNeeqFee));
        static_assert(is<LoadMember>(&Center::doInitStkOptionFee) && is<LoadMember>(&Center::doInitFutureFee));
        static_assert(is<LoadMember>(&Center::doInitHgtFee) && is<LoadMember>(&Center::doInitSgtFee));

        static_assert(is<Update<IData>>(&Center::updateCustomFee));
        static_assert(is<Update<CCustomStockInstrumentFee>>(&Center::doUpdateStockCustomFee));
        static_assert(is<Update<CCustomStockInstrumentFee>>(&Center::doUpdateCreditCustomFee));
        static_assert(is<Update<CCustomStockInstrumentFee>>(&Center::doUpdateNeeqCustomFee));
        static_assert(is<Update<CCustomStockInstrumentFee>>(&Center::doUpdateStkOptionCustomFee));
        static_assert(is<Update<CCustomFutureInstrumentFee>>(&Center::doUpdateFutureCustomFee));
        static_assert(is<Update<CInstrumentFee>>(&Center::doUpdateFutureInstrumentFee));
        static_assert(is<Update<CCustomHGTInstrumentFee>>(&Center::doUpdateHgtCustomFee));
        static_assert(is<Update<CCustomSgtInstrumentFee>>(&Center::doUpdateSgtCustomFee));

        using LookupWithUnit = Fee (Self::*)(uint64, uint64, int);
        static_assert(is<LookupWithUnit>(&Center::getStockFee) && is<LookupWithUnit>(&Center::getCreditFee));
        static_assert(is<LookupWithUnit>(&Center::getNeeqFee) && is<LookupWithUnit>(&Center::getPbFullFee));
        using Lookup = Fee (Self::*)(uint64, uint64);
        static_assert(is<Lookup>(&Center::getStkOptionFee) && is<Lookup>(&Center::getFutureFee));
        static_assert(is<Lookup>(&Center::getIncomeSwapFutureFee));
        static_assert(is<Lookup>(&Center::getHgtFee) && is<Lookup>(&Center::getSgtFee));

        using List = bool (Self::*)(Account, Fees);
        static_assert(is<List>(&Center::getFees) && is<List>(&Center::getStockFees));
        static_assert(is<List>(&Center::getCreditFees) && is<List>(&Center::getNeeqFees));
        static_assert(is<List>(&Center::getStkOptionFees) && is<List>(&Center::getFutureFees));
        static_assert(is<List>(&Center::getHgtFees) && is<List>(&Center::getSgtFees));

        static_assert(is<void (Self::*)()>(&Center::initDefaultFees));
    }

    // Of overloaded operations the pointer's type chooses: each must exist as written, constness included.

    static void checkQueries() {
        constexpr Fee (CFeeCenter::*byKey)(Account, Text) = &ForeignFeeCenter::getFee;
        constexpr Fee (CFeeCenter::*byName)(Account, Text, Text) = &ForeignFeeCenter::getFee;
        static_cast<void>(byKey);
        static_cast<void>(byName);
    }

    /// The key of a new record by the overload for its class.
    template <class Record>
    uint64 keyOfNew() {
        uint64 (CFeeCenter::*const overload)(const boost::shared_ptr<Record>&) = &ForeignFeeCenter::getHashKey;
        return (this->*overload)(boost::make_shared<Record>());
    }
    template <class Record>
    uint64 keyOfNew(int tradeUnit) {
        uint64 (CFeeCenter::*const overload)(const boost::shared_ptr<Record>&, int) = &ForeignFeeCenter::getHashKey;
        return (this->*overload)(boost::make_shared<Record>(), tradeUnit);
    }

    using CFeeCenter::emptyFee;

private:
    template <class Record>
    using Update = void (CFeeCenter::*)(Account, const boost::shared_ptr<Record>&);

    template <class Record>
    static void checkFamily(const boost::shared_mutex& /*mutex*/, const Pool<Record>& /*pool*/,
                            const Table<uint64>& /*table*/, const boost::shared_ptr<Record>& /*fallback*/) {}
};

TEST(ForeignHost, MembersAreInTheirOrder) {
    const ForeignFeeCenter center;
    center.checkMemberTypes();
    EXPECT_TRUE(center.membersAreInOrder());
    EXPECT_EQ(center.placeOfFirstMember(), static_cast<std::ptrdiff_t>(sizeof(void*)));
}

TEST(ForeignHost, OperationsHaveTheirSignatures) {
    ForeignFeeCenter::checkSignatures();
    ForeignFeeCenter::checkQueries();
    ForeignFeeCenter center;
    // Every value of a new record is 0: its key is that of as many digits, and the trade unit.
    const uint64 nine = crc64(0, "000000000", 9);
    EXPECT_EQ(center.keyOfNew<CCommissionRateDetail>(), nine);
    EXPECT_EQ(center.keyOfNew<CCustomCommissionRateDetail>(), nine);
    const uint64 eight = crc64(0, "00000000", 8);
    EXPECT_EQ(center.keyOfNew<CMarginRateDetail>(), eight);
    EXPECT_EQ(center.keyOfNew<CCustomMarginRateDetail>(), eight);
    EXPECT_EQ(center.keyOfNew<CStkExchangeRateLimit>(100), crc64(0, "000000100", 9));
    EXPECT_EQ(center.keyOfNew<CCustomStkExchangeRateLimit>(100), crc64(0, "00000000000000100", 17));
    const uint64 fourteenAndUnit = crc64(0, "00000000000000100", 17);
    EXPECT_EQ(center.keyOfNew<CCustomHGTExchangeRateLimit>(100), fourteenAndUnit);
    EXPECT_EQ(center.keyOfNew<CCustomSgtExchangeRateLimit>(100), fourteenAndUnit);
}

/// Calls the operation of another class that has the same slot; the arguments do not matter to it.
template <class Operation>
int slotOf(Operation operation) {
    union {
        Operation pointer;
        int (SlotNames::*slot)();
    } both{operation};
    SlotNames names;
    return (names.*both.slot)();
}

TEST(ForeignHost, VirtualOperationsHaveTheirSlots) {
    EXPECT_EQ(slotOf(&IFeeCenter::initFees), 1);
    EXPECT_EQ(slotOf(&IFeeCenter::updateCustomFee), 2);
    EXPECT_EQ(slotOf(static_cast<Fee (IFeeCenter::*)(Account, Text)>(&IFeeCenter::getFee)), 3);
    EXPECT_EQ(slotOf(static_cast<Fee (IFeeCenter::*)(Account, Text, Text)>(&IFeeCenter::getFee)), 4);
    EXPECT_EQ(slotOf(&IFeeCenter::getFees), 5);
}

// A load and a query of each family, through the interface alone.

class ForeignHostTest : public ::testing::Test {
protected:
    ForeignHostTest() {
        foreignHost().catalogue.clear();
        foreignHost().futures.clear();
    }
    ~ForeignHostTest() override { runJobs(); }

    static void runJobs() {
        foreignHost().jobs.restart();
        foreignHost().jobs.run();
    }

    static boost::shared_ptr<CInstrument> add(const std::string& market, const std::string& code) {
        const auto instrument = boost::make_shared<ForeignInstrument>();
        instrument->market = market;
        instrument->code = code;
        foreignHost().catalogue[utils::hash(utils::voStockKey(market, code))] = instrument;
        return instrument;
    }

    /// A record with a rate of every family.
    static Fee makeFee(const boost::shared_ptr<CInstrument>& instrument) {
        auto fee = boost::make_shared<CInstrumentFee>();
        fee->instrument = instrument;
        fee->stkRateLimit = boost::make_shared<CStkExchangeRateLimit>();
        fee->stkRateLimit->rate1 = 1;
        fee->hgtRateLimit = boost::make_shared<CCustomHGTExchangeRateLimit>();
        fee->hgtRateLimit->rate14 = 2;
        fee->sgtRateLimit = boost::make_shared<CCustomSgtExchangeRateLimit>();
        fee->sgtRateLimit->rate14 = 3;
        fee->commissionDetail = boost::make_shared<CCommissionRateDetail>();
        fee->commissionDetail->openRatioByMoney = 4;
        fee->marginDetails = {boost::make_shared<CMarginRateDetail>()};
        fee->marginDetails[0]->longMarginRatio = 5;
        return fee;
    }

    static boost::shared_ptr<CAccountInfo> makeAccount(int kind) { return boost::make_shared<ForeignAccount>(kind, 7); }

    /// The answer after the account's load, which the list must hold too.
    Fee loadAndAsk(int kind, const std::string& market) {
        const auto account = makeAccount(kind);
        const auto instrument = add(market, "1");
        center.initFees(account, {makeFee(instrument)});
        runJobs();
        std::vector<Fee> fees;
        EXPECT_TRUE(center.getFees(account, fees));
        EXPECT_EQ(fees.size(), 1U);
        auto fee = center.getFee(account, market, "1");
        EXPECT_EQ(fee->account, account);
        EXPECT_EQ(fee->instrument, instrument);
        return fee;
    }

    ForeignFeeCenter feeCenter;
    IFeeCenter& center = feeCenter;
};

TEST_F(ForeignHostTest, LoadedRatesOfEachFamilyAreAnswered) {
    EXPECT_EQ(loadAndAsk(2, "SH")->stkRateLimit->rate1, 1);
    EXPECT_EQ(loadAndAsk(3, "SH")->stkRateLimit->rate1, 1);
    EXPECT_EQ(loadAndAsk(10, "NEEQ")->stkRateLimit->rate1, 1);
    EXPECT_EQ(loadAndAsk(7, "HK")->hgtRateLimit->rate14, 2);
    EXPECT_EQ(loadAndAsk(11, "HK")->sgtRateLimit->rate14, 3);
    EXPECT_EQ(loadAndAsk(1, "SHFE")->commissionDetail->openRatioByMoney, 4);
    EXPECT_EQ(center.getFee(makeAccount(5), "SHFE/1")->marginDetails.at(0)->longMarginRatio, 5);
    EXPECT_EQ(center.getFee(makeAccount(12), "SHFE/1")->commissionDetail->openRatioByMoney, 4);
    EXPECT_EQ(center.getFee(makeAccount(16), "SHFE/1")->commissionDetail->openRatioByMoney, 4);
    EXPECT_EQ(center.getFee(makeAccount(7), "HGT/1")->hgtRateLimit->rate14, 2);
}

TEST_F(ForeignHostTest, CustomStockOptionFeeIsAnswered) {
    add("SHO", "1");
    auto custom = boost::make_shared<CCustomStockInstrumentFee>();
    custom->rateLimits = {boost::make_shared<CCustomStkExchangeRateLimit>()};
    custom->rateLimits[0]->category = "5";
    custom->rateLimits[0]->optionFee1 = 6;
    custom->rateLimits[0]->optionFirstKeyCode = '1';
    custom->rateLimits[0]->optionSecondKeyCode = 'D';
    center.updateCustomFee(makeAccount(6), custom);
    runJobs();
    EXPECT_EQ(center.getFee(makeAccount(6), "SHO", "1")->stkOptionFeeRate->items.at("1D")->fee1, 6);
    std::vector<Fee> fees;
    EXPECT_TRUE(center.getFees(makeAccount(6), fees));
    EXPECT_EQ(fees.size(), 1U);
}

TEST_F(ForeignHostTest, InstrumentOfTheHostsOwnClassIsAskedForItsExchangesFees) {
    add("SHFE", "1");
    const auto commission = center.getFee(makeAccount(1), "SHFE", "1")->commissionDetail;
    EXPECT_EQ(commission->instrumentId, "1");
    EXPECT_EQ(commission->openRatioByMoney, 0.5 / 10000);
    EXPECT_EQ(commission->closeRatioByMoney, 0) << "-1 means that the exchange sets none";
    EXPECT_EQ(commission->closeTodayRatioByMoney, 1.0 / 10000);
}

TEST_F(ForeignHostTest, UnknownInstrumentAndUnknownAccountHaveNoFees) {
    EXPECT_FALSE(center.getFee(makeAccount(2), "SH", "none"));
    EXPECT_FALSE(feeCenter.emptyFee);
    std::vector<Fee> fees;
    for (const int kind : {1, 2, 3, 5, 6, 7, 8, 10, 11, 12, 16}) {
        EXPECT_FALSE(center.getFees(makeAccount(kind), fees)) << kind;
    }
    EXPECT_TRUE(fees.empty());
}

TEST_F(ForeignHostTest, CustomFutureFeeReachesAnInstrumentThatTheFirstTypeListsAsEmpty) {
    const auto instrument = add("SHFE", "1");
    foreignHost().futures[2]["key"] = nullptr;
    foreignHost().futures[1024]["key"] = instrument;
    auto custom = boost::make_shared<CCustomFutureInstrumentFee>();
    custom->commissionDetails = {boost::make_shared<CCustomCommissionRateDetail>()};
    custom->commissionDetails[0]->categoryId = "5";
    custom->commissionDetails[0]->openRatioByVolume = 8;
    center.updateCustomFee(makeAccount(1), custom);
    runJobs();
    EXPECT_EQ(center.getFee(makeAccount(1), "SHFE", "1")->commissionDetail->openRatioByVolume, 8);
}

}  // namespace
