#include "feedesk/terminal/pager.h"

#include <sys/wait.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>

#include "feedesk/terminal/terminal.h"

namespace feedesk {
namespace {

constexpr int kNotStarted = 127;  // what the shell says of a command that it does not find
constexpr int kNotRunnable = 126;

bool pagerIsWanted = true;

std::string pagerCommand() {
    for (const char* const variable : {"FEEDESK_PAGER", "PAGER"}) {
        const char* const command = std::getenv(variable);
        if (command != nullptr) {
            return command;
        }
    }
    return "less";
}

bool isTallerThanTheTerminal(const std::string& text) {
    const std::size_t lines = terminalLines();
    return lines != 0 && static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')) >= lines;
}

/// While it lives, a reader that goes away and Ctrl-C end the pager and not this process.
class WhileThePagerRuns {
public:
    WhileThePagerRuns() : pipe(std::signal(SIGPIPE, SIG_IGN)), interrupt(std::signal(SIGINT, SIG_IGN)) {}
    WhileThePagerRuns(const WhileThePagerRuns&) = delete;
    WhileThePagerRuns& operator=(const WhileThePagerRuns&) = delete;
    ~WhileThePagerRuns() {
        std::signal(SIGPIPE, pipe);
        std::signal(SIGINT, interrupt);
    }

private:
    void (*pipe)(int);
    void (*interrupt)(int);
};

/// Whether the pager was started; it need not have read everything.
bool isShownBy(const std::string& command, const std::string& text) {
    const WhileThePagerRuns guard;
    // These options hold where the person has set none: less ends by itself where one screen is enough, keeps
    // colours, and leaves the text on the screen.
    const std::string environment = "LESS=\"${LESS-FRX}\" LESSCHARSET=\"${LESSCHARSET-utf-8}\" ";
    std::FILE* const pager = popen((environment + command).c_str(), "w");
    if (pager == nullptr) {
        return false;
    }
    std::fwrite(text.data(), 1, text.size(), pager);
    const int status = pclose(pager);
    return !(WIFEXITED(status) && (WEXITSTATUS(status) == kNotStarted || WEXITSTATUS(status) == kNotRunnable));
}

}  // namespace

void showText(const std::string& text) {
    if (pagerIsWanted && isTallerThanTheTerminal(text)) {
        const std::string command = pagerCommand();
        const bool isNone = command.empty() || command == "cat";
        if (!isNone && isShownBy(command, painted(text, outputIsColoured()))) {
            return;
        }
    }
    writeText(text);
}

void usePager(bool wanted) { pagerIsWanted = wanted; }

bool pagerIsUsed() { return pagerIsWanted; }

}  // namespace feedesk
