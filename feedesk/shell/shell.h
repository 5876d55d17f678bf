#ifndef FEEDESK_SHELL_SHELL_H
#define FEEDESK_SHELL_SHELL_H

#include <memory>
#include <string>

#include "feedesk/program.h"
#include "feedesk/session/session.h"
#include "feedesk/shell/line_editor.h"

namespace feedesk {

/// Runs commands, one a line, on one loaded market folder. What the command line of the shell says of folder, day,
/// threads, summary and pager holds for every line that does not say otherwise.
class Shell {
public:
    /// Loads the folder. Throws what Session throws.
    explicit Shell(const Program& program);
    Shell(const Shell&) = delete;
    Shell& operator=(const Shell&) = delete;
    ~Shell();

    /// Runs the lines of a terminal until its end or `exit`. Always answered: a person has seen what was not.
    ExitStatus runTerminal();

    /// Runs the lines of standard input to its end or `exit`; a line without an answer ends nothing. The worst status
    /// of the lines.
    ExitStatus runInput();

    // For the commands that there are in a shell alone.

    /// Loads the folder anew. Throws what Session throws, and then what was loaded before stays.
    void reload();
    /// Makes this line the last one.
    void end() { isOver = true; }

    [[nodiscard]] const Session& session() const { return *loaded; }

private:
    /// A command of the shell, before its line says anything.
    Program lineProgram();
    ExitStatus run(const std::string& line);
    LineCompletion completed(const std::string& before);

    SessionOptions options;
    bool summary;
    std::shared_ptr<Session> loaded;
    bool isOver = false;
};

}  // namespace feedesk

#endif  // FEEDESK_SHELL_SHELL_H
