#include "standalone/loader/words.h"

#include <algorithm>
#include <cstdint>
#include <numeric>

namespace standalone::loader {
namespace {

constexpr std::size_t kLongestQuote = 40;
constexpr std::size_t kMostCandidates = 2000;  // a folder with many errors is to be told of them soon
constexpr std::size_t kLongestName = 64;       // longer texts are not compared: nobody misspells them by two letters

bool isContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

char lower(char byte) { return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte; }

std::string_view shortened(std::string_view text) {
    if (text.size() <= kLongestQuote) return text;
    std::size_t end = kLongestQuote;
    while (end > 0 && isContinuation(text[end])) --end;
    return text.substr(0, end);
}

std::string escaped(std::string_view character) {
    static constexpr char kDigits[] = "0123456789abcdef";
    if (character == "\n") return "\\n";
    if (character == "\t") return "\\t";
    std::string out;
    for (const char byte : character) {
        const auto code = static_cast<unsigned char>(byte);
        out += {'\\', 'x', kDigits[code >> 4U], kDigits[code & 0xFU]};
    }
    return out;
}

bool isWithin(char byte, unsigned char first, unsigned char last) {
    const auto code = static_cast<unsigned char>(byte);
    return code >= first && code <= last;
}

bool turnsDirection(std::string_view text) {
    if (text.substr(0, 2) == "\xE2\x80") return isWithin(text[2], 0x8E, 0x8F) || isWithin(text[2], 0xA8, 0xAE);
    return text.substr(0, 2) == "\xE2\x81" && isWithin(text[2], 0xA6, 0xA9);
}

/// Insertions, deletions and replacements that make one text of the other; letter case does not count.
std::size_t distance(std::string_view a, std::string_view b) {
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < a.size(); ++i) {
        std::size_t diagonal = row[0]++;
        for (std::size_t j = 0; j < b.size(); ++j) {
            const std::size_t replaced = diagonal + (lower(a[i]) == lower(b[j]) ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({replaced, row[j] + 1, row[j + 1] + 1});
        }
    }
    return row.back();
}

std::size_t lengthGap(std::string_view a, std::string_view b) {
    return a.size() > b.size() ? a.size() - b.size() : b.size() - a.size();
}

}  // namespace

std::string inQuotes(std::string_view text) {
    return '"' + printable(shortened(text)) + (text.size() > kLongestQuote ? "...\"" : "\"");
}

std::string printable(std::string_view text) {
    std::string out;
    for (std::string_view rest = text; !rest.empty();) {
        const std::size_t length = unprintable(rest);
        out += length == 0 ? std::string(1, rest.front()) : escaped(rest.substr(0, length));
        rest.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return out;
}

std::size_t unprintable(std::string_view text) {
    if (text.empty()) return 0;
    if (isWithin(text[0], 0x00, 0x1F) || text[0] == 0x7F) return 1;
    if (text.size() >= 2 && text[0] == '\xC2' && isWithin(text[1], 0x80, 0x9F)) return 2;
    return text.size() >= 3 && turnsDirection(text) ? 3 : 0;
}

std::string oneOf(const std::vector<std::string>& words, std::size_t most) {
    const std::size_t shown = std::min(words.size(), most);
    std::string out;
    for (std::size_t i = 0; i < shown; ++i) {
        if (i > 0) out += i + 1 == words.size() ? " or " : ", ";
        out += words[i];
    }
    if (words.size() > shown) out += " and " + std::to_string(words.size() - shown) + " more";
    return out;
}

std::string nearest(std::string_view text, const std::vector<std::string>& candidates) {
    if (text.empty() || text.size() > kLongestName || candidates.size() > kMostCandidates) return {};
    std::string best;
    std::size_t bestDistance = text.size() < 4 ? 2 : 3;  // one letter off in a short text, two in a longer one
    for (const std::string& candidate : candidates) {
        if (lengthGap(text, candidate) >= bestDistance) continue;
        const std::size_t gap = distance(text, candidate);
        if (gap >= bestDistance || gap >= std::max(text.size(), candidate.size())) continue;
        bestDistance = gap;
        best = candidate;
    }
    return best;
}

std::string suggestion(std::string_view text, const std::vector<std::string>& candidates) {
    const std::string near = nearest(text, candidates);
    return near.empty() ? "" : "; did you mean " + inQuotes(near) + "?";
}

std::string mendByOneOf(std::string_view text, const std::vector<std::string>& candidates) {
    const std::string near = suggestion(text, candidates);
    return near.empty() ? "; write one of them" : near;
}

std::size_t characters(std::string_view text) {
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) { return !isContinuation(c); }));
}

bool hasBlank(std::string_view text) {
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == ' ' || unprintable(text.substr(at)) != 0) return true;
    }
    return false;
}

}  // namespace standalone::loader
