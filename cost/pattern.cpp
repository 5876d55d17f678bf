#include "cost/pattern.h"

#include <algorithm>
#include <cstddef>

namespace cost {

namespace {

constexpr char kAnyRun = '*';

bool startsWith(std::string_view text, std::string_view start) { return text.substr(0, start.size()) == start; }

bool endsWith(std::string_view text, std::string_view end) {
    return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

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
    if (!startsWith(code, pattern.substr(0, star))) {
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
    return endsWith(code, pattern);
}

}  // namespace cost
