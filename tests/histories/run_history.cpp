#include "histories/run_history.h"

#include <exception>

#include "histories/side_by_side.h"
#include "histories/step.h"

namespace histories {
namespace {

/// The step and, if asked for, the comparison after it. An exception, which neither side may throw, is a difference
/// too.
std::string differenceAfter(const Operation& operation, World& world, SideBySide& both, bool compare) {
    try {
        operation.apply(world, both);
        return compare ? both.compareAll() : std::string();
    } catch (const std::exception& error) {
        return std::string("an exception, ") + error.what();
    }
}

}  // namespace

std::optional<std::string> runHistory(const std::vector<std::vector<std::uint8_t>>& history) {
    return runHistory(history, Focus::all).difference;
}

Outcome runHistory(const History& history, Focus focus, Compare when) {
    World world;
    SideBySide both(world);
    Outcome outcome;
    for (const Step& step : history) {
        ++outcome.steps;
        const bool compare = when == Compare::eachStep || outcome.steps == history.size();
        const auto text = differenceAfter(operationOf(step, world, focus), world, both, compare);
        if (!text.empty()) {
            outcome.difference = "after step " + std::to_string(outcome.steps) + ", " + text;
            break;
        }
    }
    outcome.answers = both.answersCompared();
    outcome.reached.add(world.reached);
    return outcome;
}

std::string describe(const History& history, Focus focus) {
    const World world;
    std::string text;
    for (std::size_t i = 0; i < history.size(); ++i) {
        text += "  " + std::to_string(i + 1) + ". " + operationOf(history[i], world, focus).describe() + '\n';
    }
    return text;
}

// Two hexadecimal digits a byte, a dot behind each step.
std::string toText(const History& history) {
    constexpr char kDigits[] = "0123456789abcdef";
    std::string text;
    for (const Step& step : history) {
        for (const std::uint8_t byte : step) {
            text += kDigits[byte / 16];
            text += kDigits[byte % 16];
        }
        text += '.';
    }
    return text;
}

std::optional<History> fromText(const std::string& text) {
    const std::string digits = "0123456789abcdef";
    History history;
    Step step;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '.') {
            history.push_back(std::move(step));
            step.clear();
            continue;
        }
        const auto high = digits.find(text[i]);
        const auto low = i + 1 < text.size() ? digits.find(text[i + 1]) : std::string::npos;
        if (high == std::string::npos || low == std::string::npos) {
            return std::nullopt;
        }
        step.push_back(static_cast<std::uint8_t>(high * 16 + low));
        ++i;
    }
    return step.empty() ? std::optional<History>(std::move(history)) : std::nullopt;
}

}  // namespace histories
