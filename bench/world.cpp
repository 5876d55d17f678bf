#include "bench/world.h"

#include <array>
#include <boost/smart_ptr/make_shared.hpp>
#include <cstdlib>

#include "bench/rates.h"
#include "host/record_fields.h"
#include "host/services.h"
#include "standalone/host.h"
#include "standalone/market.h"

namespace bench {
namespace {

using namespace qmservice;
using boost::make_shared;
using boost::shared_ptr;

int indexOf(const Listing& listing, Source source, int n) {
    switch (source) {
        case Source::kOwn:
            return n;
        case Source::kConfigured:
            return listing.own + n;
        case Source::kDefault:
            return listing.own + kOthers + n;
        default:
            return listing.own + 2 * kOthers + n;
    }
}

std::string codeAt(const Listing& listing, int index) { return std::to_string(listing.firstCode + index); }

/// Gives the fields the values that nthRate() says, from the first on.
template <class Record, class Fields>
void count(double first, Record& record, const Fields& fields) {
    std::size_t n = 0;
    records::forEachOf(fields, [&](const auto& field) { record.*field.member = nthRate(first, n++); });
}

shared_ptr<CStkExchangeRateLimit> stockLimit(double first) {
    auto limit = make_shared<CStkExchangeRateLimit>();
    count(first, *limit, records::stockRates<CStkExchangeRateLimit>);
    limit->unitVolume = kUnit;
    return limit;
}

template <class Limit>
shared_ptr<Limit> connectLimit(double first) {
    auto limit = make_shared<Limit>();
    count(first, *limit, records::connectRates<Limit>);
    limit->tradeMinUnit = kUnit;
    return limit;
}

/// A commission and the margins of the three hedge flags, as futuresRates() says them.
template <class Commission, class Margin, class Commissions, class Margins>
void futuresDetails(double first, Commissions& commissions, Margins& margins) {
    auto commission = make_shared<Commission>();
    count(first, *commission, records::commissionRates<Commission>);
    commissions(commission);
    for (std::size_t i = 0; i < kHedgeFlags.size(); ++i) {
        auto margin = make_shared<Margin>();
        margin->hedgeFlag = kHedgeFlags.at(i);
        count(first + 0.1 * static_cast<double>(i + 1), *margin, records::marginRates<Margin>);
        margins(margin);
    }
}

/// One of everything for each of the rates that records have: records of one rate share it, as they do in a back end's
/// answer.
template <class Make>
auto oneForEachRate(const Make& make) {
    std::array<decltype(make(0.0)), kRateSets> all;
    for (int set = 0; set < kRateSets; ++set) {
        all.at(static_cast<std::size_t>(set)) = make(ownRate(0, set));
    }
    return all;
}

std::size_t setOf(int account, int n) { return static_cast<std::size_t>((account + n) % kRateSets); }

void list(standalone::Market& market, const Listing& listing) {
    standalone::MarketPlace place;
    place.market = listing.market;
    place.tradeUnit = kUnit;
    market.markets.push_back(place);
    for (int index = 0; index < listing.own + 2 * kOthers; ++index) {
        standalone::ListedInstrument listed;
        listed.record = make_shared<CInstrument>();
        listed.record->market = listing.market;
        listed.record->code = codeAt(listing, index);
        listed.tradeUnit = kUnit;
        // An update goes through what lists hold: as many of each listing.
        listed.listMask = index < kUsualOwn ? listing.listMask : 0;
        listed.types = index < kUsualOwn ? listing.types : 0;
        market.instruments.push_back(listed);
    }
}

template <class Limit, class Make>
void configure(std::vector<standalone::ConfiguredLimit<Limit>>& limits, const Listing& listing, const Make& make) {
    for (int n = 0; n < kOthers; ++n) {
        limits.push_back({listing.market, codeOf(listing, Source::kConfigured, n), make(configuredRate(n)), {}});
    }
}

}  // namespace

shared_ptr<CInstrument> instrumentOf(const Listing& listing, Source source, int n) {
    return TraderCenter::instance()->getInstCenter()->findInstrument(
        utils::hash(utils::voStockKey(listing.market, codeOf(listing, source, n))));
}

std::string codeOf(const Listing& listing, Source source, int n) {
    return codeAt(listing, indexOf(listing, source, n));
}

double ownRate(int account, int n) { return 1e-3 * static_cast<double>(1 + setOf(account, n)); }

double configuredRate(int n) { return ownRate(7, n); }

void installWorld() {
    standalone::Market market;
    for (const Listing& listing : {kShanghai, kThirdBoard, kShanghaiOptions, kHongKong, kFuturesExchange}) {
        list(market, listing);
    }
    configure(market.stockLimits, kShanghai, stockLimit);
    configure(market.hgtLimits, kHongKong, connectLimit<CCustomHGTExchangeRateLimit>);
    configure(market.sgtLimits, kHongKong, connectLimit<CCustomSgtExchangeRateLimit>);
    standalone::CategoryRule everything;
    everything.category = std::atoi(kCategory);
    everything.name = kCategoryName;
    market.categories.push_back(everything);
    standalone::install(market);
}

Account accountOf(int kind, int account) {
    auto info = make_shared<CAccountInfo>();
    info->accountType = kind;
    info->accountId = std::to_string(80000000 + account);
    return info;
}

Records stockRecords(const Listing& listing, int account, int count) {
    static const auto limits = oneForEachRate(stockLimit);
    Records all;
    all.reserve(static_cast<std::size_t>(count));
    for (int n = 0; n < count; ++n) {
        auto fee = make_shared<CInstrumentFee>();
        fee->instrument = instrumentOf(listing, Source::kOwn, n);
        fee->stkRateLimit = limits.at(setOf(account, n));
        all.push_back(fee);
    }
    return all;
}

Records connectRecords(int account, int count) {
    static const auto hgt = oneForEachRate(connectLimit<CCustomHGTExchangeRateLimit>);
    static const auto sgt = oneForEachRate(connectLimit<CCustomSgtExchangeRateLimit>);
    Records all;
    for (int n = 0; n < count; ++n) {
        auto fee = make_shared<CInstrumentFee>();
        fee->instrument = instrumentOf(kHongKong, Source::kOwn, n);
        fee->hgtRateLimit = hgt.at(setOf(account, n));
        fee->sgtRateLimit = sgt.at(setOf(account, n));
        all.push_back(fee);
    }
    return all;
}

Records futuresRecords(int account, int count) {
    static const auto samples = oneForEachRate([](double first) {
        auto fee = make_shared<CInstrumentFee>();
        const auto setCommission = [&](const auto& commission) { fee->commissionDetail = commission; };
        const auto addMargin = [&](const auto& margin) { fee->marginDetails.push_back(margin); };
        futuresDetails<CCommissionRateDetail, CMarginRateDetail>(first, setCommission, addMargin);
        return fee;
    });
    Records all;
    for (int n = 0; n < count; ++n) {
        auto fee = make_shared<CInstrumentFee>(*samples.at(setOf(account, n)));
        fee->instrument = instrumentOf(kFuturesExchange, Source::kOwn, n);
        all.push_back(fee);
    }
    return all;
}

shared_ptr<IData> stockCustomFee(double first) {
    auto limit = make_shared<CCustomStkExchangeRateLimit>();
    limit->category = kCategory;
    count(first, *limit, records::stockRates<CCustomStkExchangeRateLimit>);
    auto fee = make_shared<CCustomStockInstrumentFee>();
    fee->rateLimits.push_back(limit);
    return fee;
}

shared_ptr<IData> futuresCustomFee(double first) {
    auto fee = make_shared<CCustomFutureInstrumentFee>();
    const auto add = [](auto& details) {
        return [&details](const auto& detail) {
            detail->categoryId = kCategory;
            details.push_back(detail);
        };
    };
    const auto addCommission = add(fee->commissionDetails);
    const auto addMargin = add(fee->marginDetails);
    futuresDetails<CCustomCommissionRateDetail, CCustomMarginRateDetail>(first, addCommission, addMargin);
    return fee;
}

std::vector<shared_ptr<IData>> optionCustomFees(double first) {
    std::vector<shared_ptr<IData>> fees;
    for (std::size_t i = 0; i < OptionRates().items.size(); ++i) {
        auto limit = make_shared<CCustomStkExchangeRateLimit>();
        limit->category = kCategoryName;
        count(first + 0.1 * static_cast<double>(i), *limit, records::optionFees<CCustomStkExchangeRateLimit>);
        limit->optionFirstKeyCode = limit->optionThirdKeyCode = '1';
        limit->optionSecondKeyCode = '0' + static_cast<int>(i);
        auto fee = make_shared<CCustomStockInstrumentFee>();
        fee->rateLimits.push_back(limit);
        fees.push_back(fee);
    }
    return fees;
}

}  // namespace bench
