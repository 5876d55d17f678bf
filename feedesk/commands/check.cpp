#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iterator>
#include <limits>
#include <optional>
#include <set>

#include "feedesk/checking/check.h"
#include "feedesk/commands/check_choice.h"
#include "feedesk/commands/check_findings.h"
#include "feedesk/commands/commands.h"
#include "feedesk/commands/options.h"
#include "feedesk/program.h"
#include "feedesk/text/numbers.h"
#include "feedesk/text/text.h"
#include "standalone/text/numbers.h"
#include "standalone/text/wording.h"

namespace feedesk {
namespace {

using checking::Check;
using checking::CheckReport;
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

/// Refuses an account that the folder does not have.
std::set<std::string> wantedAccounts(const Session& session, const std::vector<std::string>& accounts) {
    for (const std::string& account : accounts) {
        static_cast<void>(session.account(account));
    }
    return {accounts.begin(), accounts.end()};
}

ExitStatus check(Program& program, const CheckArguments& arguments) {
    const Chosen chosen = chosenChecks(arguments.only, arguments.off);
    if (arguments.list) {
        return listChecks(program, chosen);
    }
    Session& session = program.open();
    const checking::CheckResult result = checking::runChecks(
        session, chosen, wantedAccounts(session, arguments.accounts), daysBefore(session.day(), arguments.maxAge));
    const FieldsOf<FindingRow> fields = findingFields();
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
                        ->delimiter(',')
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
