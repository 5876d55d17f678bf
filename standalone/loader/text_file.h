#ifndef STANDALONE_LOADER_TEXT_FILE_H
#define STANDALONE_LOADER_TEXT_FILE_H

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "standalone/loader/error_log.h"
#include "standalone/text/line_buffer.h"

namespace standalone::loader {

/// A file that has been read once and found to be UTF-8 with LF or CRLF line ends, and not empty. Only a digest of its
/// text is kept: who needs the text reads the file again, block by block, and asks whether it has changed. For one
/// thread.
class CheckedText {
public:
    /// No answer, and the reason in `errors` under `name`, when it cannot be read or is not such text.
    static std::optional<CheckedText> of(const std::filesystem::path& path, const std::string& name, ErrorLog& errors);

    /// The text from its beginning, without the byte order mark.
    [[nodiscard]] ReadBlock blocks();
    /// Whether what blocks() gave the last time, read to its end, is the text that was checked.
    [[nodiscard]] bool isUnchanged() const;

private:
    class Reader;

    std::filesystem::path file;
    std::uint64_t digest = 0;
    std::shared_ptr<Reader> reader;
};

/// The whole text of such a file. No answer, and the reason in `errors` under `name`, when it cannot be read or is not
/// such text.
std::optional<std::string> readText(const std::filesystem::path& path, const std::string& name, ErrorLog& errors);

/// Reports that a file was written to while it was read.
void reportChanged(const std::string& name, ErrorLog& errors);

}  // namespace standalone::loader

#endif  // STANDALONE_LOADER_TEXT_FILE_H
