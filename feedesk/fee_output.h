#ifndef FEEDESK_FEE_OUTPUT_H
#define FEEDESK_FEE_OUTPUT_H

#include <string>
#include <vector>

#include "feedesk/answer.h"
#include "feedesk/program.h"

namespace feedesk {

/// An account's answers in the form that the command line asks for.
std::string feeOutput(const Program& program, const Session& session, const standalone::Account& account,
                      const std::vector<Answer>& answers);

/// Names the questions that have no answer on standard error.
void tellUnanswered(const Replies& replies, const standalone::Account& account);

}  // namespace feedesk

#endif  // FEEDESK_FEE_OUTPUT_H
