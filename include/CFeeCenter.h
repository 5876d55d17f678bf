#ifndef CFEECENTER_H
#define CFEECENTER_H

#include <boost/asio/io_service.hpp>
#include <boost/asio/io_service_strand.hpp>
#include <boost/shared_ptr.hpp>
#include <boost/thread/shared_mutex.hpp>
#include <boost/unordered_map.hpp>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "IFeeCenter.h"
#include "feecenter_export.h"

namespace qmservice {

class CCommissionRateDetail;
class CCustomCommissionRateDetail;
class CCustomFutureInstrumentFee;
class CCustomHGTExchangeRateLimit;
class CCustomHGTInstrumentFee;
class CCustomMarginRateDetail;
class CCustomSgtExchangeRateLimit;
class CCustomSgtInstrumentFee;
class CCustomStkExchangeRateLimit;
class CCustomStockInstrumentFee;
class CInstrument;
class CMarginRateDetail;
class CStkExchangeRateLimit;
class CStockOptionFeeItem;
class CStockOptionFeeRate;

/// A key: of an account, an instrument, or a record's contents.
using uint64 = std::uint64_t;

// A host may compile with -Wnon-virtual-dtor; here it is known and documented.
#if defined(__GNUC__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
#endif

/// The fee center: per family of accounts its tables, the lock that guards them and a default record.
///
/// Each family keeps every distinct rate record once, in a pool under a key of its contents, and per account only which
/// pool key each instrument has. Pooled records are never written, replaced or removed; tables only grow.
///
/// Changes run one at a time on the strand that the host's engine keeps under the fee center's name, and take a
/// family's lock exclusively around each single entry. Queries run on the caller's thread under the lock in shared
/// mode. No operation holds two family locks. The host must not destroy the object while jobs for it are queued or
/// running, and every host service must exist before it is built.
///
/// To know that a change is done, post a marker, a job of your own, behind it to the strand of the same name:
/// utils::CSingletonT<net::RPCEngine>::instance()->getStrand(name)->post(marker). When the marker runs, every change
/// called before it was posted has ended, queries see it, and its job holds account and records no longer; when no
/// change was called since, the object may be destroyed. Fee centers of one name share the strand: the marker runs
/// behind the changes of all of them. It says neither that a record was taken nor that a change did not throw.
/// host/engine.h says where not to wait for it.
///
/// The protected members are for a class derived to look inside or to test; the family operations take no part in
/// routing and post nothing.
class FEECENTER_EXPORT CFeeCenter : public IFeeCenter {
public:
    /// Key of the contents -> record.
    template <class Record>
    using RecordPool = boost::unordered_map<uint64, boost::shared_ptr<Record>>;
    /// Account key -> (instrument key -> what the family keeps for the instrument: a pool key in most of them).
    template <class Entry>
    using EntryTable = std::map<uint64, boost::unordered_map<uint64, Entry>>;

    /// Takes the strand called `name` from the host's engine and builds the default records. Throws std::bad_alloc, and
    /// what the engine throws.
    explicit CFeeCenter(const std::string& name);
    CFeeCenter(const CFeeCenter&) = delete;
    CFeeCenter& operator=(const CFeeCenter&) = delete;
    ~CFeeCenter();

