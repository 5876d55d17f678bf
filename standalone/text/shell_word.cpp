#include "standalone/text/shell_word.h"

#include <algorithm>
#include <string_view>

namespace standalone {
namespace {

constexpr std::string_view kPlainSigns = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_./:@%+=,-";

bool needsNoQuotes(char byte) {
    return static_cast<unsigned char>(byte) >= 0x80U || kPlainSigns.find(byte) != std::string_view::npos;
}

}  // namespace

std::string shellWord(const std::string& text) {
    if (!text.empty() && std::all_of(text.begin(), text.end(), needsNoQuotes)) {
        return text;
    }
    std::string quoted = "'";
    for (const char byte : text) {
        quoted += byte == '\'' ? "'\\''" : std::string(1, byte);
    }
    return quoted + "'";
}

}  // namespace standalone
