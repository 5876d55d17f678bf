#include "feedesk/checking/far_values.h"

#include <fmt/format.h>

#include <cmath>

#include "feedesk/text/numbers.h"

namespace feedesk::checking {
namespace {

using Values = std::vector<double>;

double ratio(double larger, double smaller) { return std::abs(larger) / std::abs(smaller); }

/// Where each run of values begins that is far from the one before.
std::vector<std::size_t> runsOf(const Values& values, double factor) {
    std::vector<std::size_t> begins = {0};
    for (std::size_t i = 1; i < values.size(); ++i) {
        if (ratio(values[i], values[i - 1]) >= factor) {
            begins.push_back(i);
        }
    }
    begins.push_back(values.size());
    return begins;
}

std::string times(double factor) { return plainNumber(std::round(factor * 10) / 10); }

/// How a value of a run compares with the nearest one outside of it.
std::string distanceText(double value, const Values& values, std::size_t begin, std::size_t end) {
    const bool hasLower = begin != 0;
    const bool hasHigher = end != values.size();
    const double lower = hasLower ? ratio(value, values[begin - 1]) : 0;
    const double higher = hasHigher ? ratio(values[end], value) : 0;
    return hasLower && (!hasHigher || lower <= higher)
               ? fmt::format("{} times the next lower one, {}", times(lower), plainNumber(values[begin - 1]))
               : fmt::format("the next higher one, {}, is {} times as much", plainNumber(values[end]), times(higher));
}

}  // namespace

std::vector<FarValue> farValues(const Values& values, const FarRule& rule) {
    std::vector<FarValue> far;
    const std::vector<std::size_t> begins = runsOf(values, rule.factor);
    for (std::size_t run = 0; values.size() >= rule.fewest && run + 1 < begins.size(); ++run) {
        const std::size_t begin = begins[run];
        const std::size_t end = begins[run + 1];
        if ((end - begin) * rule.mostPart > values.size()) {
            continue;
        }
        for (std::size_t i = begin; i < end; ++i) {
            far.push_back({i, distanceText(values[i], values, begin, end)});
        }
    }
    return far;
}

}  // namespace feedesk::checking