    void initFees(const boost::shared_ptr<CAccountInfo>& account,
                  const std::vector<boost::shared_ptr<IData>>& records) override;
    void updateCustomFee(const boost::shared_ptr<CAccountInfo>& account,
                         const boost::shared_ptr<IData>& customFee) override;
    boost::shared_ptr<CInstrumentFee> getFee(const boost::shared_ptr<CAccountInfo>& account,
                                             const std::string& stockKey) override;
    boost::shared_ptr<CInstrumentFee> getFee(const boost::shared_ptr<CAccountInfo>& account, const std::string& market,
                                             const std::string& code) override;
    bool getFees(const boost::shared_ptr<CAccountInfo>& account,
                 std::vector<boost::shared_ptr<CInstrumentFee>>& out) override;

protected:
    /// @{
    /// Loads: store an account's fee records of one family. Run on the strand, one at a time; a record without what the
    /// family keeps is passed over. Throw what the host's services throw, with the entries stored so far in place.
    void doInitStockFee(const boost::shared_ptr<CAccountInfo>& account,
                        const std::vector<boost::shared_ptr<IData>>& records);
    void doInitCreditFee(const boost::shared_ptr<CAccountInfo>& account,
                         const std::vector<boost::shared_ptr<IData>>& records);
    void doInitNeeqFee(const boost::shared_ptr<CAccountInfo>& account,
                       const std::vector<boost::shared_ptr<IData>>& records);
    void doInitStkOptionFee(const boost::shared_ptr<CAccountInfo>& account,
                            const std::vector<boost::shared_ptr<IData>>& records);
    void doInitFutureFee(const boost::shared_ptr<CAccountInfo>& account,
                         const std::vector<boost::shared_ptr<IData>>& records);
    void doInitHgtFee(const boost::shared_ptr<CAccountInfo>& account,
                      const std::vector<boost::shared_ptr<IData>>& records);
    void doInitSgtFee(const boost::shared_ptr<CAccountInfo>& account,
                      const std::vector<boost::shared_ptr<IData>>& records);
    /// @}

    /// @{
    /// Updates: apply one custom fee to the catalogue's instruments, or a plain fee to one futures instrument. Run on
    /// the strand, one at a time; the fee may be written (IFeeCenter). Throw what the host's services throw, with the
    /// entries stored so far in place.
    void doUpdateStockCustomFee(const boost::shared_ptr<CAccountInfo>& account,
                                const boost::shared_ptr<CCustomStockInstrumentFee>& fee);
    void doUpdateCreditCustomFee(const boost::shared_ptr<CAccountInfo>& account,
                                 const boost::shared_ptr<CCustomStockInstrumentFee>& fee);
    void doUpdateNeeqCustomFee(const boost::shared_ptr<CAccountInfo>& account,
                               const boost::shared_ptr<CCustomStockInstrumentFee>& fee);
    void doUpdateStkOptionCustomFee(const boost::shared_ptr<CAccountInfo>& account,
                                    const boost::shared_ptr<CCustomStockInstrumentFee>& fee);
    void doUpdateFutureCustomFee(const boost::shared_ptr<CAccountInfo>& account,
                                 const boost::shared_ptr<CCustomFutureInstrumentFee>& customFee);
    void doUpdateFutureInstrumentFee(const boost::shared_ptr<CAccountInfo>& account,
                                     const boost::shared_ptr<CInstrumentFee>& fee);
    void doUpdateHgtCustomFee(const boost::shared_ptr<CAccountInfo>& account,
                              const boost::shared_ptr<CCustomHGTInstrumentFee>& fee);
    void doUpdateSgtCustomFee(const boost::shared_ptr<CAccountInfo>& account,
                              const boost::shared_ptr<CCustomSgtInstrumentFee>& fee);
    /// @}

    /// @{
    /// Lookups of one instrument: a new fee whose account is empty, or an empty pointer where there is no fee. Those of
    /// stock, credit, NEEQ, stock option and the connect channels are never empty. The keys are those of the account
    /// and of the instrument; the trade unit, in shares, is what the limit of a fallback answer must carry in
    /// unitVolume. Safe from any thread, under the family's lock in shared mode.
    boost::shared_ptr<CInstrumentFee> getStockFee(uint64 accountKey, uint64 instrumentKey, int tradeUnit);
    boost::shared_ptr<CInstrumentFee> getCreditFee(uint64 accountKey, uint64 instrumentKey, int tradeUnit);
    boost::shared_ptr<CInstrumentFee> getNeeqFee(uint64 accountKey, uint64 instrumentKey, int tradeUnit);
    boost::shared_ptr<CInstrumentFee> getStkOptionFee(uint64 accountKey, uint64 instrumentKey);
    boost::shared_ptr<CInstrumentFee> getFutureFee(uint64 accountKey, uint64 instrumentKey);
    boost::shared_ptr<CInstrumentFee> getIncomeSwapFutureFee(uint64 accountKey, uint64 instrumentKey);
    boost::shared_ptr<CInstrumentFee> getPbFullFee(uint64 accountKey, uint64 instrumentKey, int tradeUnit);
    boost::shared_ptr<CInstrumentFee> getHgtFee(uint64 accountKey, uint64 instrumentKey);
    boost::shared_ptr<CInstrumentFee> getSgtFee(uint64 accountKey, uint64 instrumentKey);
    /// @}

