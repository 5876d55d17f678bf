#include "support/operations.h"

#include <boost/smart_ptr/make_shared.hpp>
#include <map>
#include <utility>

#include "support/builders.h"
#include "support/future_builders.h"

namespace test {
namespace {

using namespace qmservice;
using Kind = Operation::Kind;
using Locks = Operation::Locks;
using Account = boost::shared_ptr<CAccountInfo>;
using Fees = std::vector<boost::shared_ptr<CInstrumentFee>>;

constexpr double kGroupRate = kChangedRate + 10;

/// Tells the host that its key is asked for.
class HookedAccount : public KeyedAccount {
public:
    using KeyedAccount::KeyedAccount;

    [[nodiscard]] uint64 getHashKey(uint64 seed) const override {
        FakeHost::instance().called("getHashKey");
        return KeyedAccount::getHashKey(seed);
    }
};

// Changes.

using LoadMember = void (OpenFeeCenter::*)(const Account&, const std::vector<Scene::Record>&);

Operation load(const char* name, int accountKind, Locks exclusive, LoadMember member) {
    return {name,
            Kind::kLoad,
            accountKind,
            {},
            std::move(exclusive),
            [member](const Scene& scene, OpenFeeCenter& center, const Subject& subject) {
                (center.*member)(subject.account, scene.records(kChangedRate));
                return std::string();
            },
            [](const Scene& scene, OpenFeeCenter& center, const Subject& subject) {
                center.initFees(subject.account, scene.records(kChangedRate));
            },
            nullptr,
            ""};
}

/// `makeFee` makes the custom fee out of the scene.
template <class Member, class MakeFee>
Operation update(const char* name, int accountKind, Locks exclusive, Member member, MakeFee makeFee) {
    return {name,
            Kind::kUpdate,
            accountKind,
            {},
            std::move(exclusive),
            [member, makeFee](const Scene& scene, OpenFeeCenter& center, const Subject& subject) {
                (center.*member)(subject.account, makeFee(scene));
                return std::string();
            },
            [makeFee](const Scene& scene, OpenFeeCenter& center, const Subject& subject) {
                center.updateCustomFee(subject.account, makeFee(scene));
            },
            makeFee,
            ""};
}

/// Makes a custom entry the group's.
template <class Entry, class Category>
boost::shared_ptr<Entry> forGroup(boost::shared_ptr<Entry> entry, Category category) {
    (*entry).*category = "70001";
    entry->groupCategories = {boost::make_shared<CGroupCategorySubInfo>()};
    return entry;
}

boost::shared_ptr<CCustomStockInstrumentFee> stockFee(const Scene& /*scene*/) {
    auto fee = Scene::stockCustom(kChangedRate, '0');
    auto group = Scene::stockCustom(kGroupRate, '0')->rateLimits.front();
    fee->rateLimits.insert(fee->rateLimits.begin(), forGroup(group, &CCustomStkExchangeRateLimit::category));
    return fee;
}

template <class Fee, class Limit, boost::shared_ptr<Limit> CInstrumentFee::*Slot>
boost::shared_ptr<Fee> connectFee(const Scene& scene) {
    const auto& instrument = scene.instruments.front();
    auto all = (*Scene::fullFee(instrument, kChangedRate)).*Slot;
    auto group = (*Scene::fullFee(instrument, kGroupRate)).*Slot;
    all->category = "5";
    return makeCustomFee<HostsOwn<Fee>>(forGroup(group, &Limit::category), all);
}

boost::shared_ptr<CCustomFutureInstrumentFee> futureFee(const Scene& /*scene*/) {
    auto fee = boost::make_shared<HostsOwn<CCustomFutureInstrumentFee>>();
    fee->commissionDetails = {forGroup(makeCustomCommission("", kGroupRate), &CCustomCommissionRateDetail::categoryId),
                              makeCustomCommission("5", kChangedRate)};
    fee->marginDetails = {forGroup(makeCustomMargin("", '1', kGroupRate), &CCustomMarginRateDetail::categoryId),
                          makeCustomMargin("5", '2', kChangedRate)};
    return fee;
}

boost::shared_ptr<CInstrumentFee> instrumentFee(const Scene& scene) {
    return Scene::fullFee(scene.instruments.front(), kChangedRate);
}

// Queries.

template <class Find>
Operation lookup(const char* name, int accountKind, Locks shared, Find find, const char* market = "") {
    return {name,
            Kind::kLookup,
            accountKind,
            std::move(shared),
            {},
            [find](const Scene& /*scene*/, OpenFeeCenter& center, const Subject& subject) {
                return answerText(find(center, subject.accountKey, subject.instrumentKey));
            },
            nullptr,
            nullptr,
            market};
}

Operation primeBrokerage(const char* name, Locks shared, const char* market) {
    return lookup(
        name, 12, std::move(shared),
        [](OpenFeeCenter& center, uint64 account, uint64 instrument) {
            return center.getPbFullFee(account, instrument, 100);
        },
        market);
}

std::string listText(const Account& account, const Fees& fees, bool listed) {
    if (!listed) {
        return fees.empty() ? "no list" : "no list but fees";
    }
    std::map<std::string, std::string> answers;
    for (const auto& fee : fees) {
        const bool stamped = fee && fee->account == account && fee->instrument;
        answers[stamped ? fee->instrument->code : "not stamped"] += answerText(fee);
    }
    std::string text;
    for (const auto& answer : answers) {
        text += answer.first + ": " + answer.second + " ";
    }
    return text;
}

template <class Member>
Operation list(const char* name, int accountKind, Locks shared, Member member) {
    return {name,
            Kind::kList,
            accountKind,
            std::move(shared),
            {},
            [member](const Scene& /*scene*/, OpenFeeCenter& center, const Subject& subject) {
                Fees fees;
                const bool listed = (center.*member)(subject.account, fees);
                return listText(subject.account, fees, listed);
            },
            nullptr,
            nullptr,
            ""};
}

using ListMember = bool (OpenFeeCenter::*)(const Account&, Fees&);

Operation entryList(const char* name, int accountKind, Locks shared) {
    return list(name, accountKind, std::move(shared), static_cast<ListMember>(&OpenFeeCenter::getFees));
}

Operation entryLookup(const char* name, int accountKind, Locks shared, const char* market = "") {
    return {name,
            Kind::kLookup,
            accountKind,
            std::move(shared),
            {},
            [](const Scene& /*scene*/, OpenFeeCenter& center, const Subject& subject) {
                const auto& instrument = subject.instrument;
                const auto fee = center.getFee(subject.account, instrument->market, instrument->code);
                const bool stamped = !fee || (fee->account == subject.account && fee->instrument == instrument);
                return stamped ? answerText(fee) : "not stamped";
            },
            nullptr,
            nullptr,
            market};
}

}  // namespace

void PrintTo(const Operation& operation, std::ostream* out) { *out << operation.name; }

const std::vector<Operation>& changes() {
    using Center = OpenFeeCenter;
    static const std::vector<Operation> all = {
        load("doInitStockFee", 2, {"stock"}, &Center::doInitStockFee),
        load("doInitCreditFee", 3, {"credit"}, &Center::doInitCreditFee),
        load("doInitNeeqFee", 10, {"neeq"}, &Center::doInitNeeqFee),
        load("doInitStkOptionFee", 6, {}, &Center::doInitStkOptionFee),
        load("doInitHgtFee", 7, {"hgt"}, &Center::doInitHgtFee),
        load("doInitSgtFee", 11, {"sgt"}, &Center::doInitSgtFee),
        load("doInitFutureFee", 1, {"future"}, &Center::doInitFutureFee),
        update("doUpdateStockCustomFee", 2, {"stock"}, &Center::doUpdateStockCustomFee, stockFee),
        update("doUpdateCreditCustomFee", 3, {"credit"}, &Center::doUpdateCreditCustomFee, stockFee),
        update("doUpdateNeeqCustomFee", 10, {"neeq"}, &Center::doUpdateNeeqCustomFee, stockFee),
        // The stock family's lock, not the options' own, which only their queries take.
        update("doUpdateStkOptionCustomFee", 6, {"stock", "stkOptionTable"}, &Center::doUpdateStkOptionCustomFee,
               stockFee),
        update("doUpdateHgtCustomFee", 7, {"hgt"}, &Center::doUpdateHgtCustomFee,
               connectFee<CCustomHGTInstrumentFee, CCustomHGTExchangeRateLimit, &CInstrumentFee::hgtRateLimit>),
        update("doUpdateSgtCustomFee", 11, {"sgt"}, &Center::doUpdateSgtCustomFee,
               connectFee<CCustomSgtInstrumentFee, CCustomSgtExchangeRateLimit, &CInstrumentFee::sgtRateLimit>),
        update("doUpdateFutureCustomFee", 5, {"future"}, &Center::doUpdateFutureCustomFee, futureFee),
        update("doUpdateFutureInstrumentFee", 12, {"future"}, &Center::doUpdateFutureInstrumentFee, instrumentFee)};
    return all;
}

const std::vector<Operation>& lookups() {
    static const std::vector<Operation> all = {
        lookup("getStockFee", 2, {"stock"},
               [](auto& center, auto... keys) { return center.getStockFee(keys..., 100); }),
        lookup("getCreditFee", 3, {"credit"},
               [](auto& center, auto... keys) { return center.getCreditFee(keys..., 100); }),
        lookup("getNeeqFee", 10, {"neeq"}, [](auto& center, auto... keys) { return center.getNeeqFee(keys..., 100); }),
        lookup("getStkOptionFee", 6, {"stkOption", "stkOptionTable"},
               [](auto& center, auto... keys) { return center.getStkOptionFee(keys...); }),
        lookup("getHgtFee", 7, {"hgt"}, [](auto& center, auto... keys) { return center.getHgtFee(keys...); }),
        lookup("getSgtFee", 11, {"sgt"}, [](auto& center, auto... keys) { return center.getSgtFee(keys...); }),
        lookup("getFutureFee", 1, {"future"}, [](auto& center, auto... keys) { return center.getFutureFee(keys...); }),
        lookup("getIncomeSwapFutureFee", 16, {"future"},
               [](auto& center, auto... keys) { return center.getIncomeSwapFutureFee(keys...); }),
        primeBrokerage("getPbFullFeeOfAStock", {"stock", "stkOption", "stkOptionTable"}, ""),
        primeBrokerage("getPbFullFeeOfAFuture", {"future"}, "DCE"),
        primeBrokerage("getPbFullFeeOfShanghaiConnect", {"hgt"}, "SSEHKEX"),
        primeBrokerage("getPbFullFeeOfShenzhenConnect", {"sgt"}, "SZSEHKEX"),
        primeBrokerage("getPbFullFeeOfHongKong", {"hgt", "sgt"}, "HK"),
        primeBrokerage("getPbFullFeeOfAnOption", {"stkOption", "stkOptionTable"}, "SHO"),
        primeBrokerage("getPbFullFeeOfAForeignFuture", {"future"}, "CMEO"),
        primeBrokerage("getPbFullFeeOfNeeq", {"neeq"}, "NEEQ"),
        primeBrokerage("getPbFullFeeOfNoFamily", {}, "XX")};
    return all;
}

const std::vector<Operation>& lists() {
    using Center = OpenFeeCenter;
    static const std::vector<Operation> all = {
        list("getStockFees", 2, {"stock"}, &Center::getStockFees),
        list("getCreditFees", 3, {"credit"}, &Center::getCreditFees),
        // Each entry of the list is the stock lookup's.
        list("getNeeqFees", 10, {"neeq", "stock"}, &Center::getNeeqFees),
        list("getStkOptionFees", 6, {"stkOption", "stkOptionTable"}, &Center::getStkOptionFees),
        list("getHgtFees", 7, {"hgt"}, &Center::getHgtFees), list("getSgtFees", 11, {"sgt"}, &Center::getSgtFees),
        list("getFutureFees", 1, {"future"}, &Center::getFutureFees)};
    return all;
}

const std::vector<Operation>& entryQueries() {
    static const std::vector<Operation> all = {
        entryLookup("getFeeOfKind1", 1, {"future"}),
        entryLookup("getFeeOfKind2", 2, {"stock"}),
        entryLookup("getFeeOfKind3", 3, {"credit"}),
        entryLookup("getFeeOfKind4", 4, {}),
        entryLookup("getFeeOfKind5", 5, {"future"}),
        entryLookup("getFeeOfKind6", 6, {"stkOption", "stkOptionTable"}),
        entryLookup("getFeeOfKind7", 7, {"hgt"}),
        entryLookup("getFeeOfKind8", 8, {"stock"}),
        entryLookup("getFeeOfKind8OfAFuture", 8, {"future"}, "DCE"),
        entryLookup("getFeeOfKind10", 10, {"neeq"}),
        entryLookup("getFeeOfKind11", 11, {"sgt"}),
        entryLookup("getFeeOfKind12", 12, {"stock", "stkOption", "stkOptionTable"}),
        entryLookup("getFeeOfKind12InHongKong", 12, {"hgt", "sgt"}, "HK"),
        entryLookup("getFeeOfKind16", 16, {"future"}),
        entryList("getFeesOfKind1", 1, {"future"}),
        entryList("getFeesOfKind2", 2, {"stock"}),
        entryList("getFeesOfKind3", 3, {"credit"}),
        entryList("getFeesOfKind5", 5, {"future"}),
        entryList("getFeesOfKind6", 6, {"stkOption", "stkOptionTable"}),
        entryList("getFeesOfKind7", 7, {"hgt"}),
        entryList("getFeesOfKind10", 10, {"neeq", "stock"}),
        entryList("getFeesOfKind11", 11, {"sgt"}),
        entryList("getFeesOfKind12", 12, {})};
    return all;
}

std::vector<Operation> allOperations() {
    std::vector<Operation> all = changes();
    for (const auto* more : {&lookups(), &lists(), &entryQueries()}) {
        all.insert(all.end(), more->begin(), more->end());
    }
    return all;
}

Subject subjectOf(const Scene& scene, const Operation& operation, uint64 account, std::size_t instrument) {
    const auto keyed = boost::make_shared<HookedAccount>(operation.accountKind, account);
    auto asked = scene.instruments.at(instrument);
    if (!operation.market.empty()) {
        asked = scene.host.catalogue.at(instrumentKey(operation.market, asked->code));
    }
    return {keyed, asked, account, instrumentKey(*asked)};
}

void stageOperations(Scene& scene) {
    scene.host.groupMembers.insert({"SH", "B"});
    scene.host.categoryNumbers["70001"] = 70001;
    scene.host.simulationPlatforms = {9};
    for (const uint64 key : {kKnown, kNew}) {
        const auto account = makeAccount(0, key);
        account->platformId = 9;
        scene.host.accounts[key] = boost::make_shared<CAccountData>(account);
    }
    for (const auto* operations : {&lookups(), &entryQueries()}) {
        for (const auto& operation : *operations) {
            for (const auto& instrument : scene.instruments) {
                if (!operation.market.empty()) {
                    scene.host.add(makeSceneInstrument(operation.market, instrument->code), 0, 0);
                }
            }
        }
    }
}

}  // namespace test
