#include <CLI/CLI.hpp>
#include <algorithm>
#include <set>
#include <tuple>
#include <utility>

#include "feedesk/commands/commands.h"
#include "feedesk/commands/only_markets.h"
#include "feedesk/commands/options.h"
#include "feedesk/program.h"
#include "feedesk/terminal/messages.h"
#include "feedesk/text/text.h"
#include "standalone/families.h"

namespace feedesk {
namespace {

using standalone::ListedInstrument;

struct InstrumentsArguments {
    std::vector<std::string> texts;    // none: every instrument
    std::vector<std::string> markets;  // none: every market
};

struct InstrumentRow {
    const ListedInstrument& listed;
    const standalone::Market& market;
};

using InstrumentFields = FieldsOf<InstrumentRow>;
using Listed = std::vector<const ListedInstrument*>;

const qmservice::CInstrument& record(const InstrumentRow& row) { return *row.listed.record; }

Names listNames(const InstrumentRow& row) {
    Names names;
    for (const standalone::NamedList& list : standalone::namedLists()) {
        if (list.bits.hold(row.listed)) {
            names.emplace_back(list.name);
        }
    }
    return names;
}

std::string feeType(const InstrumentRow& row) {
    const auto& all = standalone::kExchangeFees;
    const auto* const known =
        std::find_if(all.begin(), all.end(), [&](const auto& each) { return each.type == record(row).getFeeType(); });
    return known == all.end() ? "" : known->name;
}

/// What is not known is 0.
Value known(double size) { return size == 0 ? Value(Nothing()) : Value(size); }

/// A fee of the exchange in its unit; nothing where the exchange charges nothing or the fee is not set.
Value exchangeFee(const InstrumentRow& row, double fee) {
    const bool isSet = record(row).getFeeType() != 0 && fee >= 0;
    return isSet ? Value(fee) : Value(Nothing());
}

/// No rate: a table in which no row has it has no column.
Field unlessNothing(const char* name, const char* title) { return Field{name, title}.when(WhenZero::kLeftOut); }

InstrumentFields instrumentFields() {
    return {
        {{"market", "Market"}, [](const InstrumentRow& row) { return record(row).market; }},
        {{"code", "Code"}, [](const InstrumentRow& row) { return record(row).code; }},
        {Field{"name", "Name"}.shortenedTo(8), [](const InstrumentRow& row) { return record(row).name; }},
        {{"lists", "Lists"}, listNames},
        {unlessNothing("product", "Product"),
         [](const InstrumentRow& row) { return textOrNothing(record(row).productId); }},
        {{"trade_unit", "Trade unit", Unit::kCount},
         [](const InstrumentRow& row) { return static_cast<std::size_t>(row.listed.tradeUnit); }},
        {unlessNothing("quantity_step", "Quantity step"),
         [](const InstrumentRow& row) {
             const int step = row.listed.quantityStep;
             return step == 0 ? Value(Nothing()) : Value(static_cast<std::size_t>(step));
         }},
        {unlessNothing("multiplier", "Multiplier"),
         [](const InstrumentRow& row) { return known(record(row).volumeMultiple); }},
        {unlessNothing("tick", "Tick"), [](const InstrumentRow& row) { return known(record(row).priceTick); }},
        {unlessNothing("fee_type", "Exchange fee"),
         [](const InstrumentRow& row) { return textOrNothing(feeType(row)); }},
        {unlessNothing("open_fee", "Open"),
         [](const InstrumentRow& row) { return exchangeFee(row, record(row).getOpenFee()); }},
        {unlessNothing("close_fee", "Close"),
         [](const InstrumentRow& row) { return exchangeFee(row, record(row).getCloseFee()); }},
        {unlessNothing("close_today_fee", "Close today"),
         [](const InstrumentRow& row) { return exchangeFee(row, record(row).getCloseTodayFee()); }},
        {Field{"source", "Source"}.at(ShownAt::kLast),
         [](const InstrumentRow& row) { return Source{row.market.where(row.listed.position)}; }},
    };
}

std::pair<const std::string&, const std::string&> placeOf(const ListedInstrument* listed) {
    return {listed->record->market, listed->record->code};
}

using Places = std::set<std::pair<std::string, std::string>>;

/// What the texts find, and how many of them find nothing, which is reported.
std::pair<Places, std::size_t> searched(const std::vector<std::string>& texts, const InstrumentNames& names) {
    std::pair<Places, std::size_t> result;
    for (const std::string& text : texts) {
        const std::vector<Question> found = names.search(text);
        for (const Question& each : found) {
            result.first.emplace(each.market, each.code);
        }
        if (found.empty()) {
            ++result.second;
            reportProblem(names.problem(text, false));
        }
    }
    return result;
}

Listed byMarketAndCode(const standalone::Market& market) {
    Listed all;
    for (const ListedInstrument& each : market.instruments) {
        all.push_back(&each);
    }
    std::sort(all.begin(), all.end(), [](const auto* one, const auto* other) { return placeOf(one) < placeOf(other); });
    return all;
}

ExitStatus instruments(Program& program, const InstrumentsArguments& arguments) {
    Session& session = program.open();
    const std::vector<std::string> markets = knownMarkets(arguments.markets, session.market());
    const auto [places, problems] = searched(arguments.texts, session.instruments());
    Listed wanted = byMarketAndCode(session.market());
    const auto isUnwanted = [&, &found = places](const ListedInstrument* each) {
        return !isAmong(markets, each->record->market) || (!arguments.texts.empty() && found.count(placeOf(each)) == 0);
    };
    wanted.erase(std::remove_if(wanted.begin(), wanted.end(), isUnwanted), wanted.end());
    if (wanted.empty() && problems == 0) {
        throw Failure(kNoAnswer, "none of the instruments found is in a market that is asked for");
    }
    if (wanted.empty() && program.format != Format::kJson) {
        return kNoAnswer;
    }
    const InstrumentFields fields = instrumentFields();
    program.answer(session, {sectionOf("", fields, "Instruments")}, [&](RowSink& sink) {
        for (const ListedInstrument* each : wanted) {
            sink.row(rowOf(fields, {*each, session.market()}));
        }
        return Remarks();
    });
    return problems == 0 ? kAnswered : kNoAnswer;
}

}  // namespace

void addInstruments(CLI::App& app, Program& program) {
    CLI::App* command = app.add_subcommand("instruments", "Instruments by code or name");
    InstrumentsArguments& arguments = argumentsOf(*command, program, instruments);
    command
        ->add_option("TEXT", arguments.texts,
                     "Written as for `fee`, or a part of a code or\nname; all instruments without")
        ->type_name("");
    addOnlyMarket(*command, arguments.markets);
    addFormatOptions(*command, program);
}

}  // namespace feedesk
