#include "histories/given.h"

#include <algorithm>
#include <cstdlib>
#include <stdexcept>

#include "histories/run_history.h"

namespace histories {

GivenHistory parseHistory(const std::string& text) {
    const std::string name = text.substr(0, text.find(':'));
    const auto* const focus =
        std::find_if(kFocuses.begin(), kFocuses.end(), [&](Focus each) { return name == nameOf(each); });
    const auto history = fromText(text.substr(std::min(name.size() + 1, text.size())));
    if (focus == kFocuses.end() || !history || name.size() == text.size()) {
        throw std::invalid_argument("FEECENTER_HISTORY is \"" + text +
                                    "\"; expected was a history as a failure prints it, such as \"Futures:00ab.\"");
    }
    return {*focus, *history};
}

std::optional<std::uint64_t> wholeNumber(const std::string& text) {
    constexpr std::size_t kMostDigits = 18;
    if (text.empty() || text.size() > kMostDigits || text.find_first_not_of("0123456789") != std::string::npos) {
        return std::nullopt;
    }
    return std::strtoull(text.c_str(), nullptr, 10);
}

std::uint64_t parseSeed(const std::string& text) {
    const auto seed = wholeNumber(text);
    if (!seed) {
        throw std::invalid_argument("FEECENTER_SEED is \"" + text +
                                    "\"; expected was a whole number of at most 18 digits");
    }
    return *seed;
}

std::optional<GivenHistory> givenHistory() {
    const char* text = std::getenv("FEECENTER_HISTORY");
    return text != nullptr ? std::optional<GivenHistory>(parseHistory(text)) : std::nullopt;
}

std::uint64_t firstSeed() {
    const char* text = std::getenv("FEECENTER_SEED");
    constexpr std::uint64_t kUsual = 20260101;
    return text != nullptr ? parseSeed(text) : kUsual;
}

}  // namespace histories
