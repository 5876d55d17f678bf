#include <fmt/format.h>

#include <algorithm>
#include <numeric>
#include <utility>

#include "cost/day.h"
#include "cost/refused.h"
#include "feedesk/answers/marks.h"
#include "feedesk/answers/unlisted.h"
#include "feedesk/commands/cost_arguments.h"
#include "feedesk/commands/cost_backwards.h"
#include "feedesk/commands/cost_rows.h"
#include "feedesk/commands/fee_answer.h"
#include "feedesk/text/text.h"
#include "feedesk/trades/tariffs.h"
#include "feedesk/trades/trade_words.h"

namespace feedesk {
namespace {

using Trades = std::vector<ChargedTrade>;

constexpr const char* kHowToAsk = "; ask as in: feedesk cost ACCOUNT INSTRUMENT buy 300@1488.50";

/// What `calculate` gives; a refusal ends the command: a wrong trade is bad input, everything else no answer.
template <class Calculate>
auto orFail(const Calculate& calculate) {
    try {
        return calculate();
    } catch (const cost::WrongTrade& wrong) {
        throw Failure(kBadInput, wrong.what());
    } catch (const cost::Refused& refused) {
        throw Failure(kNoAnswer, refused.what());
    }
}

cost::Trade tradeFrom(const std::string& side, const std::string& numbers, const CostArguments& arguments,
                      cost::Date date) {
    cost::Trade trade;
    trade.side = sideFrom(side);
    readQuantityAndPrice(numbers, arguments.cash.has_value(), trade);
    trade.hedgeFlag = hedgeFlagFrom(arguments.hedge);
    trade.date = date;
    return trade;
}

std::vector<cost::Trade> tradesFrom(const CostArguments& arguments, cost::Date date) {
    const std::vector<std::string>& words = arguments.trades;
    if (words.empty() || words.size() % 2 != 0) {
        throw Failure(kBadInput, std::string("a trade is two words, its side and its quantity and price") + kHowToAsk);
    }
    return orFail([&] {
        std::vector<cost::Trade> trades;
        for (std::size_t i = 0; i < words.size(); i += 2) {
            trades.push_back(tradeFrom(words[i], words[i + 1], arguments, date));
        }
        return trades;
    });
}

/// A hedge flag chooses a margin, and only futures have one.
void refuseForeignHedge(const cost::Tariff& tariff, const CostArguments& arguments) {
    const cost::Place& place = tariff.place();
    if (!arguments.hedge.empty() && place.family != cost::Family::kFutures) {
        throw Failure(kBadInput, fmt::format("--hedge is for futures, and {} is charged as {}; leave it out",
                                             place.instrument(), cost::wordFor(place.family)));
    }
}

/// "sell 100 SH:601668 中国建筑 at 5.02 on 2021-03-04"
std::string tradeText(const ChargedTrade& charged, const Answer& answer) {
    return fmt::format("{} {} {} {}{}{} on {}", charged.side, charged.quantity,
                       charged.bill.tariff.place().instrument(), answer.instrument->name,
                       charged.price.empty() ? "" : " at ", charged.price, charged.date);
}

std::string levelAndSource(const cost::MarginRate& rate) {
    return rate.level + (rate.source.empty() ? "" : " " + rate.source);
}

std::string marginText(const ChargedTrade& charged) {
    const auto& margin = charged.bill.margin;
    if (margin) {
        return fmt::format("; margin {} {} ({}; {})", margin->amount.text(2), charged.bill.currency, cost::kMarginLabel,
                           levelAndSource(*margin->rate));
    }
    return charged.lacksMargin() ? fmt::format("; margin not known: the answer has no rate for {}", charged.hedge) : "";
}

/// "the account pays 5.00 CNY"
std::string movedText(const cost::Bill& bill) {
    if (bill.net.isZero()) {
        return "nothing moves on the account";
    }
    const cost::Decimal moved = bill.net.isNegative() ? -bill.net : bill.net;
    return fmt::format("the account {} {} {}", bill.net.isNegative() ? "pays" : "receives", moved.text(2),
                       bill.currency);
}

/// What the trade moves on the account.
std::string totalText(const ChargedTrade& charged) {
    const cost::Bill& bill = charged.bill;
    return fmt::format("turnover {}, costs {} {}; {}{}", charged.turnover, charged.costs, bill.currency,
                       movedText(bill), marginText(charged));
}

std::vector<std::string> sums(const Trades& trades) {
    std::vector<std::string> lines;
    for (const ChargedTrade& charged : trades) {
        lines.push_back((trades.size() == 1 ? "" : fmt::format("Trade {}: ", charged.number)) + totalText(charged));
    }
    if (trades.size() == 1) {
        lines.front().front() = 'T';
    }
    return lines;
}

/// The trades that are asked for, and what is said about them besides.
struct AskedTrades {
    std::vector<cost::Trade> trades;
    std::vector<std::string> sentences;
};

void askBackwards(AskedTrades& asked, const Charged& charged, const CostArguments& arguments) {
    if (!arguments.cash && !arguments.breakEven) {
        return;
    }
    if (asked.trades.size() != 1) {
        throw Failure(kBadInput, "--cash and --break-even are asked of one trade");
    }
    const std::string& numbers = arguments.trades[1];
    if (arguments.cash) {
        takeAffordable(asked.trades.front(), charged.tariff, arguments);
    }
    if (arguments.breakEven) {
        const Tick tick =
            tickOf(*charged.answer.instrument, numbers.substr(std::min(numbers.find('@') + 1, numbers.size() - 1)));
        const cost::Trade closing = breakEven(asked.trades.front(), charged.tariff, tick);
        const bool mayCloseToday = charged.tariff.place().family == cost::Family::kFutures;
        asked.sentences.push_back(
            fmt::format("Break-even: {} at {} or {} (tick {}, {}){}", cost::wordFor(closing.side), closing.price.text(),
                        cost::isShort(closing.side) ? "lower" : "higher", tick.step.text(), tick.reason,
                        mayCloseToday ? "; closing on the day of opening may be charged otherwise" : ""));
        asked.trades.push_back(closing);
    }
}

/// What is left of the cash, in the currency of the answer.
std::string cashText(const cost::Decimal& cash, const ChargedTrade& charged) {
    const cost::Bill& bill = charged.bill;
    const cost::Decimal needed = bill.margin ? bill.margin->amount + bill.costs : -bill.net;
    return fmt::format("{0} {1} pay for {2} at most; {3} {1} are left", cash.text(), bill.currency, charged.quantity,
                       (cash - needed).text(2));
}

/// The trades of one day together, each an order of its own, as those of a file without order numbers.
Trades charge(const AskedTrades& asked, const cost::Tariff& tariff, const CostArguments& arguments) {
    Exchange exchange(arguments.exchangeRate);
    cost::Day day(asked.trades.front().date);
    for (const cost::Trade& trade : asked.trades) {
        day.add(trade, tariff);
    }
    std::vector<std::size_t> numbers(asked.trades.size());
    std::iota(numbers.begin(), numbers.end(), 1);
    Trades trades;
    for (cost::Bill& bill : day.bills()) {
        const std::size_t index = trades.size();
        trades.emplace_back(numbers[index], asked.trades[index], exchange(std::move(bill)), numbers);
    }
    return trades;
}

ExitStatus answerTrades(Program& program, const Session& session, const standalone::Account& account,
                        const Charged& charged, const Trades& trades, const std::vector<std::string>& sentences) {
    const std::string warning = markedSentence({charged.answer});
    const ItemFields fields = titledItemFields(session.market());
    Sections sections;
    for (const ChargedTrade& trade : trades) {
        const std::string number = trades.size() == 1 ? "" : fmt::format("Trade {}: ", trade.number);
        sections.push_back(sectionOf(number + tradeText(trade, charged.answer), fields));
    }
    program.answer(session, sections, [&](RowSink& sink) {
        for (std::size_t i = 0; i < trades.size(); ++i) {
            giveItems(trades[i], fields, i, sink);
        }
        Remarks remarks{accountHeading(account), unlistedNotes(account, {charged.answer}, session.market()), warning,
                        sums(trades)};
        remarks.footing.insert(remarks.footing.end(), sentences.begin(), sentences.end());
        return remarks;
    });
    return program.strict && !warning.empty() ? kNoAnswer : kAnswered;
}

}  // namespace

ExitStatus costOfArguments(Program& program, const CostArguments& arguments) {
    if (arguments.account.empty() || arguments.instrument.empty()) {
        throw Failure(kBadInput, std::string("an account, an instrument and a trade are needed") + kHowToAsk);
    }
    Session& session = program.open();
    const standalone::Account& account = session.account(arguments.account);
    AskedTrades asked{tradesFrom(arguments, session.day()), {}};
    const Question instrument = session.instrument(account, arguments.instrument, "a trade is of one");
    const Charged charged = orFail([&] { return chargedOn(session, session.day(), arguments.account, instrument); });
    refuseForeignHedge(charged.tariff, arguments);
    const Trades trades = orFail([&] {
        askBackwards(asked, charged, arguments);
        Trades costs = charge(asked, charged.tariff, arguments);
        if (arguments.cash) {
            asked.sentences.insert(asked.sentences.begin(), cashText(*arguments.cash, costs.front()));
        }
        return costs;
    });
    return answerTrades(program, session, account, charged, trades, asked.sentences);
}

}  // namespace feedesk
