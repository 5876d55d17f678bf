#ifndef COST_WORDS_H
#define COST_WORDS_H

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace cost {

/// The words that files and messages have for the values of an enumeration, in its order. Each enumeration specialises
/// it next to its declaration.
template <class Enum>
inline constexpr std::array<std::string_view, 0> kWords{};

/// The word of a value.
template <class Enum>
constexpr std::string_view wordFor(Enum value) {
    return kWords<Enum>[static_cast<std::size_t>(value)];
}

/// The value that has this word; empty for any other text.
template <class Enum>
std::optional<Enum> fromWord(std::string_view word) {
    for (std::size_t value = 0; value < kWords<Enum>.size(); ++value) {
        if (kWords<Enum>[value] == word) {
            return static_cast<Enum>(value);
        }
    }
    return std::nullopt;
}

/// "stock, credit, neeq": for messages that say what was expected.
template <class Enum>
std::string allWords() {
    std::string list;
    for (const std::string_view word : kWords<Enum>) {
        list += list.empty() ? "" : ", ";
        list += word;
    }
    return list;
}

}  // namespace cost

#endif  // COST_WORDS_H
