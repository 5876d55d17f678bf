#include "standalone/loader/words.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <numeric>

namespace standalone::loader {
namespace {

constexpr std::size_t kLongestQuote = 40;
constexpr std::size_t kLongestCharacter = 4;   // bytes
constexpr std::size_t kMostCandidates = 2000;  // a folder with many errors is to be told of them soon
constexpr std::size_t kLongestName = 64;       // longer texts are not compared: nobody misspells them by two letters

bool isContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

std::string_view shortened(std::string_view text) {
    if (text.size() <= kLongestQuote) return text;
    std::size_t end = kLongestQuote;
    while (end > kLongestQuote - kLongestCharacter && isContinuation(text[end])) --end;
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

/// First bytes of a well-formed UTF-8 character: how many bytes follow from them, and what the second may be. That
/// excludes longer forms of shorter characters, surrogates, and numbers past U+10FFFF.
struct LeadBytes {
    unsigned char first, last;
    std::size_t length;
    unsigned char secondFirst, secondLast;
};

constexpr std::array<LeadBytes, 8> kLeadBytes = {{{0xC2, 0xDF, 2, 0x80, 0xBF},
                                                  {0xE0, 0xE0, 3, 0xA0, 0xBF},
                                                  {0xE1, 0xEC, 3, 0x80, 0xBF},
                                                  {0xED, 0xED, 3, 0x80, 0x9F},
                                                  {0xEE, 0xEF, 3, 0x80, 0xBF},
                                                  {0xF0, 0xF0, 4, 0x90, 0xBF},
                                                  {0xF1, 0xF3, 4, 0x80, 0xBF},
                                                  {0xF4, 0xF4, 4, 0x80, 0x8F}}};

/// Bytes of the UTF-8 character that the text begins with; 0 when it begins with none.
std::size_t characterLength(std::string_view text) {
    if (isWithin(text[0], 0x00, 0x7F)) return 1;
    const auto* const lead = std::find_if(kLeadBytes.begin(), kLeadBytes.end(), [&](const LeadBytes& bytes) {
        return isWithin(text[0], bytes.first, bytes.last);
    });
    if (lead == kLeadBytes.end() || text.size() < lead->length) return 0;
    const bool whole =
        isWithin(text[1], lead->secondFirst, lead->secondLast) &&
        std::all_of(text.begin() + 2, text.begin() + static_cast<std::ptrdiff_t>(lead->length), isContinuation);
    return whole ? lead->length : 0;
}

bool turnsDirection(std::string_view character) {
    if (character == "\xD8\x9C") return true;
    if (character.substr(0, 2) == "\xE2\x80") {
        return isWithin(character[2], 0x8E, 0x8F) || isWithin(character[2], 0xA8, 0xAE);
    }
    return character.substr(0, 2) == "\xE2\x81" && isWithin(character[2], 0xA6, 0xA9);
}

bool isControl(std::string_view character) {
    return isWithin(character[0], 0x00, 0x1F) || character[0] == 0x7F ||
           (character[0] == '\xC2' && isWithin(character[1], 0x80, 0x9F));
}

/// Insertions, deletions and replacements that make one text of the other; letter case does not count.
std::size_t distance(std::string_view a, std::string_view b) {
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < a.size(); ++i) {
        std::size_t diagonal = row[0]++;
        for (std::size_t j = 0; j < b.size(); ++j) {
            const std::size_t replaced = diagonal + (lowerCase(a[i]) == lowerCase(b[j]) ? 0 : 1);
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

char lowerCase(char byte) { return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte; }

std::string inQuotes(std::string_view text) {
    return '"' + printable(shortened(text)) + (text.size() > kLongestQuote ? "...\"" : "\"");
}

std::string printable(std::string_view text) { return replaceUnprintable(text, escaped); }

std::string replaceUnprintable(std::string_view text, const std::function<std::string(std::string_view)>& replacement) {
    std::string out;
    while (!text.empty()) {
        const std::size_t length = characterLength(text);
        const std::string_view character = text.substr(0, std::max<std::size_t>(length, 1));
        const bool prints = length != 0 && !isControl(character) && !turnsDirection(character);
        out += prints ? std::string(character) : replacement(character);
        text.remove_prefix(character.size());
    }
    return out;
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

bool hasBlank(std::string_view text) { return text.find(' ') != std::string_view::npos || printable(text) != text; }

}  // namespace standalone::loader
