// Changes of histories that keep the steps apart: whole steps are moved, repeated and dropped, and the bytes of one
// step change without shifting the next one. Half of the changes are libFuzzer's own.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <random>

#include "histories/bytes.h"

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

namespace {

using histories::History;
using histories::Step;
using Random = std::minstd_rand;

constexpr std::size_t kLongestStep = 63;

std::ptrdiff_t anyPlace(const History& history, Random& random) {
    return static_cast<std::ptrdiff_t>(random() % history.size());
}

void changeBytes(Step& step) {
    const std::size_t size = step.size();
    step.resize(kLongestStep);
    step.resize(LLVMFuzzerMutate(step.data(), size, kLongestStep));
}

void change(History& history, Random& random) {
    if (history.empty()) {
        history.emplace_back();
    }
    const auto place = history.begin() + anyPlace(history, random);
    const auto other = history.begin() + anyPlace(history, random);
    switch (random() % 6) {
        case 0:
            history.insert(other, Step(*place));
            return;
        case 1:
            std::swap(*place, *other);
            return;
        case 2:
            history.erase(place);
            return;
        default:
            changeBytes(*place);
    }
}

/// How an input holds a history: a byte for each step's length, then its bytes.
Step flat(std::uint8_t accounts, const History& history) {
    Step bytes{accounts};
    for (const Step& step : history) {
        const std::size_t length = std::min(step.size(), kLongestStep);
        bytes.push_back(static_cast<std::uint8_t>(length));
        bytes.insert(bytes.end(), step.begin(), step.begin() + static_cast<std::ptrdiff_t>(length));
    }
    return bytes;
}

}  // namespace

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                               unsigned int seed) {
    Random random(seed);
    if (size == 0 || random() % 2 == 0) {
        return LLVMFuzzerMutate(data, size, maxSize);
    }
    History history = histories::historyFrom(data + 1, size - 1);
    for (auto times = 1 + random() % 3; times > 0; --times) {
        change(history, random);
    }
    const Step bytes = flat(data[0], history);
    const std::size_t newSize = std::min(bytes.size(), maxSize);
    std::copy_n(bytes.begin(), newSize, data);
    return newSize;
}
