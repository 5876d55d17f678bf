#include <fmt/format.h>
#include <unistd.h>

#include <CLI/CLI.hpp>

#include "feedesk/commands/commands.h"
#include "feedesk/program.h"
#include "feedesk/shell/shell.h"
#include "feedesk/terminal/terminal.h"
#include "feedesk/text/numbers.h"

namespace feedesk {
namespace {

ExitStatus runShell(const Program& program) {
    Shell shell(program);
    const bool isTerminal = isatty(STDIN_FILENO) != 0 && isatty(STDOUT_FILENO) != 0;
    return isTerminal ? shell.runTerminal() : shell.runInput();
}

ExitStatus reload(Program& program) {
    program.opened.reset();
    try {
        program.shell->reload();
    } catch (const Failure& failure) {
        throw Failure(failure.status(), fmt::format("{}; what was loaded before goes on answering", failure.what()));
    }
    const standalone::Market& market = program.shell->session().market();
    writeText(fmt::format("loaded {} and {}\n", counted(market.instruments.size(), "instrument"),
                          counted(market.accounts.size(), "account")));
    return kAnswered;
}

/// A command without arguments.
void addPlain(CLI::App& app, Program& program, const char* name, const char* description,
              ExitStatus (*answer)(Program&)) {
    app.add_subcommand(name, description)->callback([&program, answer] {
        program.command = [&program, answer] { return answer(program); };
    });
}

}  // namespace

void addShell(CLI::App& app, Program& program) {
    addPlain(app, program, "shell", "Commands line by line, on a folder loaded once",
             [](Program& asked) { return runShell(asked); });
}

void addReload(CLI::App& app, Program& program) {
    addPlain(app, program, "reload", "Load the market folder anew", reload);
}

void addExit(CLI::App& app, Program& program) {
    addPlain(app, program, "exit", "End the shell", [](Program& asked) {
        asked.shell->end();
        return kAnswered;
    });
}

}  // namespace feedesk