    /// @{
    /// Lists: as getFees, for one family.
    bool getStockFees(const boost::shared_ptr<CAccountInfo>& account,
                      std::vector<boost::shared_ptr<CInstrumentFee>>& fees);
    bool getCreditFees(const boost::shared_ptr<CAccountInfo>& account,
                       std::vector<boost::shared_ptr<CInstrumentFee>>& fees);
    bool getNeeqFees(const boost::shared_ptr<CAccountInfo>& account,
                     std::vector<boost::shared_ptr<CInstrumentFee>>& fees);
    bool getStkOptionFees(const boost::shared_ptr<CAccountInfo>& account,
                          std::vector<boost::shared_ptr<CInstrumentFee>>& fees);
    bool getFutureFees(const boost::shared_ptr<CAccountInfo>& account,
                       std::vector<boost::shared_ptr<CInstrumentFee>>& fees);
    bool getHgtFees(const boost::shared_ptr<CAccountInfo>& account,
                    std::vector<boost::shared_ptr<CInstrumentFee>>& fees);
    bool getSgtFees(const boost::shared_ptr<CAccountInfo>& account,
                    std::vector<boost::shared_ptr<CInstrumentFee>>& fees);
    /// @}

    // Not exported: the steps of getFee and getPbFullFee. Two are inline, so that compilers put them into the one
    // function that calls them: a stock hit then takes 1.2 % fewer instructions, one of prime-brokerage futures 2.5 %.

    /// Asks the lookup of the account kind's family; empty for a kind without one.
    FEECENTER_LOCAL inline boost::shared_ptr<CInstrumentFee> findFamilyFee(int accountType,
                                                                           const CInstrument& instrument,
                                                                           uint64 accountKey, uint64 instrumentKey,
                                                                           int tradeUnit);

    /// What getPbFullFee answers where the instrument's market has a family; empty where it has none.
    FEECENTER_LOCAL inline boost::shared_ptr<CInstrumentFee> findFeeByMarket(const std::string& market,
                                                                             uint64 accountKey, uint64 instrumentKey,
                                                                             int tradeUnit);
    /// A fee with every family's default at once.
    FEECENTER_LOCAL boost::shared_ptr<CInstrumentFee> makeFullDefaultFee(
        const boost::shared_ptr<CInstrument>& instrument, int tradeUnit);

    /// Builds the eight default records; the constructor's last step.
    void initDefaultFees();

    /// @{
    /// Content keys: records whose rates agree after scaling by 1e8 and truncating, and whose trade units are equal,
    /// have equal keys. The record must not be empty. The integer is the trade unit. Safe from any thread.
    uint64 getHashKey(const boost::shared_ptr<CCommissionRateDetail>& detail);
    uint64 getHashKey(const boost::shared_ptr<CCustomCommissionRateDetail>& detail);
    uint64 getHashKey(const boost::shared_ptr<CMarginRateDetail>& detail);
    uint64 getHashKey(const boost::shared_ptr<CCustomMarginRateDetail>& detail);
    uint64 getHashKey(const boost::shared_ptr<CStkExchangeRateLimit>& limit, int n);
    uint64 getHashKey(const boost::shared_ptr<CCustomStkExchangeRateLimit>& limit, int n);
    uint64 getHashKey(const boost::shared_ptr<CCustomHGTExchangeRateLimit>& limit, int n);
    uint64 getHashKey(const boost::shared_ptr<CCustomSgtExchangeRateLimit>& limit, int n);
    /// @}

    /// Every change runs here.
    boost::shared_ptr<boost::asio::io_service::strand> strand;

