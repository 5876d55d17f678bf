#include <limits>

#include "histories/world.h"

namespace histories {

const std::array<const char*, 36> kCategoryTexts{
    "1",          "5",          "5",           "-5",     "2",     "10001",   "10001",
    "15000",      "20001",      "70001",       "70001",  "75000", "80001",   "10000",
    "20002",      "70000",      "80002",       "0",      "",      "abc",     " 5",
    "\t+5 and",   "5x",         "x5",          "-",      "1",     "70001.9", "99999999999999999999",
    "2147483648", "4294967301", "-4294967291", "stocks", "mine",  "group",   "five",
    "beyond"};

const std::array<int, 17> kCategoryNumbers{1,
                                           5,
                                           -5,
                                           0,
                                           -1,
                                           2,
                                           10000,
                                           10001,
                                           15000,
                                           20001,
                                           20002,
                                           70000,
                                           70001,
                                           75000,
                                           80001,
                                           80002,
                                           std::numeric_limits<int>::min()};

}  // namespace histories
