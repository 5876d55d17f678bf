#include "cost/rates.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <iterator>
#include <utility>

#include "cost/refused.h"
#include "host/markets.h"
#include "host/record_fields.h"

namespace cost {
namespace {

using namespace qmservice;  // NOLINT(google-build-using-namespace): the record classes

/// As few digits as it takes, whatever the locale.
std::string plain(double value) {
    std::array<char, 32> text{};
    return {text.data(), std::to_chars(text.data(), text.data() + text.size(), value).ptr};
}

/// Reads the fields of one answer.
class Reader {
public:
    Reader(const std::vector<RateName>& rateNames, std::string keyOfItem)
        : names(rateNames), item(std::move(keyOfItem)) {}

    /// Reads every rate of the list, which host/record_fields.h has for the record's class.
    template <class Record, class Fields>
    void read(const Record& record, const Fields& fields) {
        records::forEachOf(fields, [&](const auto& field) { add(nameOf(field.name), record.*field.member); });
    }

    void add(const std::string& charge, double value) {
        rates.push_back({charge, item, decimal(charge, value), "", ""});
    }

    static Decimal decimal(const std::string& charge, double value) {
        const auto number = Decimal::fromRate(value);
        if (!number) {
            throw Refused("the rate " + charge + " is " + plain(value) + ", which is no rate");
        }
        return *number;
    }

    std::vector<Rate> rates;

private:
    [[nodiscard]] std::string nameOf(const std::string& field) const {
        const auto name =
            std::find_if(names.begin(), names.end(), [&](const RateName& known) { return known.field == field; });
        return name == names.end() ? field : name->charge;
    }

    const std::vector<RateName>& names;
    std::string item;
};

template <class Limit, class Fields>
std::vector<Rate> limitRates(const Limit& limit, const Fields& fields, const std::vector<RateName>& names) {
    Reader reader(names, "");
    reader.read(limit, fields);
    return reader.rates;
}

std::vector<Rate> optionRates(const CStockOptionFeeRate& fee, const std::vector<RateName>& names) {
    std::vector<Rate> rates;
    for (const auto& [key, item] : fee.items) {
        if (item) {
            Reader reader(names, key);
            reader.read(*item, records::optionFees<CStockOptionFeeItem>);
            std::move(reader.rates.begin(), reader.rates.end(), std::back_inserter(rates));
        }
    }
    return rates;
}

std::vector<Rate> commissionRates(const CCommissionRateDetail& detail) {
    static const std::vector<RateName> noNames;
    Reader reader(noNames, "");
    const char* const* name = kCommissionNames.data();
    records::forEachOf(records::commissionRates<CCommissionRateDetail>,
                       [&](const auto& field) { reader.add(*name++, detail.*field.member); });
    return reader.rates;
}

MarginRate marginRate(const CMarginRateDetail& detail) {
    return {static_cast<char>(detail.hedgeFlag),
            Reader::decimal(kMarginNames[0], detail.longMarginRatio),
            Reader::decimal(kMarginNames[1], detail.longMarginRatioByVolume),
            Reader::decimal(kMarginNames[2], detail.shortMarginRatio),
            Reader::decimal(kMarginNames[3], detail.shortMarginRatioByVolume),
            "",
            ""};
}

Rates futuresRates(const CInstrumentFee& answer) {
    Rates rates;
    if (answer.commissionDetail) {
        rates.charges = commissionRates(*answer.commissionDetail);
    }
    for (const auto& detail : answer.marginDetails) {
        if (detail) {
            rates.margins.push_back(marginRate(*detail));
        }
    }
    return rates;
}

}  // namespace

Family stockFamilyOf(const CInstrumentFee& answer) {
    const std::int32_t kind = answer.account ? answer.account->accountType : kStockAccount;
    if (kind == kCreditAccount) {
        return Family::kCredit;
    }
    const bool tradesEverything = kind == kPrimeBrokerageAccount;
    const bool isNeeq =
        tradesEverything ? answer.instrument && answer.instrument->market == kNeeqMarket : kind == kNeeqAccount;
    return isNeeq ? Family::kNeeq : Family::kStock;
}

namespace {

/// Whose rates the answer holds, one family or several.
std::vector<Family> familiesOf(const CInstrumentFee& answer) {
    std::vector<Family> found;
    if (answer.stkRateLimit) {
        found.push_back(stockFamilyOf(answer));
    } else if (answer.stkOptionFeeRate) {
        // Rule "A stock answer carries an option rate too": with a stock's rates it says nothing.
        found.push_back(Family::kOption);
    }
    if (answer.hgtRateLimit) {
        found.push_back(Family::kHgt);
    }
    if (answer.sgtRateLimit) {
        found.push_back(Family::kSgt);
    }
    if (answer.commissionDetail || !answer.marginDetails.empty()) {
        found.push_back(Family::kFutures);
    }
    return found;
}

[[noreturn]] void refuseFamilies(const std::vector<Family>& found) {
    if (found.empty()) {
        throw Refused("the answer holds no rates");
    }
    std::string names;
    for (const Family family : found) {
        names += (names.empty() ? "" : ", ") + std::string(wordFor(family));
    }
    throw Refused("the answer holds rates of " + names +
                  ", and nobody can say which are charged; ask with an account that trades in one of them");
}

}  // namespace

std::optional<Family> familyOf(const CInstrumentFee& answer) {
    const std::vector<Family> found = familiesOf(answer);
    return found.size() == 1 ? std::optional<Family>(found.front()) : std::nullopt;
}

Family chargedFamilyOf(const CInstrumentFee& answer) {
    const std::vector<Family> found = familiesOf(answer);
    if (found.size() != 1) {
        refuseFamilies(found);
    }
    return found.front();
}

Rates ratesOf(const CInstrumentFee& answer, const RateNames& names) {
    const Family family = chargedFamilyOf(answer);
    static const std::vector<RateName> noNames;
    const auto named = names.find(family);
    const std::vector<RateName>& fieldNames = named == names.end() ? noNames : named->second;
    switch (family) {
        case Family::kFutures:
            return futuresRates(answer);
        case Family::kOption:
            return {optionRates(*answer.stkOptionFeeRate, fieldNames), {}};
        case Family::kHgt:
            return {limitRates(*answer.hgtRateLimit, records::connectRates<CCustomHGTExchangeRateLimit>, fieldNames),
                    {}};
        case Family::kSgt:
            return {limitRates(*answer.sgtRateLimit, records::connectRates<CCustomSgtExchangeRateLimit>, fieldNames),
                    {}};
        default:
            return {limitRates(*answer.stkRateLimit, records::stockRates<CStkExchangeRateLimit>, fieldNames), {}};
    }
}

}  // namespace cost
