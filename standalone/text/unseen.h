#ifndef STANDALONE_TEXT_UNSEEN_H
#define STANDALONE_TEXT_UNSEEN_H

#include <string>
#include <string_view>

// Characters that nobody sees in a text, or takes for a space, and that come in with what is copied from elsewhere.
// Safe from any number of threads at once.

namespace standalone {

/// One of these characters.
struct Unseen {
    std::string_view utf8;
    const char* name;  ///< "zero-width space (U+200B)"
};

/// The unseen character that the text begins with; null where it begins with none.
const Unseen* unseenAt(std::string_view text);

/// A text without its unseen characters, and the first of these.
struct Seen {
    std::string text;
    const Unseen* first = nullptr;
};

/// The text without them.
Seen seenOf(std::string_view text);

/// ", which has a zero-width space (U+200B) in it" for a sentence behind the text; empty where all of it is seen.
std::string unseenClause(std::string_view text);

}  // namespace standalone

#endif  // STANDALONE_TEXT_UNSEEN_H
