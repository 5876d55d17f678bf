#ifndef HOST_CATALOGUE_H
#define HOST_CATALOGUE_H

#include <boost/shared_ptr.hpp>
#include <map>
#include <string>
#include <vector>

#include "host/account.h"
#include "host/host_export.h"
#include "host/instrument.h"

namespace qmservice {

/// The lists of the catalogue, as bits of a mask.
enum InstrumentList : int {
    kStockList = 1,
    kCreditList = 8,
    kOptionList = 32,
    kHgtList = 128,
    kNeeqList = 256,
    kSgtList = 16384
};

/// The types of instruments that the catalogue gives as maps.
enum InstrumentType : int { kFuturesType = 2, kFuturesExtraType = 1024 };

// Every operation below may be called from any thread, also while the caller holds a lock of the fee center: a host
// must not call back into the fee center from inside one.

/// The host's instrument catalogue. Records handed out are shared with the catalogue.
class HOST_EXPORT IInstrumentCenter {
public:
    IInstrumentCenter() = default;
    IInstrumentCenter(const IInstrumentCenter&) = delete;
    IInstrumentCenter& operator=(const IInstrumentCenter&) = delete;
    virtual ~IInstrumentCenter() = default;

    /// The instrument whose joined key hashes to `instrumentKey`; empty when unknown. Each call may give another
    /// record of the same instrument.
    virtual boost::shared_ptr<CInstrument> findInstrument(uint64 instrumentKey) = 0;

    /// Fills `instruments` with every instrument of one InstrumentType, by the catalogue's string key, which no two
    /// instruments of either type share. The fee center passes an empty map each time.
    virtual void getInstrumentMap(int type, std::map<std::string, boost::shared_ptr<CInstrument>>& instruments) = 0;

    /// Fills `instruments` with every instrument of the lists in the mask, bits of InstrumentList, in any order.
    /// The fee center passes an empty vector each time.
    virtual void getInstrumentList(std::vector<boost::shared_ptr<CInstrument>>& instruments, int listMask) = 0;
};

/// The host's account store.
class HOST_EXPORT IDataCenter {
public:
    IDataCenter() = default;
    IDataCenter(const IDataCenter&) = delete;
    IDataCenter& operator=(const IDataCenter&) = delete;
    virtual ~IDataCenter() = default;

    /// The data of the account with this key; empty when unknown.
    virtual boost::shared_ptr<CAccountData> getAccountData(uint64 accountKey) = 0;
};

/// The host's central object.
class HOST_EXPORT TraderCenter {
public:
    /// The one object; never empty while the host runs.
    static boost::shared_ptr<TraderCenter> instance();

    /// The catalogue, owned by the host.
    [[nodiscard]] IInstrumentCenter* getInstCenter() const;
    /// The account store; never empty while the host runs.
    [[nodiscard]] boost::shared_ptr<IDataCenter> getDataCenter() const;
};

}  // namespace qmservice

#endif  // HOST_CATALOGUE_H
