#ifndef TESTS_COST_SUPPORT_NAIVE_H
#define TESTS_COST_SUPPORT_NAIVE_H

#include <string>
#include <vector>

// What a day's trades cost, in the plainest form: whole numbers of 1e-12 yuan and loops. It shares nothing with the
// library.

namespace naive {

__extension__ using Tiny = __int128;  // 1e-12 yuan

enum class Sum { kFill, kOrder, kDay };

struct Charge {
    long rate = 0;  // 1e-9
    bool onTurnover = true;
    bool onQuantity = false;  // neither: 1 for each sum
    bool purchases = true;
    bool sales = true;
    Sum sum = Sum::kFill;
    long minimumFen = -1;  // below 0: none
    long maximumFen = -1;
    long stepFen = 0;  // 0: not rounded
    std::string mode;
    int inside = -1;  // index of the charge
};

struct Fill {
    int order = 0;  // 0: of its own
    bool purchase = true;
    long quantity = 0;
    long priceMilli = 0;
};

/// What each charge comes to over the day.
std::vector<Tiny> amounts(const std::vector<Charge>& charges, const std::vector<Fill>& fills);
/// The sum of those that are not inside others.
Tiny costs(const std::vector<Charge>& charges, const std::vector<Tiny>& amounts);

/// "12.340000000000"
std::string yuan(Tiny amount);

}  // namespace naive

#endif  // TESTS_COST_SUPPORT_NAIVE_H
