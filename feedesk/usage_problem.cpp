#include "feedesk/usage_problem.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <string_view>
#include <vector>

#include "feedesk/commands/commands.h"
#include "feedesk/text/text.h"
#include "standalone/text/escape.h"
#include "standalone/text/nearness.h"
#include "standalone/text/wording.h"

namespace feedesk {
namespace {

/// The command that is named; null: none is.
const CLI::App* namedCommand(const CLI::App& app) {
    const std::vector<CLI::App*> named = app.get_subcommands();
    return named.empty() ? nullptr : named.front();
}

void addOptionNames(const CLI::App& app, std::vector<std::string>& names) {
    for (const CLI::Option* option : app.get_options()) {
        for (const std::string& name : option->get_lnames()) {
            names.push_back("--" + name);
        }
    }
}

std::string unexpected(const CLI::App& app, const std::string& argument) {
    std::vector<std::string> known;
    if (argument.front() == '-') {
        addOptionNames(app, known);
        if (const CLI::App* command = namedCommand(app)) {
            addOptionNames(*command, known);
        }
    }
    const std::vector<std::string> near = standalone::nearNames(argument.substr(0, argument.find('=')), known);
    return fmt::format("the argument {} was not expected{}", echoed(argument),
                       near.empty() ? "" : fmt::format("; did you mean {}?", standalone::oneOf(near)));
}

/// The text up to the first `end`, which is taken away with it; all of it where there is none.
std::string_view takeUpTo(std::string_view& text, std::string_view end) {
    const std::size_t found = text.find(end);
    const std::string_view taken = text.substr(0, found);
    text.remove_prefix(found == std::string_view::npos ? text.size() : found + end.size());
    return taken;
}

/// "--accounts: 1 required PATTERN missing" in a person's words.
std::string missingValue(std::string_view problem) {
    const std::string_view option = takeUpTo(problem, ": ");
    takeUpTo(problem, " required ");
    const std::string_view value = takeUpTo(problem, " missing");
    return value.empty() ? "" : fmt::format("{} needs a value behind it: {}", option, value);
}

/// "--json excludes --csv" in a person's words.
std::string exclusion(std::string_view problem) {
    const std::string_view one = takeUpTo(problem, " excludes ");
    return fmt::format("{} and {} exclude each other; use one of them", one, problem);
}

/// `error` repeats some arguments as they were written.
std::string problemOf(const CLI::App& app, const CLI::ParseError& error) {
    const std::vector<std::string> left = app.remaining(true);
    if (!left.empty()) {
        return unexpected(app, left.front());
    }
    std::string problem = standalone::printable(error.what());
    switch (static_cast<CLI::ExitCodes>(error.get_exit_code())) {
        case CLI::ExitCodes::RequiredError:
            return namedCommand(app) == nullptr ? "a command is needed" : problem;
        case CLI::ExitCodes::ExcludesError:
            return exclusion(problem);
        case CLI::ExitCodes::ArgumentMismatch: {
            const std::string missing = missingValue(problem);
            return missing.empty() ? problem : missing;
        }
        default:
            return problem;
    }
}

}  // namespace

std::string usageProblem(const CLI::App& app, const CLI::ParseError& error) {
    const CLI::App* command = namedCommand(app);
    const std::vector<std::string> left = app.remaining(true);
    if (!left.empty() && command == nullptr && left.front().front() != '-') {
        return unknownCommand(app, left.front());
    }
    const std::string problem = problemOf(app, error);
    const bool isKnown = command != nullptr && !command->get_group().empty();
    return fmt::format("{}{}`feedesk {}--help` shows how to ask", problem, problem.back() == '?' ? " " : "; ",
                       isKnown ? command->get_name() + " " : "");
}

}  // namespace feedesk
