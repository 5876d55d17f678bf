#ifndef FEEDESK_TERMINAL_H
#define FEEDESK_TERMINAL_H

#include <condition_variable>
#include <cstddef>
#include <mutex>
#include <string>
#include <thread>

namespace feedesk {

/// Columns that a table may take: the environment's COLUMNS, else the terminal that standard output is, else 80.
std::size_t outputWidth();

/// Writes everything to standard output. Throws Failure when it cannot be written.
void writeOutput(const std::string& text);

/// Writes to standard error. Whoever cannot be told there is not told.
void tell(const std::string& text) noexcept;

/// While it lives and standard error is a terminal: after a moment, tells there what takes so long and for how long
/// already; the line is wiped at the end.
class Progress {
public:
    explicit Progress(std::string whatHappens);
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

#endif  // FEEDESK_TERMINAL_H
