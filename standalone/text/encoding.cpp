#include "standalone/text/encoding.h"

#include <cstddef>

namespace standalone {
namespace {

bool isWithin(std::string_view text, std::size_t at, unsigned first, unsigned last) {
    return at < text.size() && static_cast<unsigned char>(text[at]) >= first &&
           static_cast<unsigned char>(text[at]) <= last;
}

/// Bytes of the character of GB18030 at the place; 0 when there is none.
std::size_t lengthAt(std::string_view text, std::size_t at) {
    if (isWithin(text, at, 0x00, 0x7F)) {
        return 1;
    }
    if (!isWithin(text, at, 0x81, 0xFE)) {
        return 0;
    }
    if (isWithin(text, at + 1, 0x40, 0x7E) || isWithin(text, at + 1, 0x80, 0xFE)) {
        return 2;
    }
    const bool four =
        isWithin(text, at + 1, 0x30, 0x39) && isWithin(text, at + 2, 0x81, 0xFE) && isWithin(text, at + 3, 0x30, 0x39);
    return four ? 4 : 0;
}

/// The 6,763 characters of daily use stand together, and so do punctuation and the letters of full width.
bool isCommon(std::string_view text, std::size_t at) {
    return isWithin(text, at, 0xB0, 0xF7) && isWithin(text, at + 1, 0xA1, 0xFE);
}
bool isPunctuation(std::string_view text, std::size_t at) {
    return isWithin(text, at, 0xA1, 0xA3) && isWithin(text, at + 1, 0xA1, 0xFE);
}

}  // namespace

bool beginsAsUtf16(std::string_view text) {
    const std::string_view mark = text.substr(0, 2);
    return mark == "\xFF\xFE" || mark == "\xFE\xFF";
}

bool looksLikeGb18030(std::string_view text) {
    std::size_t common = 0;
    std::size_t rare = 0;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t length = lengthAt(text, at);
        if (length == 0) {
            return false;
        }
        if (length > 1 && !isPunctuation(text, at)) {
            ++(isCommon(text, at) ? common : rare);
        }
        at += length;
    }
    return common > 0 && common >= rare;
}

}  // namespace standalone
