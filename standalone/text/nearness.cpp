#include "standalone/text/nearness.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace standalone {
namespace {

constexpr std::size_t kMostCandidates = 2000;  // a folder with many errors must report them soon
constexpr std::size_t kLongestName = 64;       // longer texts are not compared: they are no names

char lowerCaseOf(char byte) { return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte; }

/// How many bytes of a name may be wrong, so that it is still a slip: one Chinese character in four has three.
std::size_t mostMistakes(std::size_t length) { return length < 5 ? 1 : std::max<std::size_t>(2, length / 3); }

}  // namespace

std::string lowerCase(std::string_view text) {
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(), lowerCaseOf);
    return lower;
}

std::size_t editDistance(std::string_view from, std::string_view to, std::size_t most) {
    const std::size_t lengthGap = std::max(from.size(), to.size()) - std::min(from.size(), to.size());
    if (lengthGap > most) {
        return lengthGap;
    }
    std::vector<std::size_t> row(to.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < from.size(); ++i) {
        std::size_t diagonal = row[0]++;
        for (std::size_t j = 0; j < to.size(); ++j) {
            const std::size_t replaced = diagonal + (from[i] == to[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({replaced, row[j] + 1, diagonal + 1});
        }
    }
    return row.back();
}

std::vector<std::string> nearNames(std::string_view text, const std::vector<std::string>& known, std::size_t most) {
    if (text.empty() || text.size() > kLongestName) {
        return {};
    }
    const std::string wanted = lowerCase(text);
    const std::size_t farthest = mostMistakes(text.size());
    std::vector<std::pair<std::size_t, std::string_view>> near;
    for (const std::string& name : known) {
        const std::size_t distance = editDistance(wanted, lowerCase(name), farthest);
        const bool sharesNothing = distance >= std::max(text.size(), name.size());
        if (distance <= farthest && !sharesNothing) {
            near.emplace_back(distance, name);
        }
    }
    std::sort(near.begin(), near.end());
    near.resize(std::min(near.size(), most));
    std::vector<std::string> names;
    names.reserve(near.size());
    for (const auto& [distance, name] : near) {
        names.emplace_back(name);
    }
    return names;
}

std::string nearest(std::string_view text, const std::vector<std::string>& candidates) {
    if (candidates.size() > kMostCandidates) {
        return {};
    }
    const std::vector<std::string> near = nearNames(text, candidates, 1);
    return near.empty() ? "" : near.front();
}

}  // namespace standalone
