#ifndef FEEDESK_COMMANDS_DIFFERENCES_H
#define FEEDESK_COMMANDS_DIFFERENCES_H

#include <cstddef>
#include <string>
#include <vector>

#include "feedesk/commands/diff_rows.h"
#include "feedesk/rows/rows.h"

namespace feedesk {

/// All that two folders differ in, as rows of up to five sections: people are shown those with rows, and programs get
/// the same fields whatever differs.
class Differences {
public:
    bool forPeople = true;
    bool withCosts = false;
    std::vector<ChangeRow> changes;
    std::vector<TermRow> terms;
    std::vector<ApartRow> apart;
    std::vector<CoverageRow> coverage;
    std::vector<AccountCosts> costs;  ///< of all accounts with trades

    /// Says of each row whether it is expected.
    void judge(Expectation& expectation);

    [[nodiscard]] bool areNone() const { return changes.empty() && terms.empty() && apart.empty() && coverage.empty(); }
    [[nodiscard]] Sections sections() const;
    void giveTo(RowSink& sink) const;
    /// What all trades cost, a sentence for each currency.
    [[nodiscard]] std::vector<std::string> sums() const;

private:
    void judgeTerms(Expectation& expectation);
    [[nodiscard]] bool shows(std::size_t rows) const { return rows > 0 || !forPeople; }
};

}  // namespace feedesk

#endif  // FEEDESK_COMMANDS_DIFFERENCES_H
