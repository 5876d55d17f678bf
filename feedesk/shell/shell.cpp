#include "feedesk/shell/shell.h"

#include <fmt/format.h>
#include <stdio.h>  // NOLINT(modernize-deprecated-headers): getline

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <utility>

#include "feedesk/command_line.h"
#include "feedesk/shell/history_file.h"
#include "feedesk/shell/line_words.h"
#include "feedesk/terminal/messages.h"
#include "feedesk/terminal/pager.h"
#include "feedesk/terminal/terminal.h"
#include "feedesk/text/text.h"
#include "standalone/text/utf8.h"

namespace feedesk {
namespace {

constexpr const char* kPrompt = "feedesk> ";
constexpr const char* kProgramName = "feedesk";

/// The next line of standard input. It is read through the C library, so that a command of the line may read what
/// follows.
std::optional<std::string> inputLine() {
    char* text = nullptr;
    std::size_t room = 0;
    const ssize_t length = getline(&text, &room, stdin);
    std::optional<std::string> line;
    if (length >= 0) {
        line.emplace(text, static_cast<std::size_t>(length));
    }
    std::free(text);  // NOLINT(cppcoreguidelines-no-malloc): getline's
    while (line && !line->empty() && (line->back() == '\n' || line->back() == '\r')) {
        line->pop_back();
    }
    return line;
}

/// A line that is copied from elsewhere may begin with the program's name.
std::vector<std::string> withoutProgram(std::vector<std::string> words) {
    if (!words.empty() && words.front() == kProgramName) {
        words.erase(words.begin());
    }
    return words;
}

/// What all of them begin with, in whole characters.
std::string commonBeginning(const std::vector<std::string>& texts) {
    std::size_t length = texts.front().size();
    for (const std::string& text : texts) {
        const auto end = texts.front().begin() + static_cast<std::ptrdiff_t>(std::min(length, text.size()));
        length = static_cast<std::size_t>(std::mismatch(texts.front().begin(), end, text.begin()).first -
                                          texts.front().begin());
    }
    while (length > 0 && length < texts.front().size() && standalone::isContinuation(texts.front()[length])) {
        --length;
    }
    return texts.front().substr(0, length);
}

}  // namespace

Shell::Shell(const Program& program) : options(program.session), summary(program.summary) { reload(); }

Shell::~Shell() = default;

/// What is loaded goes on answering where the folder breaks, layouts of statements too.
void Shell::reload() {
    auto anew = std::make_shared<Session>(options);
    anew->layouts();
    loaded = std::move(anew);
}

Program Shell::lineProgram() {
    Program program;
    program.session = options;
    program.summary = summary;
    program.opened = loaded;
    program.shell = this;
    return program;
}

ExitStatus Shell::run(const std::string& line) {
    const LineWords cut = lineWords(line);
    if (cut.openQuote != '\0') {
        reportProblem(cut.openQuote == '\\' ? "the line ends with a backslash; write what follows it, or none"
                                            : fmt::format("the quote {} is not closed; close it, or write \\{}",
                                                          cut.openQuote, cut.openQuote),
                      kBadInput);
        return kBadInput;
    }
    const std::vector<std::string> words = withoutProgram(cut.words);
    if (words.empty()) {
        return kAnswered;
    }
    const bool paged = pagerIsUsed();
    Program program = lineProgram();
    const ExitStatus status = runCommand(words, program);
    usePager(paged);
    return status;
}

ExitStatus Shell::runTerminal() {
    HistoryFile history(HistoryFile::usualPath());
    LineEditor editor(kPrompt, [this](const std::string& before) { return completed(before); });
    for (const std::string& line : history.read()) {
        editor.remember(line);
    }
    writeText(filledText(
        fmt::format("feedesk on {}; `help` lists the commands, `exit` or Ctrl-D ends.", pathText(options.folder)),
        outputWidth()));
    while (!isOver) {
        const std::optional<std::string> line = editor.read();
        if (!line) {
            writeText("\n");
            break;
        }
        if (!lineWords(*line).words.empty()) {
            editor.remember(*line);
            history.add(*line);
        }
        run(*line);
    }
    return kAnswered;
}

ExitStatus Shell::runInput() {
    ExitStatus worst = kAnswered;
    for (std::size_t number = 1; !isOver; ++number) {
        const std::optional<std::string> line = inputLine();
        if (!line) {
            break;
        }
        const ExitStatus status = run(*line);
        if (status != kAnswered) {
            reportProblem(InputLine{"standard input", number},
                          status == kNoAnswer ? "this line has no answer, or not all of it" : "this line is wrong",
                          status);
        }
        worst = std::max(worst, status);
    }
    return worst;
}

LineCompletion Shell::completed(const std::string& before) {
    LineWords cut = lineWords(before);
    const std::size_t begin = cut.endsBetween ? before.size() : cut.lastBegin;
    if (cut.endsBetween) {
        cut.words.emplace_back();
    }
    const std::vector<std::string> words =
        cut.words.size() > 1 ? withoutProgram(std::move(cut.words)) : std::move(cut.words);
    Program program = lineProgram();
    LineCompletion found;
    const FolderWords folderWords = {[this](const auto& /*words*/) { return loaded->market(); },
                                     [this](const auto& /*words*/) { return loaded->layouts().names(); }};
    found.choices = completionsFor(words, program, folderWords);
    found.replaced = standalone::characters(before.substr(begin));
    if (found.choices.size() == 1) {
        const std::string& only = found.choices.front();
        found.text = quotedWord(only) + (only.back() == ':' ? "" : " ");
    } else if (!found.choices.empty()) {
        const std::string common = commonBeginning(found.choices);
        found.text = common.size() > words.back().size() ? quotedBeginning(common) : "";
    }
    return found;
}

}  // namespace feedesk
