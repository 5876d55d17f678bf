#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iterator>

#include "feedesk/answers/unlisted.h"
#include "feedesk/commands/account_choice.h"
#include "feedesk/commands/commands.h"
#include "feedesk/commands/fee_answer.h"
#include "feedesk/commands/fees_of_accounts.h"
#include "feedesk/commands/options.h"
#include "feedesk/instruments/instrument_list.h"
#include "feedesk/program.h"
#include "feedesk/terminal/messages.h"
#include "feedesk/text/numbers.h"
#include "feedesk/text/text.h"
#include "standalone/channels.h"

namespace feedesk {
namespace {

using standalone::Account;

constexpr std::size_t kMostProblems = 100;
constexpr std::size_t kMostQuestions = 250'000;

struct FeeArguments {
    AccountChoice choice;
    std::vector<std::string> instruments;
};

bool tradesThroughConnect(const Account* account) {
    return standalone::tradesThroughConnect(account->record->accountType);
}

void checkNumber(const std::vector<Question>& questions) {
    if (questions.size() > kMostQuestions) {
        throw Failure(kBadInput, fmt::format("the patterns stand for more than {} instruments; ask in parts",
                                             grouped(kMostQuestions)));
    }
}

/// Reports why names have no question, of so many that a person reads them; beyond them it is only counted.
class Problems {
public:
    void add(const AskedInstrument& instrument, const std::string& sentence) {
        if (++number <= kMostProblems) {
            tellAskedProblem(instrument, sentence);
        }
    }
    /// How many there were.
    std::size_t end() const {
        if (number > kMostProblems) {
            reportProblem(
                fmt::format("there is no answer for {} either", counted(number - kMostProblems, "more name")));
        }
        return number;
    }

private:
    std::size_t number = 0;
};

std::vector<Question> questionsOf(const std::vector<AskedInstrument>& instruments, const InstrumentNames& names,
                                  bool connect) {
    std::vector<Question> questions;
    for (const AskedInstrument& instrument : instruments) {
        const std::vector<Question> found = names.find(instrument.text, connect);
        questions.insert(questions.end(), found.begin(), found.end());
        checkNumber(questions);
    }
    return questions;
}

/// Reports which names have no question for any of these accounts; how many they are. Accounts of the connect channels
/// know further names.
std::size_t tellUnknown(const std::vector<AskedInstrument>& instruments, const InstrumentNames& names,
                        const Accounts& accounts) {
    const bool connect = std::any_of(accounts.begin(), accounts.end(), tradesThroughConnect);
    const bool others = !std::all_of(accounts.begin(), accounts.end(), tradesThroughConnect);
    Problems problems;
    for (const AskedInstrument& instrument : instruments) {
        const bool isKnown = (connect && !names.find(instrument.text, true).empty()) ||
                             (others && !names.find(instrument.text, false).empty());
        if (!isKnown) {
            problems.add(instrument, names.problem(instrument.text, connect));
        }
    }
    return problems.end();
}

Replies askedFees(Session& session, const Account& account, const std::vector<AskedInstrument>& instruments) {
    const std::vector<Question> questions =
        questionsOf(instruments, session.instruments(), tradesThroughConnect(&account));
    return questions.empty() ? Replies() : session.fees(account, questions);
}

ExitStatus feeOfOne(Program& program, const FeeArguments& arguments) {
    const std::vector<AskedInstrument> instruments = askedInstruments(arguments.instruments);
    Session& session = program.open();
    const Account& account = session.account(arguments.choice.account);
    const std::size_t problems = tellUnknown(instruments, session.instruments(), {&account});
    const Replies replies = askedFees(session, account, instruments);
    tellUnanswered(replies, account);
    ExitStatus status = kAnswered;
    if (!replies.answers.empty() || program.format == Format::kJson) {
        const std::vector<std::string> notes = unlistedNotes(account, replies.answers, session.market());
        status = answerFees(program, session, account, replies.answers, notes);
    }
    return problems == 0 && replies.unanswered.empty() ? status : kNoAnswer;
}

/// With --accounts the first argument is an instrument, and not the account.
std::vector<std::string> withFirst(const FeeArguments& arguments) {
    std::vector<std::string> texts = arguments.instruments;
    if (!arguments.choice.account.empty()) {
        texts.insert(texts.begin(), arguments.choice.account);
    }
    return texts;
}

void refuseAccount(const Session& session, const std::string& first) {
    if (session.hasAccount(first) && session.instruments().find(first, true).empty()) {
        throw Failure(kBadInput,
                      fmt::format("the account {} does not go with --accounts; name accounts in one of the two ways",
                                  echoed(first)));
    }
}

void addNew(std::vector<std::string>& notes, const std::vector<std::string>& more) {
    std::copy_if(more.begin(), more.end(), std::back_inserter(notes), [&notes](const std::string& note) {
        return std::find(notes.begin(), notes.end(), note) == notes.end();
    });
}

ExitStatus feeOfSeveral(Program& program, const FeeArguments& arguments) {
    const std::vector<std::string> texts = withFirst(arguments);
    if (texts.empty()) {
        throw Failure(kBadInput, "INSTRUMENT is required; `feedesk fee --help` shows how to ask");
    }
    const std::vector<AskedInstrument> instruments = askedInstruments(texts);
    Session& session = program.open();
    refuseAccount(session, texts.front());
    const Accounts accounts = accountsLike(arguments.choice.patterns, session.market());
    const std::size_t problems = tellUnknown(instruments, session.instruments(), accounts);
    if (problems == instruments.size()) {
        return kNoAnswer;
    }
    std::vector<std::string> notes;
    const auto askAccount = [&](const Account& account) {
        Replies replies = askedFees(session, account, instruments);
        addNew(notes, unlistedNotes(account, replies.answers, session.market()));
        return replies;
    };
    const auto whyNone = [&] {
        return fmt::format("the fee center has no such fee for any of the {}", counted(accounts.size(), "account"));
    };
    const ExitStatus status =
        answerOfAccounts(program, session, accounts, {askAccount, [&notes] { return notes; }, whyNone});
    return problems == 0 ? status : kNoAnswer;
}

ExitStatus fee(Program& program, const FeeArguments& arguments) {
    return arguments.choice.ofSeveral() ? feeOfSeveral(program, arguments) : feeOfOne(program, arguments);
}

}  // namespace

void addFee(CLI::App& app, Program& program) {
    CLI::App* command = app.add_subcommand("fee", "Rates of instruments for accounts");
    FeeArguments& arguments = argumentsOf(*command, program, fee);
    addAccountChoice(*command, arguments.choice);
    command
        ->add_option("INSTRUMENT", arguments.instruments,
                     "SH:600519, 600519.SH, sh600519, a code or\na name that one instrument has, a pattern\n"
                     "such as 'SHFE:rb*', or - for a list on\nstandard input")
        ->required()
        ->type_name("");
    addFeeOptions(*command, program);
}

}  // namespace feedesk
