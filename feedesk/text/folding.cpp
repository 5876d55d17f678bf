#include "feedesk/text/folding.h"

#include <algorithm>
#include <boost/algorithm/string/case_conv.hpp>
#include <locale>

namespace feedesk {
namespace {

// In UTF-8 the full-width forms of '!' to '~' are EF BC 81 to EF BC BF and EF BD 80 to EF BD 9E.
constexpr std::string_view kWideSpace = "\xE3\x80\x80";
constexpr std::size_t kWideBytes = 3;

unsigned byteAt(std::string_view text, std::size_t at) { return static_cast<unsigned char>(text[at]); }

/// The ASCII of the full-width character at the beginning of the text; 0 when there is none.
char narrowForm(std::string_view text) {
    if (text.substr(0, kWideBytes) == kWideSpace) {
        return ' ';
    }
    if (text.size() < kWideBytes || byteAt(text, 0) != 0xEF) {
        return 0;
    }
    const unsigned last = byteAt(text, 2);
    if (byteAt(text, 1) == 0xBC && last >= 0x81 && last <= 0xBF) {
        return static_cast<char>(last - 0x81 + '!');
    }
    if (byteAt(text, 1) == 0xBD && last >= 0x80 && last <= 0x9E) {
        return static_cast<char>(last - 0x80 + '`');
    }
    return 0;
}

}  // namespace

std::string narrowed(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    while (!text.empty()) {
        const char narrow = narrowForm(text);
        out += narrow == 0 ? text.front() : narrow;
        text.remove_prefix(narrow == 0 ? 1 : kWideBytes);
    }
    return out;
}

std::string folded(std::string_view text) {
    std::string out = narrowed(text);
    out.erase(
        std::remove_if(out.begin(), out.end(), [](char c) { return c == ':' || c == '.' || c == ' ' || c == '\t'; }),
        out.end());
    boost::to_lower(out, std::locale::classic());
    return out;
}

}  // namespace feedesk
