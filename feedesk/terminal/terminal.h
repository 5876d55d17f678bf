#ifndef FEEDESK_TERMINAL_TERMINAL_H
#define FEEDESK_TERMINAL_TERMINAL_H

#include <condition_variable>
#include <cstddef>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>

namespace feedesk {

/// Columns that a table may take: the environment's COLUMNS, else the terminal that standard output is. Without both as
/// many as it needs; 80 where a terminal does not say.
std::size_t outputWidth();

/// Lines that the terminal shows at once which standard output is: the environment's LINES, else what it says. 0 where
/// it does not say, or where standard output is no terminal.
std::size_t terminalLines();

/// Whether a text for a person is coloured: standard output is a terminal that knows colours, and the environment's
/// NO_COLOR is not set.
bool outputIsColoured();

// Everything that the program writes goes through these: nothing else reaches a terminal, so that no text of an
// argument, a path or a file is obeyed there.

/// Writes a text for a person to standard output, its lines as printableLines() shows them. What is marked() is
/// coloured where outputIsColoured(). Throws Failure when it cannot be written.
void writeText(const std::string& text);

/// Writes a text for a program to standard output: every byte as it is, or as printableLines() shows it when that is a
/// terminal. Throws Failure when it cannot be written.
void writeData(const std::string& text);

/// Writes a text for a person to standard error, its lines as printableLines() shows them. What cannot be written
/// is lost.
void tell(const std::string& text) noexcept;

/// What writeText writes.
std::string painted(std::string_view text, bool coloured);

/// Takes away the line that a terminal's cursor is in.
constexpr std::string_view kWipedLine = "\r\033[K";

/// While it lives and standard error is a terminal: after a moment, says there what takes so long and for how long
/// already; the line is wiped at the end, and when the program is interrupted.
class Progress {
public:
    explicit Progress(const std::string& whatHappens);
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    ~Progress();

private:
    void tellWhatTakesLong();

    std::string label;
    std::mutex mutex;
    std::condition_variable ended;
    bool over = false;  // guarded by mutex
    std::thread teller;
};

}  // namespace feedesk

#endif  // FEEDESK_TERMINAL_TERMINAL_H
