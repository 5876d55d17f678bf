#include "feedesk/shell/history_file.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>

#include "feedesk/terminal/messages.h"
#include "feedesk/text/text.h"

namespace feedesk {
namespace {

constexpr mode_t kOwnerAlone = S_IRUSR | S_IWUSR;

std::string environment(const char* variable) {
    const char* value = std::getenv(variable);
    return value == nullptr ? "" : value;
}

/// Writes a text to a file that its owner alone may read from then on; whether it could.
bool write(const std::string& file, int how, const std::string& text) {
    const int opened = open(file.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | how, kOwnerAlone);
    if (opened < 0) {
        return false;
    }
    const bool written = fchmod(opened, kOwnerAlone) == 0 &&
                         ::write(opened, text.data(), text.size()) == static_cast<ssize_t>(text.size());
    return close(opened) == 0 && written;
}

}  // namespace

std::string HistoryFile::usualPath() {
    const std::string state = environment("XDG_STATE_HOME");
    const std::string home = environment("HOME");
    if (state.empty() && home.empty()) {
        return "";
    }
    return (state.empty() ? home + "/.local/state" : state) + "/feedesk/history";
}

std::vector<std::string> HistoryFile::read() {
    std::vector<std::string> lines;
    std::error_code failed;
    std::filesystem::create_directories(std::filesystem::path(path).parent_path(), failed);
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);) {
        lines.push_back(line);
    }
    if (lines.size() <= kMostLines) {
        return lines;
    }
    const bool isLong = lines.size() > 2 * kMostLines;
    lines.erase(lines.begin(), lines.end() - static_cast<std::ptrdiff_t>(kMostLines));
    if (isLong) {
        const std::string shorter = path + ".new";
        if (write(shorter, O_TRUNC, fmt::format("{}\n", fmt::join(lines, "\n")))) {
            std::rename(shorter.c_str(), path.c_str());
        }
    }
    return lines;
}

void HistoryFile::add(const std::string& line) {
    if (!path.empty() && !write(path, O_APPEND, line + "\n")) {
        tellOnce(std::strerror(errno));
    }
}

void HistoryFile::tellOnce(const std::string& problem) {
    tellNote(fmt::format("the lines are not kept: {} cannot be written: {}", pathText(path), problem));
    path.clear();
}

}  // namespace feedesk
