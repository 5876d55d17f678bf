#ifndef FEEDESK_PROGRAM_H
#define FEEDESK_PROGRAM_H

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "feedesk/completing/expected_word.h"
#include "feedesk/failure.h"
#include "feedesk/rows/rows.h"
#include "feedesk/session/session.h"

namespace feedesk {

/// How an answer is written.
enum class Format { kTable, kJson, kJsonLines, kCsv, kCsvWithMark, kXlsx };

/// What people read with an answer's rows.
struct Remarks {
    std::string heading;                 ///< above the tables; not with JSON and CSV
    std::vector<std::string> notes;      ///< below the tables, or on standard error with JSON and CSV
    std::string warning;                 ///< the last of the notes, coloured
    std::vector<std::string> footing{};  ///< sums right below the tables; not with JSON and CSV
};

class Shell;

/// What the command line asks for, and what the commands share. One command answers from it.
struct Program {
    SessionOptions session;
    bool summary = false;
    Format format = Format::kTable;
    std::string file;     ///< of the spreadsheet; the other forms go to standard output
    bool strict = false;  ///< whether a marked answer counts as none
    std::function<ExitStatus()>
        command;  ///< what to do once the whole command line is read; set by the one that is named
    bool hasAnswered = false;
    std::shared_ptr<Session> opened;  ///< by open(), or by the shell
    Shell* shell = nullptr;           ///< of which this is a line; null outside
    Choices choices{};                ///< the words that options and arguments take, for completion

    /// The market folder that the command line names, asked as of the day that it names: loaded now or, in a shell, the
    /// shell's. Throws what the session throws, and where the answer would be written into the folder.
    Session& open();

    /// Answers on standard output in the form that the command line asks for. `giveRows` gives every row to the sink,
    /// one after another; when it throws, what it has given is answered. The session's summary, when it is asked for,
    /// comes last below a table and on standard error with JSON and CSV, so that programs can read the answer.
    void answer(const Session& asked, const Sections& sections, const std::function<Remarks(RowSink&)>& giveRows);
    /// The same without a session: `sessionSummary` is the line that is written.
    void answer(const std::function<std::string()>& sessionSummary, const Sections& sections,
                const std::function<Remarks(RowSink&)>& giveRows);
    /// The same for an answer that needs no market folder and has no summary.
    void answer(const Sections& sections, const std::function<Remarks(RowSink&)>& giveRows);
};

/// Reads the command line, answers and reports what went wrong; the program's exit status.
int run(int argc, const char* const* argv);

}  // namespace feedesk

#endif  // FEEDESK_PROGRAM_H
