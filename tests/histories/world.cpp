#include "histories/world.h"

#include <algorithm>
#include <boost/smart_ptr/make_shared.hpp>
#include <cstddef>
#include <limits>
#include <set>
#include <utility>

#include "histories/world_rows.h"
#include "support/builders.h"

namespace histories {
namespace {

using model::joinedKey;
using model::uint64;

Instrument makeInstrument(const Row& row) {
    auto instrument = boost::make_shared<qmservice::CInstrument>();
    instrument->market = row.market;
    instrument->code = row.code;
    instrument->productId = row.product;
    instrument->feeType = row.feeType;
    instrument->openFee = row.openFee;
    instrument->closeFee = row.closeFee;
    instrument->closeTodayFee = row.closeTodayFee;
    return instrument;
}

Instrument makeInstrument(const char* market, const char* code, const char* product = "") {
    return makeInstrument(Row{market, code, product, 0, 0, 1, 6, 6, 6});
}

bool belongsTo(Focus focus, int kind) {
    switch (focus) {
        case Focus::stockLike:
            return kind == 2 || kind == 3 || kind == 6 || kind == 10;
        case Focus::futures:
            return kind == 1 || kind == 5 || kind == 12;
        case Focus::connect:
            return kind == 7 || kind == 11;
        case Focus::all:
            break;
    }
    return true;
}

constexpr double kPastAnyRate = std::numeric_limits<double>::max();

template <class Limit>
boost::shared_ptr<Limit> configuredConnectLimit(double rate) {
    auto limit = boost::make_shared<Limit>();
    limit->rate1 = rate;
    limit->rate14 = kPastAnyRate;
    return limit;
}

bool contains(const std::vector<std::string>& members, const std::string& code) {
    return std::find(members.begin(), members.end(), code) != members.end();
}

std::set<std::string> marketsOf(const std::vector<Instrument>& instruments) {
    std::set<std::string> markets;
    for (const auto& instrument : instruments) {
        if (instrument) {
            markets.insert(instrument->market);
        }
    }
    return markets;
}

}  // namespace

const char* nameOf(Focus focus) {
    switch (focus) {
        case Focus::stockLike:
            return "StockLike";
        case Focus::futures:
            return "Futures";
        case Focus::connect:
            return "Connect";
        case Focus::all:
            break;
    }
    return "AllKinds";
}

World::World() {
    addInstruments();
    addOddities();
    addAccounts();
    addCategories();
    addQuestions();
    facts.tradeUnits = {{{"SH", "600001"}, 1}, {{"SZ", "300750"}, 200}, {{"BJ", "430047"}, 10}, {{"HK", "00005"}, 400}};
    facts.rateLimits[{"SH", "600001"}] = test::makeLimit(0.0002, 0.0005);
    facts.rateLimits[{"NEEQ", "830400"}] = test::makeLimit(0.0003, 0.0006);
    facts.rateLimits[{"NEEQ", "830400"}]->unitVolume = 100;
    facts.hgtLimits[{"HK", "00005"}] = configuredConnectLimit<qmservice::CCustomHGTExchangeRateLimit>(0.5);
    facts.sgtLimits[{"HK", "00005"}] = configuredConnectLimit<qmservice::CCustomSgtExchangeRateLimit>(0.25);
    facts.simulationPlatforms = {9};
    facts.foreignMarkets = {"FRGN"};
}

const std::vector<Account>& World::accounts(Focus focus) const {
    return accountsByFocus[static_cast<std::size_t>(focus)];
}

void World::addInstruments() {
    for (const Row& row : kRows) {
        instruments.push_back(makeInstrument(row));
        facts.listed.push_back({instruments.back(), row.listMask, row.types});
        facts.catalogue[joinedKey(row.market, row.code)] = instruments.back();
    }
}

void World::addOddities() {
    constexpr int kEveryMask = 1 | 8 | 32 | 128 | 256 | 16384;
    constexpr int kEveryType = 2 | 1024;
    // Listed, but not in the catalogue.
    instruments.push_back(makeInstrument("SH", "688099"));
    facts.listed.push_back({instruments.back(), kEveryMask, kEveryType});
    // In the catalogue, but not listed.
    instruments.push_back(makeInstrument("SH", "688098"));
    facts.catalogue[joinedKey("SH", "688098")] = instruments.back();
    // Another record of an instrument: a list may hold an older copy, and each type's map one of its own.
    instruments.push_back(makeInstrument("SH", "600000", "rb"));
    facts.listed.push_back({instruments.back(), kEveryMask, 0});
    instruments.push_back(makeInstrument("SHFE", "rb2605", "out"));
    facts.listed.push_back({instruments.back(), 0, 1024});
    // Instruments of the connect markets, and those that the folded key finds. The catalogue has no record under two
    // keys: a list's fees are distinguished by their instruments.
    instruments.push_back(makeInstrument("HGT", "09988"));
    facts.catalogue[joinedKey("HK", "09988")] = makeInstrument("HGT", "09988");
    instruments.push_back(makeInstrument("SGT", "02318"));
    facts.catalogue[joinedKey("HK", "02318")] = makeInstrument("SGT", "02318");
    instruments.push_back(makeInstrument("HK", "09988"));
    facts.listed.push_back({instruments.back(), 128 | 16384, 0});
    instruments.push_back(makeInstrument("HK", "02318"));
    facts.listed.push_back({instruments.back(), 128 | 16384, 0});
    // What a key with the text in its code folds onto is no joined key.
    facts.catalogue["HKHGT5"] = makeInstrument("SH", "folded");
    facts.catalogue["HKSGT7"] = makeInstrument("SHFE", "folded");
    facts.catalogue["SH|A"] = nullptr;
    facts.listed.push_back({nullptr, kEveryMask, kEveryType});
    instruments.emplace_back();
}

void World::addAccounts() {
    for (const AccountRow& row : kAccounts) {
        const auto account = test::makeAccount(row.kind, row.key);
        account->platformId = row.platform;
        for (const Focus focus : kFocuses) {
            if (belongsTo(focus, row.kind)) {
                accountsByFocus[static_cast<std::size_t>(focus)].push_back(account);
            }
        }
        // The data center does not know 104 and 105, and of 107 it has data without the account.
        if (row.key != 104 && row.key != 105 && facts.accounts.count(row.key) == 0) {
            facts.accounts[row.key] =
                boost::make_shared<qmservice::CAccountData>(row.key == 107 ? Account() : Account(account));
        }
    }
}

void World::addCategories() {
    for (std::size_t i = 0; i + 1 < instruments.size(); ++i) {
        const model::Name name(instruments[i]->market, instruments[i]->code);
        for (const int number : {1, 5, -5, 0, -1}) {
            if ((i + static_cast<std::size_t>(number + 5)) % 3 == 0) {
                facts.systemMembers.insert({number, name});
            }
        }
        if (i % 4 != 1) {
            facts.groupMembers.insert(name);
        }
    }
    // Of a custom category's number that is a system category too, by chance: the last one listed for each family.
    for (const auto& name : std::vector<model::Name>{
             {"NEEQ", "871232"}, {"SZSE", "159915"}, {"SSEHKEX", "00001"}, {"SZSEHKEX", "00002"}, {"GF", "lc2607"}}) {
        facts.systemMembers.insert({10001, name});
        facts.systemMembers.insert({70001, name});
    }
    facts.categoryNumbers = {{"stocks", 1},     {"mine", 10001},  {"group", 70001}, {"five", 5},
                             {"beyond", 80002}, {"15000", 80001}, {"5", -5},        {"10001", 10001},
                             {"75000", 75000},  {"70000", 70000}, {"20002", 20002}, {"1", 20001}};
    addCategoryTests();
}

bool World::counted(std::string_view test, bool answer) {
    if (updating) {
        reached.count(*updating, test, answer ? kYes : kNo);
    }
    return answer;
}

/// Everything that a test is handed counts, so that a wrong argument gives a wrong answer somewhere.
void World::addCategoryTests() {
    facts.inSystemCategory = [this](const std::string& market, const std::string& code, const std::string& product,
                                    int number) {
        return counted(kSystemTest,
                       facts.systemMembers.count({number, {market, code}}) != 0 || (number == 2 && product == "rb"));
    };
    facts.inCustomCategory = [this, markets = marketsOf(instruments)](const std::string& market,
                                                                      const std::string& code,
                                                                      const std::vector<std::string>& members) {
        if (updating && members.empty()) {
            reached.count(*updating, kCustomTest, kNoList);
        }
        return counted(kCustomTest, market != "GF" && markets.count(market) != 0 && contains(members, code));
    };
    facts.inGroupCategory = [this](const std::string& market, const std::string& code, const std::string& product,
                                   const auto& parts, const auto& customCategories) {
        const auto third = customCategories.find(3);
        const bool barred = third != customCategories.end() && contains(third->second, code);
        const bool taken = std::any_of(parts.begin(), parts.end(), [](const auto& part) {
            return part && (part->category % 2 != 0) == (part->excluded == 0);
        });
        return counted(kGroupTest,
                       facts.groupMembers.count({market, code}) != 0 && product != "out" && !barred && taken);
    };
}

void World::ask(const std::string& market, const std::string& code) {
    questions.push_back({joinedKey(market, code), market, code, true});
}

void World::addQuestions() {
    for (const Row& row : kRows) {
        ask(row.market, row.code);
    }
    for (const char* code : {"00700", "00005", "HGT5", "09988", "02318"}) {
        ask("HGT", code);
        ask("SGT", code);
    }
    ask("HK", "09988");
    ask("SH", "688099");
    ask("SH", "688098");
    ask("SZ", "HGT5");
    ask("SH", "A");
    ask("SH", "no such code");
    for (const char* key : {"", "H", "SH", "HG", "HGT", "SGT00700", "SHHGT5", "HK00700"}) {
        questions.push_back({key, "", "", false});
    }
}

}  // namespace histories
