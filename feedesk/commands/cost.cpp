#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <utility>

#include "cost/bill.h"
#include "feedesk/commands/commands.h"
#include "feedesk/commands/cost_arguments.h"
#include "feedesk/commands/cost_totals.h"
#include "feedesk/commands/fee_answer.h"
#include "feedesk/commands/options.h"
#include "feedesk/text/text.h"
#include "feedesk/trades/trade_words.h"

namespace feedesk {
namespace {

/// An option with an exact number above 0.
CLI::Option* addNumber(CLI::App& command, const std::string& name, std::optional<cost::Decimal>& number,
                       const std::string& help) {
    const auto problem = [](const std::string& text) {
        const auto read = cost::Decimal::parse(text);
        return read && *read > cost::Decimal() ? "" : fmt::format("{} is not a plain number above 0", echoed(text));
    };
    return command
        .add_option_function<std::string>(
            name, [&number](const std::string& text) { number = cost::Decimal::parse(text); }, help)
        ->check(CLI::Validator(problem, ""))
        ->type_name("N");
}

/// Digits beyond these are no rate of exchange, and would make amounts too long to calculate with.
std::string exchangeRateProblem(const std::string& text) {
    static const cost::Decimal step = *cost::Decimal::parse("0.0000000001");
    static const cost::Decimal end(1'000'000);
    const auto rate = cost::Decimal::parse(text);
    const bool isTooLong = rate && (*rate >= end || rate->quotient(step, cost::RoundingMode::kDown) * step != *rate);
    return isTooLong ? fmt::format("{} has more than 6 digits before the point or 10 behind it", echoed(text)) : "";
}

void refuse(bool wrong, const char* sentence) {
    if (wrong) {
        throw Failure(kBadInput, sentence);
    }
}

ExitStatus answerCost(Program& program, const CostArguments& arguments) {
    if (arguments.file.empty()) {
        refuse(!arguments.totals.empty() || arguments.keepGoing || arguments.unsorted,
               "--totals, --keep-going and --unsorted go with --trades FILE");
        return costOfArguments(program, arguments);
    }
    refuse(arguments.cash || arguments.breakEven, "--cash and --break-even do not go with --trades");
    refuse(!arguments.instrument.empty(),
           "--trades goes with an account or none; instruments and trades stand in the file");
    refuse(program.session.date.has_value(), "--date does not go with --trades, whose trades have a date each");
    return costOfFile(program, arguments);
}

}  // namespace

cost::Bill Exchange::operator()(cost::Bill bill) {
    if (!rate || bill.currency == kYuan) {
        return bill;
    }
    if (foreign.empty()) {
        foreign = bill.currency;
    }
    if (bill.currency != foreign) {
        throw cost::Refused(fmt::format(
            "trades are charged in {} and in {}, and --exchange-rate is of one currency; charge them one file each",
            foreign, bill.currency));
    }
    return cost::converted(std::move(bill), *rate, kYuan);
}

void addCost(CLI::App& app, Program& program) {
    CLI::App* command = app.add_subcommand("cost", "What trades cost, item by item");
    CostArguments& arguments = argumentsOf(*command, program, answerCost);
    command->add_option("ACCOUNT", arguments.account, "Number of the account")->type_name("");
    command->add_option("INSTRUMENT", arguments.instrument, "One instrument, written as for `fee`")->type_name("");
    command
        ->add_option("TRADE", arguments.trades,
                     "SIDE QUANTITY@PRICE, such as buy 300@1488.50\nor open-long 2@3450; each is an order of its\n"
                     "own")
        ->type_name("");
    CLI::Option* hedge =
        command->add_option("--hedge", arguments.hedge, "Futures: speculation (else), arbitrage or\nhedging");
    program.choices[hedge->type_name("FLAG")] = {hedgeNames()};
    addNumber(*command, "--cash", arguments.cash,
              "With buy @1488.50: the largest quantity that\nthis money pays for, and its costs");
    command->add_flag("--break-even", arguments.breakEven,
                      "With a purchase or opening: the price that\npays for both sides, and what closing costs");
    addNumber(*command, "--exchange-rate", arguments.exchangeRate,
              "Yuan for one unit of another currency:\namounts are converted at the end")
        ->check(CLI::Validator(exchangeRateProblem, ""));
    command->add_option("--trades", arguments.file, "The trades of this file, or - for standard\ninput")
        ->type_name("FILE");
    CLI::Option* totals =
        command
            ->add_option("--totals", arguments.totals,
                         "Of a file: sums by account, day, instrument\nor order, or by several: account,day")
            ->check(CLI::Validator(
                [](const std::string& text) {
                    return totalsKeyFrom(text).any() ? ""
                                                     : fmt::format("{} is none of {}", echoed(text), totalsWords());
                },
                ""))
            ->type_name("BY");
    program.choices[totals] = {totalsNames(), true};
    command->add_flag("--keep-going", arguments.keepGoing, "Of a file: pass over wrong lines, then status 1");
    command->add_flag("--unsorted", arguments.unsorted, "Of a file: sort the trades by day first");
    addFeeOptions(*command, program);
}

}  // namespace feedesk
