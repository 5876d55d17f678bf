#ifndef FEEDESK_SHELL_LINE_EDITOR_H
#define FEEDESK_SHELL_LINE_EDITOR_H

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "feedesk/terminal/interruption.h"

namespace feedesk {

/// What may go on behind what is written.
struct LineCompletion {
    std::size_t replaced = 0;          ///< characters in front of the cursor that give way to `text`
    std::string text;                  ///< what all choices have in common, as it is written in a line
    std::vector<std::string> choices;  ///< none: there is nothing to complete
};

/// Reads lines from a terminal, with editing, history and completion. One at a time in a process.
class LineEditor {
public:
    /// Gives what completes the text in front of the cursor.
    using Complete = std::function<LineCompletion(const std::string&)>;

    LineEditor(std::string usedPrompt, Complete usedComplete);
    LineEditor(const LineEditor&) = delete;
    LineEditor& operator=(const LineEditor&) = delete;
    ~LineEditor();

    /// The next line, without its end; nothing at Ctrl-D on an empty line. Ctrl-C gives an empty one.
    std::optional<std::string> read();

    /// From here on the line is found again.
    void remember(const std::string& line);

private:
    struct Handles;

    TerminalRestoredWhenInterrupted settings;  // first: the library changes them
    std::string prompt;
    Complete complete;
    std::unique_ptr<Handles> handles;
};

}  // namespace feedesk

#endif  // FEEDESK_SHELL_LINE_EDITOR_H
