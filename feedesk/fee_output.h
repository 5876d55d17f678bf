#ifndef FEEDESK_FEE_OUTPUT_H
#define FEEDESK_FEE_OUTPUT_H

#include <string>
#include <vector>

#include "feedesk/answer.h"
#include "feedesk/program.h"

namespace feedesk {

/// Adds --json, --csv and --strict to a command.
void addFeeOptions(CLI::App& command, Program& program);

/// Answers with an account's answers in the form that the command line asks for, then with the notes and how many
/// answers are marked: below a table, else on standard error. No answer when --strict is asked for and one is marked.
ExitStatus tellFees(const Program& program, const Session& session, const standalone::Account& account,
                    const std::vector<Answer>& answers, const std::vector<std::string>& notes = {});

/// Names the questions that have no answer on standard error.
void tellUnanswered(const Replies& replies, const standalone::Account& account);

}  // namespace feedesk

#endif  // FEEDESK_FEE_OUTPUT_H
