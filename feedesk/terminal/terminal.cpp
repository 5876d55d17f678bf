#include "feedesk/terminal/terminal.h"

#include <fmt/format.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>
#include <string_view>

#include "feedesk/failure.h"
#include "feedesk/terminal/interruption.h"
#include "feedesk/text/text.h"
#include "standalone/text/escape.h"
#include "standalone/text/numbers.h"

namespace feedesk {
namespace {

constexpr std::size_t kUsualWidth = 80;
constexpr std::size_t kAnyWidth = 1'000'000;  // wider than any table, and far from where sums of widths overflow
constexpr std::string_view kBoldRed = "\033[1;31m";
constexpr std::string_view kPlain = "\033[0m";
constexpr std::chrono::milliseconds kNoticeable{400};

/// The number that a variable of the environment is; 0: it is none.
std::size_t numberOfEnvironment(const char* variable) {
    const char* value = std::getenv(variable);
    const std::string_view text = value == nullptr ? "" : value;
    return standalone::numberIn<std::size_t>(text).value_or(0);
}

/// Zeros where standard output is no terminal.
winsize sizeOfTerminal() {
    winsize size{};
    return ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 ? size : winsize{};
}

bool isSet(const char* variable) {
    const char* value = std::getenv(variable);
    return value != nullptr && *value != '\0';
}

bool outputIsTerminal() { return isatty(STDOUT_FILENO) != 0; }

void write(std::string_view text) {
    const bool written = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
    if (!written || std::fflush(stdout) != 0) {
        throw Failure(kBadInput, fmt::format("the answer could not be written: {}", std::strerror(errno)));
    }
}

void writeError(std::string_view text) noexcept { static_cast<void>(std::fwrite(text.data(), 1, text.size(), stderr)); }

}  // namespace

std::size_t outputWidth() {
    for (const std::size_t width : {numberOfEnvironment("COLUMNS"), std::size_t{sizeOfTerminal().ws_col}}) {
        if (width != 0) {
            return width;
        }
    }
    return outputIsTerminal() ? kUsualWidth : kAnyWidth;
}

std::size_t terminalLines() {
    if (!outputIsTerminal()) {
        return 0;
    }
    const std::size_t lines = numberOfEnvironment("LINES");
    return lines != 0 ? lines : sizeOfTerminal().ws_row;
}

bool outputIsColoured() {
    const char* terminal = std::getenv("TERM");
    const bool obeysNothing = terminal != nullptr && std::string_view(terminal) == "dumb";
    return outputIsTerminal() && !isSet("NO_COLOR") && !obeysNothing;
}

std::string painted(std::string_view text, bool coloured) {
    std::string out;
    while (!text.empty()) {
        const std::size_t length = std::min(text.find_first_of(kMarks), text.size());
        out += printableLines(text.substr(0, length));
        if (length < text.size() && coloured) {
            out += text[length] == kMarks.front() ? kBoldRed : kPlain;
        }
        text.remove_prefix(std::min(length + 1, text.size()));
    }
    return out;
}

void writeText(const std::string& text) { write(painted(text, outputIsColoured())); }

void writeData(const std::string& text) { write(outputIsTerminal() ? printableLines(text) : text); }

void tell(const std::string& text) noexcept {
    try {
        writeError(printableLines(text));
    } catch (const std::bad_alloc&) {
        writeError("feedesk: no memory is left to tell what is wrong\n");
    }
}

Progress::Progress(const std::string& whatHappens) : label(standalone::printable(whatHappens)) {
    if (isatty(STDERR_FILENO) != 0) {
        teller = std::thread([this] { tellWhatTakesLong(); });
    }
}

Progress::~Progress() {
    {
        const std::lock_guard<std::mutex> lock(mutex);
        over = true;
    }
    ended.notify_one();
    if (teller.joinable()) {
        teller.join();
    }
}

void Progress::tellWhatTakesLong() {
    const auto begin = std::chrono::steady_clock::now();
    std::unique_lock<std::mutex> lock(mutex);
    bool hasWritten = false;
    while (!ended.wait_for(lock, kNoticeable, [this] { return over; })) {
        const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - begin;
        wipeLineWhenInterrupted(true);
        writeError(fmt::format("\r{} ... {:.0f} s", label, elapsed.count()));
        hasWritten = true;
    }
    if (hasWritten) {
        writeError(kWipedLine);
        wipeLineWhenInterrupted(false);
    }
}

}  // namespace feedesk
