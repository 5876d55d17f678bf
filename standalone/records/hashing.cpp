#include "standalone/records/hashing.h"

#include <xxhash.h>

#include <array>
#include <cstring>

namespace qmservice::records {

uint64 hashBytes(std::string_view bytes, uint64 seed) { return XXH3_64bits_withSeed(bytes.data(), bytes.size(), seed); }

void HashInput::add(double value) {
    // -0.0 equals 0.0 and must hash like it.
    const double number = value == 0 ? 0 : value;
    uint64 word = 0;
    std::memcpy(&word, &number, sizeof word);
    addWord(word);
}

void HashInput::add(std::int32_t value) { addWord(static_cast<uint64>(value)); }

void HashInput::add(std::string_view text) {
    addCount(text.size());
    bytes += text;
}

void HashInput::addKeyOf(const IData* record) {
    addCount(record == nullptr ? 0 : 1);
    if (record != nullptr) {
        addWord(record->getHashKey(0));
    }
}

void HashInput::addCount(std::size_t count) { addWord(count); }

void HashInput::addWord(uint64 word) {
    std::array<char, sizeof word> raw;
    std::memcpy(raw.data(), &word, sizeof word);
    bytes.append(raw.data(), raw.size());
}

}  // namespace qmservice::records
