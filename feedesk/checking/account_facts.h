#ifndef FEEDESK_CHECKING_ACCOUNT_FACTS_H
#define FEEDESK_CHECKING_ACCOUNT_FACTS_H

#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "feedesk/checking/account_answers.h"
#include "feedesk/checking/folder_facts.h"
#include "feedesk/checking/probe.h"

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
    /// `account`: its place in the market; `answered`: what it is answered on the day of the facts. The host's services
    /// hold their market, and all that is given here outlives the object.
    AccountFacts(const FolderFacts& folder, std::size_t account, AccountQuestions& usedQuestions, Probe& usedProbe,
                 AccountAnswers answered);

    [[nodiscard]] const FolderFacts& folder() const { return facts; }
    [[nodiscard]] const standalone::Account& account() const { return asked; }
    [[nodiscard]] const std::string& number() const { return asked.record->accountId; }
    [[nodiscard]] Place place() const { return facts.placeOf(asked.position); }
    /// How many instruments were asked for.
    [[nodiscard]] std::size_t questions() const { return replies.questions; }
    [[nodiscard]] const std::vector<AlikeAnswer>& answers() const { return replies.answers; }
    /// The answer for the instrument; null where there is none.
    const AlikeAnswer* answerFor(const qmservice::CInstrument* instrument);

    /// What it is answered on any day. The answer lives as long as this object.
    const AccountAnswers& answersOn(cost::Date day);

    /// All lines of the account, whatever their days.
    [[nodiscard]] const standalone::loader::AccountLines& lines() const;
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
    std::size_t accountPlace;  // its place in the market
    const standalone::Account& asked;
    std::vector<standalone::CustomFee> customFees;  // of the account
    AccountQuestions& questionsAsked;
    Probe& probe;
    AccountAnswers replies;
    std::map<cost::Date, AccountAnswers> otherDays;
    std::vector<Input> given;
    std::set<standalone::Position> origins;                                              // of each rate of the answers
    std::unordered_map<const qmservice::CInstrument*, const AlikeAnswer*> byInstrument;  // empty until it is needed
};

}  // namespace feedesk::checking

#endif  // FEEDESK_CHECKING_ACCOUNT_FACTS_H
