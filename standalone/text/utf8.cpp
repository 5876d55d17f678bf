#include "standalone/text/utf8.h"

#include <bson/bson.h>

#include <algorithm>

namespace standalone {
namespace {

/// How long a character is that begins with the byte, if any does.
std::size_t lengthFrom(char first) {
    const auto byte = static_cast<unsigned char>(first);
    if (byte < 0x80) {
        return 1;
    }
    if (byte < 0xE0) {
        return 2;
    }
    return byte < 0xF0 ? 3 : 4;
}

}  // namespace

bool isUtf8(std::string_view text) {
    // libbson takes the two bytes c0 80 for a zero character; it would come back as another text.
    return text.find("\xc0\x80") == std::string_view::npos && bson_utf8_validate(text.data(), text.size(), true);
}

std::size_t characterLength(std::string_view text) {
    const std::size_t length = lengthFrom(text.front());
    return text.size() >= length && isUtf8(text.substr(0, length)) ? length : 0;
}

std::size_t characters(std::string_view text) {
    return static_cast<std::size_t>(
        std::count_if(text.begin(), text.end(), [](char byte) { return !isContinuation(byte); }));
}

}  // namespace standalone
