#ifndef TESTS_FEEDESK_SUPPORT_PROGRAM_H
#define TESTS_FEEDESK_SUPPORT_PROGRAM_H

#include <cstddef>
#include <string>
#include <vector>

namespace feedesk::test {

/// What a run of the program left behind.
struct Outcome {
    int status = -1;  ///< -1: it was killed
    std::string out;
    std::string err;
};

/// The bytes of a file; empty where it cannot be read.
std::string contentOf(const std::string& file);

/// Runs a command of the shell without input.
Outcome runShell(const std::string& command);

/// Runs the built program through a shell; `arguments` are the shell's text. COLUMNS is 80 unless `environment` sets
/// it.
Outcome runProgram(const std::string& arguments, const std::string& environment = "");

/// The same on a market folder of the tests.
Outcome ask(const std::string& folder, const std::string& arguments, const std::string& environment = "");

/// What a terminal of `columns` columns shows when it is standard output and standard error of such a run. COLUMNS,
/// NO_COLOR and TERM are not set unless `environment` sets them.
std::string onTerminal(const std::string& folder, const std::string& arguments, int columns,
                       const std::string& environment = "");

std::vector<std::string> lines(const std::string& text);

/// The text in one line, whatever the width in which it was shown.
std::string unfolded(std::string text);

/// How many columns of a terminal the widest line takes; counted apart from the program's own way.
std::size_t widestLine(const std::string& text);

}  // namespace feedesk::test

#endif  // TESTS_FEEDESK_SUPPORT_PROGRAM_H
