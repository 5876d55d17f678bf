#ifndef FEEDESK_COMMANDS_FEE_ANSWER_H
#define FEEDESK_COMMANDS_FEE_ANSWER_H

#include <string>
#include <vector>

#include "feedesk/commands/commands.h"
#include "feedesk/program.h"

namespace feedesk {

/// Adds --json, --csv and --strict to a command.
void addFeeOptions(CLI::App& command, Program& program);

/// What is above an account's tables; it names the day where one was asked for.
std::string accountHeading(const standalone::Account& account, const std::optional<cost::Date>& asked = {});

/// Answers with an account's answers, the notes and how many answers are marked. No answer when --strict is asked for
/// and one is marked.
ExitStatus answerFees(Program& program, const Session& session, const standalone::Account& account,
                      const std::vector<Answer>& answers, const std::vector<std::string>& notes = {});

/// Names the questions that have no answer on standard error.
void tellUnanswered(const Replies& replies, const standalone::Account& account);

}  // namespace feedesk

#endif  // FEEDESK_COMMANDS_FEE_ANSWER_H
