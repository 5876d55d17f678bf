#ifndef TESTS_FEEDESK_SUPPORT_TMUX_H
#define TESTS_FEEDESK_SUPPORT_TMUX_H

#include <filesystem>
#include <string>

namespace feedesk::test {

/// A command of the shell in a terminal of tmux, 100 columns wide and 40 lines tall, with a home folder of its own. It
/// is ended when the object is.
class Tmux {
public:
    /// The command may name $STATUS, a file for what it leaves behind.
    explicit Tmux(const std::string& command);
    Tmux(const Tmux&) = delete;
    Tmux& operator=(const Tmux&) = delete;
    ~Tmux();

    /// Presses keys by tmux's names, such as Enter, Tab, C-c.
    void press(const std::string& keys) const;
    void type(const std::string& text) const;

    /// What the terminal shows once `text` is in it, or, after half a minute, without it.
    [[nodiscard]] std::string shownWith(const std::string& text) const;
    /// The same once a line ends with `text`, blanks not counted.
    [[nodiscard]] std::string shownWithLineEnd(const std::string& text) const;

    /// The content of $STATUS once it is there, or, after half a minute, nothing.
    [[nodiscard]] std::string status() const;

    [[nodiscard]] std::string home() const { return directory.string(); }

private:
    std::string run(const std::string& arguments) const;

    std::filesystem::path directory;
};

}  // namespace feedesk::test

#endif  // TESTS_FEEDESK_SUPPORT_TMUX_H
