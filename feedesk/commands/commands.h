#ifndef FEEDESK_COMMANDS_COMMANDS_H
#define FEEDESK_COMMANDS_COMMANDS_H

#include <array>
#include <string>

namespace CLI {
class App;
}  // namespace CLI

namespace feedesk {

struct Program;

/// Adds a command to the command line and says what it does.
using AddCommand = void(CLI::App& app, Program& program);

// One file each, named like the command.
AddCommand addFee, addFees, addCost, addAccounts, addInstruments, addCategories, addStats, addHelp, addCompletion,
    addComplete;

/// Every command, in the order in which help lists them.
inline constexpr std::array kCommands = {addFee,        addFees,  addCost, addAccounts,   addInstruments,
                                         addCategories, addStats, addHelp, addCompletion, addComplete};

/// Why there is no such command, and where the commands are listed: one sentence.
std::string unknownCommand(const CLI::App& app, const std::string& name);

}  // namespace feedesk

#endif  // FEEDESK_COMMANDS_COMMANDS_H
