#include "feedesk/shell/line_editor.h"

#include <fmt/format.h>
#include <histedit.h>

#include <algorithm>
#include <clocale>
#include <cstdio>
#include <utility>

#include "feedesk/failure.h"
#include "feedesk/shell/history_file.h"
#include "feedesk/terminal/terminal.h"
#include "feedesk/text/text.h"

namespace feedesk {
namespace {

constexpr std::size_t kMostChoices = 100;

}  // namespace

struct LineEditor::Handles {
    EditLine* line = nullptr;
    History* history = nullptr;
    HistEvent event{};
    bool isCleared = false;  // by Ctrl-C

    static LineEditor& editorOf(EditLine* line) {
        void* editor = nullptr;
        el_get(line, EL_CLIENTDATA, &editor);
        return *static_cast<LineEditor*>(editor);
    }

    static char* promptOf(EditLine* line) { return editorOf(line).prompt.data(); }

    static unsigned char clear(EditLine* line, int /*key*/) {
        editorOf(line).handles->isCleared = true;
        el_push(line, "\n");  // as if Enter were the next key: what is written stays to be seen
        return CC_NORM;
    }

    static unsigned char completeWord(EditLine* line, int /*key*/) {
        const LineInfo* info = el_line(line);
        const LineCompletion found = editorOf(line).complete(std::string(info->buffer, info->cursor));
        if (found.choices.empty()) {
            return CC_REFRESH_BEEP;
        }
        if (!found.text.empty()) {
            el_deletestr(line, static_cast<int>(found.replaced));
            el_insertstr(line, found.text.c_str());
            return CC_REFRESH;
        }
        show(found.choices);
        return CC_REDISPLAY;
    }

    static void show(const std::vector<std::string>& choices) {
        std::vector<std::string> shown(
            choices.begin(), choices.begin() + static_cast<std::ptrdiff_t>(std::min(choices.size(), kMostChoices)));
        if (shown.size() < choices.size()) {
            shown.push_back(fmt::format("and {} more", choices.size() - shown.size()));
        }
        writeText(fmt::format("\n{}\n", fmt::join(fillLines(shown, outputWidth()), "\n")));
    }
};

LineEditor::LineEditor(std::string usedPrompt, Complete usedComplete)
    : prompt(std::move(usedPrompt)), complete(std::move(usedComplete)), handles(std::make_unique<Handles>()) {
    // What is read and shown is UTF-8, whatever the environment says.
    std::setlocale(LC_CTYPE, "C.UTF-8");
    handles->line = el_init("feedesk", stdin, stdout, stderr);
    handles->history = history_init();
    if (handles->line == nullptr || handles->history == nullptr) {
        throw Failure(kBadInput, "this terminal cannot be read line by line");
    }
    history(handles->history, &handles->event, H_SETSIZE, static_cast<int>(HistoryFile::kMostLines));
    history(handles->history, &handles->event, H_SETUNIQUE, 1);
    EditLine* const line = handles->line;
    el_set(line, EL_CLIENTDATA, this);
    el_set(line, EL_PROMPT, Handles::promptOf);
    el_set(line, EL_EDITOR, "emacs");
    el_set(line, EL_HIST, history, handles->history);
    // Of narrow texts the library keeps copies that it never frees.
    el_wset(line, EL_ADDFN, L"feedesk-complete", L"Completes the word", Handles::completeWord);
    el_wset(line, EL_ADDFN, L"feedesk-clear", L"Clears the line", Handles::clear);
    el_set(line, EL_BIND, "^I", "feedesk-complete", nullptr);
    el_set(line, EL_BIND, "^R", "em-inc-search-prev", nullptr);
    // While a line is written Ctrl-C is a key like any other, and no signal.
    el_set(line, EL_SETTY, "-d", "-isig", nullptr);
    el_set(line, EL_BIND, "^C", "feedesk-clear", nullptr);
    el_source(line, nullptr);
}

LineEditor::~LineEditor() {
    if (handles->history != nullptr) {
        history_end(handles->history);
    }
    if (handles->line != nullptr) {
        el_end(handles->line);
    }
}

std::optional<std::string> LineEditor::read() {
    std::clearerr(stdin);  // a list that was read from the terminal ended with Ctrl-D too
    el_resize(handles->line);
    handles->isCleared = false;
    int length = 0;
    const char* const text = el_gets(handles->line, &length);
    if (handles->isCleared) {
        return "";
    }
    if (text == nullptr || length <= 0) {
        return std::nullopt;
    }
    std::string line(text, static_cast<std::size_t>(length));
    while (!line.empty() && (line.back() == '\n' || line.back() == '\r')) {
        line.pop_back();
    }
    return line;
}

void LineEditor::remember(const std::string& line) {
    history(handles->history, &handles->event, H_ENTER, line.c_str());
}

}  // namespace feedesk
