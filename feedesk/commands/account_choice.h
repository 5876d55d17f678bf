#ifndef FEEDESK_COMMANDS_ACCOUNT_CHOICE_H
#define FEEDESK_COMMANDS_ACCOUNT_CHOICE_H

#include <string>
#include <vector>

namespace CLI {
class App;
}  // namespace CLI

namespace feedesk {

/// Whose fees a command is asked for: one account's, or those of all that are like some patterns.
struct AccountChoice {
    std::string account;                ///< what is given as ACCOUNT
    std::vector<std::string> patterns;  ///< of --accounts; none: the account alone

    [[nodiscard]] bool ofSeveral() const { return !patterns.empty(); }
};

/// Adds the argument ACCOUNT and the option --accounts, which takes its place. Arguments of the command that are added
/// later and required are not required either where --accounts is given.
void addAccountChoice(CLI::App& command, AccountChoice& choice);

}  // namespace feedesk

#endif  // FEEDESK_COMMANDS_ACCOUNT_CHOICE_H
