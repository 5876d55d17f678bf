#include "host/keys.h"

#include <lzma.h>
#include <xxhash.h>

#include <utility>

namespace utils {

namespace {

constexpr char kSeparator = ':';

}  // namespace

std::string voStockKey(const std::string& market, const std::string& code) {
    std::string key;
    key.reserve(market.size() + 1 + code.size());
    key += market;
    key += kSeparator;
    key += code;
    return key;
}

void splitVoStockKey(const std::string& key, std::string& market, std::string& code) {
    const std::size_t separator = key.find(kSeparator);
    const bool hasMarket = separator != std::string::npos;
    // Nothing is written before both parts are read: a caller may pass `key` itself as one of them.
    std::string tail = hasMarket ? key.substr(separator + 1) : key;
    market.assign(key, 0, hasMarket ? separator : 0);
    code = std::move(tail);
}

qmservice::uint64 hash(const std::string& text) { return XXH3_64bits(text.data(), text.size()); }

}  // namespace utils

namespace qmservice {

uint64 crc64(uint64 seed, const char* data, std::size_t length) {
    return length == 0 ? seed : lzma_crc64(reinterpret_cast<const std::uint8_t*>(data), length, seed);
}

}  // namespace qmservice
