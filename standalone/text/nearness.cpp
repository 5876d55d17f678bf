#include "standalone/text/nearness.h"

#include <algorithm>
#include <numeric>

namespace standalone {
namespace {

constexpr std::size_t kMostCandidates = 2000;  // a folder with many errors must report them soon
constexpr std::size_t kLongestName = 64;       // longer texts are not compared: nobody misspells them by two letters

char lowerCaseOf(char byte) { return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte; }

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

std::string nearest(std::string_view text, const std::vector<std::string>& candidates) {
    if (text.empty() || text.size() > kLongestName || candidates.size() > kMostCandidates) {
        return {};
    }
    const std::string wanted = lowerCase(text);
    std::string best;
    std::size_t most = text.size() < 4 ? 1 : 2;  // letters that are wrong
    for (const std::string& candidate : candidates) {
        const std::size_t distance = editDistance(wanted, lowerCase(candidate), most);
        const bool sharesNothing = distance >= std::max(text.size(), candidate.size());
        if (distance > most || sharesNothing) {
            continue;
        }
        best = candidate;
        if (distance == 0) {
            break;
        }
        most = distance - 1;
    }
    return best;
}

}  // namespace standalone
