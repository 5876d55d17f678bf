#ifndef FEEDESK_RECONCILING_REMARKS_H
#define FEEDESK_RECONCILING_REMARKS_H

#include <string>

#include "feedesk/reconciling/reconciliation.h"

namespace feedesk {

// What is to be said of an order that nothing explains, a clause each; empty where there is nothing.

/// What a statement says of the amount where that is not quantity x price: then no change of the folder explains it.
std::string amountRemark(const ReconciledOrder& charged, const Statement& statement);

/// Where all that was charged is the same number of times what the folder charges.
std::string ratioRemark(const ReconciledOrder& charged, const Statement& statement);

/// Where the columns of what was paid do not add up to what moved.
std::string columnsRemark(const ReconciledOrder& charged, const Layout& layout);

}  // namespace feedesk

#endif  // FEEDESK_RECONCILING_REMARKS_H
