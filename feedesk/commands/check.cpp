#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iterator>
#include <limits>
#include <optional>
#include <set>

#include "feedesk/checking/check.h"
#include "feedesk/commands/commands.h"
#include "feedesk/commands/options.h"
#include "feedesk/program.h"
#include "feedesk/text/numbers.h"
#include "feedesk/text/text.h"
#include "standalone/text/nearness.h"
#include "standalone/text/numbers.h"
#include "standalone/text/wording.h"

namespace feedesk {
namespace {

using checking::Check;
using checking::CheckReport;
using checking::Finding;
using checking::Severity;

using Chosen = std::vector<const Check*>;

// A broker's schedule is expected to be looked at once a year.
constexpr int kUsualMaxAge = 365;
constexpr int kHighestMaxAge = 36500;

constexpr const char* kNever = "never";

struct CheckArguments {
    std::vector<std::string> only;
    std::vector<std::string> off;
    std::vector<std::string> accounts;  // none: all, and what is no account's
    std::string failOn = "error";
    int maxAge = kUsualMaxAge;
    bool list = false;
};

// --- which checks

std::vector<std::string> checkNames() {
    std::vector<std::string> names;
    for (const Check& check : checking::checks()) {
        names.emplace_back(check.name);
    }
    return names;
}

/// Why the text names no check; empty when it does.
std::string checkProblem(const std::string& text) {
    const std::vector<std::string> names = checkNames();
    if (std::find(names.begin(), names.end(), text) != names.end()) {
        return "";
    }
    std::vector<std::string> near;
    std::copy_if(names.begin(), names.end(), std::back_inserter(near),
                 [&](const std::string& name) { return !text.empty() && name.find(text) != std::string::npos; });
    near = near.empty() ? standalone::nearNames(text, names) : near;
    return fmt::format(
        "there is no check {}; {}", echoed(text),
        near.empty() ? "`feedesk check --list` lists them" : fmt::format("did you mean {}?", standalone::oneOf(near)));
}

bool isNamed(const std::vector<std::string>& names, const char* name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

Chosen chosenChecks(const CheckArguments& arguments) {
    Chosen chosen;
    for (const Check& check : checking::checks()) {
        const bool isWanted = arguments.only.empty() || isNamed(arguments.only, check.name);
        if (isWanted && !isNamed(arguments.off, check.name)) {
            chosen.push_back(&check);
        }
    }
    if (chosen.empty()) {
        throw Failure(kBadInput, "no check is left: every one is switched off with --off");
    }
    return chosen;
}

// --- the list of checks

using CheckFields = FieldsOf<const Check*>;

CheckFields checkFields() {
    return {{{"check", "Check"}, [](const Check* check) { return std::string(check->name); }},
            {{"severity", "Severity"}, [](const Check* check) { return std::string(wordFor(check->severity)); }},
            {{"meaning", "Finds"}, [](const Check* check) {
                 return Label{check->meaning, words(check->meaning)};
             }}};
}

ExitStatus listChecks(Program& program, const Chosen& chosen) {
    const CheckFields fields = checkFields();
    program.answer({sectionOf("", fields, "Checks")}, [&](RowSink& sink) {
        for (const Check* check : chosen) {
            sink.row(rowOf(fields, check));
        }
        return Remarks();
    });
    return kAnswered;
}

// --- findings

struct FindingRow {
    const Check* check;
    const Finding* finding;
};

using FindingFields = FieldsOf<FindingRow>;

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
    return fmt::format("{}{}; {}", ownersText(finding.accounts), finding.found, finding.mend);
}

Value placesOf(const FindingRow& row) {
    Sources sources;
    sources.places.reserve(row.finding->places.size());
    for (const checking::Place& place : row.finding->places) {
        sources.places.push_back(place.text());
    }
    return sources;
}

FindingFields findingFields() {
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
        {forPrograms("mend"), [](const FindingRow& row) { return row.finding->mend; }},
        {forPrograms("places"), placesOf},
    };
}

std::size_t countOf(const std::vector<CheckReport>& reports, Severity severity) {
    std::size_t count = 0;
    for (const CheckReport& report : reports) {
        count += report.check->severity == severity ? report.findings.size() : 0;
    }
    return count;
}

/// "2 errors, 0 warnings, 1 note".
std::string sumOf(const std::vector<CheckReport>& reports) {
    std::vector<std::string> sums;
    sums.reserve(checking::kSeverities.size());
    for (const Severity severity : checking::kSeverities) {
        sums.push_back(counted(countOf(reports, severity), std::string(wordFor(severity))));
    }
    return fmt::format("{}", fmt::join(sums, ", "));
}

ExitStatus statusOf(const std::vector<CheckReport>& reports, const std::string& failOn) {
    for (const Severity severity : checking::kSeverities) {
        if (failOn == kNever) {
            break;
        }
        if (countOf(reports, severity) != 0) {
            return kNoAnswer;
        }
        if (wordFor(severity) == failOn) {
            break;
        }
    }
    return kAnswered;
}

cost::Date daysBefore(cost::Date day, int days) {
    for (int i = 0; i < days; ++i) {
        day = day.previous().value_or(day);
    }
    return day;
}

void giveFindings(const std::vector<CheckReport>& reports, const FindingFields& fields, RowSink& sink) {
    for (const CheckReport& report : reports) {
        for (const Finding& finding : report.findings) {
            Row row = rowOf(fields, FindingRow{report.check, &finding});
            row.marked = report.check->severity == Severity::kError;
            sink.row(row);
        }
    }
}

/// Refuses an account that the folder does not have.
std::set<std::string> wantedAccounts(const Session& session, const std::vector<std::string>& accounts) {
    for (const std::string& account : accounts) {
        static_cast<void>(session.account(account));
    }
    return {accounts.begin(), accounts.end()};
}

ExitStatus check(Program& program, const CheckArguments& arguments) {
    const Chosen chosen = chosenChecks(arguments);
    if (arguments.list) {
        return listChecks(program, chosen);
    }
    Session& session = program.open();
    const checking::CheckResult result = checking::runChecks(
        session, chosen, wantedAccounts(session, arguments.accounts), daysBefore(session.day(), arguments.maxAge));
    const FindingFields fields = findingFields();
    program.answer(session, {sectionOf("", fields, "Findings")}, [&](RowSink& sink) {
        giveFindings(result.reports, fields, sink);
        return Remarks{"",
                       result.notes,
                       "",
                       {fmt::format("{} by {} as of {}", sumOf(result.reports), counted(chosen.size(), "check"),
                                    session.day().text())}};
    });
    return statusOf(result.reports, arguments.failOn);
}

// --- options

void addNames(CLI::App& command, Program& program, const char* option, std::vector<std::string>& names,
              const char* description) {
    program.choices[command.add_option(option, names, description)
                        ->check(CLI::Validator(checkProblem, ""))
                        ->type_name("NAME...")
                        ->option_text("NAME...")] = {checkNames()};
}

std::vector<std::string> thresholds() {
    std::vector<std::string> words;
    words.reserve(std::size(checking::kSeverities) + 1);
    for (const Severity severity : checking::kSeverities) {
        words.emplace_back(wordFor(severity));
    }
    words.emplace_back(kNever);
    return words;
}

std::string thresholdProblem(const std::string& text) {
    const std::vector<std::string> known = thresholds();
    return std::find(known.begin(), known.end(), text) != known.end()
               ? ""
               : fmt::format("{} is not {}", echoed(text), standalone::oneOf(known));
}

std::string maxAgeProblem(const std::string& text) {
    const std::optional<int> number = standalone::numberIn<int>(text);
    const bool good = number && *number >= 0 && *number <= kHighestMaxAge;
    return good ? "" : fmt::format("{} is not a whole number of days from 0 to {}", echoed(text), kHighestMaxAge);
}

}  // namespace

