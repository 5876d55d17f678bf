#ifndef FEEDESK_STATEMENTS_ENCODING_H
#define FEEDESK_STATEMENTS_ENCODING_H

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "feedesk/trades/text_lines.h"

namespace feedesk {

/// In which bytes a statement writes its characters.
enum class Encoding { kUtf8, kGb18030 };

/// "utf-8", "gb18030" and the names of its part "gbk", "gb2312", in any case; empty for any other text.
std::optional<Encoding> encodingFrom(std::string_view text);

/// The lines as UTF-8. Where no encoding is named, lines that are all UTF-8 are that, and others GB18030. Throws
/// Failure, naming file and line, for what is no text in the encoding: another encoding, a workbook, a web page.
std::vector<std::string> linesAsUtf8(TextLines& file, std::optional<Encoding> named);

}  // namespace feedesk

#endif  // FEEDESK_STATEMENTS_ENCODING_H
