#ifndef STANDALONE_RECORDS_TEXT_H
#define STANDALONE_RECORDS_TEXT_H

#include <string>
#include <string_view>

namespace qmservice::records {

/// Whether the text is valid UTF-8; a zero byte counts as a character.
bool isUtf8(std::string_view text);

/// The text as one printable line: backslash and double quote behind a backslash, control characters as "\xNN". In a
/// text that is not UTF-8 every byte above 0x7f too. Different texts stay different.
std::string escaped(std::string_view text);

/// The shortest decimal text that reads back as the same number, whatever the locale; "nan", "inf", "-inf" where there
/// is none.
std::string shortestText(double value);

}  // namespace qmservice::records

#endif  // STANDALONE_RECORDS_TEXT_H
