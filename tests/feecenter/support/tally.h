#ifndef TESTS_FEECENTER_SUPPORT_TALLY_H
#define TESTS_FEECENTER_SUPPORT_TALLY_H

#include <string>

namespace test {

/// Adds to how many of something the tests of this program did. When the program ends, each is printed as "name: N".
/// For one thread.
void tally(const std::string& name, long count);

}  // namespace test

#endif  // TESTS_FEECENTER_SUPPORT_TALLY_H
