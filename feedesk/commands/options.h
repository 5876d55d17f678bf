#ifndef FEEDESK_COMMANDS_OPTIONS_H
#define FEEDESK_COMMANDS_OPTIONS_H

#include <CLI/CLI.hpp>
#include <memory>
#include <optional>
#include <string>

#include "cost/date.h"
#include "feedesk/program.h"

namespace feedesk {

/// Adds the forms of an answer to a command: --json, --csv, --csv-bom, --xlsx.
void addFormatOptions(CLI::App& command, Program& program);

/// Adds the argument of a command that shows what has a number and a name. `pattern` must outlive the command.
void addNumberPattern(CLI::App& command, std::string& pattern);

/// Adds an option that names a day.
void addDayOption(CLI::App& command, const std::string& name, std::optional<cost::Date>& day,
                  const std::string& description);

/// What a command's options and arguments are read into; `answer` is called with them when the command is named. They
/// live as long as the command.
template <class Arguments>
Arguments& argumentsOf(CLI::App& command, Program& program, ExitStatus (*answer)(Program&, const Arguments&)) {
    const auto arguments = std::make_shared<Arguments>();
    command.callback([&program, arguments, answer] {
        program.command = [&program, arguments, answer] { return answer(program, *arguments); };
    });
    return *arguments;
}

}  // namespace feedesk

#endif  // FEEDESK_COMMANDS_OPTIONS_H
