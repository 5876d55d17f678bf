#ifndef BENCH_FAIL_H
#define BENCH_FAIL_H

#include <cstdlib>
#include <iostream>
#include <string>

namespace bench {

/// Ends the program: what was to be measured is not what it should be.
[[noreturn]] inline void fail(const std::string& what) {
    std::cerr << "bench: " << what << std::endl;
    std::_Exit(1);
}

}  // namespace bench

#endif  // BENCH_FAIL_H
