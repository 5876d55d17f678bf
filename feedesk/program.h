#ifndef FEEDESK_PROGRAM_H
#define FEEDESK_PROGRAM_H

#include <functional>
#include <string>

#include "feedesk/failure.h"
#include "feedesk/session.h"

namespace CLI {
class App;
}  // namespace CLI

namespace feedesk {

enum class Format { kTable, kJson, kCsv };

/// What the command line asks for, and what the commands share.
struct Program {
    SessionOptions session;
    bool summary = false;
    Format format = Format::kTable;
    bool strict = false;  ///< whether a marked answer counts as none
    std::function<ExitStatus()>
        command;  ///< what to do once the whole command line is read; set by the one that is named

    /// Writes an answer to standard output and, when it is asked for, the session's summary: below a table, else on
    /// standard error, so that programs can read the answer.
    void answer(const std::string& text, const Session& opened) const;
};

/// Adds --json and --csv to a command.
void addFormatOptions(CLI::App& command, Program& program);

// One command each: adds it to the command line and says what it does.
void addFee(CLI::App& app, Program& program);
void addFees(CLI::App& app, Program& program);
void addAccounts(CLI::App& app, Program& program);
void addHelp(CLI::App& app, Program& program);

/// Why there is no such command, and where the commands are told: one sentence.
std::string unknownCommand(const CLI::App& app, const std::string& name);

/// Reads the command line, answers and tells what went wrong; the program's exit status.
int run(int argc, const char* const* argv);

}  // namespace feedesk

#endif  // FEEDESK_PROGRAM_H
