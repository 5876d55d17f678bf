#ifndef HOST_CONFIGURATION_H
#define HOST_CONFIGURATION_H

#include <boost/shared_ptr.hpp>
#include <string>

#include "host/connect_records.h"
#include "host/host_export.h"
#include "host/stock_records.h"

namespace qmservice {

// Every operation below may be called from any thread, also while the caller holds a lock of the fee center.

/// The trade unit where an instrument's own is not known or not asked for.
constexpr int kUsualTradeUnit = 100;

/// Minimum trade unit of an instrument, in shares or contracts.
HOST_EXPORT int getTradeMinUnit(const std::string& market, const std::string& code);

/// The host's configuration. The limits handed out are shared with the configuration: the fee center never writes
/// into them. An empty answer means that nothing is configured for the instrument.
class HOST_EXPORT ConfigCollector {
public:
    /// The one object; never empty while the host runs.
    static boost::shared_ptr<ConfigCollector> instance();

    /// @{
    /// The configured limit of one instrument, shared with the configuration; empty where nothing is configured.
    boost::shared_ptr<CStkExchangeRateLimit> getRateLimitPtr(std::string market, std::string code);
    boost::shared_ptr<CCustomHGTExchangeRateLimit> getHGTExchangeRateLimitPtr(std::string market, std::string code);
    boost::shared_ptr<CCustomSgtExchangeRateLimit> getSgtExchangeRateLimitPtr(std::string market, std::string code);
    /// @}

    /// True when the platform simulates trading; false for a number that the host does not know.
    [[nodiscard]] bool isSimulationPlatform(int platformId) const;
};

}  // namespace qmservice

#endif  // HOST_CONFIGURATION_H
