#include "feedesk/trades/text_lines.h"

#include <fmt/format.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <string_view>

#include "feedesk/failure.h"
#include "feedesk/terminal/messages.h"
#include "feedesk/text/numbers.h"
#include "standalone/text/escape.h"
#include "standalone/text/utf8.h"

namespace feedesk {
namespace {

constexpr std::size_t kBlock = 65536;
constexpr std::size_t kLongestLine = 1'000'000;

[[noreturn]] void refuseFile(const std::string& name, const std::string& why) {
    throw Failure(kBadInput, name + " " + why);
}

std::FILE* openedForReading(const std::string& path) {
    if (path != "-") {
        return std::fopen(path.c_str(), "rb");
    }
    if (isatty(STDIN_FILENO) != 0) {
        tellNote("the trades are read from this terminal; a line with Ctrl-D ends them");
    }
    return fdopen(dup(STDIN_FILENO), "rb");
}

}  // namespace

TextLines::TextLines(const std::string& path, bool again)
    : title(path == "-" ? "standard input" : standalone::printable(path)), file(openedForReading(path)) {
    if (!file) {
        refuseFile(title, fmt::format("cannot be opened: {}", std::strerror(errno)));
    }
    if (again && (path == "-" || std::fseek(file.get(), 0, SEEK_SET) != 0)) {
        copyToTemporary();
    }
}

void TextLines::copyToTemporary() {
    std::unique_ptr<std::FILE, Close> copy(std::tmpfile());
    std::array<char, kBlock> piece{};
    bool written = copy != nullptr;
    for (std::size_t length = 1; written && length > 0;) {
        length = std::fread(piece.data(), 1, piece.size(), file.get());
        written = std::fwrite(piece.data(), 1, length, copy.get()) == length;
    }
    if (!written || std::fflush(copy.get()) != 0) {
        refuseFile(title, fmt::format("cannot be copied to a temporary file: {}", std::strerror(errno)));
    }
    if (std::ferror(file.get()) != 0) {
        refuseFile(title, fmt::format("cannot be read: {}", std::strerror(errno)));
    }
    file = std::move(copy);
    restart();
}

void TextLines::restart() {
    std::rewind(file.get());
    block.clear();
    taken = 0;
    lineNumber = 0;
}

/// Reads more behind what is left of the block; false at the end.
bool TextLines::fill() {
    block.erase(0, taken);
    taken = 0;
    const std::size_t left = block.size();
    if (left > kLongestLine) {
        refuseFile(title, fmt::format("has more than {} bytes in line {}, which is no trade", grouped(kLongestLine),
                                      lineNumber + 1));
    }
    block.resize(left + kBlock);
    block.resize(left + std::fread(block.data() + left, 1, kBlock, file.get()));
    if (std::ferror(file.get()) != 0) {
        refuseFile(title, fmt::format("cannot be read: {}", std::strerror(errno)));
    }
    return block.size() > left;
}

bool TextLines::next() {
    std::size_t end = block.find('\n', taken);
    while (end == std::string::npos && fill()) {
        end = block.find('\n', taken);
    }
    if (taken == block.size()) {
        return false;
    }
    const bool last = end == std::string::npos;
    text.assign(block, taken, (last ? block.size() : end) - taken);
    taken = last ? block.size() : end + 1;
    if (!text.empty() && text.back() == '\r') {
        text.pop_back();
    }
    if (++lineNumber == 1) {
        text.erase(0, standalone::utf8MarkLength(text));
    }
    return true;
}

}  // namespace feedesk
