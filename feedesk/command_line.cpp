#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <exception>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "feedesk/command_line.h"
#include "feedesk/commands/commands.h"
#include "feedesk/commands/options.h"
#include "feedesk/program.h"
#include "feedesk/session/usual_folder.h"
#include "feedesk/terminal/messages.h"
#include "feedesk/terminal/pager.h"
#include "feedesk/terminal/terminal.h"
#include "feedesk/text/text.h"
#include "feedesk/timing/wall_time.h"
#include "feedesk/usage_problem.h"
#include "standalone/text/numbers.h"

namespace feedesk {
namespace {

constexpr const char* kAbout = "What trading costs an account: commission, fees and margins.";

constexpr const char* kExamples = R"(Examples:
  feedesk accounts
  feedesk accounts --levels                where each account's rates come from
  feedesk fee 1000001 SH:600519 贵州茅台
  feedesk fee 3000001 'SHFE:rb*' --json    a pattern needs quotes
  feedesk fee 1000001 - <instruments.txt   a list on standard input
  feedesk fees 1000001 --only-market SZ --match '30*' --csv
  feedesk fees --accounts '1*' --match 600519
  feedesk instruments 银行
  feedesk cost 1000001 SH:600519 buy 300@1488.50
  feedesk cost --trades trades.csv --totals account,day
  feedesk reconcile 1000005 statement.csv  why a broker charges another fee
  feedesk check --fail-on warning          faults that load but cost money
  feedesk fees 1000001 --strict            status 1 when a rate is only built in

Exit status: 0 answered, 1 the question has no answer, 2 bad usage or bad input.)";

constexpr int kMostThreads = 64;

/// Why the text is no number of threads; empty when it is one.
std::string threadsProblem(const std::string& text) {
    const std::optional<int> number = standalone::numberIn<int>(text);
    const bool good = number && *number >= 1 && *number <= kMostThreads;
    return good ? "" : fmt::format("{} is not a whole number from 1 to {}", echoed(text), kMostThreads);
}

/// What is loaded, and how.
void addLoadOptions(CLI::App& app, Program& program) {
    program.session.folder = usualFolder();
    app.add_option("--market", program.session.folder,
                   "Market folder (FEEDESK_MARKET; else ./market;\nelse the installed one)")
        ->envname("FEEDESK_MARKET")
        ->type_name("DIR")
        ->option_text("DIR");
    app.add_option("--threads", program.session.threads, "Threads of the engine, 1 to 64")
        ->check(CLI::Validator(threadsProblem, ""))
        ->type_name("N");
}

/// In a shell the folder is loaded already.
void refuseLoadOptions(CLI::App& app) {
    for (const std::string name : {"--market", "--threads"}) {
        app.add_option_function<std::string>(
               name,
               [name](const std::string& /*value*/) {
                   throw Failure(kBadInput, fmt::format("a shell keeps what it was started with; {} goes before "
                                                        "`shell`: feedesk {} ... shell",
                                                        name, name));
               })
            ->group("");
    }
}

void describe(CLI::App& app, Program& program) {
    app.name("feedesk");
    app.set_version_flag("-V,--version", "feedesk " FEEDESK_VERSION, "Print the version and exit");
    app.footer(kExamples);
    app.get_formatter()->column_width(26);
    app.require_subcommand(1);
    app.fallthrough();
    program.shell == nullptr ? addLoadOptions(app, program) : refuseLoadOptions(app);
    addDayOption(app, "--date", program.session.date,
                 "Ask as of this day, such as 2023-08-28\n(else the folder's as_of; else today)");
    app.add_flag("--summary", program.summary, "Tell what was loaded and what took the time");
    app.add_flag_callback(
        "--no-pager", [] { usePager(false); }, "Show long answers without a pager (PAGER; else less)");
    for (AddCommand* const add : kCommands) {
        add(app, program);
    }
    if (program.shell == nullptr) {
        std::for_each(kCommandsOutside.begin(), kCommandsOutside.end(), [&](AddCommand* add) { add(app, program); });
    } else {
        std::for_each(kCommandsOfShell.begin(), kCommandsOfShell.end(), [&](AddCommand* add) { add(app, program); });
    }
    for (CLI::App* command : app.get_subcommands({})) {
        command->footer("feedesk --help says more: the market folder, examples, exit status.");
    }
}

/// Help and version are answers; everything else that ends the reading of a command line is bad usage.
ExitStatus usage(const CLI::App& app, const CLI::ParseError& error) {
    std::ostringstream answer;
    std::ostringstream ignored;
    if (app.exit(error, answer, ignored) == 0) {
        writeText(answer.str());
        return kAnswered;
    }
    throw Failure(kBadInput, usageProblem(app, error));
}

ExitStatus answerCommandLine(const std::vector<std::string>& words, Program& program) {
    CLI::App app(kAbout);
    describe(app, program);
    try {
        app.parse(std::vector<std::string>(words.rbegin(), words.rend()));
    } catch (const CLI::ParseError& error) {
        return usage(app, error);
    }
    return program.command();
}

/// Whether --json is among the words, even of a command line that is wrong.
bool asksForJson(const std::vector<std::string>& words) {
    const auto end = std::find(words.begin(), words.end(), "--");
    return std::find(words.begin(), end, "--json") != end;
}

/// Says why there is no answer, or no more of it. A program that asked for JSON and has read nothing yet reads an
/// empty list.
ExitStatus withoutAnswer(const std::string& sentence, ExitStatus status, bool readsNothing) {
    reportProblem(sentence, status);
    if (!readsNothing) {
        return status;
    }
    try {
        writeData("[]\n");
    } catch (const Failure& unwritten) {
        reportProblem(unwritten.what(), unwritten.status());
        return unwritten.status();
    }
    return status;
}

}  // namespace

ExitStatus runCommand(const std::vector<std::string>& words, Program& program) {
    wallTime().restart();
    const bool json = asksForJson(words);
    setMessageForm(json ? MessageForm::kObjects : MessageForm::kSentences);
    const auto readsNothing = [&] { return json && !program.hasAnswered && program.format != Format::kJsonLines; };
    try {
        return answerCommandLine(words, program);
    } catch (const Failure& failure) {
        return withoutAnswer(failure.what(), failure.status(), readsNothing());
    } catch (const std::exception& error) {
        return withoutAnswer(error.what(), kBadInput, readsNothing());
    }
}

std::vector<std::string> completionsFor(const std::vector<std::string>& words, Program& program,
                                        const FolderWords& folderWords) {
    CLI::App app(kAbout);
    describe(app, program);
    return completions(app, program.choices, words, folderWords);
}

int run(int argc, const char* const* argv) {
    Program program;
    return runCommand(std::vector<std::string>(argv + std::min(argc, 1), argv + argc), program);
}

}  // namespace feedesk
