#include "feedesk/fee_output.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>

#include "feedesk/account_kinds.h"
#include "feedesk/marks.h"
#include "feedesk/messages.h"
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

std::string feeText(const Program& program, const Session& session, const standalone::Account& account,
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

std::string filled(const std::string& note) {
    return fmt::format("{}", fmt::join(fillLines(words(singleLine(note)), outputWidth()), "\n"));
}

/// What stands below a table.
std::string below(const std::vector<std::string>& notes, const std::string& count) {
    std::string text;
    for (const std::string& note : notes) {
        text += filled(note) + "\n";
    }
    text += count.empty() ? "" : marked(filled(count)) + "\n";
    return text.empty() ? "" : "\n" + text;
}

void tellBeside(const std::vector<std::string>& notes, const std::string& count) {
    std::for_each(notes.begin(), notes.end(), tellNote);
    if (!count.empty()) {
        tellNote(count);
    }
}

}  // namespace

void addFeeOptions(CLI::App& command, Program& program) {
    addFormatOptions(command, program);
    command.add_flag("--strict", program.strict, "Exit status 1 when a rate is built in, not set\nor a margin of 0");
}

void tellUnanswered(const Replies& replies, const standalone::Account& account) {
    for (const Question& question : replies.unanswered) {
        tellProblem(fmt::format("the fee center has no fee of {} for account {}",
                                instrumentText(question.market, question.code), account.record->accountId));
    }
}

ExitStatus tellFees(const Program& program, const Session& session, const standalone::Account& account,
                    const std::vector<Answer>& answers, const std::vector<std::string>& notes) {
    const std::string text = feeText(program, session, account, answers);
    const std::string count = markedSentence(answers);
    if (program.format == Format::kTable) {
        program.answer(text + below(notes, count), session);
    } else {
        program.answer(text, session);
        tellBeside(notes, count);
    }
    return program.strict && !count.empty() ? kNoAnswer : kAnswered;
}

}  // namespace feedesk
