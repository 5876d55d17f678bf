#ifndef FEEDESK_CHECKING_MARGIN_ANSWERS_H
#define FEEDESK_CHECKING_MARGIN_ANSWERS_H

#include <map>

#include "feedesk/checking/account_facts.h"

namespace feedesk::checking {

/// Whether the line gives a margin.
bool isMarginLine(const Input& input);

/// The hedge flag of a line that gives a margin.
char flagOf(const Input& input);

/// The margins of an answer by flag, those that lines of the account gave.
std::map<char, Level> answeredMargins(const Answer& answer);

/// The margins with which the fee center answers for an account.
class MarginAnswers {
public:
    /// The facts outlive it.
    explicit MarginAnswers(AccountFacts& accountFacts);

    /// The instruments among those that a margin line reaches for which its flag has no margin. Also those where the
    /// line is of a custom fee, which goes before the records, and the margin is still that of a record.
    [[nodiscard]] InstrumentSet lostBy(const Input& input, const InstrumentSet& reach) const;

private:
    AccountFacts& facts;
    std::map<const AlikeAnswer*, std::map<char, Level>> margins;
};

}  // namespace feedesk::checking

#endif  // FEEDESK_CHECKING_MARGIN_ANSWERS_H
