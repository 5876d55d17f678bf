#ifndef TESTS_COST_SUPPORT_PUBLISHED_H
#define TESTS_COST_SUPPORT_PUBLISHED_H

#include <string_view>

#include "cost/bill.h"

namespace cost_test {

/// Published schedules of every family with their dates, each charge a term with a rate of its own. A broker's
/// commission of 0.00025 and at least 5 yuan an order (NEEQ: 0.0008, no minimum) is charged on mainland shares. Hong
/// Kong's terms are in dollars.
const cost::Schedule& publishedSchedule();

/// What a trade costs by it: "stock SH:600519 MAIN", "sell 300@1488.50", on the day; its multiplier, if any.
cost::Bill publishedBill(std::string_view place, std::string_view trade, std::string_view day,
                         std::string_view multiplier = "");

}  // namespace cost_test

#endif  // TESTS_COST_SUPPORT_PUBLISHED_H
