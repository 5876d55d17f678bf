#ifndef FEEDESK_ALIKE_ACCOUNT_INPUTS_H
#define FEEDESK_ALIKE_ACCOUNT_INPUTS_H

#include <vector>

#include "host/account.h"
#include "standalone/folder_contents.h"

namespace feedesk {

/// The lines of an account on a day.
using AccountDayLines = std::vector<standalone::FolderContents::Line>;

/// All that the answers of an account depend on besides what the accounts of a folder share: its number is no part.
/// Accounts with the same inputs are answered alike.
using AccountInputs = std::vector<int>;

/// Adds what one folder says of the account on a day.
void addInputs(const qmservice::CAccountInfo& account, const AccountDayLines& lines, AccountInputs& inputs);

}  // namespace feedesk

#endif  // FEEDESK_ALIKE_ACCOUNT_INPUTS_H
