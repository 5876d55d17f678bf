#include "feedesk/commands/account_choice.h"

#include <CLI/CLI.hpp>

namespace feedesk {

void addAccountChoice(CLI::App& command, AccountChoice& choice) {
    command.add_option("ACCOUNT", choice.account, "Number of the account")->required()->type_name("");
    command
        .add_option_function<std::vector<std::string>>(
            "--accounts",
            [&command, &choice](const std::vector<std::string>& patterns) {
                choice.patterns = patterns;
                // The first argument is not the account now, and so there may be one less.
                for (CLI::Option* option : command.get_options()) {
                    option->required(false);
                }
            },
            "Instead of ACCOUNT: every account whose number\nor name is like this; may be given again")
        ->type_name("PATTERN")
        ->allow_extra_args(false);
}

}  // namespace feedesk
