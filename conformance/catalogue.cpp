#include <algorithm>
#include <cmath>
#include <map>
#include <set>

#include "conformance/asking.h"
#include "conformance/promise.h"

namespace conformance {
namespace {

using namespace qmservice;
using Instruments = std::vector<boost::shared_ptr<CInstrument>>;

constexpr InstrumentList kLists[] = {kStockList, kCreditList, kOptionList, kHgtList, kNeeqList, kSgtList};
constexpr InstrumentType kTypes[] = {kFuturesType, kFuturesExtraType};

Instruments listOf(Witness& witness, int mask) {
    Instruments instruments;
    witness.call("IInstrumentCenter::getInstrumentList(mask " + std::to_string(mask) + ")",
                 [&] { catalogue().getInstrumentList(instruments, mask); });
    return instruments;
}

std::map<std::string, boost::shared_ptr<CInstrument>> keyedMapOf(Witness& witness, int type) {
    std::map<std::string, boost::shared_ptr<CInstrument>> byKey;
    witness.call("IInstrumentCenter::getInstrumentMap(type " + std::to_string(type) + ")",
                 [&] { catalogue().getInstrumentMap(type, byKey); });
    return byKey;
}

Instruments mapOf(Witness& witness, int type) {
    const auto byKey = keyedMapOf(witness, type);
    Instruments instruments;
    instruments.reserve(byKey.size());
    for (const auto& entry : byKey) {
        instruments.push_back(entry.second);
    }
    return instruments;
}

std::set<std::string> namesOf(const Instruments& instruments) {
    std::set<std::string> names;
    for (const auto& instrument : instruments) {
        if (instrument) {
            names.insert(nameOf(instrument.get()));
        }
    }
    return names;
}

/// The first name that `others` lacks; empty when it has all.
std::string missing(const std::set<std::string>& names, const std::set<std::string>& others) {
    const auto lacking =
        std::find_if(names.begin(), names.end(), [&](const auto& name) { return others.count(name) == 0; });
    return lacking == names.end() ? "" : *lacking;
}

void knows(const Sample& sample, Witness& witness) {
    for (const SampleInstrument& known : instrumentsOf(sample)) {
        const auto instrument = find(witness, known.market, known.code);
        Witness::expect(instrument && instrument->market == known.market && instrument->code == known.code,
                        "gave " + nameOf(instrument.get()));
    }
}

void unknownInstrument(const Sample& /*sample*/, Witness& witness) {
    const auto instrument = find(witness, kNoMarket, kNoCode);
    Witness::expect(!instrument, "gave " + nameOf(instrument.get()));
}

void staysTheSame(const Sample& sample, Witness& witness) {
    for (const SampleInstrument& known : instrumentsOf(sample)) {
        const std::string before = find(witness, known.market, known.code)->productId;
        const std::string after = find(witness, known.market, known.code)->productId;
        Witness::expect(before == after, "gave product " + inQuotes(before) + " and then " + inQuotes(after));
    }
}

void listsRepeat(const Sample& /*sample*/, Witness& witness) {
    for (const int list : kLists) {
        const auto before = namesOf(listOf(witness, list));
        const auto after = namesOf(listOf(witness, list));
        const std::string lost = missing(before, after);
        const std::string won = missing(after, before);
        Witness::expect(lost.empty(), "left out " + lost + ", which it gave the time before");
        Witness::expect(won.empty(), "gave " + won + ", which it left out the time before");
    }
}

void maskJoins(const Sample& /*sample*/, Witness& witness) {
    std::set<std::string> each;
    int mask = 0;
    for (const int list : kLists) {
        const auto names = namesOf(listOf(witness, list));
        each.insert(names.begin(), names.end());
        mask |= list;
    }
    const std::string lost = missing(each, namesOf(listOf(witness, mask)));
    Witness::expect(lost.empty(), "left out " + lost + ", which the list of one of these bits has");
}

void listedIsKnown(const Sample& /*sample*/, Witness& witness) {
    const auto expectKnown = [&](const Instruments& instruments, const std::string& from) {
        for (const auto& listed : instruments) {
            if (!listed) {
                continue;
            }
            const auto found = find(witness, listed->market, listed->code);
            Witness::expect(found && found->market == listed->market && found->code == listed->code,
                            "gave " + nameOf(found.get()) + " though " + from + " has the instrument");
        }
    };
    for (const int list : kLists) {
        expectKnown(listOf(witness, list), "list " + std::to_string(list));
    }
    for (const int type : kTypes) {
        expectKnown(mapOf(witness, type), "the map of type " + std::to_string(type));
    }
}

void listedWhereNamed(const Sample& sample, Witness& witness) {
    bool any = false;
    for (const SampleInstrument& known : instrumentsOf(sample)) {
        const std::string name = known.market + " " + known.code;
        const auto expectListed = [&](const Instruments& instruments) {
            any = true;
            Witness::expect(namesOf(instruments).count(name) != 0, "left out " + name);
        };
        for (const int list : kLists) {
            if ((known.lists & list) != 0) {
                expectListed(listOf(witness, list));
            }
        }
        for (const int type : kTypes) {
            if ((known.types & type) != 0) {
                expectListed(mapOf(witness, type));
            }
        }
    }
    if (!any) {
        throw NotChecked{"no sample instrument says which lists hold it: set SampleInstrument::lists and types"};
    }
}

// A custom fee of futures walks both maps as one and passes over a key of the second that the first has.
void mapKeysAgree(const Sample& /*sample*/, Witness& witness) {
    const auto first = keyedMapOf(witness, kTypes[0]);
    for (const auto& [key, instrument] : keyedMapOf(witness, kTypes[1])) {
        const auto same = first.find(key);
        const bool agree = same == first.end() || !same->second || !instrument ||
                           nameOf(same->second.get()) == nameOf(instrument.get());
        if (!agree) {
            throw Broken{"gave " + nameOf(instrument.get()) + " the key " + inQuotes(key) + ", which " +
                         nameOf(same->second.get()) + " has in the map of type " + std::to_string(kTypes[0])};
        }
    }
}

void exchangeFees(const Sample& sample, Witness& witness) {
    for (const SampleInstrument& known : instrumentsOf(sample)) {
        const auto instrument = find(witness, known.market, known.code);
        const std::int32_t type = instrument->getFeeType();
        if (type != kPerLotFee && type != kPerTurnoverFee) {
            continue;
        }
        const std::pair<const char*, double (CInstrument::*)() const> fees[] = {
            {"getOpenFee()", &CInstrument::getOpenFee},
            {"getCloseFee()", &CInstrument::getCloseFee},
            {"getCloseTodayFee()", &CInstrument::getCloseTodayFee}};
        for (const auto& [name, fee] : fees) {
            const double value = witness.call(known.market + " " + known.code + ": " + name,
                                              [&instrument, member = fee] { return ((*instrument).*member)(); });
            Witness::expect(std::isfinite(value) && (value >= 0 || std::fabs(value + 1) <= 1e-5),
                            "gave " + plain(value));
        }
    }
}

}  // namespace

Promises cataloguePromises() {
    constexpr const char* kPresent = "services.present";
    constexpr const char* kKnows = "catalogue.knows";
    return {
        {kKnows,
         "it must give the instrument whose joined key has this hash",
         "file every instrument under utils::hash(utils::voStockKey(market, code)) of its own market and code",
         knows,
         {kPresent}},
        {"catalogue.unknown-is-empty",
         "an instrument that nobody knows must be an empty pointer, never another one",
         "return an empty pointer where the key is not found",
         unknownInstrument,
         {kPresent}},
        {"catalogue.stays-the-same",
         "an instrument must keep its market, code and product",
         "do not write a record that was handed out; publish a new one",
         staysTheSame,
         {kKnows}},
        {"catalogue.lists-repeat",
         "a list must hold the same instruments while the catalogue is not changed",
         "fill the list with every instrument of the mask at each call",
         listsRepeat,
         {kPresent}},
        {"catalogue.mask-joins-lists",
         "a mask of several bits must give the instruments of each of its lists",
         "take an instrument in when any bit of the mask is set for it",
         maskJoins,
         {kPresent}},
        {"catalogue.listed-is-known",
         "what a list or map holds must be found by its key, or a custom fee reaches what "
         "no query can ask for",
         "list only instruments that findInstrument knows",
         listedIsKnown,
         {kPresent}},
        {"catalogue.listed-where-named",
         "custom fees reach an instrument only where its list or map holds it",
         "add the instrument to the lists and maps that SampleInstrument::lists and types name",
         listedWhereNamed,
         {kKnows}},
        {"catalogue.map-keys",
         "no two instruments of the two maps may have one key, or a custom fee reaches the first alone",
         "use utils::voStockKey(market, code) as the key",
         mapKeysAgree,
         {kPresent}},
        {"catalogue.exchange-fees",
         "an exchange's own fee must be a number from 0, or -1 where it is not set",
         "return -1.0 for a fee that you do not know",
         exchangeFees,
         {kKnows}},
    };
}

}  // namespace conformance
