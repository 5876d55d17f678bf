#ifndef STANDALONE_TEXT_ENCODING_H
#define STANDALONE_TEXT_ENCODING_H

#include <string_view>

// Which encoding a text seems to have that is not UTF-8. Safe from any number of threads at once.

namespace standalone {

/// Whether the text begins with the byte order mark of UTF-16.
bool beginsAsUtf16(std::string_view text);

/// Whether the text can be GB18030, of which GBK is a part, and reads as Chinese then: at least half of its characters
/// past ASCII and punctuation are common ones. Texts in the encodings of other languages can be GB18030 too, but come
/// out as rare characters.
bool looksLikeGb18030(std::string_view text);

}  // namespace standalone

#endif  // STANDALONE_TEXT_ENCODING_H
