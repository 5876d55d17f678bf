#include "standalone/text/escape.h"

#include <algorithm>

#include "standalone/text/unseen.h"
#include "standalone/text/utf8.h"

namespace standalone {
namespace {

constexpr std::size_t kLongestQuote = 40;
constexpr std::size_t kLongestCharacter = 4;  // bytes

/// "\x9b"
std::string hexEscape(char byte) {
    static constexpr char kDigits[] = "0123456789abcdef";
    const auto code = static_cast<unsigned char>(byte);
    return {'\\', 'x', kDigits[code >> 4U], kDigits[code & 0xFU]};
}

std::string shownEscape(std::string_view character) {
    if (character == "\n") {
        return "\\n";
    }
    if (character == "\t") {
        return "\\t";
    }
    std::string out;
    for (const char byte : character) {
        out += hexEscape(byte);
    }
    return out;
}

std::string_view shortened(std::string_view text) {
    if (text.size() <= kLongestQuote) {
        return text;
    }
    std::size_t end = kLongestQuote;
    while (end > kLongestQuote - kLongestCharacter && isContinuation(text[end])) {
        --end;
    }
    return text.substr(0, end);
}

bool isWithin(char byte, unsigned char first, unsigned char last) {
    const auto code = static_cast<unsigned char>(byte);
    return code >= first && code <= last;
}

bool turnsDirection(std::string_view character) {
    if (character == "\xD8\x9C") {
        return true;
    }
    if (character.substr(0, 2) == "\xE2\x80") {
        return isWithin(character[2], 0x8E, 0x8F) || isWithin(character[2], 0xA8, 0xAE);
    }
    return character.substr(0, 2) == "\xE2\x81" && isWithin(character[2], 0xA6, 0xA9);
}

bool isAsciiControl(char byte) { return isWithin(byte, 0x00, 0x1F) || byte == 0x7F; }

bool isControl(std::string_view character) {
    return isAsciiControl(character[0]) || (character[0] == '\xC2' && isWithin(character[1], 0x80, 0x9F));
}

/// What is seen of a text in quotes is all of it. A wide space is seen.
bool hides(std::string_view character) {
    const Unseen* unseen = unseenAt(character);
    return unseen != nullptr && unseen->utf8 != "\xE3\x80\x80";
}

bool prints(std::string_view character) {
    return characterLength(character) != 0 && !isControl(character) && !turnsDirection(character);
}

template <class Stays, class Replacement>
std::string replaced(std::string_view text, const Stays& stays, const Replacement& replacement) {
    std::string out;
    while (!text.empty()) {
        const std::string_view character = text.substr(0, std::max<std::size_t>(characterLength(text), 1));
        out += stays(character) ? std::string(character) : replacement(character);
        text.remove_prefix(character.size());
    }
    return out;
}

}  // namespace

std::string inQuotes(std::string_view text) {
    const std::string shown = replaced(
        shortened(text), [](std::string_view character) { return prints(character) && !hides(character); },
        shownEscape);
    return '"' + shown + (text.size() > kLongestQuote ? "...\"" : "\"");
}

std::string printable(std::string_view text) { return replaceUnprintable(text, shownEscape); }

std::string replaceUnprintable(std::string_view text, const std::function<std::string(std::string_view)>& replacement) {
    return replaced(text, prints, replacement);
}

bool hasBlank(std::string_view text) { return text.find(' ') != std::string_view::npos || printable(text) != text; }

std::string escaped(std::string_view text) {
    const bool keepHighBytes = isUtf8(text);
    std::string out;
    out.reserve(text.size());
    for (const char byte : text) {
        if (isAsciiControl(byte) || (isWithin(byte, 0x80, 0xFF) && !keepHighBytes)) {
            out += hexEscape(byte);
            continue;
        }
        if (byte == '\\' || byte == '"') {
            out += '\\';
        }
        out += byte;
    }
    return out;
}

}  // namespace standalone
