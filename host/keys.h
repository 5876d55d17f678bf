#ifndef HOST_KEYS_H
#define HOST_KEYS_H

#include <cstddef>
#include <string>

#include "host/data.h"
#include "host/host_export.h"

// Safe from any number of threads at once.

namespace utils {

/// The joined key of an instrument, market first.
HOST_EXPORT std::string voStockKey(const std::string& market, const std::string& code);

/// The inverse of voStockKey: writes the two parts of `key` into `market` and `code`.
HOST_EXPORT void splitVoStockKey(const std::string& key, std::string& market, std::string& code);

/// A 64-bit hash of the whole text; equal texts give equal values throughout a run.
HOST_EXPORT qmservice::uint64 hash(const std::string& text);

}  // namespace utils

namespace qmservice {

/// CRC-64 of `length` bytes at `data`, continued from `seed`; 0 starts a fresh sum. `data` may be null when `length` is
/// 0.
HOST_EXPORT uint64 crc64(uint64 seed, const char* data, std::size_t length);

}  // namespace qmservice

#endif  // HOST_KEYS_H
