#ifndef FEEDESK_TERMINAL_INTERRUPTION_H
#define FEEDESK_TERMINAL_INTERRUPTION_H

#include <termios.h>

#include <csignal>
#include <string>

namespace feedesk {

/// From now on Ctrl-C, SIGTERM and SIGHUP end the program at once and leave nothing half done behind: the line that
/// tells of progress is wiped, the terminal gets the settings back that a line editor changed, and what is
/// RemovedWhenInterrupted is removed. The program is ended by the signal
/// itself, so that a shell reports 130, 143 and 129 and a script stops. What was ignored when the program began stays
/// ignored. For the main thread, once.
void endCleanlyWhenInterrupted();

/// Whether standard error ends in a line that an interruption is to wipe. For any thread.
void wipeLineWhenInterrupted(bool isShown) noexcept;

/// While it lives an interruption gives the terminal at standard input, where this program has it, the settings back
/// that it had when the object was made. The object itself changes nothing. One at a time, and for the main thread.
class TerminalRestoredWhenInterrupted {
public:
    TerminalRestoredWhenInterrupted() noexcept;
    TerminalRestoredWhenInterrupted(const TerminalRestoredWhenInterrupted&) = delete;
    TerminalRestoredWhenInterrupted& operator=(const TerminalRestoredWhenInterrupted&) = delete;
    ~TerminalRestoredWhenInterrupted();

    /// For the signal's handler.
    void restoreNow() const noexcept;

private:
    termios before{};
};

/// While it lives an interruption waits. For the main thread, and for moments.
class InterruptionHeld {
public:
    InterruptionHeld() noexcept;
    InterruptionHeld(const InterruptionHeld&) = delete;
    InterruptionHeld& operator=(const InterruptionHeld&) = delete;
    ~InterruptionHeld();

private:
    sigset_t before{};
};

/// While it lives an interruption removes the file, link or folder of this path; a folder only when it is empty, so the
/// object of what is in it is made after it. The object itself removes nothing. For the main thread.
class RemovedWhenInterrupted {
public:
    explicit RemovedWhenInterrupted(std::string whole);
    RemovedWhenInterrupted(const RemovedWhenInterrupted&) = delete;
    RemovedWhenInterrupted& operator=(const RemovedWhenInterrupted&) = delete;
    ~RemovedWhenInterrupted();

    /// Of those that live, by age: what the signal's handler walks along.
    [[nodiscard]] const RemovedWhenInterrupted* nextOlder() const noexcept { return older; }
    void removeNow() const noexcept;

private:
    std::string path;
    RemovedWhenInterrupted* older = nullptr;
    RemovedWhenInterrupted* newer = nullptr;
};

}  // namespace feedesk

#endif  // FEEDESK_TERMINAL_INTERRUPTION_H
