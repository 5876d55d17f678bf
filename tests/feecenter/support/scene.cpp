#include "support/scene.h"

#include <boost/smart_ptr/make_shared.hpp>
#include <cstddef>
#include <sstream>

#include "support/future_builders.h"

namespace test {
namespace {

using namespace qmservice;

template <class Limit>
void setSixRates(Limit& limit, double rate) {
    limit.rate1 = rate;
    limit.rate2 = rate + 1;
    limit.rate3 = rate + 2;
    limit.rate4 = rate + 3;
    limit.rate5 = rate + 4;
    limit.rate6 = rate + 5;
}

template <class Limit>
boost::shared_ptr<Limit> connectLimit(double rate) {
    auto limit = boost::make_shared<Limit>();
    setSixRates(*limit, rate);
    limit->rate7 = rate + 6;
    limit->rate8 = rate + 7;
    limit->rate9 = rate + 8;
    limit->rate10 = rate + 9;
    limit->rate11 = rate + 10;
    limit->rate12 = rate + 11;
    limit->rate13 = rate + 12;
    limit->rate14 = rate + 13;
    return limit;
}

class SceneInstrument : public CInstrument {
public:
    [[nodiscard]] std::int32_t getFeeType() const override { return asked("getFeeType", 1); }
    [[nodiscard]] double getOpenFee() const override { return asked("getOpenFee", 1.0); }
    [[nodiscard]] double getCloseFee() const override { return asked("getCloseFee", 2.0); }
    [[nodiscard]] double getCloseTodayFee() const override { return asked("getCloseTodayFee", 3.0); }

private:
    template <class Value>
    static Value asked(const char* operation, Value answer) {
        FakeHost::instance().called(operation);
        return answer;
    }
};

using Values = std::vector<double>;

Values valuesOf(const CStkExchangeRateLimit& limit) {
    return {limit.rate1, limit.rate2, limit.rate3, limit.rate4, limit.rate5, limit.rate6};
}

template <class Limit>
Values connectValues(const Limit& limit) {
    return {limit.rate1, limit.rate2, limit.rate3,  limit.rate4,  limit.rate5,  limit.rate6,  limit.rate7,
            limit.rate8, limit.rate9, limit.rate10, limit.rate11, limit.rate12, limit.rate13, limit.rate14};
}

/// The first of values that go up by one, "default" for the given ones.
std::string rateText(const Values& values, const Values& byDefault) {
    if (values == byDefault) {
        return "default";
    }
    for (std::size_t i = 1; i < values.size(); ++i) {
        if (values[i] != values[0] + static_cast<double>(i)) {
            return "torn";
        }
    }
    std::ostringstream text;
    text << values[0];
    return text.str();
}

std::string commissionText(const CCommissionRateDetail& commission) {
    const Values values = ratesOf(commission);
    return values == Values{0, 1, 0, 2, 0, 3, 0, 0} ? "simulation" : rateText(values, {0, 0, 0, 0, 0, 0, 0, 0});
}

std::string marginText(const boost::shared_ptr<CMarginRateDetail>& margin) {
    if (!margin) {
        return "-";
    }
    const Values incomeSwap{0.01, 0, 0.01, 0, 0, 0};
    const Values values = ratesOf(*margin);
    return values == incomeSwap ? "income swap" : rateText(values, {0, 0, 0, 0, 0, 0});
}

std::string itemsText(const CStockOptionFeeRate& rate) {
    if (rate.baseRate == 0.2) {
        return rate.items.size() == 10 ? "default" : "torn";
    }
    std::string text;
    for (const auto& item : rate.items) {
        const auto& fees = *item.second;
        text += item.first + " " + rateText({fees.fee1, fees.fee2, fees.fee3, fees.fee4, fees.fee5}, {}) + ",";
    }
    return text;
}

}  // namespace

Scene::Instrument makeSceneInstrument(const std::string& market, const std::string& code) {
    auto instrument = boost::make_shared<SceneInstrument>();
    instrument->market = market;
    instrument->code = code;
    return instrument;
}

Scene::Scene(const std::vector<std::string>& codes) {
    host.categoryNumbers["5"] = 5;
    host.inSystemCategory = [](const std::string&, const std::string&, const std::string&, int category) {
        return category == 5;
    };
    for (const auto& code : codes) {
        instruments.push_back(host.add(makeSceneInstrument("SH", code), ~0, 2));
    }
}

boost::shared_ptr<CInstrumentFee> Scene::fullFee(const Instrument& instrument, double rate) {
    const auto fee = boost::make_shared<HostsOwn<CInstrumentFee>>();
    fee->instrument = instrument;
    fee->commissionDetail = makeCommission(rate);
    fee->marginDetails = {makeMargin('1', rate), makeMargin('2', rate + 100), makeMargin('3', rate + 200)};
    fee->stkRateLimit = boost::make_shared<CStkExchangeRateLimit>();
    setSixRates(*fee->stkRateLimit, rate);
    fee->hgtRateLimit = connectLimit<CCustomHGTExchangeRateLimit>(rate);
    fee->sgtRateLimit = connectLimit<CCustomSgtExchangeRateLimit>(rate);
    return fee;
}

std::vector<Scene::Record> Scene::records(double rate) const {
    std::vector<Record> all;
    for (const auto& instrument : instruments) {
        all.push_back(fullFee(instrument, rate++));
    }
    return all;
}

boost::shared_ptr<CCustomStockInstrumentFee> Scene::stockCustom(double rate, std::int32_t thirdCode) {
    auto limit = makeCustomLimit("5", rate);
    setSixRates(*limit, rate);
    limit->optionFee1 = rate;
    limit->optionFee2 = rate + 1;
    limit->optionFee3 = rate + 2;
    limit->optionFee4 = rate + 3;
    limit->optionFee5 = rate + 4;
    limit->optionFirstKeyCode = limit->optionSecondKeyCode = '0';
    limit->optionThirdKeyCode = thirdCode;
    return makeCustomFee<HostsOwn<CCustomStockInstrumentFee>>(limit);
}

void Scene::prepare(OpenFeeCenter& center) const {
    for (const uint64 key : {kBystander, kKnown}) {
        const double rate = 10 * static_cast<double>(key);
        auto all = records(rate);
        if (key == kKnown) {
            all.pop_back();
        }
        const auto account = makeAccount(0, key);
        center.doInitStockFee(account, all);
        center.doInitCreditFee(account, all);
        center.doInitNeeqFee(account, all);
        center.doInitHgtFee(account, all);
        center.doInitSgtFee(account, all);
        center.doInitFutureFee(account, all);
        center.doUpdateStkOptionCustomFee(account, stockCustom(rate, '0'));
    }
}

std::string answerText(const boost::shared_ptr<CInstrumentFee>& fee) {
    if (!fee) {
        return "none";
    }
    std::string text;
    if (fee->stkRateLimit) {
        text += "limit " + rateText(valuesOf(*fee->stkRateLimit), {0.00015, 0, 0, 0, 0, 0.001}) + ";";
    }
    const Values connect{0, 0, 0.0013, 0.0013, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0};
    if (fee->hgtRateLimit) {
        text += "hgt " + rateText(connectValues(*fee->hgtRateLimit), connect) + ";";
    }
    if (fee->sgtRateLimit) {
        text += "sgt " + rateText(connectValues(*fee->sgtRateLimit), connect) + ";";
    }
    if (fee->stkOptionFeeRate) {
        text += "option " + itemsText(*fee->stkOptionFeeRate) + ";";
    }
    if (fee->commissionDetail) {
        text += "commission " + commissionText(*fee->commissionDetail) + ";";
    }
    for (const auto& margin : fee->marginDetails) {
        text += "margin " + marginText(margin) + ";";
    }
    return text;
}

}  // namespace test
