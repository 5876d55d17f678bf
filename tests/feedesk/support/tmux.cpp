#include "tests/feedesk/support/tmux.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>
#include <fstream>
#include <functional>
#include <iterator>
#include <thread>

#include "tests/feedesk/support/program.h"

namespace feedesk::test {
namespace {

constexpr std::chrono::seconds kPatience{30};
constexpr std::chrono::milliseconds kPause{20};

/// Looks again until it is good or patience ends; what was seen last.
std::string awaited(const std::function<std::string()>& look, const std::function<bool(const std::string&)>& isGood) {
    const auto end = std::chrono::steady_clock::now() + kPatience;
    std::string seen = look();
    while (!isGood(seen) && std::chrono::steady_clock::now() < end) {
        std::this_thread::sleep_for(kPause);
        seen = look();
    }
    return seen;
}

bool hasLineEnd(const std::string& screen, const std::string& text) {
    for (std::string line : lines(screen)) {
        line.erase(line.find_last_not_of(' ') + 1);
        if (line.size() >= text.size() && line.compare(line.size() - text.size(), text.size(), text) == 0) {
            return true;
        }
    }
    return false;
}

}  // namespace

Tmux::Tmux(const std::string& command) {
    std::string name = (std::filesystem::temp_directory_path() / "feedesk_tmux_XXXXXX").string();
    directory = mkdtemp(name.data());
    std::ofstream(directory / "command") << command;
    const Outcome started = runShell(
        "cd " + home() + "; unset TMUX; TMUX_TMPDIR=" + home() + " STATUS=" + home() + "/status HOME=" + home() +
        " LC_ALL=C.UTF-8 tmux -L test -f /dev/null new-session -d -x 100 -y 40 'sh " + home() + "/command'");
    EXPECT_EQ(started.status, 0) << "tmux is needed, which scripts/setup test installs: " << started.err;
}

Tmux::~Tmux() {
    run("kill-server");
    std::error_code ignored;
    std::filesystem::remove_all(directory, ignored);
}

std::string Tmux::run(const std::string& arguments) const {
    return runShell("unset TMUX; TMUX_TMPDIR=" + home() + " LC_ALL=C.UTF-8 tmux -L test " + arguments).out;
}

void Tmux::press(const std::string& keys) const { run("send-keys " + keys); }

void Tmux::type(const std::string& text) const { run("send-keys -l \"" + text + "\""); }

std::string Tmux::shownWith(const std::string& text) const {
    return awaited([this] { return run("capture-pane -p"); },
                   [&text](const std::string& screen) { return screen.find(text) != std::string::npos; });
}

std::string Tmux::shownWithLineEnd(const std::string& text) const {
    return awaited([this] { return run("capture-pane -p"); },
                   [&text](const std::string& screen) { return hasLineEnd(screen, text); });
}

std::string Tmux::status() const {
    const auto look = [this] {
        std::ifstream file(directory / "status");
        return std::string(std::istreambuf_iterator<char>(file), {});
    };
    return awaited(look, [](const std::string& seen) { return !seen.empty(); });
}

}  // namespace feedesk::test
