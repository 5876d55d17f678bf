#include "feedesk/answers/provenance.h"

#include <algorithm>
#include <boost/make_shared.hpp>
#include <cmath>
#include <unordered_map>
#include <utility>

#include "host/records.h"
#include "standalone/host.h"

namespace feedesk {
namespace {

using boost::shared_ptr;
using namespace qmservice;  // NOLINT(google-build-using-namespace): the record classes
using standalone::Position;

constexpr const char* kTracingStrand = "trace";

// A million and more: scaled for the content keys it is a whole number far inside 64 bits, each dye has a key of its
// own, and nobody charges a million times the turnover.
constexpr double kFirstDye = 1e6;

// The leading rate of each kind of record. One class serves stocks and options: each family reads its own rate of it.

void paint(CStkExchangeRateLimit& limit, double dye) { limit.rate1 = dye; }
void paint(CCustomHGTExchangeRateLimit& limit, double dye) { limit.rate1 = dye; }
void paint(CCustomSgtExchangeRateLimit& limit, double dye) { limit.rate1 = dye; }
void paint(CMarginRateDetail& detail, double dye) { detail.longMarginRatio = dye; }
void paint(CCustomMarginRateDetail& detail, double dye) { detail.longMarginRatio = dye; }
void paint(CCommissionRateDetail& detail, double dye) { detail.openRatioByMoney = dye; }
void paint(CCustomCommissionRateDetail& detail, double dye) { detail.openRatioByMoney = dye; }
void paint(CInstrument& instrument, double dye) { instrument.openFee = dye * kPartsOfTurnover; }

void paint(CCustomStkExchangeRateLimit& limit, double dye) {
    limit.rate1 = dye;
    limit.optionFee1 = dye;
}

/// Makes dyed copies of records. Records of one line may be one object, and their copies then share one dye too.
class Dyer {
public:
    explicit Dyer(Dyes& usedDyes) : dyes(usedDyes) {}

    template <class Record>
    void dye(shared_ptr<Record>& record, const Origin& origin) {
        if (!record) {
            return;
        }
        Copy& copy = copies[record.get()];
        if (!copy.dyed) {
            const auto made = boost::make_shared<Record>(*record);
            paint(*made, dyes.next(origin));
            copy = {record, made};
        }
        record = boost::static_pointer_cast<Record>(copy.dyed);
    }

    template <class Record>
    void dyeEach(std::vector<shared_ptr<Record>>& records, Level level, const Position* position) {
        for (shared_ptr<Record>& record : records) {
            dye(record, {level, *position++});
        }
    }

private:
    struct Copy {
        shared_ptr<void> original;  // kept, so that no other record takes its place
        shared_ptr<void> dyed;
    };

