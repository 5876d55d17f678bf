#ifndef FEEDESK_COMMANDS_FEES_OF_ACCOUNTS_H
#define FEEDESK_COMMANDS_FEES_OF_ACCOUNTS_H

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "feedesk/program.h"
#include "feedesk/session/accounts_like.h"

namespace feedesk {

/// What is asked of several accounts, one after another.
struct AskedOfAccounts {
    /// What an account is answered with; no replies where it has none. Called once for each account.
    std::function<Replies(const standalone::Account&)> ask;
    /// What is to be known besides, when all accounts have been asked.
    std::function<std::vector<std::string>()> notes;
    /// The sentence where no account is answered with anything.
    std::function<std::string()> whyNone;
};

/// Answers account by account, so that no more than one account's answers are held where the form does not hold them.
/// No answer where the replies of an account are incomplete, or a marked one with --strict. Throws Failure where there
/// are no answers at all.
ExitStatus answerOfAccounts(Program& program, Session& session, const Accounts& accounts, const AskedOfAccounts& asked);

/// "100, 200 and 3 more": the accounts' numbers.
std::string numbersText(const Accounts& accounts);

}  // namespace feedesk

#endif  // FEEDESK_COMMANDS_FEES_OF_ACCOUNTS_H
