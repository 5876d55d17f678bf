#include "feedesk/terminal.h"

#include <fmt/format.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>
#include <utility>

#include "feedesk/failure.h"

namespace feedesk {
namespace {

constexpr std::size_t kUsualWidth = 80;
constexpr std::chrono::milliseconds kNoticeable{400};

std::size_t widthOfEnvironment() {
    const char* columns = std::getenv("COLUMNS");
    const std::string_view text = columns == nullptr ? "" : columns;
    std::size_t width = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), width);
    return read.ec == std::errc() && read.ptr == text.data() + text.size() ? width : 0;
}

std::size_t widthOfTerminal() {
    winsize size{};
    return ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 ? size.ws_col : 0;
}

}  // namespace

std::size_t outputWidth() {
    for (const std::size_t width : {widthOfEnvironment(), widthOfTerminal()}) {
        if (width != 0) {
            return width;
        }
    }
    return kUsualWidth;
}

void writeOutput(const std::string& text) {
    const bool written = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
    if (!written || std::fflush(stdout) != 0) {
        throw Failure(kBadInput, fmt::format("the answer could not be written: {}", std::strerror(errno)));
    }
}

void tell(const std::string& text) noexcept { static_cast<void>(std::fwrite(text.data(), 1, text.size(), stderr)); }

Progress::Progress(std::string whatHappens) : label(std::move(whatHappens)) {
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
    bool told = false;
    while (!ended.wait_for(lock, kNoticeable, [this] { return over; })) {
        const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - begin;
        tell(fmt::format("\r{} ... {:.0f} s", label, elapsed.count()));
        told = true;
    }
    if (told) {
        tell("\r\033[K");
    }
}

}  // namespace feedesk
