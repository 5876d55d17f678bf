#ifndef FEEDESK_TRADES_TEXT_LINES_H
#define FEEDESK_TRADES_TEXT_LINES_H

#include <cstddef>
#include <cstdio>
#include <memory>
#include <string>

namespace feedesk {

/// The lines of a file or of standard input, one by one: no more than one is held. One thread.
class TextLines {
public:
    /// "-" is standard input. `again`: the lines are read more than once; what cannot be read again, such as a pipe, is
    /// copied to a temporary file. Throws Failure when it cannot be opened or copied.
    TextLines(const std::string& path, bool again);

    /// Goes to the next line, without its line end, which may be CRLF; false at the end. A byte order mark at the
    /// beginning is passed over. Throws Failure when it cannot be read, and for a line that is too long to be one.
    bool next();

    [[nodiscard]] const std::string& line() const { return text; }
    [[nodiscard]] std::size_t number() const { return lineNumber; }  ///< of the line, from 1
    [[nodiscard]] const std::string& name() const { return title; }  ///< of the file, for messages

    /// Begins again with the first line.
    void restart();

private:
    struct Close {
        void operator()(std::FILE* opened) const { std::fclose(opened); }
    };

    void copyToTemporary();
    bool fill();

    std::string title;
    std::unique_ptr<std::FILE, Close> file;
    std::string block;  // read and not yet handed on, from `taken`
    std::size_t taken = 0;
    std::string text;
    std::size_t lineNumber = 0;
};

}  // namespace feedesk

#endif  // FEEDESK_TRADES_TEXT_LINES_H
