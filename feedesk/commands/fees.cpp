#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <boost/algorithm/string/case_conv.hpp>
#include <locale>
#include <set>

#include "feedesk/commands/account_choice.h"
#include "feedesk/commands/commands.h"
#include "feedesk/commands/fee_answer.h"
#include "feedesk/commands/fees_of_accounts.h"
#include "feedesk/commands/only_markets.h"
#include "feedesk/commands/options.h"
#include "feedesk/instruments/instrument_text.h"
#include "feedesk/instruments/traded_instruments.h"
#include "feedesk/program.h"
#include "feedesk/text/numbers.h"
#include "feedesk/text/patterns.h"
#include "feedesk/text/text.h"
#include "standalone/families.h"

namespace feedesk {
namespace {

using standalone::Account;
using standalone::ListedInstrument;

struct FeesArguments {
    AccountChoice choice;
    std::vector<std::string> markets;  // none: every market
    std::vector<std::string> patterns{"*"};
    bool all = false;
};

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

/// The items that the filters want, in their order. `instrumentOf(item)` gives an item's instrument.
template <class Item, class InstrumentOf>
std::vector<Item> wanted(const FeesArguments& arguments, const std::vector<Item>& items,
                         const InstrumentOf& instrumentOf) {
    std::set<const qmservice::CInstrument*> like;
    std::vector<Item> found;
    std::copy_if(items.begin(), items.end(), std::back_inserter(found),
                 [&](const Item& item) { return isAmong(arguments.markets, instrumentOf(item).market); });
    for (const std::string& pattern : arguments.patterns) {
        for (const Item& item : itemsLike(found, pattern, [&](const Item& each) {
                 const qmservice::CInstrument& instrument = instrumentOf(each);
                 return std::array<std::string_view, 2>{instrument.code, instrument.name};
             })) {
            like.insert(&instrumentOf(item));
        }
    }
    const auto isUnlike = [&](const Item& item) { return like.count(&instrumentOf(item)) == 0; };
    found.erase(std::remove_if(found.begin(), found.end(), isUnlike), found.end());
    return found;
}

using Fee = boost::shared_ptr<qmservice::CInstrumentFee>;

IntervalCenter::Fees wantedFees(const FeesArguments& arguments, const IntervalCenter::Fees& fees) {
    return wanted(arguments, fees, [](const Fee& fee) -> const qmservice::CInstrument& { return *fee->instrument; });
}

using Listings = std::vector<const ListedInstrument*>;

/// By market and code.
Listings wantedListings(const FeesArguments& arguments, const Account& account, const standalone::Market& market) {
    Listings traded =
        wanted(arguments, tradedListings(account.record->accountType, market),
               [](const ListedInstrument* listed) -> const qmservice::CInstrument& { return *listed->record; });
    std::sort(traded.begin(), traded.end(), [](const ListedInstrument* one, const ListedInstrument* other) {
        return std::tie(one->record->market, one->record->code) < std::tie(other->record->market, other->record->code);
    });
    return traded;
}

/// The fees that the account is asked for; nothing where it has no list.
std::optional<Replies> askedFees(const FeesArguments& arguments, Session& session, const Account& account) {
    if (!arguments.all) {
        return session.listedFees(account, [&](const auto& fees) { return wantedFees(arguments, fees); });
    }
    std::vector<Question> questions;
    for (const ListedInstrument* listed : wantedListings(arguments, account, session.market())) {
        questions.push_back({listed->record->market, listed->record->code});
    }
    return session.fees(account, questions);
}

bool isNothing(const std::optional<Replies>& replies) {
    return !replies || (replies->answers.empty() && replies->unanswered.empty());
}

/// How to find what a pattern is only a part of; empty when that finds nothing either.
std::string widerPattern(FeesArguments arguments, Session& session, const Account& account) {
    for (const std::string& pattern : std::vector<std::string>(arguments.patterns)) {
        arguments.patterns = {widened(pattern)};
        if (!isNothing(askedFees(arguments, session, account))) {
            return insideAdvice("--match '" + arguments.patterns.front() + "'");
        }
    }
    return "";
}

/// How to write a pattern that names a market; empty when none of them does.
std::string marketAdvice(const FeesArguments& arguments, const standalone::Market& market) {
    for (const std::string& pattern : arguments.patterns) {
        for (const MarketAndName& reading : readings(pattern)) {
            const std::string name = boost::to_upper_copy(reading.market, std::locale::classic());
            const bool isMarket =
                std::any_of(market.markets.begin(), market.markets.end(),
                            [&](const standalone::MarketPlace& place) { return place.market == name; });
            if (isMarket) {
                return fmt::format("; --match takes no market, write --only-market {} --match '{}'", name,
                                   reading.name);
            }
        }
    }
    return "";
}

std::string whyNoneWanted(const FeesArguments& arguments, Session& session, const Account& account) {
    FeesArguments everything;
    everything.all = arguments.all;
    const std::optional<Replies> replies = askedFees(everything, session, account);
    return fmt::format("none of the {} {} account {} is wanted by the filters{}{}",
                       counted(replies->answers.size(), "instrument"), arguments.all ? "for" : "in the list of",
                       account.record->accountId, marketAdvice(arguments, session.market()),
                       widerPattern(arguments, session, account));
}

ExitStatus feesOfOne(Program& program, Session& session, const Account& account, const FeesArguments& arguments) {
    const std::optional<Replies> replies = askedFees(arguments, session, account);
    if (!replies) {
        throw Failure(kNoAnswer, whyNoList(account));
    }
    tellUnanswered(*replies, account);
    if (replies->answers.empty()) {
        throw Failure(kNoAnswer, whyNoneWanted(arguments, session, account));
    }
    const ExitStatus status = answerFees(program, session, account, replies->answers);
    return replies->unanswered.empty() ? status : kNoAnswer;
}

ExitStatus feesOfSeveral(Program& program, Session& session, const FeesArguments& arguments) {
    const Accounts accounts = accountsLike(arguments.choice.patterns, session.market());
    Accounts withoutList;
    const auto ask = [&](const Account& account) {
        std::optional<Replies> replies = askedFees(arguments, session, account);
        if (!replies) {
            withoutList.push_back(&account);
        }
        return std::move(replies).value_or(Replies());
    };
    const auto notes = [&] {
        return withoutList.empty()
                   ? std::vector<std::string>()
                   : std::vector<std::string>{
                         fmt::format("without a list of fees, and not shown: {} ({}); --all asks for every instrument "
                                     "that an account trades",
                                     counted(withoutList.size(), "account"), numbersText(withoutList))};
    };
    const auto whyNone = [&] {
        return withoutList.size() == accounts.size()
                   ? fmt::format(
                         "none of the {} has a list of fees; --all asks for every instrument that an account "
                         "trades",
                         counted(accounts.size(), "account"))
                   : fmt::format("the filters want no instrument of the {}{}", counted(accounts.size(), "account"),
                                 marketAdvice(arguments, session.market()));
    };
    return answerOfAccounts(program, session, accounts, {ask, notes, whyNone});
}

ExitStatus fees(Program& program, const FeesArguments& given) {
    if (given.choice.ofSeveral() && !given.choice.account.empty()) {
        throw Failure(kBadInput, fmt::format("the account {} does not go with --accounts; name accounts in one of the "
                                             "two ways",
                                             echoed(given.choice.account)));
    }
    Session& session = program.open();
    FeesArguments arguments = given;
    if (arguments.choice.ofSeveral()) {
        arguments.markets = knownMarkets(arguments.markets, session.market());
        return feesOfSeveral(program, session, arguments);
    }
    const Account& account = session.account(arguments.choice.account);
    arguments.markets = knownMarkets(arguments.markets, session.market());
    return feesOfOne(program, session, account, arguments);
}

}  // namespace

void addFees(CLI::App& app, Program& program) {
    CLI::App* command = app.add_subcommand("fees", "Every fee in the lists of accounts");
    FeesArguments& arguments = argumentsOf(*command, program, fees);
    addAccountChoice(*command, arguments.choice);
    addOnlyMarket(*command, arguments.markets);
    command
        ->add_option("--match", arguments.patterns, "Only codes or names like this; * is any text;\nmay be given again")
        ->type_name("PATTERN")
        ->allow_extra_args(false);
    command->add_flag("--all", arguments.all, "Every instrument that an account trades, and\nnot only its list");
    addFeeOptions(*command, program);
}

}  // namespace feedesk
