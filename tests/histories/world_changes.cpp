#include "histories/world_changes.h"

#include <algorithm>
#include <array>
#include <boost/smart_ptr/make_shared.hpp>
#include <cstddef>

#include "histories/choices.h"
#include "histories/record_fields.h"

namespace histories {
namespace {

using model::Name;

/// Any of the instruments but the empty one.
const Instrument& chooseInstrument(Bytes& bytes, const World& world) {
    return world.instruments[bytes.pick(world.instruments.size() - 1)];
}

Name nameOf(const Instrument& instrument) { return {instrument->market, instrument->code}; }

std::string keyOf(const Instrument& instrument) { return model::joinedKey(instrument->market, instrument->code); }

/// Takes the member out of the set, or puts it in.
template <class Set>
void toggle(Set& set, const typename Set::value_type& member) {
    if (set.erase(member) == 0) {
        set.insert(member);
    }
}

WorldChange inCatalogue(Bytes& bytes, const World& world) {
    const Instrument instrument = chooseInstrument(bytes, world);
    return {[=](World& changing) {
                auto& found = changing.facts.catalogue[keyOf(instrument)];
                found = found == instrument ? nullptr : instrument;
            },
            [=] { return "the catalogue finds or loses " + show(instrument); }};
}

WorldChange inLists(Bytes& bytes, const World& world) {
    constexpr std::array<int, 8> kMasks{1, 8, 32, 128, 256, 16384, 1 | 8 | 256, 128 | 16384};
    constexpr std::array<int, 4> kTypes{0, 2, 1024, 2 | 1024};
    const Instrument instrument = chooseInstrument(bytes, world);
    const int mask = bytes.of(kMasks);
    const int types = bytes.of(kTypes);
    return {[=](World& changing) {
                auto& listed = changing.facts.listed;
                const auto gone = std::remove_if(listed.begin(), listed.end(),
                                                 [&](const auto& entry) { return entry.instrument == instrument; });
                if (gone != listed.end()) {
                    listed.erase(gone, listed.end());
                } else {
                    listed.push_back({instrument, mask, types});
                }
            },
            [=] {
                return show(instrument) + " leaves the lists or joins those of mask " + std::to_string(mask) +
                       " and the maps of types " + std::to_string(types);
            }};
}

/// Sets the configured limit of an instrument, or takes it away.
template <class Limit, class Map>
WorldChange configure(Bytes& bytes, const World& world, const boost::shared_ptr<Limit>& limit,
                      Map model::Facts::*configured) {
    const Name name = nameOf(chooseInstrument(bytes, world));
    const bool take = bytes.oneIn(3);
    return {[=](World& changing) {
                if (take) {
                    (changing.facts.*configured).erase(name);
                } else {
                    (changing.facts.*configured)[name] = boost::make_shared<Limit>(*limit);
                }
            },
            [=] {
                return "the configured limit of \"" + name.first + '|' + name.second + "\" becomes " +
                       (take ? "none" : showRecord(*limit));
            }};
}

WorldChange tradeUnit(Bytes& bytes, const World& world) {
    const Name name = nameOf(chooseInstrument(bytes, world));
    const int unit = chooseTradeUnit(bytes);
    return {[=](World& changing) { changing.facts.tradeUnits[name] = unit; },
            [=] { return "the trade unit of \"" + name.first + '|' + name.second + "\" is " + std::to_string(unit); }};
}

WorldChange systemMember(Bytes& bytes, const World& world) {
    const Instrument instrument = chooseInstrument(bytes, world);
    const int number = bytes.of(kCategoryNumbers);
    return {[=](World& changing) {
                toggle(changing.facts.systemMembers, {number, nameOf(instrument)});
            },
            [=] { return show(instrument) + " joins or leaves category " + std::to_string(number); }};
}

WorldChange groupMember(Bytes& bytes, const World& world) {
    const Instrument instrument = chooseInstrument(bytes, world);
    return {[=](World& changing) { toggle(changing.facts.groupMembers, nameOf(instrument)); },
            [=] { return show(instrument) + " joins or leaves the groups"; }};
}

WorldChange simulation(Bytes& bytes) {
    constexpr std::array<int, 3> kPlatforms{9, 1, 3};
    const int platform = bytes.of(kPlatforms);
    return {[=](World& changing) { toggle(changing.facts.simulationPlatforms, platform); },
            [=] { return "platform " + std::to_string(platform) + " becomes a simulation or ceases to be one"; }};
}

WorldChange accountData(Bytes& bytes, const World& world) {
    const auto& accounts = world.accounts(Focus::all);
    const Account account = accounts[bytes.pick(accounts.size())];
    const std::size_t known = bytes.pick(3);
    return {[=](World& changing) {
                changing.facts.accounts[account->getHashKey(0)] =
                    known == 0 ? nullptr
                               : boost::make_shared<qmservice::CAccountData>(known == 1 ? Account(account) : Account());
            },
            [=] {
                constexpr std::array<const char*, 3> kWords{"nothing", "the account", "data without an account"};
                return "the data center has for the account of " + show(account) + ": " + kWords[known];
            }};
}

WorldChange foreignMarket(Bytes& bytes, const World& world) {
    const std::string market = chooseInstrument(bytes, world)->market;
    return {[=](World& changing) { toggle(changing.facts.foreignMarkets, market); },
            [=] { return "market \"" + market + "\" becomes foreign or ceases to be"; }};
}

}  // namespace

WorldChange chooseWorldChange(Bytes& bytes, const World& world) {
    switch (bytes.pick(12)) {
        case 0:
            return tradeUnit(bytes, world);
        case 1:
        case 2:
            return configure(bytes, world, chooseStockLimit(bytes), &model::Facts::rateLimits);
        case 3:
            return configure(bytes, world, chooseConnectLimit<qmservice::CCustomHGTExchangeRateLimit>(bytes),
                             &model::Facts::hgtLimits);
        case 4:
            return configure(bytes, world, chooseConnectLimit<qmservice::CCustomSgtExchangeRateLimit>(bytes),
                             &model::Facts::sgtLimits);
        case 5:
            return inLists(bytes, world);
        case 6:
            return systemMember(bytes, world);
        case 7:
            return groupMember(bytes, world);
        case 8:
            return simulation(bytes);
        case 9:
            return accountData(bytes, world);
        case 10:
            return foreignMarket(bytes, world);
        default:
            return inCatalogue(bytes, world);
    }
}

}  // namespace histories