    Dyes& dyes;
    std::unordered_map<const void*, Copy> copies;
};

template <class Limit>
void dyeLimits(std::vector<standalone::ConfiguredLimit<Limit>>& limits, Dyer& dyer) {
    for (auto& configured : limits) {
        dyer.dye(configured.limit, {Level::kConfiguredLimit, configured.position});
    }
}

standalone::Market dyedCopy(const standalone::Market& market, Dyes& dyes) {
    standalone::Market copy = market;
    Dyer dyer(dyes);
    for (auto& listed : copy.instruments) {
        dyer.dye(listed.record, {Level::kExchangeFee, listed.position});
    }
    dyeLimits(copy.stockLimits, dyer);
    dyeLimits(copy.hgtLimits, dyer);
    dyeLimits(copy.sgtLimits, dyer);
    return copy;
}

void dyeRecord(standalone::FeeRecord& fee, Dyer& dyer) {
    const Origin origin{Level::kOwnRecord, fee.position};
    fee.record = boost::make_shared<CInstrumentFee>(*fee.record);
    dyer.dye(fee.record->stkRateLimit, origin);
    dyer.dye(fee.record->hgtRateLimit, origin);
    dyer.dye(fee.record->sgtRateLimit, origin);
    dyer.dye(fee.record->commissionDetail, origin);
    dyer.dyeEach(fee.record->marginDetails, Level::kOwnRecord, fee.margins.data());
}

/// Dyes a custom fee of one of the classes with one list of limits; nothing when it is of another class.
template <class Fee>
void dyeLimitsOf(standalone::CustomFee& custom, Dyer& dyer) {
    if (const auto* original = dynamic_cast<const Fee*>(custom.record.get())) {
        auto copy = boost::make_shared<Fee>(*original);
        dyer.dyeEach(copy->rateLimits, Level::kCustomFee, custom.entries.data());
        custom.record = copy;
    }
}

void dyeFutures(standalone::CustomFee& custom, Dyer& dyer) {
    if (const auto* original = dynamic_cast<const CCustomFutureInstrumentFee*>(custom.record.get())) {
        auto copy = boost::make_shared<CCustomFutureInstrumentFee>(*original);
        const Position* position = custom.entries.data();
        dyer.dyeEach(copy->commissionDetails, Level::kCustomFee, position);
        dyer.dyeEach(copy->marginDetails, Level::kCustomFee, position + copy->commissionDetails.size());
        custom.record = copy;
    }
}

standalone::Account dyedCopy(const standalone::Account& account, Dyes& dyes) {
    standalone::Account copy = account;
    Dyer dyer(dyes);
    for (standalone::FeeRecord& fee : copy.fees) {
        dyeRecord(fee, dyer);
    }
    for (standalone::CustomFee& custom : copy.customFees) {
        dyeLimitsOf<CCustomStockInstrumentFee>(custom, dyer);
        dyeLimitsOf<CCustomHGTInstrumentFee>(custom, dyer);
        dyeLimitsOf<CCustomSgtInstrumentFee>(custom, dyer);
        dyeFutures(custom, dyer);
    }
    return copy;
}

/// Holds one market in the host's services and puts the other back at the end.
class Installed {
public:
    Installed(const standalone::PreparedMarket& now, standalone::PreparedMarket later) : after(std::move(later)) {
        standalone::install(now);
    }
    Installed(const Installed&) = delete;
    Installed& operator=(const Installed&) = delete;
    ~Installed() { standalone::install(after); }

private:
    standalone::PreparedMarket after;
};

}  // namespace

double Dyes::next(const Origin& origin) {
    origins.push_back(origin);
    return kFirstDye + static_cast<double>(origins.size() - 1);
}

Origin Dyes::origin(double rate) const {
    const double index = rate - kFirstDye;
    if (index >= 0 && index < static_cast<double>(origins.size()) && index == std::trunc(index)) {
        return origins[static_cast<std::size_t>(index)];
    }
    return {};
}

Tracer::Tracer(const standalone::Market& realMarket, standalone::PreparedMarket realPrepared)
    : real(std::move(realPrepared)), dyed(standalone::prepared(dyedCopy(realMarket, dyes))), center(kTracingStrand) {}

void Tracer::feed(const standalone::Account& account, const standalone::Account& fees) {
    const Installed inServices(dyed, real);
    standalone::feed(center, dyedCopy(fees, dyes));
    standalone::waitForStrand(kTracingStrand);
    fed.insert(&account);
}

std::vector<shared_ptr<CInstrumentFee>> Tracer::ask(const standalone::Account& account,
                                                    const std::vector<Question>& questions) {
    const Installed inServices(dyed, real);
    IFeeCenter& asked = center;
    std::vector<shared_ptr<CInstrumentFee>> answers;
    answers.reserve(questions.size());
    for (const Question& question : questions) {
        answers.push_back(asked.getFee(account.record, question.market, question.code));
    }
    return answers;
}

Origin Tracer::origin(const shared_ptr<CStkExchangeRateLimit>& limit) const {
    return limit ? dyes.origin(limit->rate1) : Origin{Level::kNotSet, {}};
}

Origin Tracer::origin(const shared_ptr<CCustomHGTExchangeRateLimit>& limit) const {
    return limit ? dyes.origin(limit->rate1) : Origin{Level::kNotSet, {}};
}

Origin Tracer::origin(const shared_ptr<CCustomSgtExchangeRateLimit>& limit) const {
    return limit ? dyes.origin(limit->rate1) : Origin{Level::kNotSet, {}};
}

Origin Tracer::origin(const shared_ptr<CStockOptionFeeItem>& item) const {
    return item ? dyes.origin(item->fee1) : Origin{Level::kNotSet, {}};
}

Origin Tracer::origin(const shared_ptr<CMarginRateDetail>& detail) const {
    return detail ? dyes.origin(detail->longMarginRatio) : Origin{Level::kNotSet, {}};
}

Origin Tracer::origin(const shared_ptr<CCommissionRateDetail>& detail) const {
    if (!detail) {
        return {Level::kNotSet, {}};
    }
    // The exchange's own fee arrives by turnover or, undivided, by lot.
    const Origin byMoney = dyes.origin(detail->openRatioByMoney);
    return byMoney.position ? byMoney : dyes.origin(detail->openRatioByVolume / kPartsOfTurnover);
}

}  // namespace feedesk
