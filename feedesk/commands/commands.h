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

// One file each, named like the command; those of a shell are with it.
AddCommand addFee, addFees, addExplain, addCost, addReconcile, addDiff, addCheck, addAccounts, addInstruments,
    addCategories, addStats, addHelp, addShell, addCompletion, addComplete, addReload, addExit;

/// Every command, in the order in which help lists them.
inline constexpr std::array kCommands = {addFee,   addFees,     addExplain,     addCost,       addReconcile, addDiff,
                                         addCheck, addAccounts, addInstruments, addCategories, addStats,     addHelp};

/// Those that a line of a shell has not, and those that it alone has.
inline constexpr std::array kCommandsOutside = {addShell, addCompletion, addComplete};
inline constexpr std::array kCommandsOfShell = {addReload, addExit};

/// Why there is no such command, and where the commands are listed: one sentence.
std::string unknownCommand(const CLI::App& app, const std::string& name);

}  // namespace feedesk

#endif  // FEEDESK_COMMANDS_COMMANDS_H
