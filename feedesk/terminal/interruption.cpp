#include "feedesk/terminal/interruption.h"

#include <pthread.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <string_view>
#include <utility>

#include "feedesk/terminal/terminal.h"

namespace feedesk {
namespace {

constexpr std::array<int, 3> kEndings = {SIGINT, SIGTERM, SIGHUP};

// The handler reads these. The list changes on the main thread alone, while interruptions are held.
RemovedWhenInterrupted* newestRemoved = nullptr;
std::atomic<bool> lineIsShown{false};
std::atomic<const TerminalRestoredWhenInterrupted*> restoredTerminal{nullptr};
pthread_t mainThread{};

/// Calls only what a signal's handler may call. It runs on the main thread, so that this makes nothing more
/// that would have to be removed.
void endByInterruption(int signal) {
    if (pthread_equal(pthread_self(), mainThread) == 0) {
        pthread_kill(mainThread, signal);
        return;
    }
    if (lineIsShown) {
        [[maybe_unused]] const auto written = ::write(STDERR_FILENO, kWipedLine.data(), kWipedLine.size());
    }
    if (const TerminalRestoredWhenInterrupted* terminal = restoredTerminal) {
        terminal->restoreNow();
    }
    for (const RemovedWhenInterrupted* each = newestRemoved; each != nullptr; each = each->nextOlder()) {
        each->removeNow();
    }
    std::signal(signal, SIG_DFL);
    std::raise(signal);  // which ends the program as soon as this function returns
}

bool isIgnored(int signal) {
    struct sigaction now {};
    return sigaction(signal, nullptr, &now) == 0 && now.sa_handler == SIG_IGN;
}

}  // namespace

void endCleanlyWhenInterrupted() {
    mainThread = pthread_self();
    for (const int signal : kEndings) {
        if (!isIgnored(signal)) {
            std::signal(signal, endByInterruption);
        }
    }
}

void wipeLineWhenInterrupted(bool isShown) noexcept { lineIsShown = isShown; }

TerminalRestoredWhenInterrupted::TerminalRestoredWhenInterrupted() noexcept {
    if (tcgetattr(STDIN_FILENO, &before) == 0) {
        restoredTerminal = this;
    }
}

TerminalRestoredWhenInterrupted::~TerminalRestoredWhenInterrupted() { restoredTerminal = nullptr; }

/// In the background the terminal is another program's, and a change of it would stop this one.
void TerminalRestoredWhenInterrupted::restoreNow() const noexcept {
    if (tcgetpgrp(STDIN_FILENO) == getpgrp()) {
        tcsetattr(STDIN_FILENO, TCSANOW, &before);
    }
}

InterruptionHeld::InterruptionHeld() noexcept {
    sigset_t held{};
    sigemptyset(&held);
    for (const int signal : kEndings) {
        sigaddset(&held, signal);
    }
    pthread_sigmask(SIG_BLOCK, &held, &before);
}

InterruptionHeld::~InterruptionHeld() { pthread_sigmask(SIG_SETMASK, &before, nullptr); }

RemovedWhenInterrupted::RemovedWhenInterrupted(std::string whole) : path(std::move(whole)) {
    const InterruptionHeld held;
    older = std::exchange(newestRemoved, this);
    if (older != nullptr) {
        older->newer = this;
    }
}

RemovedWhenInterrupted::~RemovedWhenInterrupted() {
    const InterruptionHeld held;
    (newer == nullptr ? newestRemoved : newer->older) = older;
    if (older != nullptr) {
        older->newer = newer;
    }
}

void RemovedWhenInterrupted::removeNow() const noexcept {
    if (unlink(path.c_str()) != 0) {
        rmdir(path.c_str());
    }
}

}  // namespace feedesk
