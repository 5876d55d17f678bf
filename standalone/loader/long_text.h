#ifndef STANDALONE_LOADER_LONG_TEXT_H
#define STANDALONE_LOADER_LONG_TEXT_H

#include <string>
#include <string_view>

namespace standalone::loader {

/// The rest of a sentence that refuses a text of more than 1,000 characters, " of 1001 characters, but ..."; empty for
/// a text that is taken.
std::string tooLong(std::string_view text);

}  // namespace standalone::loader

#endif  // STANDALONE_LOADER_LONG_TEXT_H
