#include "standalone/loader/line_contents.h"

#include <xxhash.h>

#include <algorithm>
#include <boost/container_hash/hash.hpp>
#include <cmath>
#include <cstring>
#include <utility>

namespace standalone::loader {
namespace {

bool isAlike(const LineCells& one, const LineCells& other) {
    return one.family == other.family && one.update == other.update && one.category == other.category &&
           one.hedgeFlag == other.hedgeFlag && one.marginMode == other.marginMode &&
           one.unitVolume == other.unitVolume && one.days.from == other.days.from &&
           one.days.until == other.days.until && one.item == other.item && one.givenRates == other.givenRates;
}

void addHash(std::size_t& hash, const std::optional<cost::Date>& day) {
    if (day) {
        boost::hash_combine(hash, day->year());
        boost::hash_combine(hash, day->month());
        boost::hash_combine(hash, day->day());
    }
}

std::size_t hashOf(const LineCells& cells) {
    std::size_t hash = cells.givenRates.to_ulong();
    for (const int number : {cells.update, cells.category, cells.hedgeFlag, cells.marginMode, cells.unitVolume}) {
        boost::hash_combine(hash, number);
    }
    addHash(hash, cells.days.from);
    addHash(hash, cells.days.until);
    boost::hash_combine(hash, cells.item);
    return hash;
}

/// -0 stays what it is.
bool isGiven(double rate) { return rate != 0 || std::signbit(rate); }

}  // namespace

KeptLine LineContents::kept(const RateFamily& family, const RateLine& line, const Position& position) {
    LineCells cells = line;
    cells.family = &family;
    LineRates given{};
    std::size_t count = 0;
    for (std::size_t field = 0; field < kMostRates; ++field) {
        if (isGiven(line.rates[field])) {
            cells.givenRates.set(field);
            given[count++] = line.rates[field];
        }
    }
    return {shared(std::move(cells)), stored(given.data(), count), position};
}

/// Mostly those of the line before.
std::shared_ptr<const LineCells> LineContents::shared(LineCells cells) {
    if (!latest || !isAlike(*latest, cells)) {
        std::shared_ptr<const LineCells>& known = latestCells[hashOf(cells) % kRemembered];
        if (!known || !isAlike(*known, cells)) {
            known = std::make_shared<const LineCells>(std::move(cells));
        }
        latest = known;
    }
    return latest;
}

/// Rates are compared by their bytes, so that -0 stays what it is.
const double* LineContents::stored(const double* rates, std::size_t count) {
    if (count == 0) {
        return nullptr;
    }
    const std::size_t bytes = count * sizeof(double);
    StoredRates& known = latestRates[XXH3_64bits(rates, bytes) % kRemembered];
    if (known.count != count || std::memcmp(known.first, rates, bytes) != 0) {
        double* const made = store.allocate(count);
        std::copy_n(rates, count, made);
        known = {made, count};
    }
    return known.first;
}

}  // namespace standalone::loader
