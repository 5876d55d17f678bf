#ifndef IFEECENTER_H
#define IFEECENTER_H

#include <boost/shared_ptr.hpp>
#include <string>
#include <vector>

#include "feecenter_export.h"

namespace qmservice {

class CAccountInfo;
class CInstrumentFee;
class IData;

// A host may compile with -Wnon-virtual-dtor; here it is known and documented.
#if defined(__GNUC__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
#endif

/// What trading an instrument costs an account.
///
/// Threads: every operation may be called from any host thread, at the same time as any other. The two change
/// operations only queue work on the fee center's strand and return; the queries answer at once from what the strand
/// has done so far. No operation may be called from inside a host service that the fee center is calling.
///
/// Ownership: arguments stay the caller's. The fee center keeps copies of rates, never a record that was handed in;
/// a queued job shares the records until it has run, and they must not be written before then. An answer belongs to
/// the caller; the rate records inside it are shared and must not be written.
///
/// One kind of record is written while its job runs, on the strand's thread: a custom limit or detail whose
/// customCategories is asked for a number that it lacks has an empty list under that number afterwards. So from
/// updateCustomFee on until the job has run a custom fee, and every limit and detail in it, must be neither read nor
/// written by the host, nor be handed to a fee center on another strand. On the same strand it may be handed in again:
/// jobs follow one another there. And they must belong to the custom fee alone: a limit that an answer carries, or that
/// the configuration gives out, is shared with other threads; hand in a copy of it.
///
/// Units: rates are plain numbers, not percent: 0.00025 is two and a half ten-thousandths.
///
/// Errors: nothing is thrown but std::bad_alloc and the errors of the lock library and of the host's own services.
///
/// The destructor is not virtual: destroy the object through its own class.
class FEECENTER_EXPORT IFeeCenter {
public:
    // There is no data: these do nothing but set the table of operations. They are inline, so that a class can
    // implement the interface without the library, and exported, for hosts that were built against the symbols.
    FEECENTER_EXPORT_INLINE IFeeCenter() = default;
    FEECENTER_EXPORT_INLINE IFeeCenter(const IFeeCenter&) = default;
    FEECENTER_EXPORT_INLINE IFeeCenter(IFeeCenter&&) = default;
    FEECENTER_EXPORT_INLINE IFeeCenter& operator=(const IFeeCenter&) = default;
    FEECENTER_EXPORT_INLINE IFeeCenter& operator=(IFeeCenter&&) = default;

    /// Queues the account's fee records, as the back end sent them, for the family of the account's kind. Returns
    /// before they are stored: a query made right after may be answered as if this had not been called. A job of
    /// the caller's that is posted to the fee center's strand after this call runs when they are stored; CFeeCenter
    /// says how. Entries are added and overwritten, never removed. `account` must not be empty unless `records` is. An
    /// empty list, a kind that takes no records, and records of another class than CInstrumentFee change nothing.
    virtual void initFees(const boost::shared_ptr<CAccountInfo>& account,
                          const std::vector<boost::shared_ptr<IData>>& records) = 0;

    /// Queues one custom fee, which overrides the account's rates category by category. It is stored, as the records of
    /// initFees are, when a job runs that was posted to the strand after this call. `account` must not be empty. A
    /// record of a class that the account's kind does not take, and an empty one, change nothing. The job may write the
    /// record (see Ownership above).
    virtual void updateCustomFee(const boost::shared_ptr<CAccountInfo>& account,
                                 const boost::shared_ptr<IData>& customFee) = 0;

    /// The fee of one instrument by its joined key, as utils::voStockKey makes it. Empty when the host does not know
    /// the instrument, the account's kind has no fees, or the host cannot copy a default: an empty answer is never a
    /// fee of zero. `account` must not be empty. The answer carries `account` and the catalogue's instrument.
    virtual boost::shared_ptr<CInstrumentFee> getFee(const boost::shared_ptr<CAccountInfo>& account,
                                                     const std::string& stockKey) = 0;

    /// The same by market and code.
    virtual boost::shared_ptr<CInstrumentFee> getFee(const boost::shared_ptr<CAccountInfo>& account,
                                                     const std::string& market, const std::string& code) = 0;

    /// Appends the fee of every instrument that the catalogue knows and for which the account has an entry (of futures
    /// accounts, a commission), in no particular order. False, with `out` untouched, when the account has no table or
    /// its kind has no list. `account` must not be empty.
    virtual bool getFees(const boost::shared_ptr<CAccountInfo>& account,
                         std::vector<boost::shared_ptr<CInstrumentFee>>& out) = 0;
};

#if defined(__GNUC__)
#pragma GCC diagnostic pop
#endif

}  // namespace qmservice

#endif  // IFEECENTER_H
