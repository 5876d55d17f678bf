#ifndef STANDALONE_LOADER_TEXT_FILE_H
#define STANDALONE_LOADER_TEXT_FILE_H

#include <filesystem>
#include <optional>
#include <string>

#include "standalone/loader/error_log.h"

namespace standalone::loader {

/// The text of a file as checked UTF-8 with LF or CRLF line ends, without the byte order mark. No answer, and the
/// reason in `errors` under `name`, when it cannot be read, is not such text or is empty.
std::optional<std::string> readText(const std::filesystem::path& path, const std::string& name, ErrorLog& errors);

}  // namespace standalone::loader

#endif  // STANDALONE_LOADER_TEXT_FILE_H
