#include "standalone/text/wording.h"

#include <fmt/format.h>

#include <algorithm>

#include "standalone/text/escape.h"
#include "standalone/text/nearness.h"

namespace standalone {

std::string oneOf(const std::vector<std::string>& words, std::size_t most) {
    if (words.size() <= 1) {
        return words.empty() ? "" : words.front();
    }
    const std::size_t shown = std::min(words.size(), most);
    if (shown < words.size()) {
        const auto end = words.begin() + static_cast<std::ptrdiff_t>(shown);
        return fmt::format("{} and {} more", fmt::join(words.begin(), end, ", "), words.size() - shown);
    }
    return fmt::format("{} or {}", fmt::join(words.begin(), words.end() - 1, ", "), words.back());
}

std::string suggestion(std::string_view text, const std::vector<std::string>& candidates) {
    const std::string near = nearest(text, candidates);
    return near.empty() ? "" : fmt::format("; did you mean {}?", inQuotes(near));
}

std::string adviseOneOf(std::string_view text, const std::vector<std::string>& candidates) {
    const std::string near = suggestion(text, candidates);
    return near.empty() ? "; write one of them" : near;
}

}  // namespace standalone
