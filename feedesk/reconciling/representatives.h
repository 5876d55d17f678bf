#ifndef FEEDESK_RECONCILING_REPRESENTATIVES_H
#define FEEDESK_RECONCILING_REPRESENTATIVES_H

#include <string>
#include <vector>

#include "cost/side.h"
#include "feedesk/instruments/question.h"
#include "standalone/market.h"

namespace feedesk {

/// An instrument that stands for all that rates may be given for alike.
struct Representative {
    Question question;
    std::string categories;  ///< the custom categories that it is in, "10001, 10002"; empty where it is in none
};

/// Instruments of the family that stand for the markets, products and categories of all of them, the custom ones too,
/// of which groups are made.
std::vector<Representative> representativesOf(cost::Family family, const standalone::Market& market);

}  // namespace feedesk

#endif  // FEEDESK_RECONCILING_REPRESENTATIVES_H
