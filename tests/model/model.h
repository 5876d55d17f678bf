#ifndef TESTS_MODEL_MODEL_H
#define TESTS_MODEL_MODEL_H

#include <boost/shared_ptr.hpp>
#include <cstddef>
#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "model/facts.h"

namespace model {

/// The whole fee center in its plainest form, to compare the real one with: ordered maps of strings and records, no
/// hashing, no locks, one thread. Records are compared by identity: two answers of the model hold one and the same
/// record where the fee center must share it, and a record of their own where it must not.
///
/// A pool's key is the text of the record's rates that the fee center would hash; an instrument is known by its joined
/// key.
///
/// A copy is a state of its own that shares the records.
class Model {
public:
    using Records = std::vector<boost::shared_ptr<qmservice::IData>>;
    using Account = boost::shared_ptr<qmservice::CAccountInfo>;
    using Fee = boost::shared_ptr<qmservice::CInstrumentFee>;
    template <class Record>
    using Pool = std::map<std::string, boost::shared_ptr<Record>>;
    /// Account key -> (joined instrument key -> what the account has there).
    template <class Entry>
    using Table = std::map<uint64, std::map<std::string, Entry>>;

    /// The facts are read whenever they are needed and must outlive the model and its copies.
    explicit Model(const Facts& facts);

    // Changes wait in a queue until they are run. A custom fee may be written then, as the fee center may write it.
    void initFees(const Account& account, const Records& records);
    void updateCustomFee(const Account& account, const boost::shared_ptr<qmservice::IData>& customFee);
    std::size_t queued() const;
    /// Runs the oldest change; false when none waits. An exception of the facts leaves through here, with the change
    /// gone and what it had stored kept.
    bool runJob();
    void runJobs();

    /// Called after each single store that the fee center makes under one hold of a lock.
    std::function<void()> onStore;

    Fee getFee(const Account& account, const std::string& stockKey) const;
    Fee getFee(const Account& account, const std::string& market, const std::string& code) const;
    /// The same answer as the fee center's, in joined-key order; `known` is what the fee center returns.
    std::vector<Fee> getFees(const Account& account, bool& known) const;

    struct LimitFamily {
        Pool<qmservice::CStkExchangeRateLimit> pool;
        Table<std::string> table;
        boost::shared_ptr<qmservice::CStkExchangeRateLimit> fallback;
    };
    template <class Limit>
    struct ConnectFamily {
        Pool<Limit> pool;
        Table<std::string> table;
        boost::shared_ptr<Limit> fallback;
    };

    LimitFamily stock, credit, neeq;
    ConnectFamily<qmservice::CCustomHGTExchangeRateLimit> hgt;
    ConnectFamily<qmservice::CCustomSgtExchangeRateLimit> sgt;
    Pool<qmservice::CStockOptionFeeItem> optionItems;
    Table<std::map<std::string, std::string>> optionTable;  ///< item key -> pool key
    boost::shared_ptr<qmservice::CStockOptionFeeRate> defaultOptionRate;
    Pool<qmservice::CCommissionRateDetail> commissions;
    Table<std::string> commissionTable;
    Pool<qmservice::CMarginRateDetail> margins;
    Table<std::vector<std::string>> marginTable;  ///< an empty text is a slot that was never set
    Fee defaultFutureFee;
    Fee defaultIncomeSwapFee;

private:
    using Instrument = boost::shared_ptr<qmservice::CInstrument>;
    using CustomStockFee = boost::shared_ptr<qmservice::CCustomStockInstrumentFee>;

    void buildDefaults();
    void stored() const;

    // What the host answers.
    Instrument findInstrument(const std::string& key) const;
    std::vector<Instrument> listInstruments(int listMask) const;
    int tradeUnit(const std::string& market, const std::string& code) const;
    bool isSimulated(uint64 account) const;

    // Whether a custom limit or detail applies to an instrument.
    template <class Limit>
    bool applies(const boost::shared_ptr<Limit>& limit, int category, const qmservice::CInstrument& instrument) const;
    template <class Limit>
    bool inCustomList(Limit& limit, int category, const qmservice::CInstrument& instrument) const;
    bool inSystemCategory(const qmservice::CInstrument& instrument, int category) const;
    template <class Detail>
    boost::shared_ptr<Detail> firstApplying(const std::vector<boost::shared_ptr<Detail>>& details,
                                            const qmservice::CInstrument& instrument) const;

    Fee feeByKind(const qmservice::CAccountInfo& account, const std::string& key,
                  const qmservice::CInstrument& instrument, int unit) const;
    template <class Entries, class Ask>
    std::vector<Fee> answers(const Entries& table, const Account& account, bool& known, const Ask& ask) const;

    void loadLimits(LimitFamily& family, const Account& account, const Records& records);
    void overrideLimits(LimitFamily& family, int listMask, const Account& account, const CustomStockFee& custom);
    Fee limitFee(const LimitFamily& family, uint64 account, const std::string& key, int unit) const;

    void overrideOptions(const Account& account, const CustomStockFee& custom);
    Fee optionFee(uint64 account, const std::string& key) const;

    void loadHgt(const Account& account, const Records& records);
    void loadSgt(const Account& account, const Records& records);
    void overrideHgt(const Account& account, const boost::shared_ptr<qmservice::CCustomHGTInstrumentFee>& custom);
    void overrideSgt(const Account& account, const boost::shared_ptr<qmservice::CCustomSgtInstrumentFee>& custom);
    Fee hgtFee(uint64 account, const std::string& key) const;
    Fee sgtFee(uint64 account, const std::string& key) const;

    void loadFutures(const Account& account, const Records& records);
    void loadMargins(uint64 account, const qmservice::CInstrumentFee& fee);
    void updateFuture(const Account& account, const Fee& fee);
    void overrideFutures(const Account& account,
                         const boost::shared_ptr<qmservice::CCustomFutureInstrumentFee>& custom);
    template <class Detail>
    void storeSparseCommission(uint64 account, const std::string& key, const Detail& detail);
    template <class Detail>
    void storeSparseMargin(uint64 account, const std::string& key, const Detail& detail);

    /// The commission and margins that an account has of its own; an empty pointer where it has neither.
    Fee ownFutureFee(uint64 account, const std::string& key) const;
    Fee futureFee(uint64 account, const std::string& key) const;
    Fee incomeSwapFee(uint64 account, const std::string& key) const;
    Fee primeBrokerageFee(uint64 account, const std::string& key, int unit) const;
    Fee feeByMarket(uint64 account, const std::string& key, const std::string& market, int unit) const;
    Fee fullDefault(int unit) const;

    const Facts& facts;
    std::deque<std::function<void(Model&)>> jobs;
};

}  // namespace model

#endif  // TESTS_MODEL_MODEL_H
