#ifndef BENCH_BULK_H
#define BENCH_BULK_H

#include <memory>
#include <string>
#include <vector>

#include "bench/filled.h"

namespace bench {

enum class Work { kLoad, kList, kUpdate };

/// Work on many entries at once: a load of kUsualOwn records into empty tables, a list of them, or a custom fee for all
/// instruments of a list of the catalogue.
struct Bulk {
    const char* name;
    Work work;
    const Mix& mix;  ///< the hits that ask for what the load stores
};
const std::vector<Bulk>& allBulks();

constexpr int kBulkEntries = kUsualOwn;

/// Such work done by one implementation on tables of its own.
template <class Implementation>
class BulkRun {
public:
    /// Does the work once and checks it.
    explicit BulkRun(const Bulk& what)
        : bulk(what),
          account(accountOf(bulk.mix.kind, 0)),
          questions(questionsOf(bulk.mix, kUsualShape)),
          records(bulk.mix.answer == Answer::kStock ? stockRecords(kShanghai, 0, kBulkEntries)
                                                    : futuresRecords(0, kBulkEntries)),
          customFee(bulk.mix.answer == Answer::kStock ? stockCustomFee(kCustomRate) : futuresCustomFee(kCustomRate)) {
        reset();
        run();
        check();
    }

    /// To be done before each run.
    void reset() {
        fees = Fees();
        if (bulk.work == Work::kLoad || !center) {
            center = std::make_unique<Implementation>();
        }
        if (bulk.work != Work::kLoad && !loaded) {
            center->load(account, records);
            loaded = true;
        }
    }

    void run() {
        switch (bulk.work) {
            case Work::kLoad:
                return center->load(account, records);
            case Work::kList:
                center->list(account, fees);
                return;
            case Work::kUpdate:
                return center->update(account, customFee);
        }
    }

private:
    static constexpr double kCustomRate = 0.7;

    void check() {
        if (bulk.work == Work::kList) {
            checkList();
        }
        for (Question question : questions) {
            question.account = account;
            const auto fee = center->ask(account, question.key);
            if (bulk.work == Work::kUpdate) {
                checkCustom(question, fee);
            } else {
                bench::check(bulk.mix, question, fee, Implementation::kName);
            }
        }
    }

    void checkList() {
        if (fees.size() != static_cast<std::size_t>(kBulkEntries)) {
            fail(std::string("a list of ") + Implementation::kName + " is not whole");
        }
        for (const auto& fee : fees) {
            const int n = std::stoi(fee->instrument->code) - bulk.mix.listing.firstCode;
            bench::check(bulk.mix, {account, fee->instrument->code, 0, n, fee->instrument}, fee, Implementation::kName);
        }
    }

    /// An update gives every instrument the same rates. Of futures it sets one margin, so that the commission is looked
    /// at.
    void checkCustom(const Question& question, const Fee& fee) {
        StockRates stock;
        FuturesRates futures;
        const bool right = bulk.mix.answer == Answer::kStock
                               ? fee && read(*fee, stock) && stock == stockRates(kCustomRate)
                               : fee && read(*fee, futures) &&
                                     futures.commission == futuresRates(kCustomRate).commission &&
                                     futures.margins[0] == futuresRates(kCustomRate).margins[0];
        if (!right) {
            fail(std::string("an update of ") + Implementation::kName + " has not reached " + question.key);
        }
    }

    const Bulk& bulk;
    Account account;
    std::vector<Question> questions;
    Records records;
    boost::shared_ptr<qmservice::IData> customFee;
    std::unique_ptr<Implementation> center;
    Fees fees;
    bool loaded = false;
};

/// Registers all of it. Names are "bulk/NAME"; the fee center and the floor take turns, and the counters are the
/// nanoseconds of processor time for an entry.
void registerBulks();

}  // namespace bench

#endif  // BENCH_BULK_H
