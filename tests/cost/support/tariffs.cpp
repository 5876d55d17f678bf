#include "cost/support/tariffs.h"

#include <utility>

namespace cost_test {

cost::Tariff tariff(const std::vector<cost::Term>& terms, cost::Rates rates, const cost::Place& place,
                    cost::Contract contract) {
    return {place, std::move(contract), std::move(rates), schedule(terms).termsFor(place, date("2024-01-02"))};
}

cost::Contract contractOf(const std::string& multiplier) {
    cost::Contract contract;
    contract.multiplier = number(multiplier);
    return contract;
}

cost::Term levy(const std::string& rate, const std::string& how, const std::string& minimum,
                const std::string& maximum) {
    cost::Term made = term("stock", "levy", "both", how);
    made.rate = number(rate);
    if (!minimum.empty()) {
        made.minimum = number(minimum);
    }
    if (!maximum.empty()) {
        made.maximum = number(maximum);
    }
    return made;
}

cost::Tariff allIn() {
    cost::Term commission = term("stock", "commission", "both", "turnover order 0.01 half_up");
    commission.minimum = number("5");
    commission.title = "Commission";
    cost::Term handling = term("stock", "handling_fee", "both", "turnover fill 0.01 half_up");
    handling.inside = "commission";
    return tariff(
        {commission, handling, term("stock", "stamp_duty", "sell", "turnover fill 0.01 half_up")},
        rates({{"commission", "0.00025", ""}, {"handling_fee", "0.0000341", ""}, {"stamp_duty", "0.0005", ""}}));
}

cost::Tariff allInLots(const std::string& minimum, const std::string& increment) {
    const cost::Tariff made = allIn();
    cost::Contract contract;
    contract.minimum = number(minimum);
    contract.increment = number(increment);
    return {made.place(), contract, made.rates(), made.terms()};
}

cost::Tariff futures(cost::Contract contract) {
    const cost::Place place{cost::Family::kFutures, "3000001", "SHFE", "rb2510", "rb"};
    const char* const how = "turnover fill 0.01 half_up";
    cost::Rates answered = cost_test::rates({{"open_by_money", "0.0001", ""},
                                             {"open_by_volume", "0.01", ""},
                                             {"close_by_money", "0.0002", ""},
                                             {"close_by_volume", "0", ""},
                                             {"close_today_by_money", "0", ""},
                                             {"close_today_by_volume", "3", ""}});
    answered.margins.push_back(
        {'1', number("0.07"), number("1"), number("0.08"), number("2"), "custom", "custom/margin.csv:2"});
    return tariff(
        {term("futures", "open_by_money", "open", how), term("futures", "open_by_volume", "open", "quantity fill"),
         term("futures", "close_by_money", "close", how),
         term("futures", "close_today_by_volume", "close_today", "quantity fill")},
        answered, place, std::move(contract));
}

cost::Tariff options(cost::Contract contract) {
    const cost::Place place{cost::Family::kOption, "4000001", "SHO", "10001313", "510050"};
    const auto optionTerm = [](const char* charge, const char* side) {
        cost::Term made = term("option", charge, side, "quantity fill 0.01 half_up");
        made.item = "000";
        return made;
    };
    cost::Term waiver = optionTerm("handling_fee", "open_short");
    waiver.rate = number("0");
    return tariff({optionTerm("handling_fee", "open"), optionTerm("handling_fee", "close"), waiver,
                   optionTerm("exercise_fee", "exercise")},
                  cost_test::rates({{"handling_fee", "1.3", "000"}, {"exercise_fee", "0.6", "000"}}), place,
                  std::move(contract));
}

}  // namespace cost_test