void addCheck(CLI::App& app, Program& program) {
    CLI::App* command = app.add_subcommand("check", "Faults of a market folder that load but cost money");
    CheckArguments& arguments = argumentsOf(*command, program, check);
    addNames(*command, program, "--only", arguments.only, "Only these checks");
    addNames(*command, program, "--off", arguments.off, "Without these checks");
    command->add_option("--account", arguments.accounts, "Only what this account is charged; may be\ngiven again")
        ->type_name("ACCOUNT")
        ->option_text("ACCOUNT")
        ->allow_extra_args(false);
    CLI::Option* failOn = command
                              ->add_option("--fail-on", arguments.failOn,
                                           "Exit status 1 from this severity on: error,\nwarning, note or never "
                                           "(else error)")
                              ->check(CLI::Validator(thresholdProblem, ""))
                              ->type_name("SEVERITY")
                              ->option_text("SEVERITY");
    program.choices[failOn] = {thresholds()};
    command
        ->add_option("--max-age", arguments.maxAge, "Days after which a schedule is to be looked\nup again (else 365)")
        ->check(CLI::Validator(maxAgeProblem, ""))
        ->type_name("DAYS")
        ->option_text("DAYS");
    command->add_flag("--list", arguments.list, "Lists the checks");
    addFormatOptions(*command, program);
}

}  // namespace feedesk
