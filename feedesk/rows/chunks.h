#ifndef FEEDESK_ROWS_CHUNKS_H
#define FEEDESK_ROWS_CHUNKS_H

#include <cstddef>
#include <string>
#include <utility>

#include "feedesk/rows/sinks.h"

namespace feedesk {

/// Hands a long text on in large chunks, so that neither all of it is held nor each line written alone.
class Chunks {
public:
    explicit Chunks(Write write) : writeChunk(std::move(write)) {}

    /// `text` ends where a character ends.
    void add(const std::string& text) {
        held += text;
        if (held.size() >= kEnough) {
            flush();
        }
    }

    void flush() {
        const std::string chunk = std::exchange(held, {});
        if (!chunk.empty()) {
            writeChunk(chunk);
        }
    }

private:
    static constexpr std::size_t kEnough = 65536;  // bytes

    Write writeChunk;
    std::string held;
};

}  // namespace feedesk

#endif  // FEEDESK_ROWS_CHUNKS_H
