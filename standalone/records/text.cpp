#include "standalone/records/text.h"

#include <bson/bson.h>

#include <array>
#include <charconv>

namespace qmservice::records {
namespace {

bool isControl(unsigned char byte) { return byte < 0x20 || byte == 0x7f; }

void appendHex(std::string& out, unsigned char byte) {
    static constexpr std::string_view digits = "0123456789abcdef";
    out += {'\\', 'x', digits[byte >> 4], digits[byte & 0xf]};
}

}  // namespace

bool isUtf8(std::string_view text) {
    // libbson takes the two bytes c0 80 for a zero character; it would come back as another text.
    return text.find("\xc0\x80") == std::string_view::npos && bson_utf8_validate(text.data(), text.size(), true);
}

std::string escaped(std::string_view text) {
    const bool keepHighBytes = isUtf8(text);
    std::string out;
    out.reserve(text.size());
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        if (isControl(byte) || (byte > 0x7f && !keepHighBytes)) {
            appendHex(out, byte);
            continue;
        }
        if (character == '\\' || character == '"') out += '\\';
        out += character;
    }
    return out;
}

std::string shortestText(double value) {
    std::array<char, 32> buffer;
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    return {buffer.data(), result.ptr};
}

}  // namespace qmservice::records
