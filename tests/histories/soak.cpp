// Runs random histories against the model for as long as asked. See usage.

#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <string>

#include "histories/given.h"
#include "histories/in_flight.h"
#include "histories/random_histories.h"

namespace {

using namespace histories;
using Clock = std::chrono::steady_clock;

constexpr const char* kUsage =
    "usage: soak [--in-flight] MINUTES SEED\n"
    "Runs random histories on the fee center and on a model for so many minutes, 0.01\n"
    "to 100000, one seed after the other from SEED on, and compares every answer.\n"
    "Ends with 1 and the history, shrunk, when an answer differs. With --in-flight\n"
    "the changes run on threads while others ask, and each answer must be one that\n"
    "the history allows at that moment; what fails then is not shrunk.\n";

/// A whole text that is a number; otherwise false.
bool parse(const std::string& text, double& number) {
    char* end = nullptr;
    number = std::strtod(text.c_str(), &end);
    return !text.empty() && *end == '\0';
}

/// What is run for as long as asked.
struct Work {
    std::function<std::string(std::uint64_t seed, Focus focus)> run;  ///< what is wrong; empty when nothing is
    std::function<std::string()> totals;
};

Work onOneThread(Totals& totals) {
    constexpr int kRound = 4;
    return {[&totals](std::uint64_t seed, Focus focus) {
                return firstFailure(seed, kRound, sideBySide(focus, Compare::eachStep, totals));
            },
            [&totals] { return describe(totals); }};
}

Work inFlight(InFlightTotals& totals) {
    return {[&totals](std::uint64_t seed, Focus focus) { return runInFlight(seed, focus, InFlight(), totals); },
            [&totals] { return describe(totals, InFlight()); }};
}

int soak(const Work& work, double minutes, std::uint64_t firstSeed) {
    constexpr auto kProgress = std::chrono::seconds(30);
    const auto end =
        Clock::now() + std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(minutes * 60));
    auto nextReport = Clock::now() + kProgress;
    std::uint64_t seed = firstSeed;
    const auto report = [&](const char* word) {
        std::cout << word << ": " << work.totals() << ", seeds " << firstSeed << " to " << seed << std::endl;
    };
    for (std::uint64_t round = 0;; ++round) {
        seed = firstSeed + round / kFocuses.size();
        const std::string failure = work.run(seed, kFocuses[round % kFocuses.size()]);
        if (!failure.empty()) {
            std::cout << "seed " << seed << ": " << failure;
            report("failed");
            return 1;
        }
        if (Clock::now() >= end) {
            report("done");
            return 0;
        }
        if (Clock::now() >= nextReport) {
            report("so far");
            nextReport += kProgress;
        }
    }
}

}  // namespace

int main(int count, char** arguments) {
    const bool flying = count > 1 && std::string(arguments[1]) == "--in-flight";
    const int first = flying ? 2 : 1;
    double minutes = 0;
    const auto seed = count > first + 1 ? wholeNumber(arguments[first + 1]) : std::nullopt;
    if (count != first + 2 || !parse(arguments[first], minutes) || !seed || !(minutes >= 0.01) || minutes > 100000) {
        std::cerr << kUsage;
        return 2;
    }
    Totals totals;
    InFlightTotals inFlightTotals;
    return soak(flying ? inFlight(inFlightTotals) : onOneThread(totals), minutes, *seed);
}
