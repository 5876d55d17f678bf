#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <set>

#include "feedesk/commands/account_choice.h"
#include "feedesk/commands/commands.h"
#include "feedesk/commands/fee_answer.h"
#include "feedesk/commands/fees_of_accounts.h"
#include "feedesk/commands/only_markets.h"
#include "feedesk/commands/options.h"
#include "feedesk/instruments/instrument_patterns.h"
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

/// The filters with the markets that the patterns may name.
struct Filters {
    const std::vector<std::string>& markets;
    std::vector<PlacedPattern> patterns;

    Filters(const FeesArguments& arguments, const Session& session, const Account& account)
        : markets(arguments.markets) {
        const AskedMarkets known =
            session.instruments().marketsAsked(standalone::tradesThroughConnect(account.record->accountType));
        for (const std::string& pattern : arguments.patterns) {
            patterns.push_back(placedPattern(pattern, known));
        }
    }
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
std::vector<Item> wanted(const Filters& filters, const std::vector<Item>& items, const InstrumentOf& instrumentOf) {
    std::set<const qmservice::CInstrument*> like;
    std::vector<Item> found;
    for (const PlacedPattern& pattern : filters.patterns) {
        std::vector<Item> there;
        std::copy_if(items.begin(), items.end(), std::back_inserter(there), [&](const Item& item) {
            const std::string& market = instrumentOf(item).market;
            return isAmong(filters.markets, market) && pattern.isIn(market);
        });
        for (const Item& item : itemsLike(there, pattern.name, [&](const Item& each) {
                 const qmservice::CInstrument& instrument = instrumentOf(each);
                 return std::array<std::string_view, 2>{instrument.code, instrument.name};
             })) {
            like.insert(&instrumentOf(item));
        }
    }
    std::copy_if(items.begin(), items.end(), std::back_inserter(found),
                 [&](const Item& item) { return like.count(&instrumentOf(item)) != 0; });
    return found;
}

using Fee = boost::shared_ptr<qmservice::CInstrumentFee>;

IntervalCenter::Fees wantedFees(const Filters& filters, const IntervalCenter::Fees& fees) {
    return wanted(filters, fees, [](const Fee& fee) -> const qmservice::CInstrument& { return *fee->instrument; });
}

using Listings = std::vector<const ListedInstrument*>;

/// By market and code.
Listings wantedListings(const Filters& filters, const Account& account, const standalone::Market& market) {
    Listings traded =
        wanted(filters, tradedListings(account.record->accountType, market),
               [](const ListedInstrument* listed) -> const qmservice::CInstrument& { return *listed->record; });
    std::sort(traded.begin(), traded.end(), [](const ListedInstrument* one, const ListedInstrument* other) {
        return std::tie(one->record->market, one->record->code) < std::tie(other->record->market, other->record->code);
    });
    return traded;
}

/// The fees that the account is asked for; nothing where it has no list.
std::optional<Replies> askedFees(const FeesArguments& arguments, Session& session, const Account& account) {
    const Filters filters(arguments, session, account);
    if (!arguments.all) {
        return session.listedFees(account, [&](const auto& fees) { return wantedFees(filters, fees); });
    }
    std::vector<Question> questions;
    for (const ListedInstrument* listed : wantedListings(filters, account, session.market())) {
        questions.push_back({listed->record->market, listed->record->code});
    }
    return session.fees(account, questions);
}

bool isNothing(const std::optional<Replies>& replies) {
    return !replies || (replies->answers.empty() && replies->unanswered.empty());
}

/// The pattern for texts that hold what it says of instruments anywhere, in the market that it names.
std::string widenedName(const std::string& pattern, const PlacedPattern& placed) {
    const std::size_t name = placed.namesMarkets ? pattern.find(placed.name) : std::string::npos;
    return name == std::string::npos ? widened(pattern)
                                     : std::string(pattern).replace(name, placed.name.size(), widened(placed.name));
}

/// How to find what a pattern is only a part of; empty when that finds nothing either.
std::string widerPattern(FeesArguments arguments, Session& session, const Account& account) {
    const std::vector<std::string> patterns = arguments.patterns;
    const Filters filters(arguments, session, account);
    for (std::size_t i = 0; i < patterns.size(); ++i) {
        arguments.patterns = {widenedName(patterns[i], filters.patterns[i])};
        if (!isNothing(askedFees(arguments, session, account))) {
            return insideAdvice("--match '" + arguments.patterns.front() + "'");
        }
    }
    return "";
}

/// Which market of a pattern nobody knows; empty when there is none such.
std::string unknownMarket(const FeesArguments& arguments, Session& session, const Account& account) {
    for (const PlacedPattern& pattern : Filters(arguments, session, account).patterns) {
        if (pattern.namesUnknownMarket()) {
            return fmt::format("; the market folder has no market {}",
                               echoed(pattern.name.substr(0, pattern.name.find(':'))));
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
                       account.record->accountId, unknownMarket(arguments, session, account),
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
                                 unknownMarket(arguments, session, *accounts.front()));
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
        ->add_option("--match", arguments.patterns,
                     "Only codes or names like this, such as 60* or\nSH:60*; * is any text; may be given again")
        ->type_name("PATTERN")
        ->allow_extra_args(false);
    command->add_flag("--all", arguments.all, "Every instrument that an account trades, and\nnot only its list");
    addFeeOptions(*command, program);
}

}  // namespace feedesk
