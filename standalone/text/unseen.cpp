#include "standalone/text/unseen.h"

#include <algorithm>
#include <array>

namespace standalone {
namespace {

constexpr std::array<Unseen, 12> kUnseen = {{{"\xC2\xA0", "no-break space (U+00A0)"},
                                             {"\xC2\xAD", "soft hyphen (U+00AD)"},
                                             {"\xE2\x80\x8B", "zero-width space (U+200B)"},
                                             {"\xE2\x80\x8C", "zero-width non-joiner (U+200C)"},
                                             {"\xE2\x80\x8D", "zero-width joiner (U+200D)"},
                                             {"\xE2\x80\x8E", "left-to-right mark (U+200E)"},
                                             {"\xE2\x80\x8F", "right-to-left mark (U+200F)"},
                                             {"\xE2\x80\x87", "figure space (U+2007)"},
                                             {"\xE2\x80\xAF", "narrow no-break space (U+202F)"},
                                             {"\xE2\x81\xA0", "word joiner (U+2060)"},
                                             {"\xE3\x80\x80", "wide space (U+3000)"},
                                             {"\xEF\xBB\xBF", "zero-width no-break space (U+FEFF)"}}};

}  // namespace

const Unseen* unseenAt(std::string_view text) {
    const auto* const found = std::find_if(kUnseen.begin(), kUnseen.end(), [&](const Unseen& each) {
        return text.substr(0, each.utf8.size()) == each.utf8;
    });
    return found == kUnseen.end() ? nullptr : &*found;
}

Seen seenOf(std::string_view text) {
    Seen seen;
    while (!text.empty()) {
        const Unseen* unseen = unseenAt(text);
        seen.first = seen.first == nullptr ? unseen : seen.first;
        if (unseen == nullptr) {
            seen.text += text.front();
        }
        text.remove_prefix(unseen == nullptr ? 1 : unseen->utf8.size());
    }
    return seen;
}

std::string unseenClause(std::string_view text) {
    const Unseen* first = seenOf(text).first;
    return first == nullptr ? "" : std::string(", which has a ") + first->name + " in it";
}

}  // namespace standalone
