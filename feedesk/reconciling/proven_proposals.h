#ifndef FEEDESK_RECONCILING_PROVEN_PROPOSALS_H
#define FEEDESK_RECONCILING_PROVEN_PROPOSALS_H

#include <string>

#include "feedesk/reconciling/proposal.h"

namespace feedesk {

/// The proposals with which the statement, worked out again by the changed folder, agrees in all that agreed and in all
/// that their rates explain; of the others it is said why they are withheld. `found` is what was found of the account's
/// statement by the folder as it is.
Proposals provenProposals(const Reconciliation& found, const Statement& statement, const std::string& account,
                          const std::string& marketFolder);

}  // namespace feedesk

#endif  // FEEDESK_RECONCILING_PROVEN_PROPOSALS_H
