#include <memory>

#include "feedesk/account_kinds.h"
#include "feedesk/fee_output.h"
#include "feedesk/program.h"
#include "feedesk/unlisted.h"

namespace feedesk {
namespace {

struct FeeArguments {
    std::string account;
    std::vector<std::string> instruments;
};

bool tradesThroughConnect(const standalone::Account& account) {
    const int type = account.record->accountType;
    return type == kHgtAccount || type == kSgtAccount;
}

/// The instruments that have a name; tells on standard error why the others have none.
std::vector<Question> questions(const FeeArguments& arguments, const Session& session,
                                const standalone::Account& account) {
    std::vector<Question> found;
    for (const std::string& text : arguments.instruments) {
        const NamedInstrument named = session.instruments().find(text, tradesThroughConnect(account));
        if (named.question) {
            found.push_back(*named.question);
        } else {
            tellProblem(named.problem);
        }
    }
    return found;
}

ExitStatus fee(const Program& program, const FeeArguments& arguments) {
    Session session(program.session);
    const standalone::Account& account = session.account(arguments.account);
    const std::vector<Question> asked = questions(arguments, session, account);
    const Replies replies = asked.empty() ? Replies() : session.fees(account, asked);
    tellUnanswered(replies, account);
    ExitStatus status = kAnswered;
    if (!replies.answers.empty()) {
        const std::vector<std::string> notes = unlistedNotes(account, replies.answers, session.market());
        status = tellFees(program, session, account, replies.answers, notes);
    }
    return replies.answers.size() == arguments.instruments.size() ? status : kNoAnswer;
}

}  // namespace

void addFee(CLI::App& app, Program& program) {
    CLI::App* command = app.add_subcommand("fee", "Rates of instruments for an account");
    const auto arguments = std::make_shared<FeeArguments>();
    command->add_option("ACCOUNT", arguments->account, "Number of the account")->required()->type_name("");
    command
        ->add_option("INSTRUMENT", arguments->instruments,
                     "SH:600519, 600519.SH, or the code\nalone when one market has it")
        ->required()
        ->type_name("");
    addFeeOptions(*command, program);
    command->callback([&program, arguments] { program.command = [=, &program] { return fee(program, *arguments); }; });
}

}  // namespace feedesk
