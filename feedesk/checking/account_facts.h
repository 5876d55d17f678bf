#ifndef FEEDESK_CHECKING_ACCOUNT_FACTS_H
#define FEEDESK_CHECKING_ACCOUNT_FACTS_H

#include <set>
#include <string>
#include <utility>
#include <vector>

#include "feedesk/answers/answer.h"
#include "feedesk/checking/folder_facts.h"
#include "feedesk/checking/probe.h"
#include "feedesk/session/session.h"

namespace feedesk::checking {

/// A line of the account that is in force on the day.
struct Input {
    const standalone::loader::KeptLine* kept;
    const standalone::loader::KeptFeeLine* feeLine;  ///< of fees/; null: of custom/
    const standalone::CustomFee* customFee;          ///< null: of fees/
    std::size_t entry;                               ///< in the custom fee
    Place place;
};

/// What the fee center says to one account, and what it was given for it.
class AccountFacts {
public:
    /// Asks for every instrument that the account trades and the day covers; a kind that trades everything, for
    /// futures, the only family of which it has lines. All that is given here outlives the object.
    AccountFacts(const FolderFacts& folder, Session& session, const standalone::Account& account, Probe& usedProbe);

    [[nodiscard]] const FolderFacts& folder() const { return facts; }
    [[nodiscard]] const standalone::Account& account() const { return asked; }
    [[nodiscard]] const std::string& number() const { return asked.record->accountId; }
    [[nodiscard]] Place place() const { return facts.placeOf(asked.position); }
    /// How many instruments were asked for.
    [[nodiscard]] std::size_t questions() const { return replies.answers.size() + replies.unanswered.size(); }
    [[nodiscard]] const std::vector<Answer>& answers() const { return replies.answers; }

    /// The lines of the account that are in force, by table.
    [[nodiscard]] const std::vector<Input>& inputs() const { return given; }
    /// Whether a rate of an answer comes from the line.
    [[nodiscard]] bool answersFrom(const Input& input) const;
    /// The instruments that the line gives rates to when no other one is there.
    [[nodiscard]] InstrumentSet reachOf(const Input& input);
    /// The keys of the option items that are built in.
    [[nodiscard]] std::set<std::string> builtInItems();

private:
    void addInputs();

    const FolderFacts& facts;
    const standalone::Account& asked;
    Probe& probe;
    Replies replies;
    std::vector<Input> given;
    std::set<standalone::Position> origins;  // of each rate of the answers
};

}  // namespace feedesk::checking

#endif  // FEEDESK_CHECKING_ACCOUNT_FACTS_H
