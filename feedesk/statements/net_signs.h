#ifndef FEEDESK_STATEMENTS_NET_SIGNS_H
#define FEEDESK_STATEMENTS_NET_SIGNS_H

#include "feedesk/statements/statement.h"

namespace feedesk {

/// Gives what was paid for purchases its sign where the statement writes none, and notes that it does not: every
/// purchase then has a net above 0 that is not below its amount.
void giveSigns(Statement& statement);

}  // namespace feedesk

#endif  // FEEDESK_STATEMENTS_NET_SIGNS_H
