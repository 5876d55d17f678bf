#include "feedesk/commands/options.h"

namespace feedesk {

void addFormatOptions(CLI::App& command, Program& program) {
    CLI::Option* json = command.add_flag_callback(
        "--json", [&program] { program.format = Format::kJson; }, "Answer as JSON");
    command
        .add_flag_callback(
            "--csv", [&program] { program.format = Format::kCsv; }, "Answer as comma-separated values")
        ->excludes(json);
}

}  // namespace feedesk
