#ifndef FEEDESK_CHECKING_FAR_VALUES_H
#define FEEDESK_CHECKING_FAR_VALUES_H

#include <cstddef>
#include <string>
#include <vector>

namespace feedesk::checking {

/// When a value is an exception among others of its kind.
struct FarRule {
    double factor;         ///< so many times the nearest of the others it is, or so many times less
    std::size_t fewest;    ///< of fewer values nobody can say which one is the exception
    std::size_t mostPart;  ///< so many-th part of the values are exceptions at most
};

/// A value that is far from all others.
struct FarValue {
    std::size_t place;     ///< among the values
    std::string distance;  ///< "10 times the next lower one, 5"
};

/// The exceptions among values in ascending order of their size; none is 0, and signs do not count.
std::vector<FarValue> farValues(const std::vector<double>& values, const FarRule& rule);

}  // namespace feedesk::checking

#endif  // FEEDESK_CHECKING_FAR_VALUES_H
