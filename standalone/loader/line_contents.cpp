#include "standalone/loader/line_contents.h"

#include <xxhash.h>

#include <cstring>

namespace standalone::loader {
namespace {

constexpr std::size_t kRateBytes = sizeof(RateLine::rates);

/// Rates are compared by their bytes, so that -0 stays what it is.
bool isAlike(const RateLine& one, const RateLine& other) {
    // NOLINTNEXTLINE(bugprone-suspicious-memory-comparison): by their bytes
    return std::memcmp(one.rates.data(), other.rates.data(), kRateBytes) == 0 && one.update == other.update &&
           one.category == other.category && one.hedgeFlag == other.hedgeFlag && one.marginMode == other.marginMode &&
           one.unitVolume == other.unitVolume && one.days.from == other.days.from &&
           one.days.until == other.days.until && one.item == other.item;
}

}  // namespace

std::shared_ptr<const RateLine> LineContents::of(const RateLine& line) {
    std::shared_ptr<const RateLine>& known = latest[XXH3_64bits(line.rates.data(), kRateBytes) % kRemembered];
    if (!known || !isAlike(*known, line)) {
        known = std::make_shared<const RateLine>(line);
    }
    return known;
}

}  // namespace standalone::loader
