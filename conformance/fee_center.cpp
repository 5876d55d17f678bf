#include <boost/smart_ptr/make_shared.hpp>
#include <memory>

#include "CFeeCenter.h"
#include "conformance/asking.h"
#include "conformance/jobs.h"
#include "conformance/promise.h"

namespace conformance {
namespace {

using namespace qmservice;

constexpr double kRate = 0.000123;

/// Held by pointers: the fee center's own destructor is not virtual, of which a compiler may warn.
struct OwnFeeCenter {
    explicit OwnFeeCenter(const std::string& strand) : center(strand) {}

    CFeeCenter center;
};

boost::shared_ptr<CInstrumentFee> commissionOf(const boost::shared_ptr<CInstrument>& instrument) {
    auto fee = boost::make_shared<CInstrumentFee>();
    fee->instrument = instrument;
    fee->commissionDetail = boost::make_shared<CCommissionRateDetail>();
    fee->commissionDetail->instrumentId = instrument->code;
    fee->commissionDetail->openRatioByMoney = kRate;
    return fee;
}

// Everything together: a futures account is loaded on the engine's threads and asked for on this one.
void answersWhatWasLoaded(const Sample& sample, Witness& witness) {
    const auto account = boost::make_shared<CAccountInfo>();
    account->accountType = kFuturesAccount;
    account->accountId = "conformance: an account of the suite's own";
    std::vector<boost::shared_ptr<IData>> records;
    records.reserve(sample.instruments.size());
    for (const SampleInstrument& known : instrumentsOf(sample)) {
        records.emplace_back(commissionOf(find(witness, known.market, known.code)));
    }
    // The marker holds the fee center: it must not be destroyed while a job is queued.
    const auto own = std::make_shared<OwnFeeCenter>(sample.strand);
    CFeeCenter& center = own->center;
    witness.call("CFeeCenter::initFees", [&] { center.initFees(account, records); });
    Witness::expect(markerRuns(sample, [own] {}), "queued a job that was not run in time");

    for (const SampleInstrument& known : sample.instruments) {
        const auto fee = witness.call(callOf("CFeeCenter::getFee", known.market, known.code),
                                      [&] { return center.getFee(account, known.market, known.code); });
        Witness::expect(fee && fee->commissionDetail, "gave no commission");
        Witness::expect(
            fee->commissionDetail->openRatioByMoney == kRate,
            "gave the rate " + plain(fee->commissionDetail->openRatioByMoney) + " where 0.000123 was loaded");
    }
}

}  // namespace

Promises feeCenterPromises() {
    return {
        {"fee-center.answers",
         "what is loaded on the engine's threads must be answered on every other",
         "let no key depend on the thread that asks for it",
         answersWhatWasLoaded,
         {"catalogue.knows", "engine.one-strand-of-a-name", "accounts.key-stays", "hash.repeats"}},
    };
}

}  // namespace conformance
