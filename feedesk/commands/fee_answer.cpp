#include "feedesk/commands/fee_answer.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>

#include "feedesk/answers/marks.h"
#include "feedesk/commands/fee_rows.h"
#include "feedesk/commands/options.h"
#include "feedesk/terminal/messages.h"
#include "standalone/families.h"

namespace feedesk {

std::string accountHeading(const standalone::Account& account, const std::optional<cost::Date>& asked) {
    const qmservice::CAccountInfo& info = *account.record;
    return fmt::format("Account {} ({}) {}{}", info.accountId, standalone::accountKindName(info.accountType),
                       info.accountName, asked ? ", as of " + asked->text() : "");
}

void addFeeOptions(CLI::App& command, Program& program) {
    addFormatOptions(command, program);
    command.add_flag("--strict", program.strict, "Exit status 1 when a rate is built in, not set\nor a margin of 0");
}

void tellUnanswered(const Replies& replies, const standalone::Account& account) {
    for (const Question& question : replies.unanswered) {
        reportProblem(fmt::format("the fee center has no fee of {} for account {}", instrumentText(question),
                                  account.record->accountId));
    }
}

ExitStatus answerFees(Program& program, const Session& session, const standalone::Account& account,
                      const std::vector<Answer>& answers, const std::vector<std::string>& notes) {
    Remarks remarks{accountHeading(account, program.session.date), notes, markedSentence(answers), {}};
    const FeeRows rows(answers, session.market());
    program.answer(session, rows.sections(), [&](RowSink& sink) {
        rows.giveTo(sink, answers);
        return remarks;
    });
    return program.strict && !remarks.warning.empty() ? kNoAnswer : kAnswered;
}

}  // namespace feedesk
