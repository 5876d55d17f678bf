#include "fuzz/fail.h"

#include <cstdio>
#include <cstdlib>

namespace fuzz {

void fail(const std::string& what) {
    std::fprintf(stderr, "does not hold: %s\n", what.c_str());
    std::abort();
}

}  // namespace fuzz
