#ifndef FEEDESK_COMMANDS_RECONCILE_NOTES_H
#define FEEDESK_COMMANDS_RECONCILE_NOTES_H

#include <string>

#include "feedesk/statements/statement.h"

namespace feedesk {

// What a reader of a statement has to know about how it was read, a sentence each; empty where there is nothing.

/// How many lines are no trades, with their numbers and operations.
std::string passedOverNote(const Statement& statement);

/// Which lines are the same to the letter, so that a trade may be in the statement twice.
std::string repeatedNote(const Statement& statement);

/// Where the signs of what moved on the account are not the statement's own.
std::string signsNote(const Statement& statement);

}  // namespace feedesk

#endif  // FEEDESK_COMMANDS_RECONCILE_NOTES_H
