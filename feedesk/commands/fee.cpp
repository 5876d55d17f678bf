#include <fmt/format.h>

#include <CLI/CLI.hpp>

#include "feedesk/commands/commands.h"
#include "feedesk/commands/fee_answer.h"
#include "feedesk/commands/options.h"
#include "feedesk/instrument_list.h"
#include "feedesk/messages.h"
#include "feedesk/numbers.h"
#include "feedesk/program.h"
#include "feedesk/unlisted.h"
#include "standalone/channels.h"

namespace feedesk {
namespace {

constexpr std::size_t kMostProblems = 100;
constexpr std::size_t kMostQuestions = 250'000;

struct FeeArguments {
    std::string account;
    std::vector<std::string> instruments;
};

/// What the arguments and the list on standard input name.
struct Asked {
    std::vector<Question> questions;
    std::size_t problems = 0;  ///< names without a question
};

void checkNumber(const std::vector<Question>& questions) {
    if (questions.size() > kMostQuestions) {
        throw Failure(kBadInput, fmt::format("the patterns stand for more than {} instruments; ask in parts",
                                             grouped(kMostQuestions)));
    }
}

/// Tells why names have no question, of so many that a person reads them; beyond them it is only counted.
Asked ask(const std::vector<AskedInstrument>& instruments, const InstrumentNames& names, bool connect) {
    Asked asked;
    for (const AskedInstrument& instrument : instruments) {
        const std::vector<Question> found = names.find(instrument.text, connect);
        asked.questions.insert(asked.questions.end(), found.begin(), found.end());
        checkNumber(asked.questions);
        if (found.empty() && ++asked.problems <= kMostProblems) {
            tellAskedProblem(instrument, names.problem(instrument.text, connect));
        }
    }
    if (asked.problems > kMostProblems) {
        tellProblem(
            fmt::format("there is no answer for {} either", counted(asked.problems - kMostProblems, "more name")));
    }
    return asked;
}

ExitStatus fee(Program& program, const FeeArguments& arguments) {
    const std::vector<AskedInstrument> instruments = askedInstruments(arguments.instruments);
    Session session(program.session);
    const standalone::Account& account = session.account(arguments.account);
    const Asked asked =
        ask(instruments, session.instruments(), standalone::tradesThroughConnect(account.record->accountType));
    const Replies replies = asked.questions.empty() ? Replies() : session.fees(account, asked.questions);
    tellUnanswered(replies, account);
    ExitStatus status = kAnswered;
    if (!replies.answers.empty() || program.format == Format::kJson) {
        const std::vector<std::string> notes = unlistedNotes(account, replies.answers, session.market());
        status = answerFees(program, session, account, replies.answers, notes);
    }
    return asked.problems == 0 && replies.unanswered.empty() ? status : kNoAnswer;
}

}  // namespace

void addFee(CLI::App& app, Program& program) {
    CLI::App* command = app.add_subcommand("fee", "Rates of instruments for an account");
    FeeArguments& arguments = argumentsOf(*command, program, fee);
    command->add_option("ACCOUNT", arguments.account, "Number of the account")->required()->type_name("");
    command
        ->add_option("INSTRUMENT", arguments.instruments,
                     "SH:600519, 600519.SH, sh600519, a code or\na name that one instrument has, a pattern\n"
                     "such as 'SHFE:rb*', or - for a list on\nstandard input")
        ->required()
        ->type_name("");
    addFeeOptions(*command, program);
}

}  // namespace feedesk
