#ifndef FEEDESK_RECONCILING_PROPOSAL_H
#define FEEDESK_RECONCILING_PROPOSAL_H

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "feedesk/reconciling/reconciliation.h"

namespace feedesk {

/// A line of the market folder that would make it say what the statement says.
struct Proposal {
    std::string where;                         ///< "fees/stock.csv:49": the line that it follows from
    std::string before;                        ///< that line
    std::string after;                         ///< what replaces it, one line or two
    std::shared_ptr<const SolvedRate> rate;    ///< what it is for: a rate,
    std::shared_ptr<const SharedTerms> terms;  ///< or another way to charge
};

/// What to change in the folder, and the same as a patch.
struct Proposals {
    std::vector<Proposal> lines;
    std::string patch;                         ///< for `patch -p1` in the market folder; empty when nothing is proposed
    std::map<std::string, std::string> files;  ///< the changed ones with their new texts
    std::vector<std::string> withheld;         ///< of what has no proposal: why, a sentence each
    std::string condition;  ///< when what is proposed besides a cause is right, a sentence; empty where nothing is
};

/// What of an account's statement lines may be proposed for.
struct Wanted {
    SolvedRates rates;
    SharedTermsList terms;
};

/// The lines that say this from its days on; of a rate for one instrument alone, and of a term for this account alone,
/// a line of its own. A rate that no line gives, as the built-in default, has no proposal, nor one besides which rates
/// of other charges explain the same.
Proposals proposalsFor(const Wanted& wanted, const std::string& account, const std::string& marketFolder);

/// Why no line is proposed for the change of terms, and what to change instead.
std::string changedByHand(const SharedTerms& change, const std::string& why);

}  // namespace feedesk

#endif  // FEEDESK_RECONCILING_PROPOSAL_H
