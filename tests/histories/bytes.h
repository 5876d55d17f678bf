#ifndef TESTS_HISTORIES_BYTES_H
#define TESTS_HISTORIES_BYTES_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace histories {

using Step = std::vector<std::uint8_t>;
/// What is done to a fee center, one step after the other. Any bytes are a history.
using History = std::vector<Step>;

/// A source of choices over the bytes of one step. When they have run out every choice is the first, the simplest one:
/// a step with fewer or lower bytes is a simpler step.
class Bytes {
public:
    explicit Bytes(Step bytes) : rest(std::move(bytes)) {}

    /// 0 to n - 1, where n is 1 to 256. A lower byte never gives a later choice.
    std::size_t pick(std::size_t n) { return used < rest.size() ? rest[used++] * n / 256 : 0; }

    /// True once in n, and never when the bytes have run out.
    bool oneIn(std::size_t n) { return pick(n) == n - 1; }

    template <class Value, std::size_t N>
    const Value& of(const std::array<Value, N>& values) {
        static_assert(N <= 256);
        return values[pick(N)];
    }

private:
    Step rest;
    std::size_t used = 0;
};

/// A history of so many full steps; `nextByte()` gives each of their bytes.
template <class NextByte>
History makeHistory(std::size_t steps, NextByte&& nextByte) {
    constexpr std::size_t kStepBytes = 48;
    History history(steps, Step(kStepBytes));
    for (Step& step : history) {
        for (std::uint8_t& byte : step) {
            byte = static_cast<std::uint8_t>(nextByte());
        }
    }
    return history;
}

/// Cuts a flat byte string into steps: a byte for a step's length, modulo 64, then the step. The last may be shorter
/// than announced.
inline History historyFrom(const std::uint8_t* data, std::size_t size) {
    History history;
    for (std::size_t at = 0; at < size;) {
        const std::size_t begin = at + 1;
        const std::size_t end = begin + data[at] % 64 < size ? begin + data[at] % 64 : size;
        history.emplace_back(data + begin, data + end);
        at = end;
    }
    return history;
}

}  // namespace histories

#endif  // TESTS_HISTORIES_BYTES_H
