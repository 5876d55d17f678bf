#include "tests/feedesk/support/program.h"

#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

namespace feedesk::test {
namespace {

class TemporaryDirectory {
public:
    TemporaryDirectory() {
        std::string name = (std::filesystem::temp_directory_path() / "feedesk_run_XXXXXX").string();
        directory = mkdtemp(name.data());
    }
    TemporaryDirectory(const TemporaryDirectory&) = delete;
    TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;
    ~TemporaryDirectory() {
        std::error_code ignored;
        std::filesystem::remove_all(directory, ignored);
    }

    [[nodiscard]] std::string file(const std::string& name) const { return (directory / name).string(); }

private:
    std::filesystem::path directory;
};

bool beginsCharacter(unsigned char byte) { return (byte & 0xC0U) != 0x80U; }

/// The tests' texts hold ASCII, the ellipsis (three bytes, one column) and Chinese characters (three bytes, two
/// columns).
std::size_t columns(std::string line) {
    const std::string ellipsis = "…";
    std::size_t count = 0;
    for (std::size_t at = line.find(ellipsis); at != std::string::npos; at = line.find(ellipsis)) {
        line.replace(at, ellipsis.size(), ".");
    }
    for (const char c : line) {
        const auto byte = static_cast<unsigned char>(c);
        if (beginsCharacter(byte)) {
            count += byte < 0x80U ? 1 : 2;
        }
    }
    return count;
}

}  // namespace

std::string contentOf(const std::string& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

Outcome runShell(const std::string& command) {
    const TemporaryDirectory directory;
    const std::string out = directory.file("out");
    const std::string err = directory.file("err");
    // The redirections come first, so that the arguments may redirect again.
    const int result = std::system(("exec >" + out + " 2>" + err + " </dev/null; " + command).c_str());
    return {WIFEXITED(result) ? WEXITSTATUS(result) : -1, contentOf(out), contentOf(err)};
}

Outcome runProgram(const std::string& arguments, const std::string& environment) {
    return runShell("unset FEEDESK_MARKET; COLUMNS=80 " + environment + " " FEEDESK_PROGRAM " " + arguments);
}

Outcome ask(const std::string& folder, const std::string& arguments, const std::string& environment) {
    return runProgram("--market " + folder + " " + arguments, environment);
}

std::string onTerminal(const std::string& folder, const std::string& arguments, int columns,
                       const std::string& environment) {
    const std::string command = "unset FEEDESK_MARKET COLUMNS NO_COLOR TERM; " + environment +
                                " " FEEDESK_PROGRAM " --market " + folder + " " + arguments;
    winsize size{};
    size.ws_col = static_cast<unsigned short>(columns);
    int terminal = -1;
    const pid_t child = forkpty(&terminal, nullptr, nullptr, &size);
    if (child == 0) {
        execl("/bin/sh", "sh", "-c", command.c_str(), nullptr);
        _exit(127);
    }
    std::string output;
    std::array<char, 4096> block{};
    for (ssize_t count = 1; count > 0;) {  // the end is an error: nobody holds the other side any more
        count = read(terminal, block.data(), block.size());
        output.append(block.data(), static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    }
    close(terminal);
    waitpid(child, nullptr, 0);
    output.erase(std::remove(output.begin(), output.end(), '\r'), output.end());
    return output;
}

std::vector<std::string> lines(const std::string& text) {
    std::istringstream stream(text);
    std::vector<std::string> found;
    for (std::string line; std::getline(stream, line);) {
        found.push_back(line);
    }
    return found;
}

std::string unfolded(std::string text) {
    std::replace(text.begin(), text.end(), '\n', ' ');
    return text;
}

std::size_t widestLine(const std::string& text) {
    std::size_t widest = 0;
    for (const std::string& line : lines(text)) {
        widest = std::max(widest, columns(line));
    }
    return widest;
}

}  // namespace feedesk::test
