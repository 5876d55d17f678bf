#include "feedesk/answers/answer.h"

#include <algorithm>

#include "cost/rates.h"
#include "feedesk/trades/trade_words.h"
#include "host/record_fields.h"

namespace feedesk {
namespace {

using namespace qmservice;  // NOLINT(google-build-using-namespace): the record classes
using cost::Family;
using standalone::NamedRate;
using Values = std::vector<double>;

// The rates of a record, in the order of their fields.

template <class Record, class Rates>
Values valuesOf(const Record& record, const Rates& rates) {
    Values values;
    records::forEachOf(rates, [&](const auto& rate) { values.push_back(record.*rate.member); });
    return values;
}

Values values(const CStkExchangeRateLimit& limit) {
    return valuesOf(limit, records::stockRates<CStkExchangeRateLimit>);
}

Values values(const CStockOptionFeeItem& item) { return valuesOf(item, records::optionFees<CStockOptionFeeItem>); }

Values values(const CCommissionRateDetail& detail) {
    return valuesOf(detail, records::commissionRates<CCommissionRateDetail>);
}

Values values(const CMarginRateDetail& detail) { return valuesOf(detail, records::marginRates<CMarginRateDetail>); }

template <class Record>
Values values(const ConnectExchangeRateLimit<Record>& limit) {
    return valuesOf(static_cast<const Record&>(limit), records::connectRates<Record>);
}

TitledRates single(const std::string& title, const std::string& column, Unit unit, double value) {
    return {title, {{column, unit, value}}};
}

/// A rate without a title of its own: its column is its title.
TitledRates unnamed(const std::string& column, double value) { return single(column, column, Unit::kNumber, value); }

/// Rates of futures, whose names are fixed: under each title a fee or margin that is the sum of a fraction and of yuan
/// per lot, then those without a title of their own.
std::vector<TitledRates> futuresRates(const char* family, const Values& values,
                                      const std::vector<const char*>& titles) {
    const std::vector<standalone::RateField>& fields = standalone::rateFamily(family).rates;
    std::vector<TitledRates> rates;
    std::size_t i = 0;
    for (const char* title : titles) {
        rates.push_back(
            {title,
             {{fields[i].column, Unit::kFraction, values[i]}, {fields[i + 1].column, Unit::kYuan, values[i + 1]}}});
        i += 2;
    }
    for (; i < values.size(); ++i) {
        rates.push_back(unnamed(fields[i].column, values[i]));
    }
    return rates;
}

std::vector<TitledRates> namedRates(const standalone::Market& market, const std::string& family, const Values& rates) {
    const std::vector<NamedRate>& names = market.rateNames.at(family);
    std::vector<TitledRates> titled;
    std::transform(names.begin(), names.end(), rates.begin(), std::back_inserter(titled),
                   [](const NamedRate& name, double rate) {
                       const bool isYuan = name.unit == standalone::RateUnit::kYuan;
                       return single(name.title, name.column, isYuan ? Unit::kYuan : Unit::kFraction, rate);
                   });
    return titled;
}

template <class Limit>
std::vector<TitledRates> limitRates(const standalone::Market& market, const std::string& part, const Limit& limit,
                                    int tradeUnit) {
    std::vector<TitledRates> rates = namedRates(market, part, values(limit));
    rates.push_back(single("Trade unit", "trade_unit", Unit::kCount, tradeUnit));
    return rates;
}

std::vector<TitledRates> optionRates(const standalone::Market& market, const CStockOptionFeeItem& item,
                                     double baseRate) {
    std::vector<TitledRates> rates = namedRates(market, kOptionPart, values(item));
    rates.push_back(single("Base rate", "base_rate", Unit::kNumber, baseRate));
    return rates;
}

std::vector<TitledRates> commissionRates(const CCommissionRateDetail& detail) {
    return futuresRates(kCommissionPart, values(detail), {"Open", "Close", "Close today"});
}

std::vector<TitledRates> marginRates(const CMarginRateDetail& detail) {
    const std::vector<const char*> titles = {"Long", "Short"};
    std::vector<TitledRates> rates = futuresRates(kMarginPart, values(detail), titles);
    rates.insert(rates.begin() + static_cast<std::ptrdiff_t>(titles.size()),
                 single("Mode", "margin_mode", Unit::kCount, detail.marginMode));
    return rates;
}

class AnswerMaker {
public:
    AnswerMaker(const Tracer& usedTracer, const standalone::Market& loadedMarket)
        : tracer(usedTracer), market(loadedMarket) {}

