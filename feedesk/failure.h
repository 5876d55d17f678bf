#ifndef FEEDESK_FAILURE_H
#define FEEDESK_FAILURE_H

#include <stdexcept>
#include <string>

namespace feedesk {

/// The exit status of the program.
enum ExitStatus : int {
    kAnswered = 0,
    kNoAnswer = 1,  ///< the question was understood and has no answer
    kBadInput = 2   ///< bad usage, a broken market folder, or an answer that could not be written
};

/// Ends the command with one sentence on standard error (without "feedesk: " and line end) and an exit status.
class Failure : public std::runtime_error {
public:
    Failure(ExitStatus exitStatus, const std::string& sentence) : std::runtime_error(sentence), exit(exitStatus) {}

    [[nodiscard]] ExitStatus status() const noexcept { return exit; }

private:
    ExitStatus exit;
};

}  // namespace feedesk

#endif  // FEEDESK_FAILURE_H
