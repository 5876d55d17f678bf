#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>

#include "feedesk/commands/commands.h"
#include "feedesk/program.h"
#include "feedesk/terminal/terminal.h"
#include "feedesk/text/text.h"
#include "standalone/text/nearness.h"

namespace feedesk {
namespace {

std::vector<std::string> commandNames(const CLI::App& app) {
    std::vector<std::string> names;
    for (const CLI::App* command : app.get_subcommands([](const CLI::App*) { return true; })) {
        names.push_back(command->get_name());
    }
    return names;
}

/// The program's own help where no command is named. CLI11 would give that of the command that is running.
std::string helpText(const CLI::App& app, const std::string& name) {
    if (name.empty()) {
        return app.get_formatter()->make_help(&app, app.get_name(), CLI::AppFormatMode::Normal);
    }
    const std::vector<std::string> names = commandNames(app);
    if (std::find(names.begin(), names.end(), name) == names.end()) {
        throw Failure(kBadInput, unknownCommand(app, name));
    }
    return app.get_subcommand(name)->help(app.get_name());
}

}  // namespace

std::string unknownCommand(const CLI::App& app, const std::string& name) {
    const std::vector<std::string> near = standalone::nearNames(name, commandNames(app));
    return fmt::format("there is no command {}; {}`feedesk --help` shows how to ask", echoed(name),
                       near.empty() ? "" : fmt::format("did you mean {}? ", fmt::join(near, " or ")));
}

void addHelp(CLI::App& app, Program& program) {
    CLI::App* command = app.add_subcommand("help", "What the program or a command does");
    const auto name = std::make_shared<std::string>();
    command->add_option("COMMAND", *name, "One of the commands")->type_name("");
    command->callback([&app, &program, name] {
        program.command = [&app, name] {
            writeText(helpText(app, *name));
            return kAnswered;
        };
    });
}

}  // namespace feedesk
