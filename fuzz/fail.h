#ifndef FUZZ_FAIL_H
#define FUZZ_FAIL_H

#include <string>

namespace fuzz {

/// Ends the process as a crash: an input has shown that something does not hold. `what` is written to standard error.
[[noreturn]] void fail(const std::string& what);

}  // namespace fuzz

#endif  // FUZZ_FAIL_H
