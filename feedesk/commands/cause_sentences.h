#ifndef FEEDESK_COMMANDS_CAUSE_SENTENCES_H
#define FEEDESK_COMMANDS_CAUSE_SENTENCES_H

#include <string>
#include <vector>

#include "feedesk/commands/reconcile_rows.h"

namespace feedesk {

/// The lines of the statement that the order is made of, as numbers of the file's lines.
std::vector<std::string> lineNumbers(const ReconciledOrder& reconciled, const Statement& statement);

/// Why the order differs or has no answer, without what else would explain it; said of so many trades that differ
/// alike.
std::string explanationOf(const OrderRow& row, std::size_t trades = 1);

/// What explains the very same amounts as well, in the order in which causes are tried.
Explanations alternativesOf(const OrderRow& row);

/// The same in sentences.
std::vector<std::string> alternativeSentences(const OrderRow& row);

/// Why the orders differ, a sentence for each cause with the lines that it explains; those beyond a screen are counted.
std::vector<std::string> causeSentences(const Reconciliation& found, const Statement& statement);

}  // namespace feedesk

#endif  // FEEDESK_COMMANDS_CAUSE_SENTENCES_H
