#ifndef FEEDESK_SESSION_ACCOUNTS_LIKE_H
#define FEEDESK_SESSION_ACCOUNTS_LIKE_H

#include <string>
#include <vector>

#include "standalone/market.h"

namespace feedesk {

using Accounts = std::vector<const standalone::Account*>;

/// The accounts of which the number or the name is like one of the patterns, in the folder's order. Throws Failure,
/// with what may be meant, when a pattern finds none, except where the folder has no accounts.
Accounts accountsLike(const std::vector<std::string>& patterns, const standalone::Market& market);

}  // namespace feedesk

#endif  // FEEDESK_SESSION_ACCOUNTS_LIKE_H
