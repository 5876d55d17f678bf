#ifndef FEEDESK_RECONCILING_CHARGING_H
#define FEEDESK_RECONCILING_CHARGING_H

#include <string>
#include <vector>

#include "feedesk/reconciling/reconciliation.h"

namespace feedesk {

/// Every order of the statement with what the folder charges for it, and whether that agrees.
std::vector<ReconciledOrder> chargedOrders(Session& session, const std::string& account, const Statement& statement);

}  // namespace feedesk

#endif  // FEEDESK_RECONCILING_CHARGING_H
