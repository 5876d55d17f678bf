#include "feedesk/fee_output.h"

#include <fmt/format.h>

#include "feedesk/account_kinds.h"
#include "feedesk/show.h"
#include "feedesk/terminal.h"
#include "feedesk/text.h"

namespace feedesk {
namespace {

std::string heading(const standalone::Account& account, std::size_t width) {
    const qmservice::CAccountInfo& info = *account.record;
    return shortened(fmt::format("Account {} ({}) {}", info.accountId, accountKind(info.accountType).name,
                                 singleLine(info.accountName)),
                     width);
}

}  // namespace

void tellUnanswered(const Replies& replies, const standalone::Account& account) {
    for (const Question& question : replies.unanswered) {
        tellProblem(fmt::format("the fee center has no fee of {} for account {}",
                                instrumentText(question.market, question.code), account.record->accountId));
    }
}

std::string feeOutput(const Program& program, const Session& session, const standalone::Account& account,
                      const std::vector<Answer>& answers) {
    switch (program.format) {
        case Format::kJson:
            return showAsJson(answers, session.market());
        case Format::kCsv:
            return showAsCsv(answers, session.market());
        case Format::kTable:
            break;
    }
    const std::size_t width = outputWidth();
    return heading(account, width) + "\n\n" + showAsTables(answers, session.market(), width);
}

}  // namespace feedesk
