#include "standalone/loader/text_file.h"

#include <bson/bson.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <memory>
#include <string_view>
#include <system_error>

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
    if (fs::is_directory(status))
        return Fault{ErrorKind::kUnreadable, 0, "a folder stands where a file of this name was expected; rename it"};
    if (fs::exists(status) && !fs::is_regular_file(status)) {
        return Fault{ErrorKind::kUnreadable, 0, "this is not a plain file; put a text file in its place"};
    }
    errno = 0;
    const std::unique_ptr<std::FILE, Close> file(std::fopen(path.c_str(), "rb"));
    if (!file) return cannotRead(errno);
    std::array<char, 65536> block{};
    while (const std::size_t count = std::fread(block.data(), 1, block.size(), file.get())) {
        bytes.append(block.data(), count);
    }
    if (std::ferror(file.get()) != 0) return cannotRead(errno);
    return std::nullopt;
}

std::size_t lineAt(std::string_view text, std::size_t offset) {
    const auto* const end = text.begin() + static_cast<std::ptrdiff_t>(offset);
    return 1 + static_cast<std::size_t>(std::count(text.begin(), end, '\n'));
}

unsigned char byteAt(std::string_view text, std::size_t offset) { return static_cast<unsigned char>(text[offset]); }

/// Whether every byte past ASCII is half of a two-byte character of GBK.
bool looksLikeGbk(std::string_view text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (byteAt(text, i) < 0x80) continue;
        if (byteAt(text, i) == 0x80 || byteAt(text, i) == 0xFF || i + 1 == text.size()) return false;
        const unsigned char second = byteAt(text, ++i);
        if (second < 0x40 || second == 0x7F || second == 0xFF) return false;
    }
    return true;
}

bool isUtf8(std::string_view text) { return bson_utf8_validate(text.data(), text.size(), false); }

std::size_t firstLineNotUtf8(std::string_view text) {
    std::size_t line = 1;
    for (std::size_t start = 0; start < text.size(); ++line) {
        const std::size_t end = std::min(text.find('\n', start), text.size() - 1) + 1;
        if (!isUtf8(text.substr(start, end - start))) break;
        start = end;
    }
    return line;
}

std::optional<Fault> encodingFault(std::string_view text) {
    const std::string_view mark = text.substr(0, 2);
    if (mark == "\xFF\xFE" || mark == "\xFE\xFF") {
        return Fault{ErrorKind::kEncoding, 1, "the text looks like UTF-16, but UTF-8 was expected; save it as UTF-8"};
    }
    if (const std::size_t nul = text.find('\0'); nul != std::string_view::npos) {
        return Fault{ErrorKind::kEncoding, lineAt(text, nul),
                     "a NUL byte stands here, but UTF-8 text was expected; remove it"};
    }
    if (text.empty() || isUtf8(text)) return std::nullopt;
    const std::string kind = looksLikeGbk(text) ? "looks like GBK" : "is not UTF-8";
    return Fault{ErrorKind::kEncoding, firstLineNotUtf8(text),
                 "the text " + kind + ", but UTF-8 was expected; save it as UTF-8"};
}

std::optional<Fault> lineEndFault(std::string_view text) {
    for (std::size_t at = text.find('\r'); at != std::string_view::npos; at = text.find('\r', at + 1)) {
        if (at + 1 < text.size() && text[at + 1] == '\n') continue;
        return Fault{
            ErrorKind::kLineEnd, lineAt(text, at),
            "a carriage return stands alone, but lines end with LF or CRLF; save the file with such line ends"};
    }
    return std::nullopt;
}

bool isNeeded(const std::string& name) { return name == "market.toml" || name == "accounts.csv"; }

std::optional<Fault> textFault(std::string_view text, const std::string& name) {
    if (std::optional<Fault> fault = encodingFault(text)) return fault;
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
        if (text.compare(0, 3, "\xEF\xBB\xBF") == 0) text.erase(0, 3);
        fault = textFault(text, name);
    }
    if (!fault) return text;
    errors.add({name, fault->line}, fault->kind, fault->message);
    return std::nullopt;
}

}  // namespace standalone::loader
