#ifndef TESTS_FEECENTER_SUPPORT_FAKE_HOST_H
#define TESTS_FEECENTER_SUPPORT_FAKE_HOST_H

#include <boost/asio/io_service.hpp>
#include <boost/asio/io_service_strand.hpp>
#include <boost/shared_ptr.hpp>
#include <cstddef>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "host/records.h"

namespace test {

using qmservice::uint64;

/// A host that a test scripts: what the services answer is data, every call of a service can be watched, and jobs run
/// when the test says so. It has hash functions of its own, other than the standalone host's.
///
/// The data is to be written before threads read it; the services only read it.
class FakeHost {
public:
    /// The one host that the services in this program answer from.
    static FakeHost& instance();

    /// Back to an empty host without jobs. The services stay.
    void reset();

    /// Adds an instrument to the catalogue, to the lists of `listMask` and to the maps whose type is a bit of `types`.
    boost::shared_ptr<qmservice::CInstrument> addInstrument(const std::string& market, const std::string& code,
                                                            int listMask = 0, int types = 0);
    boost::shared_ptr<qmservice::CInstrument> add(boost::shared_ptr<qmservice::CInstrument> instrument, int listMask,
                                                  int types);

    /// The catalogue forgets the instrument, for lookups and lists alike.
    void removeInstrument(const qmservice::CInstrument& instrument);

    /// Puts other services in the place of all but the engine. They answer alike.
    void replaceServices() { inPlace = 1 - inPlace; }

    /// Runs queued jobs until none is left; how many ran.
    std::size_t runJobs();
    /// Runs one step of the queue, which may be several jobs of one strand; false when none is queued.
    bool runOneJob();

    using Name = std::pair<std::string, std::string>;  ///< market and code

    struct Listed {
        boost::shared_ptr<qmservice::CInstrument> instrument;  ///< may be empty, for a host that lists badly
        int listMask = 0;
        int types = 0;
        std::string mapKey = {};  ///< under which the maps hold it; its own joined key where this is empty
    };

    std::vector<Listed> instruments;
    std::map<uint64, boost::shared_ptr<qmservice::CInstrument>> catalogue;
    std::map<uint64, boost::shared_ptr<qmservice::CAccountData>> accounts;
    std::map<Name, int> tradeUnits;  ///< 100 for any other
    std::map<Name, boost::shared_ptr<qmservice::CStkExchangeRateLimit>> rateLimits;
    std::map<Name, boost::shared_ptr<qmservice::CCustomHGTExchangeRateLimit>> hgtLimits;
    std::map<Name, boost::shared_ptr<qmservice::CCustomSgtExchangeRateLimit>> sgtLimits;
    std::set<int> simulationPlatforms;
    std::set<std::string> foreignMarkets;
    std::map<std::string, int> categoryNumbers;    ///< what getCategorId answers; -1 for any other
    std::set<std::pair<int, Name>> systemMembers;  ///< category number and instrument
    std::set<Name> groupMembers;                   ///< whatever the group

    /// The operations that were called on a service after it was replaced, in order.
    std::vector<std::string> callsOfReplaced;

    /// Called at the start of every service operation with its name, such as "findInstrument". Called from whatever
    /// thread the service is called from.
    std::function<void(const std::string&)> onCall;
    /// The same for the key functions, which the tests call too: "voStockKey", "splitVoStockKey", "hash", "crc64".
    std::function<void(const std::string&)> onKeyCall;
    /// The same for asking where a service is, such as "TraderCenter::instance".
    std::function<void(const std::string&)> onInstance;
    /// Called with each text that is hashed.
    std::function<void(const std::string&)> onHash;
    /// What a category test answers, in place of the data above; a custom category without this holds the instruments
    /// whose code is in the list.
    std::function<bool(const std::string& market, const std::string& code, const std::string& product, int category)>
        inSystemCategory;
    std::function<bool(const std::string& market, const std::string& code, const std::vector<std::string>& members)>
        inCustomCategory;
    std::function<bool(const std::string& market, const std::string& code, const std::string& product,
                       const std::vector<boost::shared_ptr<qmservice::CGroupCategorySubInfo>>& parts,
                       const std::map<int, std::vector<std::string>>& customCategories)>
        inGroupCategory;

    // For the services.
    boost::shared_ptr<boost::asio::io_service::strand> strand(const std::string& name);
    void called(const char* operation) const;
    void keyCalled(const char* operation) const;
    void hashed(const std::string& text) const;
    void instanceAsked(const char* operation) const;

    void replacedServiceCalled(const char* operation) { callsOfReplaced.emplace_back(operation); }
    [[nodiscard]] std::size_t servicesInPlace() const { return inPlace; }

    /// Where the jobs run, for a test that runs them on threads of its own.
    boost::asio::io_service& service() { return io; }

private:
    std::size_t inPlace = 0;  ///< which of two
    boost::asio::io_service io;
    std::map<std::string, boost::shared_ptr<boost::asio::io_service::strand>> strands;
};

/// The key under which the fee center files an instrument of this host.
uint64 instrumentKey(const std::string& market, const std::string& code);
uint64 instrumentKey(const qmservice::CInstrument& instrument);

}  // namespace test

#endif  // TESTS_FEECENTER_SUPPORT_FAKE_HOST_H