    template <class Limit>
    void addLimit(Family family, const boost::shared_ptr<Limit>& limit, const boost::shared_ptr<Limit>& dyed,
                  int tradeUnit) {
        const std::string part = standalone::rateFamilyOf(family).name;
        FeeLine& line = add(part, tracer.origin(dyed));
        line.rates = limitRates(market, part, *limit, tradeUnit);
        line.read = {limit, sizeof(Limit)};
    }

    void addOption(const CStockOptionFeeRate& fee, const CStockOptionFeeRate& dyed) {
        for (const auto& [key, item] : fee.items) {
            const auto dyedItem = dyed.items.find(key);
            FeeLine& line = add(kOptionPart, tracer.origin(dyedItem == dyed.items.end() ? nullptr : dyedItem->second));
            line.item = line.label = key;
            line.rates = optionRates(market, *item, fee.baseRate);
            line.read = {item, sizeof(*item)};
        }
    }

    void addFutures(const CInstrumentFee& fee, const CInstrumentFee& dyed) {
        if (!fee.commissionDetail && fee.marginDetails.empty()) {
            return;
        }
        FeeLine& line = add(kCommissionPart, tracer.origin(dyed.commissionDetail));
        if (fee.commissionDetail) {
            line.rates = commissionRates(*fee.commissionDetail);
            line.read = {fee.commissionDetail, sizeof(*fee.commissionDetail)};
        }
        for (std::size_t slot = 0; slot < fee.marginDetails.size(); ++slot) {
            addMargin(slot, fee.marginDetails[slot],
                      slot < dyed.marginDetails.size() ? dyed.marginDetails[slot] : nullptr);
        }
    }

    std::vector<FeeLine> lines;

private:
    FeeLine& add(const std::string& part, const Origin& origin) {
        lines.push_back({part, "", "", origin, {}, {}});
        return lines.back();
    }

    void addMargin(std::size_t slot, const boost::shared_ptr<CMarginRateDetail>& detail,
                   const boost::shared_ptr<CMarginRateDetail>& dyed) {
        FeeLine& line = add(kMarginPart, tracer.origin(dyed));
        // A slot that is not set is at the place of its hedge flag.
        const auto flag = detail ? detail->hedgeFlag : kSpeculation + static_cast<std::int32_t>(slot);
        line.item = std::string(1, static_cast<char>(flag));
        line.label = hedgeName(line.item.front());
        if (detail) {
            line.rates = marginRates(*detail);
            line.read = {detail, sizeof(*detail)};
        }
    }

    const Tracer& tracer;
    const standalone::Market& market;
};

}  // namespace

bool isZero(const TitledRates& titled) {
    return std::all_of(titled.rates.begin(), titled.rates.end(), [](const ShownRate& rate) { return rate.value == 0; });
}

std::vector<TitledRates> zeroRates(const std::string& part, const standalone::Market& market) {
    switch (standalone::rateFamily(part).records) {
        case standalone::RateRecords::kStock:
            return limitRates(market, part, CStkExchangeRateLimit(), 0);
        case standalone::RateRecords::kHgt:
            return limitRates(market, part, CCustomHGTExchangeRateLimit(), 0);
        case standalone::RateRecords::kSgt:
            return limitRates(market, part, CCustomSgtExchangeRateLimit(), 0);
        case standalone::RateRecords::kOption:
            return optionRates(market, CStockOptionFeeItem(), 0);
        case standalone::RateRecords::kCommission:
            return commissionRates(CCommissionRateDetail());
        case standalone::RateRecords::kMargin:
            break;
    }
    return marginRates(CMarginRateDetail());
}

Answer makeAnswer(const CInstrumentFee& fee, const CInstrumentFee& dyed, const Tracer& tracer,
                  const standalone::Market& market) {
    AnswerMaker maker(tracer, market);
    if (fee.stkRateLimit) {
        maker.addLimit(cost::stockFamilyOf(fee), fee.stkRateLimit, dyed.stkRateLimit, fee.stkRateLimit->unitVolume);
    }
    if (fee.stkOptionFeeRate && dyed.stkOptionFeeRate) {
        maker.addOption(*fee.stkOptionFeeRate, *dyed.stkOptionFeeRate);
    }
    maker.addFutures(fee, dyed);
    if (fee.hgtRateLimit) {
        maker.addLimit(Family::kHgt, fee.hgtRateLimit, dyed.hgtRateLimit, fee.hgtRateLimit->tradeMinUnit);
    }
    if (fee.sgtRateLimit) {
        maker.addLimit(Family::kSgt, fee.sgtRateLimit, dyed.sgtRateLimit, fee.sgtRateLimit->tradeMinUnit);
    }
    return {fee.account, fee.instrument, std::move(maker.lines)};
}

}  // namespace feedesk
