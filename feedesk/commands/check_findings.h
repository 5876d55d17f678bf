#ifndef FEEDESK_COMMANDS_CHECK_FINDINGS_H
#define FEEDESK_COMMANDS_CHECK_FINDINGS_H

#include <cstddef>
#include <string>
#include <vector>

#include "feedesk/checking/check.h"
#include "feedesk/rows/rows.h"

namespace feedesk {

/// A finding, and the check that found it.
struct FindingRow {
    const checking::Check* check;
    const checking::Finding* finding;
};

/// What is shown of a finding, for people and programs.
FieldsOf<FindingRow> findingFields();

/// Gives a row for each finding, by check; errors are marked.
void giveFindings(const std::vector<checking::CheckReport>& reports, const FieldsOf<FindingRow>& fields, RowSink& sink);

/// How many findings are that severe.
std::size_t countOf(const std::vector<checking::CheckReport>& reports, checking::Severity severity);

/// "2 errors, 0 warnings, 1 note".
std::string sumOf(const std::vector<checking::CheckReport>& reports);

}  // namespace feedesk

#endif  // FEEDESK_COMMANDS_CHECK_FINDINGS_H
