#include "feecenter/category_number.h"

#include <cstdint>
#include <cstdlib>

namespace qmservice {

int categoryNumber(const std::string& text) {
    // glibc's atoi is strtol cut to an int; strtol stops at LONG_MIN and LONG_MAX.
    const auto whole = static_cast<std::uint64_t>(std::strtol(text.c_str(), nullptr, 10));
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(whole));
}

}  // namespace qmservice
