#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <cstdlib>
#include <utility>

#include "feedesk/commands/commands.h"
#include "feedesk/commands/differences.h"
#include "feedesk/commands/options.h"
#include "feedesk/comparing/change_list.h"
#include "feedesk/comparing/compared_days.h"
#include "feedesk/comparing/instrument_groups.h"
#include "feedesk/program.h"
#include "feedesk/session/folder_loading.h"
#include "feedesk/session/overwriting.h"
#include "feedesk/session/running_engine.h"
#include "feedesk/session/usual_folder.h"
#include "feedesk/terminal/messages.h"
#include "feedesk/terminal/terminal.h"
#include "feedesk/text/numbers.h"
#include "feedesk/text/text.h"
#include "feedesk/timing/wall_time.h"

namespace feedesk {
namespace {

struct DiffArguments {
    std::string before;
    std::string after;
    cost::DateRange days;
    std::string trades;  ///< empty: none
    bool expectNone = false;
    std::vector<std::string> expectOnly;
};

constexpr const char* kHowToName = "; `feedesk diff A B` compares two of them";

/// The environment may name a folder for the other commands, and a shell has one for its other lines; the command line
/// of diff may name none.
bool namesAnotherFolder(const Program& program) {
    const char* const usual = std::getenv("FEEDESK_MARKET");
    return program.shell == nullptr && program.session.folder != (usual == nullptr ? usualFolder() : usual);
}

void refuseContradictions(const Program& program, const DiffArguments& arguments) {
    if (namesAnotherFolder(program)) {
        throw Failure(kBadInput, "diff compares the two folders that it names; leave --market out");
    }
    if (program.session.date && (arguments.days.from || arguments.days.until)) {
        throw Failure(kBadInput, "--date compares one day, and --from and --until several; use one or the other");
    }
}

std::vector<std::string> allAccounts(const ComparedFolder& before, const ComparedFolder& after) {
    std::vector<std::string> ids;
    for (const ComparedFolder* folder : {&before, &after}) {
        for (const standalone::Account& account : folder->accounts()) {
            ids.push_back(account.record->accountId);
        }
    }
    return ids;
}

/// A name that is misspelt would expect nothing.
Expectation expectationOf(const DiffArguments& arguments, const ComparedFolder& before, const ComparedFolder& after) {
    Expectation expectation(arguments.expectNone, arguments.expectOnly);
    const std::vector<std::string> unknown = expectation.unknown(allAccounts(before, after));
    if (!unknown.empty()) {
        throw Failure(kBadInput,
                      fmt::format("--expect-only: neither folder has an account {}", echoed(unknown.front())));
    }
    return expectation;
}

/// One folder after the other: each has the engine and the services to itself.
std::vector<AccountCosts> costsOf(const Program& program, const DiffArguments& arguments, TradesOfFile trades) {
    SessionOptions before = program.session;
    SessionOptions after = program.session;
    before.folder = arguments.before;
    after.folder = arguments.after;
    return compareCosts(before, after, std::move(trades));
}

std::vector<Change> changesOf(const Program& program, const ComparedFolder& before, Comparison& comparison,
                              const cost::DateRange& days) {
    const int threads = program.session.threads;
    const RunningEngine engine(threads == 0 ? before.folder().everyDay().engineThreads : threads);
    const Progress progress("comparing answers");
    return comparison.changesOn(days);
}

std::string headingOf(const Differences& differences, const DiffArguments& arguments, const cost::DateRange& days) {
    return fmt::format("{} {}: {} and {}", differences.areNone() ? "The same answers" : "Differences",
                       days.from == days.until ? "on " + days.from->text() : days.text(), arguments.before,
                       arguments.after);
}

/// The rows refer to the changes and the terms.
Differences differencesOf(const std::vector<Change>& changes, const TermDifferences& terms,
                          const ComparedFolder& before, const Comparison& comparison, const cost::DateRange& days) {
    Differences differences;
    for (const Change& change : changes) {
        differences.changes.push_back(changeRow(change, before, comparison, days));
    }
    for (const TermChange& change : terms.changed) {
        differences.terms.push_back(termRow(change, days));
    }
    differences.apart = apartRows(comparison.namesApart());
    for (ApartRow& row : apartRows(terms)) {
        differences.apart.push_back(std::move(row));
    }
    return differences;
}

void addUnmet(std::vector<std::string>& notes, const Expectation& expectation) {
    if (!expectation.unmet().empty()) {
        notes.push_back(
            fmt::format("--expect-only names {}, and nothing changes there", firstFew(expectation.unmet())));
    }
}

/// Reports what was not expected; the exit status that follows.
ExitStatus statusOf(const Expectation& expectation) {
    const std::string problem = expectation.problem();
    if (!problem.empty()) {
        reportProblem(problem);
    }
    return problem.empty() ? kAnswered : kNoAnswer;
}

ExitStatus diff(Program& program, const DiffArguments& arguments) {
    refuseContradictions(program, arguments);
    for (const std::string& folder : {arguments.before, arguments.after}) {
        refuseToWriteInto(folder, program.file);
    }
    refuseToOverwrite(program.file, arguments.trades, "the file of the trades");
    // A file that cannot be read is refused before thousands of accounts are compared.
    TradesOfFile trades = arguments.trades.empty() ? TradesOfFile() : readTrades(arguments.trades);
    const InPart comparing("comparing");
    standalone::ContentNumbers numbers;
    ComparedFolder before(loadedFolder(arguments.before, kHowToName), numbers);
    ComparedFolder after(loadedFolder(arguments.after, kHowToName), numbers);
    const std::optional<cost::Date>& day = program.session.date;
    const cost::DateRange asked = day ? cost::DateRange{day, day} : arguments.days;
    const cost::DateRange days = comparedDays(asked, before, after);
    Expectation expectation = expectationOf(arguments, before, after);
    Comparison comparison(before, after);
    const bool forPeople = program.format == Format::kTable;
    const std::vector<Change> exact = changesOf(program, before, comparison, days);
    const std::vector<Change> changes = forPeople ? joinedWhereTheyOverlap(exact) : exact;

    const TermDifferences terms = compareTerms(before.folder().schedule(), after.folder().schedule(), days);

    Differences differences = differencesOf(changes, terms, before, comparison, days);
    differences.forPeople = forPeople;
    differences.withCosts = !arguments.trades.empty();
    for (CoverageLoss& loss : lostCoverage(before, after, asked)) {
        differences.coverage.push_back({std::move(loss), Judgement::kNone});
    }
    differences.judge(expectation);
    if (differences.withCosts) {
        differences.costs = costsOf(program, arguments, std::move(trades));
    }

    std::vector<std::string> notes = coverageNotes(before, after, days);
    for (const CoverageLoss& gain : lostCoverage(after, before, asked)) {
        notes.push_back(gain.sentence);
    }
    addUnmet(notes, expectation);
    const auto summary = [&] {
        return fmt::format(
            "compared {} and {}; fee centers were asked for {}", counted(before.accounts().size(), "account"),
            counted(comparison.instruments().size(), "instrument"), counted(comparison.askedAccounts(), "account"));
    };
    program.answer(summary, differences.sections(), [&](RowSink& sink) {
        differences.giveTo(sink);
        return Remarks{headingOf(differences, arguments, days), notes, "", differences.sums()};
    });
    return statusOf(expectation);
}

}  // namespace

void addDiff(CLI::App& app, Program& program) {
    CLI::App* command = app.add_subcommand("diff", "What changes between two market folders");
    DiffArguments& arguments = argumentsOf(*command, program, diff);
    command->add_option("A", arguments.before, "The market folder before")->required()->type_name("");
    command->add_option("B", arguments.after, "The market folder after")->required()->type_name("");
    addDayOption(*command, "--from", arguments.days.from, "Compare from this day on (else from the\nearlier as_of on)");
    addDayOption(*command, "--until", arguments.days.until,
                 "Compare up to this day (else all that\nboth cover); --date DAY compares one");
    command->add_option("--trades", arguments.trades, "What these trades cost by both folders")->type_name("FILE");
    CLI::Option* none = command->add_flag("--expect-none", arguments.expectNone, "Exit status 1 when anything changes");
    command
        ->add_option("--expect-only", arguments.expectOnly,
                     "Exit status 1 when anything changes but\nthese accounts; * is any text")
        ->type_name("ACCOUNT")
        ->option_text("ACCOUNT...")
        ->excludes(none);
    addFormatOptions(*command, program);
}

}  // namespace feedesk
