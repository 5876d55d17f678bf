#ifndef FEEDESK_SHELL_HISTORY_FILE_H
#define FEEDESK_SHELL_HISTORY_FILE_H

#include <cstddef>
#include <string>
#include <vector>

namespace feedesk {

/// The lines of earlier shells, in a file that its owner alone may read. Each line is added when it is given, so that
/// shells that run side by side keep each other's. Where they cannot be kept a note says so, and nothing else happens.
class HistoryFile {
public:
    /// So many lines are read; a file with twice as many is cut to them.
    static constexpr std::size_t kMostLines = 1000;

    /// `feedesk/history` in the environment's XDG_STATE_HOME, else in ~/.local/state; empty where neither is there.
    static std::string usualPath();

    /// An empty path keeps nothing.
    explicit HistoryFile(std::string usedPath) : path(std::move(usedPath)) {}

    /// The newest lines, the oldest of them first. Makes the file's folder.
    std::vector<std::string> read();
    void add(const std::string& line);

private:
    void tellOnce(const std::string& problem);

    std::string path;
};

}  // namespace feedesk

#endif  // FEEDESK_SHELL_HISTORY_FILE_H
