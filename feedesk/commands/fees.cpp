#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <boost/algorithm/string/case_conv.hpp>
#include <iterator>
#include <locale>

#include "feedesk/commands/commands.h"
#include "feedesk/commands/fee_answer.h"
#include "feedesk/commands/options.h"
#include "feedesk/numbers.h"
#include "feedesk/patterns.h"
#include "feedesk/program.h"
#include "feedesk/text.h"
#include "standalone/families.h"

namespace feedesk {
namespace {

struct FeesArguments {
    std::string account;
    std::vector<std::string> markets;  // none: every market
    std::string pattern = "*";
};

std::vector<std::string> marketNames(const standalone::Market& market) {
    std::vector<std::string> names;
    for (const standalone::MarketPlace& place : market.markets) {
        names.push_back(place.market);
    }
    return names;
}

/// The market that a person names; it may be in small letters, as in the name of an instrument.
std::string knownMarket(const std::string& text, const std::vector<std::string>& known) {
    for (const std::string& name : {text, boost::to_upper_copy(text, std::locale::classic())}) {
        if (std::find(known.begin(), known.end(), name) != known.end()) {
            return name;
        }
    }
    throw Failure(kNoAnswer,
                  fmt::format("the market folder has no market {}; it has {}", echoed(text), fmt::join(known, ", ")));
}

FeesArguments withKnownMarkets(FeesArguments arguments, const standalone::Market& market) {
    const std::vector<std::string> known = marketNames(market);
    for (std::string& name : arguments.markets) {
        name = knownMarket(name, known);
    }
    return arguments;
}

std::string whyNoList(const standalone::Account& account) {
    const std::string& id = account.record->accountId;
    const int kind = account.record->accountType;
    return standalone::tradedFamily(kind) != nullptr
               ? fmt::format(
                     "account {} has no list of fees: no fee record and no custom fee covers an instrument; "
                     "`feedesk fee {} INSTRUMENT` still answers",
                     id, id)
               : fmt::format("accounts of the kind {} have no list of fees; `feedesk fee {} INSTRUMENT` answers",
                             standalone::accountKindName(kind), id);
}

std::vector<Answer> wanted(const FeesArguments& arguments, const std::vector<Answer>& answers) {
    const auto& markets = arguments.markets;
    std::vector<Answer> found;
    std::copy_if(answers.begin(), answers.end(), std::back_inserter(found), [&](const Answer& answer) {
        return markets.empty() || std::find(markets.begin(), markets.end(), answer.instrument->market) != markets.end();
    });
    return itemsLike(found, arguments.pattern, [](const Answer& answer) {
        return std::array<std::string_view, 2>{answer.instrument->code, answer.instrument->name};
    });
}

/// How to find what the pattern is only a part of; empty when that finds nothing either.
std::string widerPattern(FeesArguments arguments, const std::vector<Answer>& answers) {
    arguments.pattern = widened(arguments.pattern);
    return wanted(arguments, answers).empty() ? "" : insideAdvice("--match '" + arguments.pattern + "'");
}

std::string whyNoneWanted(const FeesArguments& arguments, const std::vector<Answer>& answers) {
    return fmt::format("none of the {} in the list of account {} is wanted by the filters{}",
                       counted(answers.size(), "instrument"), arguments.account, widerPattern(arguments, answers));
}

ExitStatus fees(Program& program, const FeesArguments& given) {
    Session session(program.session);
    const standalone::Account& account = session.account(given.account);
    const FeesArguments arguments = withKnownMarkets(given, session.market());
    const std::optional<Replies> listed = session.listedFees(account);
    if (!listed) {
        throw Failure(kNoAnswer, whyNoList(account));
    }
    const std::vector<Answer> answers = wanted(arguments, listed->answers);
    tellUnanswered(*listed, account);
    if (answers.empty()) {
        throw Failure(kNoAnswer, whyNoneWanted(arguments, listed->answers));
    }
    const ExitStatus status = answerFees(program, session, account, answers);
    return listed->unanswered.empty() ? status : kNoAnswer;
}

}  // namespace

void addFees(CLI::App& app, Program& program) {
    CLI::App* command = app.add_subcommand("fees", "Every fee in an account's list");
    FeesArguments& arguments = argumentsOf(*command, program, fees);
    command->add_option("ACCOUNT", arguments.account, "Number of the account")->required()->type_name("");
    command->add_option("--only-market", arguments.markets, "Only this market; may be given again")
        ->type_name("M")
        ->allow_extra_args(false);
    command->add_option("--match", arguments.pattern, "Only codes or names like this; * is any text")
        ->type_name("PATTERN");
    addFeeOptions(*command, program);
}

}  // namespace feedesk
