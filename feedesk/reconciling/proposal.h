#ifndef FEEDESK_RECONCILING_PROPOSAL_H
#define FEEDESK_RECONCILING_PROPOSAL_H

#include <string>
#include <vector>

#include "feedesk/reconciling/reconciliation.h"

namespace feedesk {

/// A line of the market folder that would make it say what the statement says.
struct Proposal {
    std::string where;   ///< "fees/stock.csv:49": the line that it follows from
    std::string before;  ///< that line
    std::string after;   ///< what replaces it, one line or two
};

/// What to change in the folder, and the same as a patch.
struct Proposals {
    std::vector<Proposal> lines;
    std::string patch;  ///< for `patch -p1` in the market folder; empty when there is nothing to propose
};

/// The lines that say the rates which are solved for from their days on. A rate that no line gives, as the built-in
/// default, has no proposal, nor one besides which rates of other charges explain the same.
Proposals proposalsFor(const Reconciliation& found, const std::string& marketFolder);

}  // namespace feedesk

#endif  // FEEDESK_RECONCILING_PROPOSAL_H
