#ifndef FEEDESK_TEXT_FOLDING_H
#define FEEDESK_TEXT_FOLDING_H

#include <string>
#include <string_view>

namespace feedesk {

/// `text` with ASCII in place of full-width forms ("Ａ：＊" is "A:*") and a space in place of the wide one.
std::string narrowed(std::string_view text);

/// What is left of `text` when only what distinguishes instruments counts: narrowed, ASCII letters small, without
/// blanks, colons and points. "SH:600519" and "sh 600519" fold to the same, "万  科Ａ" and "万科A" too. Any bytes will
/// do.
std::string folded(std::string_view text);

}  // namespace feedesk

#endif  // FEEDESK_TEXT_FOLDING_H
