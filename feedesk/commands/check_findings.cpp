#include "feedesk/commands/check_findings.h"

#include <fmt/format.h>

#include <algorithm>

#include "feedesk/text/numbers.h"
#include "feedesk/text/text.h"

namespace feedesk {

using checking::Check;
using checking::CheckReport;
using checking::Finding;
using checking::Severity;

namespace {

std::string headingOf(const Check& check) {
    return fmt::format("{} {}: {}", wordFor(check.severity), check.name, check.meaning);
}

/// "fees/stock.csv:2", with how many lines have the same.
std::string placesText(const Finding& finding) {
    const std::size_t others = finding.places.size() - 1;
    return finding.places.front().text() + (others == 0 ? "" : fmt::format(" +{}", others));
}

/// "account 1000001: ", "accounts 1000001, 1000002, 1000003 and 12 others: ".
std::string ownersText(const std::vector<std::string>& accounts) {
    constexpr std::size_t kShown = 3;
    if (accounts.empty()) {
        return "";
    }
    const std::size_t shown = std::min(accounts.size(), kShown);
    const std::string names =
        fmt::format("{}", fmt::join(accounts.begin(), accounts.begin() + static_cast<std::ptrdiff_t>(shown), ", "));
    return fmt::format(
        "account{} {}{}: ", accounts.size() == 1 ? "" : "s", names,
        accounts.size() == shown ? "" : fmt::format(" and {}", counted(accounts.size() - shown, "other")));
}

std::string sentenceOf(const Finding& finding) {
    return fmt::format("{}{}; {}", ownersText(finding.accounts), finding.found, finding.remedy);
}

Value placesOf(const FindingRow& row) {
    Sources sources;
    sources.places.reserve(row.finding->places.size());
    for (const checking::Place& place : row.finding->places) {
        sources.places.push_back(place.text());
    }
    return sources;
}

}  // namespace

FieldsOf<FindingRow> findingFields() {
    const auto sentence = [](const FindingRow& row) -> Value {
        const std::string text = sentenceOf(*row.finding);
        return Label{text, words(text)};
    };
    return {
        {forPeople("Check").at(ShownAt::kHeading), [](const FindingRow& row) { return headingOf(*row.check); }},
        {forPrograms("severity"), [](const FindingRow& row) { return std::string(wordFor(row.check->severity)); }},
        {forPrograms("check"), [](const FindingRow& row) { return std::string(row.check->name); }},
        {forPrograms("file"), [](const FindingRow& row) { return row.finding->places.front().file; }},
        {forPrograms("line").with(&Field::unit, Unit::kCount),
         [](const FindingRow& row) { return row.finding->places.front().line; }},
        {forPrograms("accounts"), [](const FindingRow& row) { return Names(row.finding->accounts); }},
        {forPrograms("count").with(&Field::unit, Unit::kCount),
         [](const FindingRow& row) { return row.finding->count; }},
        {forPeople("Place"), [](const FindingRow& row) { return placesText(*row.finding); }},
        {forPeople("Found"), sentence},
        {forPrograms("found"), [](const FindingRow& row) { return row.finding->found; }},
        {forPrograms("remedy"), [](const FindingRow& row) { return row.finding->remedy; }},
        {forPrograms("places"), placesOf},
    };
}

void giveFindings(const std::vector<CheckReport>& reports, const FieldsOf<FindingRow>& fields, RowSink& sink) {
    for (const CheckReport& report : reports) {
        for (const Finding& finding : report.findings) {
            Row row = rowOf(fields, FindingRow{report.check, &finding});
            row.marked = report.check->severity == Severity::kError;
            sink.row(row);
        }
    }
}

std::size_t countOf(const std::vector<CheckReport>& reports, Severity severity) {
    std::size_t count = 0;
    for (const CheckReport& report : reports) {
        count += report.check->severity == severity ? report.findings.size() : 0;
    }
    return count;
}

std::string sumOf(const std::vector<CheckReport>& reports) {
    std::vector<std::string> sums;
    sums.reserve(checking::kSeverities.size());
    for (const Severity severity : checking::kSeverities) {
        sums.push_back(counted(countOf(reports, severity), std::string(wordFor(severity))));
    }
    return fmt::format("{}", fmt::join(sums, ", "));
}

}  // namespace feedesk
