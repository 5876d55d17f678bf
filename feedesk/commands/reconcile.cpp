#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "feedesk/commands/cause_sentences.h"
#include "feedesk/commands/commands.h"
#include "feedesk/commands/fee_answer.h"
#include "feedesk/commands/options.h"
#include "feedesk/commands/reconcile_answer.h"
#include "feedesk/commands/reconcile_notes.h"
#include "feedesk/commands/statement_file.h"
#include "feedesk/reconciling/proven_proposals.h"
#include "feedesk/session/overwriting.h"
#include "feedesk/statements/encoding.h"
#include "feedesk/terminal/interruption.h"
#include "feedesk/text/numbers.h"
#include "feedesk/text/text.h"
#include "standalone/text/shell_word.h"

namespace feedesk {
namespace {

using Outcome = ReconciledOrder::Outcome;

struct ReconcileArguments {
    std::string account;
    StatementFile statement;
    std::string patch;
    bool differing = false;
};

std::string sumText(const Reconciliation& found) {
    const auto part = [&](Outcome outcome, const char* one, const char* many) {
        const std::size_t count = found.count(outcome);
        return count == 0 ? "" : fmt::format(", {} {}", grouped(count), count == 1 ? one : many);
    };
    const std::string parts = part(Outcome::kAgrees, "agrees to the fen", "agree to the fen") +
                              part(Outcome::kDiffers, "differs", "differ") +
                              part(Outcome::kNotCharged, "has no answer", "have no answer");
    return counted(found.orders.size(), "trade") + ": " + parts.substr(2);
}

void writePatch(const std::string& path, const std::string& patch) {
    const InterruptionHeld held;  // so that the file is written whole or not at all
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    if (!(file << patch << std::flush)) {
        throw Failure(kBadInput, fmt::format("{} cannot be written: {}", pathText(path), std::strerror(errno)));
    }
}

std::string patchNote(const ReconcileArguments& arguments, const Proposals& proposals, const std::string& folder) {
    if (proposals.patch.empty()) {
        return arguments.patch.empty()
                   ? ""
                   : fmt::format("there is no change to propose; {} is not written{}", pathText(arguments.patch),
                                 std::filesystem::exists(arguments.patch)
                                     ? ", and what the file holds is of before and not of this statement"
                                     : "");
    }
    return arguments.patch.empty() ? "--patch FILE writes the lines of the folder with the other rate, as a patch"
                                   : fmt::format("to change the folder so: patch -p1 -d {} <{}",
                                                 standalone::shellWord(folder), standalone::shellWord(arguments.patch));
}

/// What is read is not written over.
void refuseOverwriting(const ReconcileArguments& arguments, const Program& program) {
    for (const std::string& target : {arguments.patch, program.file}) {
        refuseToOverwrite(target, arguments.statement.path, "the statement");
        refuseToOverwrite(target, arguments.statement.layout, "the layout");
        refuseToWriteInto(program.session.folder, target);
    }
    if (arguments.patch == "-") {
        throw Failure(kBadInput, "a patch does not go to standard output, where the answer is; name a file");
    }
    if (isSameFile(arguments.patch, program.file)) {
        throw Failure(kBadInput, "--patch and --xlsx name the same file; name two");
    }
}

ExitStatus reconcileStatement(Program& program, const ReconcileArguments& arguments) {
    if (program.session.date) {
        throw Failure(kBadInput, "--date does not go with reconcile, as each line of a statement has its date");
    }
    refuseOverwriting(arguments, program);
    Session& session = program.open();
    const standalone::Account& account = session.account(arguments.account);
    const Statement statement = readStatement(arguments.statement, session.layouts());
    refuseUnknownCharges(statement.layout, session.folder());
    const Reconciliation found = Reconciler(session, arguments.account).reconcile(statement);
    const Proposals proposals = provenProposals(found, statement, arguments.account, program.session.folder);
    if (!arguments.patch.empty() && !proposals.patch.empty()) {
        writePatch(arguments.patch, proposals.patch);
    }
    const ReconcileAnswer wanted{found, statement, proposals.lines, arguments.differing};
    const Sections sections = sectionsOf(wanted, program.format);
    program.answer(session, sections, [&](RowSink& sink) {
        giveRows(wanted, sections, sink);
        Remarks remarks;
        remarks.heading = accountHeading(account) + ", " + statement.layout.title;
        remarks.footing = causeSentences(found, statement);
        remarks.footing.insert(remarks.footing.begin(), sumText(found));
        for (const std::string& note : {signsNote(statement), passedOverNote(statement), repeatedNote(statement),
                                        patchNote(arguments, proposals, program.session.folder), proposals.condition}) {
            if (!note.empty()) {
                remarks.notes.push_back(note);
            }
        }
        remarks.notes.insert(remarks.notes.end(), proposals.withheld.begin(), proposals.withheld.end());
        return remarks;
    });
    return found.agrees() ? kAnswered : kNoAnswer;
}

std::string whyNoEncoding(const std::string& text) {
    return encodingFrom(text) ? "" : fmt::format("{} is neither utf-8 nor gb18030", echoed(text));
}

}  // namespace

void addReconcile(CLI::App& app, Program& program) {
    CLI::App* command = app.add_subcommand("reconcile", "Compare a broker's statement with the folder");
    ReconcileArguments& arguments = argumentsOf(*command, program, reconcileStatement);
    command->add_option("ACCOUNT", arguments.account, "Number of the account")->required()->type_name("");
    command
        ->add_option("STATEMENT", arguments.statement.path,
                     "The broker's statement, commas or tabs between\ncells; - is standard input")
        ->required()
        ->type_name("");
    command
        ->add_option("--layout", arguments.statement.layout,
                     "How the statement is laid out: a name of the\nfolder's layouts/, or a file (else by header)")
        ->type_name("LAYOUT");
    program.choices[command
                        ->add_option("--encoding", arguments.statement.encoding,
                                     "utf-8 or gb18030 (else what the bytes are)")
                        ->check(CLI::Validator(whyNoEncoding, ""))
                        ->type_name("E")] = {{"utf-8", "gb18030"}};
    command->add_flag("--differing", arguments.differing, "Only the trades that do not agree");
    command->add_option("--patch", arguments.patch, "Write the proposed change of the folder here")->type_name("FILE");
    addFormatOptions(*command, program);
}

}  // namespace feedesk
