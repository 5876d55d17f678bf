#ifndef FEEDESK_COMMANDS_DIFF_ROWS_H
#define FEEDESK_COMMANDS_DIFF_ROWS_H

#include <string>
#include <vector>

#include "feedesk/comparing/charging_terms.h"
#include "feedesk/comparing/comparison.h"
#include "feedesk/comparing/coverage_change.h"
#include "feedesk/comparing/expectation.h"
#include "feedesk/comparing/trade_costs.h"
#include "feedesk/rows/rows.h"

namespace feedesk {

/// "yes", "no", or nothing where nobody expects anything.
Value expected(Judgement judgement);

/// A rate that differs.
struct ChangeRow {
    const Change& change;
    std::vector<std::string> accounts;     ///< numbers
    std::vector<std::string> instruments;  ///< "SH:600519"
    std::string instrumentsShort;          ///< as patterns, or the first few, and how many they are
    std::string heading;                   ///< accounts, instruments and days, for people
    Judgement judgement = Judgement::kNone;
};

FieldsOf<ChangeRow> changeFields();

/// The row of a change. `compared` are the days that are compared: a change of all of them shows no days.
ChangeRow changeRow(const Change& change, const ComparedFolder& before, const Comparison& comparison,
                    const cost::DateRange& compared);

/// Accounts, instruments or charging terms that only one folder has.
struct ApartRow {
    std::string change;  ///< "accounts_added" and so on
    std::string noun;    ///< "account"
    std::string words;   ///< what people read behind the number of them
    std::vector<std::string> names;
    std::vector<std::string> accounts;  ///< whose they are; empty: nobody's or everybody's
    Judgement judgement = Judgement::kNone;
    std::vector<std::string> shown{};  ///< what people read in place of the names; empty: these
};

FieldsOf<ApartRow> apartFields();
/// Without those of which there are none.
std::vector<ApartRow> apartRows(const NamesApart& apart);
std::vector<ApartRow> apartRows(const TermDifferences& differences);

/// A charging term that differs in a column.
struct TermRow {
    const TermChange& change;
    std::string heading;  ///< which term and on which days, for people
    Judgement judgement = Judgement::kNone;

    /// Whose term it is; empty: several accounts'.
    [[nodiscard]] std::string account() const;
};

FieldsOf<TermRow> termFields();
/// `compared` as for changeRow().
TermRow termRow(const TermChange& change, const cost::DateRange& compared);

/// Days that the new folder no longer answers.
struct CoverageRow {
    CoverageLoss loss;
    Judgement judgement = Judgement::kNone;
};

FieldsOf<CoverageRow> coverageFields();

/// What the trades of an account cost.
FieldsOf<AccountCosts> costsFields();

}  // namespace feedesk

#endif  // FEEDESK_COMMANDS_DIFF_ROWS_H
