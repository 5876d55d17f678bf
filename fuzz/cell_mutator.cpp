// Changes of market folders that keep their form: cells and lines move as a whole, so that more of what is tried gets
// past the header. Half of the changes are libFuzzer's own.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <vector>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

namespace {

using Random = std::minstd_rand;

struct Part {
    std::size_t start;
    std::size_t size;
};

/// What is between the separators, which belong to no part.
std::vector<Part> partsOf(std::string_view text, std::string_view separators) {
    std::vector<Part> parts;
    for (std::size_t start = 0; start <= text.size();) {
        const std::size_t end = std::min(text.find_first_of(separators, start), text.size());
        parts.push_back({start, end - start});
        start = end + 1;
    }
    return parts;
}

const Part& any(const std::vector<Part>& parts, Random& random) { return parts[random() % parts.size()]; }

/// One part takes the place of another, or is put before it with the separator.
std::string moved(const std::string& text, std::string_view separators, bool replaces, Random& random) {
    const std::vector<Part> parts = partsOf(text, separators);
    const Part& from = any(parts, random);
    const Part& to = any(parts, random);
    std::string part = text.substr(from.start, from.size);
    if (!replaces) {
        part += separators.front();
    }
    return std::string(text).replace(to.start, replaces ? to.size : 0, part);
}

std::string withoutLine(const std::string& text, Random& random) {
    const std::vector<Part> lines = partsOf(text, "\n");
    const Part& line = any(lines, random);
    return std::string(text).erase(line.start, line.size + 1);
}

std::string withNumber(const std::string& text, Random& random) {
    static const std::vector<std::string> numbers{"0",          "1",       "2",     "3",
                                                  "-1",         "10001",   "20001", "70001",
                                                  "80001",      "0.00025", "1e300", "-92233720368.54775808",
                                                  "2147483647", "1e-308",  "1e-8",  "0.1"};
    const std::vector<Part> cells = partsOf(text, ",\n");
    const Part& cell = any(cells, random);
    return std::string(text).replace(cell.start, cell.size, numbers[random() % numbers.size()]);
}

std::string changed(const std::string& text, Random& random) {
    switch (random() % 5) {
        case 0:
            return moved(text, ",\n", true, random);
        case 1:
            return moved(text, "\n", false, random);
        case 2:
            return moved(text, "\n", true, random);
        case 3:
            return withoutLine(text, random);
        default:
            return withNumber(text, random);
    }
}

}  // namespace

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                               unsigned int seed) {
    Random random(seed);
    if (random() % 2 == 0) {
        return LLVMFuzzerMutate(data, size, maxSize);
    }
    std::string text(reinterpret_cast<const char*>(data), size);
    for (auto times = 1 + random() % 3; times > 0; --times) {
        text = changed(text, random);
    }
    const std::size_t newSize = std::min(text.size(), maxSize);
    std::copy_n(text.begin(), newSize, data);
    return newSize;
}
