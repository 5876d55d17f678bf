#ifndef FEEDESK_EXPLAINING_EXPLANATION_H
#define FEEDESK_EXPLAINING_EXPLANATION_H

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "cost/date.h"
#include "feedesk/answers/answer.h"
#include "feedesk/explaining/trials.h"

namespace feedesk {

/// Why an input gives the rate or does not.
enum class Verdict {
    kAnswers,        ///< it gives the rate
    kOverridden,     ///< a line that is handed over later takes its place
    kEarlierEntry,   ///< an entry above it in the same update matches first
    kOutranked,      ///< an input of another kind goes before it
    kLast,           ///< no input at all: what is answered where none is left
    kNotInForce,     ///< its days are others
    kOtherCategory,  ///< its category does not hold the instrument
    kNoSimulation,   ///< the account's platform is no simulation
    kNotTaken        ///< the fee center does not take it here, whatever else there is
};

/// One of the inputs that were considered for a rate.
struct Considered {
    /// Part, item, level and rates that the fee center answers with from this input. Without rates where it answers
    /// with it in no case.
    FeeLine line;
    std::size_t turn = 0;  ///< 1: it answers; 2: it would if that one were taken away, and so on; 0: it never would
    Verdict verdict = Verdict::kAnswers;
    std::optional<Origin> beatenBy;  ///< the input whose absence lets this one answer
    cost::DateRange days;            ///< on which it is in force
    int category = 0;                ///< of a custom fee
};

/// Every input that can have a say in an answer, found by asking the fee center with inputs taken away: first with all,
/// then without those that the answer names, and so on until it names none. Ordered by the lines of the answer, then
/// by turn; those that never answer last.
///
/// `answer` is what the fee center answers on the day from the whole folder; it gives the rates of the first turn.
std::vector<Considered> explain(const Trials& trials, cost::Date day, const Answer& answer);

}  // namespace feedesk

#endif  // FEEDESK_EXPLAINING_EXPLANATION_H
