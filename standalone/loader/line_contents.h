#ifndef STANDALONE_LOADER_LINE_CONTENTS_H
#define STANDALONE_LOADER_LINE_CONTENTS_H

#include <array>
#include <cstddef>
#include <memory>

#include "standalone/loader/kept_lines.h"

namespace standalone::loader {

/// Gives lines with the same cells one content: many lines of a large table have the same rates, and a content takes
/// 200 bytes. What it remembers is bounded, and two lines far apart may get contents of their own. For one thread.
class LineContents {
public:
    std::shared_ptr<const RateLine> of(const RateLine& line);

private:
    static constexpr std::size_t kRemembered = 4096;

    std::array<std::shared_ptr<const RateLine>, kRemembered> latest;  ///< by hash of the rates
};

}  // namespace standalone::loader

#endif  // STANDALONE_LOADER_LINE_CONTENTS_H
