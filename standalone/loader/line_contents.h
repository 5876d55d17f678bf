#ifndef STANDALONE_LOADER_LINE_CONTENTS_H
#define STANDALONE_LOADER_LINE_CONTENTS_H

#include <array>
#include <cstddef>
#include <memory>
#include <memory_resource>

#include "standalone/loader/kept_lines.h"

namespace standalone::loader {

/// Makes kept lines: those with the same cells share them, and those with the same rates too. What it remembers is
/// bounded, and two lines far apart may get contents of their own. For one thread.
class LineContents {
public:
    /// The rates of lines are kept in `rates`, which outlives the lines and this.
    explicit LineContents(std::pmr::memory_resource& rates) : store(&rates) {}

    KeptLine kept(const RateFamily& family, const RateLine& line, const Position& position);

private:
    static constexpr std::size_t kRemembered = 4096;

    struct StoredRates {
        const double* first = nullptr;
        std::size_t count = 0;
    };

    std::shared_ptr<const LineCells> shared(LineCells cells);
    const double* stored(const double* rates, std::size_t count);

    std::pmr::polymorphic_allocator<double> store;
    std::shared_ptr<const LineCells> latest;
    std::array<std::shared_ptr<const LineCells>, kRemembered> latestCells;  ///< by hash
    std::array<StoredRates, kRemembered> latestRates;                       ///< by hash
};

}  // namespace standalone::loader

#endif  // STANDALONE_LOADER_LINE_CONTENTS_H
