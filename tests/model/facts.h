#ifndef TESTS_MODEL_FACTS_H
#define TESTS_MODEL_FACTS_H

#include <boost/shared_ptr.hpp>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "host/records.h"
#include "host/services.h"

namespace model {

using qmservice::uint64;
using Name = std::pair<std::string, std::string>;  ///< market and code

/// What a host knows, as plain values: the model reads it, and a scripted host answers from a copy of it.
struct Facts {
    struct Listed {
        boost::shared_ptr<qmservice::CInstrument> instrument;  ///< may be empty, for a host that lists badly
        int listMask = 0;
        int types = 0;
    };
    using InCategory =
        std::function<bool(const std::string& market, const std::string& code, const std::string& product, int)>;
    using InCustomCategory = std::function<bool(const std::string& market, const std::string& code,
                                                const std::vector<std::string>& members)>;
    using InGroupCategory =
        std::function<bool(const std::string& market, const std::string& code, const std::string& product,
                           const std::vector<boost::shared_ptr<qmservice::CGroupCategorySubInfo>>&,
                           const std::map<int, std::vector<std::string>>&)>;

    /// What the lists and maps of instruments give, in list order. A map is keyed by joined key, an empty instrument's
    /// key is empty; of two with one key the later is in the map.
    std::vector<Listed> listed;
    /// Joined key -> what the catalogue finds.
    std::map<std::string, boost::shared_ptr<qmservice::CInstrument>> catalogue;
    std::map<uint64, boost::shared_ptr<qmservice::CAccountData>> accounts;
    std::map<Name, int> tradeUnits;  ///< 100 for any other
    std::map<Name, boost::shared_ptr<qmservice::CStkExchangeRateLimit>> rateLimits;
    std::map<Name, boost::shared_ptr<qmservice::CCustomHGTExchangeRateLimit>> hgtLimits;
    std::map<Name, boost::shared_ptr<qmservice::CCustomSgtExchangeRateLimit>> sgtLimits;
    std::set<int> simulationPlatforms;
    std::set<std::string> foreignMarkets;
    std::map<std::string, int> categoryNumbers;    ///< the number of a category name; -1 for any other
    std::set<std::pair<int, Name>> systemMembers;  ///< category number and instrument
    std::set<Name> groupMembers;                   ///< whatever the group
    // In place of the sets above, where set. A custom category without one holds the instruments whose code is listed.
    InCategory inSystemCategory;
    InCustomCategory inCustomCategory;
    InGroupCategory inGroupCategory;
};

/// The host's joined key of an instrument, in the form that the tests' scripted host gives it.
inline std::string joinedKey(const std::string& market, const std::string& code) { return market + "|" + code; }

}  // namespace model

#endif  // TESTS_MODEL_FACTS_H
