#ifndef FEEDESK_CHECKING_PROBE_H
#define FEEDESK_CHECKING_PROBE_H

#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <tuple>
#include <utility>

#include "CFeeCenter.h"
#include "standalone/market.h"

namespace feedesk::checking {

/// By market and code.
struct ByName {
    bool operator()(const qmservice::CInstrument* one, const qmservice::CInstrument* other) const {
        return std::tie(one->market, one->code) < std::tie(other->market, other->code);
    }
};

/// Records of the catalogue; none is null.
using InstrumentSet = std::set<const qmservice::CInstrument*, ByName>;

/// A fee center of its own, to find out what it makes of one input, or of none, when nothing else is there.
///
/// The host's services hold the market, and the engine runs. Used by one thread.
class Probe {
public:
    Probe();

    /// The instruments that an account is listed for which nothing was sent but this entry of the custom fee. The
    /// answer lives as long as this object.
    const InstrumentSet& reachOf(const standalone::Account& account, const standalone::CustomFee& fee,
                                 std::size_t entry);

    /// The keys of the fee items with which an option account is answered for which nothing was sent.
    [[nodiscard]] std::set<std::string> builtInItems(const std::string& market, const std::string& code);

private:
    /// Kind of account and category: what a line reaches hangs on nothing else.
    using Key = std::pair<int, std::string>;

    InstrumentSet listed(int kind, const boost::shared_ptr<qmservice::IData>& customFee);

    qmservice::CFeeCenter center;
    std::map<Key, InstrumentSet> known;
};

}  // namespace feedesk::checking

#endif  // FEEDESK_CHECKING_PROBE_H
