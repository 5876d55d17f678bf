#ifndef FEEDESK_USAGE_PROBLEM_H
#define FEEDESK_USAGE_PROBLEM_H

#include <string>

namespace CLI {
class App;
class ParseError;
}  // namespace CLI

namespace feedesk {

/// What is wrong with a command line, and how to ask: one sentence. `error` is what the reading of it threw.
std::string usageProblem(const CLI::App& app, const CLI::ParseError& error);

}  // namespace feedesk

#endif  // FEEDESK_USAGE_PROBLEM_H
