#include "standalone/loader/text_file.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <memory>
#include <string_view>
#include <system_error>

#include "standalone/market_files.h"
#include "standalone/text/encoding.h"
#include "standalone/text/utf8.h"

namespace standalone::loader {
namespace {

namespace fs = std::filesystem;

struct Fault {
    ErrorKind kind;
    std::size_t line = 0;
    std::string message;
};

struct Close {
    void operator()(std::FILE* file) const { static_cast<void>(std::fclose(file)); }
};

Fault cannotRead(int error) {
    return {
        ErrorKind::kUnreadable, 0,
        "the file cannot be read (" + std::generic_category().message(error) + "); make it a file that you may read"};
}

std::optional<Fault> readBytes(const fs::path& path, std::string& bytes) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (fs::is_directory(status)) {
        return Fault{ErrorKind::kUnreadable, 0, "there is a folder where a file of this name was expected; rename it"};
    }
    if (fs::exists(status) && !fs::is_regular_file(status)) {
        return Fault{ErrorKind::kUnreadable, 0, "this is not a plain file; put a text file in its place"};
    }
    errno = 0;
    const std::unique_ptr<std::FILE, Close> file(std::fopen(path.c_str(), "rb"));
    if (!file) {
        return cannotRead(errno);
    }
    std::array<char, 65536> block{};
    while (const std::size_t count = std::fread(block.data(), 1, block.size(), file.get())) {
        bytes.append(block.data(), count);
    }
    if (std::ferror(file.get()) != 0) {
        return cannotRead(errno);
    }
    return std::nullopt;
}

std::size_t lineAt(std::string_view text, std::size_t offset) {
    const auto* const end = text.begin() + static_cast<std::ptrdiff_t>(offset);
    return 1 + static_cast<std::size_t>(std::count(text.begin(), end, '\n'));
}

std::size_t firstLineNotUtf8(std::string_view text) {
    std::size_t line = 1;
    for (std::size_t start = 0; start < text.size(); ++line) {
        const std::size_t end = std::min(text.find('\n', start), text.size() - 1) + 1;
        if (!isUtf8(text.substr(start, end - start))) {
            break;
        }
        start = end;
    }
    return line;
}

/// The path as a shell takes it.
std::string shellWord(const std::string& path) {
    static const std::string plain = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_./-";
    if (path.find_first_not_of(plain) == std::string::npos) {
        return path;
    }
    std::string quoted = "'";
    for (const char byte : path) {
        quoted += byte == '\'' ? std::string("'\\''") : std::string(1, byte);
    }
    return quoted + "'";
}

/// `encoding` is the name that iconv knows, `alsoKnown` another that a person may know.
std::string convertFrom(const std::string& encoding, const std::string& alsoKnown, const fs::path& path) {
    const std::string file = shellWord(path.string());
    return fmt::format(
        "the text looks like {}{}, but UTF-8 was expected; save it as UTF-8, or convert it: iconv -f {} -t UTF-8 {} > "
        "utf8 && mv utf8 {}",
        encoding, alsoKnown, encoding, file, file);
}

std::optional<Fault> encodingFault(std::string_view text, const fs::path& path) {
    if (beginsAsUtf16(text)) {
        return Fault{ErrorKind::kEncoding, 1, convertFrom("UTF-16", "", path)};
    }
    if (const std::size_t nul = text.find('\0'); nul != std::string_view::npos) {
        return Fault{ErrorKind::kEncoding, lineAt(text, nul),
                     "there is a NUL byte here, but UTF-8 text was expected; remove it"};
    }
    if (text.empty() || isUtf8(text)) {
        return std::nullopt;
    }
    return Fault{ErrorKind::kEncoding, firstLineNotUtf8(text),
                 looksLikeGb18030(text) ? convertFrom("GB18030", " (GBK)", path)
                                        : "the text is not UTF-8, which was expected; save it as UTF-8"};
}

std::optional<Fault> lineEndFault(std::string_view text) {
    for (std::size_t at = text.find('\r'); at != std::string_view::npos; at = text.find('\r', at + 1)) {
        if (at + 1 < text.size() && text[at + 1] == '\n') {
            continue;
        }
        return Fault{
            ErrorKind::kLineEnd, lineAt(text, at),
            "a carriage return is alone here, but lines end with LF or CRLF; save the file with such line ends"};
    }
    return std::nullopt;
}

bool isNeeded(const std::string& name) {
    return std::find(files::kNeeded.begin(), files::kNeeded.end(), name) != files::kNeeded.end();
}

std::optional<Fault> textFault(std::string_view text, const fs::path& path, const std::string& name) {
    if (std::optional<Fault> fault = encodingFault(text, path)) {
        return fault;
    }
    if (text.find_first_not_of(" \t\r\n") == std::string_view::npos) {
        return Fault{ErrorKind::kEmptyFile, 0,
                     std::string("the file is empty; fill it in") + (isNeeded(name) ? "" : " or remove it")};
    }
    return lineEndFault(text);
}

}  // namespace

std::optional<std::string> readText(const fs::path& path, const std::string& name, ErrorLog& errors) {
    std::string text;
    std::optional<Fault> fault = readBytes(path, text);
    if (!fault) {
        text.erase(0, utf8MarkLength(text));
        fault = textFault(text, path, name);
    }
    if (!fault) {
        return text;
    }
    errors.add({name, fault->line}, fault->kind, fault->message);
    return std::nullopt;
}

}  // namespace standalone::loader
