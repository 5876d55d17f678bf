#include "standalone/text/code_pattern.h"

#include <algorithm>
#include <boost/algorithm/string/predicate.hpp>
#include <cstddef>

namespace standalone {

namespace {

constexpr char kAnyRun = '*';

}  // namespace

bool matchesPattern(std::string_view code, std::string_view pattern) noexcept {
    std::size_t star = pattern.find(kAnyRun);
    if (star == std::string_view::npos) {
        return code == pattern;
    }
    // Most codes are too short for a long pattern, which is soon seen.
    if (code.size() + static_cast<std::size_t>(std::count(pattern.begin(), pattern.end(), kAnyRun)) < pattern.size()) {
        return false;
    }
    if (!boost::starts_with(code, pattern.substr(0, star))) {
        return false;
    }
    code.remove_prefix(star);
    pattern.remove_prefix(star + 1);
    // Each piece between two stars is taken where it first occurs: what is left over is then as long as it can be.
    while ((star = pattern.find(kAnyRun)) != std::string_view::npos) {
        const std::size_t at = code.find(pattern.substr(0, star));
        if (at == std::string_view::npos) {
            return false;
        }
        code.remove_prefix(at + star);
        pattern.remove_prefix(star + 1);
    }
    return boost::ends_with(code, pattern);
}

}  // namespace standalone