    // Each mutex guards the tables that follow it, up to the default. The defaults are constant after construction and
    // read without a lock.
    /// @{
    /// The stock tables: lock, rate records by content key, content key by account and instrument, default.
    boost::shared_mutex stockMutex;
    RecordPool<CStkExchangeRateLimit> stockRateLimitPool;
    EntryTable<uint64> stockAccountTable;
    boost::shared_ptr<CStkExchangeRateLimit> defaultStockRateLimit;
    /// @}

    /// @{
    /// The credit tables: lock, rate records by content key, content key by account and instrument, default.
    boost::shared_mutex creditMutex;
    RecordPool<CStkExchangeRateLimit> creditRateLimitPool;
    EntryTable<uint64> creditAccountTable;
    boost::shared_ptr<CStkExchangeRateLimit> defaultCreditRateLimit;
    /// @}

    /// @{
    /// The Shanghai connect tables: lock, rate records by content key, content key by account and instrument, default.
    boost::shared_mutex hgtMutex;
    RecordPool<CCustomHGTExchangeRateLimit> hgtRateLimitPool;
    EntryTable<uint64> hgtAccountTable;
    boost::shared_ptr<CCustomHGTExchangeRateLimit> defaultHgtRateLimit;
    /// @}

    /// @{
    /// The Shenzhen connect tables: lock, rate records by content key, content key by account and instrument, default.
    boost::shared_mutex sgtMutex;
    RecordPool<CCustomSgtExchangeRateLimit> sgtRateLimitPool;
    EntryTable<uint64> sgtAccountTable;
    boost::shared_ptr<CCustomSgtExchangeRateLimit> defaultSgtRateLimit;
    /// @}

    /// @{
    /// The stock-option tables: lock, fee items by content key, content keys by account, instrument and item key,
    /// default. Queries hold this lock, the update holds stockMutex. stkOptionTableMutex keeps the tables whole between
    /// the two: a query waits for an update no longer than one write of the tables takes.
    boost::shared_mutex stkOptionMutex;
    RecordPool<CStockOptionFeeItem> stkOptionItemPool;
    EntryTable<std::map<std::string, uint64>> stkOptionAccountTable;
    EntryTable<double> stkOptionBaseRateTable;  ///< read, filled by nothing
    boost::shared_ptr<CStockOptionFeeRate> defaultStkOptionFeeRate;
    /// @}

    /// @{
    /// The futures tables: lock, commissions and margins by content key, their content keys by account and instrument
    /// (of margins one for each hedge flag), the defaults of futures and of income swap.
    boost::shared_mutex futureMutex;
    RecordPool<CCommissionRateDetail> futureCommissionDetails;
    EntryTable<uint64> futureCommissionKeys;
    RecordPool<CMarginRateDetail> futureMarginDetails;
    EntryTable<std::vector<uint64>> futureMarginKeys;
    boost::shared_ptr<CInstrumentFee> defaultFutureFee;
    boost::shared_ptr<CInstrumentFee> defaultIncomeSwapFutureFee;
    /// @}

    /// @{
    /// The NEEQ tables: lock, rate records by content key, content key by account and instrument, default.
    boost::shared_mutex neeqMutex;
    RecordPool<CStkExchangeRateLimit> neeqRateLimitPool;
    EntryTable<uint64> neeqAccountTable;
    boost::shared_ptr<CStkExchangeRateLimit> defaultNeeqRateLimit;
    /// @}

    /// Empty for the object's whole life: the answer where a lookup has none.
    boost::shared_ptr<CInstrumentFee> emptyFee;

    /// A leaf lock: held only around one read of the stock-option tables or one write, with no host call under it.
    boost::shared_mutex stkOptionTableMutex;

private:
    // What is particular to a family, defined where its operations are.
    struct FEECENTER_LOCAL Stock;
    struct FEECENTER_LOCAL Credit;
    struct FEECENTER_LOCAL Neeq;
    struct FEECENTER_LOCAL StkOption;
    struct FEECENTER_LOCAL Future;
    struct FEECENTER_LOCAL Hgt;
    struct FEECENTER_LOCAL Sgt;
};

#if defined(__GNUC__)
#pragma GCC diagnostic pop
#endif

}  // namespace qmservice

#endif  // CFEECENTER_H
