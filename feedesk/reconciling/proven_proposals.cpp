#include "feedesk/reconciling/proven_proposals.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <optional>
#include <set>
#include <system_error>
#include <vector>

#include "feedesk/reconciling/charging.h"
#include "feedesk/reconciling/patched_folder.h"
#include "standalone/loader.h"

namespace feedesk {
namespace {

using Outcome = ReconciledOrder::Outcome;

/// Whether the rate is the order's cause, or fits besides it.
bool fitsBy(const std::shared_ptr<const SolvedRate>& rate, const ReconciledOrder& reconciled) {
    const SolvedRates& besides = reconciled.ratesToo;
    return rate == reconciled.solved || std::find(besides.begin(), besides.end(), rate) != besides.end();
}

/// Whether the order is one that the proposals are made for.
bool isMeant(const ReconciledOrder& reconciled, const Proposals& proposals) {
    return std::any_of(proposals.lines.begin(), proposals.lines.end(), [&](const Proposal& each) {
        return each.rate ? fitsBy(each.rate, reconciled) && each.where == replacedBy(*each.rate, reconciled).source
                         : each.terms == reconciled.terms;
    });
}

/// Works a statement out by changed folders.
class Proof {
public:
    Proof(const Reconciliation& reconciled, const Statement& reconciledStatement, const std::string& accountNumber,
          const std::string& folderOfRates)
        : found(reconciled), statement(reconciledStatement), account(accountNumber), marketFolder(folderOfRates) {}

    /// Why the changes are not to be proposed; nothing where they hold.
    [[nodiscard]] std::optional<std::string> against(const Proposals& proposals) const try {
        const PatchedFolder patched(marketFolder, proposals.files);
        // Read once by itself: a session would tell the errors of a folder that nobody has.
        if (!standalone::loadFolder(patched.path()).ok()) {
            return "the folder could not be read with it";
        }
        Session session(SessionOptions{patched.path()});
        return against(chargedOrders(session, account, statement), proposals);
    } catch (const std::system_error& error) {
        return fmt::format("it could not be tried: {}", error.what());
    }

private:
    [[nodiscard]] std::optional<std::string> against(const std::vector<ReconciledOrder>& orders,
                                                     const Proposals& proposals) const {
        if (orders.size() != found.orders.size()) {
            return "the statement would have other orders with it";
        }
        for (std::size_t i = 0; i < orders.size(); ++i) {
            const ReconciledOrder& before = found.orders[i];
            const std::size_t line = statement.lines[before.order.lines.front()].line;
            if (orders[i].outcome != Outcome::kAgrees && before.outcome == Outcome::kAgrees) {
                return fmt::format("line {}, which agrees, would differ with it", line);
            }
            if (orders[i].outcome != Outcome::kAgrees && isMeant(before, proposals)) {
                return fmt::format("line {} would differ with it as well", line);
            }
        }
        return std::nullopt;
    }

    const Reconciliation& found;
    const Statement& statement;
    const std::string& account;
    const std::string& marketFolder;
};

std::string withheldSentence(const SolvedRate& rate, const std::string& why) {
    return fmt::format("no line is proposed for the {} {}{}, as {}", rate.sought.charge, rate.rate.text(),
                       rate.instrument.empty() ? "" : " of " + rate.instrument, why);
}

/// Rates that are charged elsewhere in the folder may have been agreed on, or charged by mistake.
void addCondition(const SolvedRates& ratesElsewhere, Proposals& proposals) {
    std::vector<std::string> places;
    std::set<const SolvedRate*> proposed;
    for (const Proposal& each : proposals.lines) {
        if (std::find(ratesElsewhere.begin(), ratesElsewhere.end(), each.rate) != ratesElsewhere.end()) {
            proposed.insert(each.rate.get());
            if (std::find(places.begin(), places.end(), each.where) == places.end()) {
                places.push_back(each.where);
            }
        }
    }
    if (proposed.empty()) {
        return;
    }
    const SolvedRate& first = **proposed.begin();
    const std::string agreed = proposed.size() == 1 ? fmt::format("the {} {} was agreed on; where it was not",
                                                                  first.sought.charge, first.rate.text())
                                                    : "these rates were agreed on; where they were not";
    proposals.condition = fmt::format("change {} only where {}, the broker made the mistake that the cause names",
                                      fmt::join(places, " and "), agreed);
}

/// All of what is wanted that holds, and why the rest does not.
Proposals provenOf(const Wanted& wanted, const Proof& proof, const std::string& account,
                   const std::string& marketFolder) {
    Proposals all = proposalsFor(wanted, account, marketFolder);
    if (all.patch.empty() || !proof.against(all)) {
        return all;
    }
    Wanted kept;
    std::vector<std::string> withheld;
    const auto whyNot = [&](const Wanted& one) {
        const Proposals proposals = proposalsFor(one, account, marketFolder);
        return proposals.patch.empty() ? std::nullopt : proof.against(proposals);
    };
    for (const auto& rate : wanted.rates) {
        if (const auto why = whyNot({{rate}, {}})) {
            withheld.push_back(withheldSentence(*rate, *why));
        } else {
            kept.rates.push_back(rate);
        }
    }
    for (const auto& terms : wanted.terms) {
        if (const auto why = whyNot({{}, {terms}})) {
            withheld.push_back(changedByHand(*terms, *why));
        } else {
            kept.terms.push_back(terms);
        }
    }
    Proposals proven = proposalsFor(kept, account, marketFolder);
    if (const auto why = proven.patch.empty() ? std::nullopt : proof.against(proven)) {
        proven = Proposals();
        withheld = {"no line is proposed: each of the changes would do alone, but with all of them " + *why};
    }
    std::copy(withheld.begin(), withheld.end(), std::back_inserter(proven.withheld));
    return proven;
}

}  // namespace

Proposals provenProposals(const Reconciliation& found, const Statement& statement, const std::string& account,
                          const std::string& marketFolder) {
    const Proof proof(found, statement, account, marketFolder);
    Wanted wanted{found.rates, found.terms};
    wanted.rates.insert(wanted.rates.end(), found.ratesElsewhere.begin(), found.ratesElsewhere.end());
    Proposals proven = provenOf(wanted, proof, account, marketFolder);
    addCondition(found.ratesElsewhere, proven);
    return proven;
}

}  // namespace feedesk
