#include "standalone/text/line_buffer.h"

#include <algorithm>

namespace standalone {
namespace {

constexpr std::size_t kBlockBytes = 65536;

std::string_view withoutEnd(std::string_view line) {
    while (!line.empty() && (line.back() == '\n' || line.back() == '\r')) {
        line.remove_suffix(1);
    }
    return line;
}

}  // namespace

/// Drops what is before the marked line and reads on.
bool LineBuffer::fill() {
    block.erase(0, kept);
    at -= kept;
    kept = 0;
    const std::size_t size = block.size();
    block.resize(size + kBlockBytes);
    const std::size_t count = read(block.data() + size, kBlockBytes);
    block.resize(size + count);
    held = block;
    isWhole = count == 0;
    return !isWhole;
}

/// Goes to the end of a line of which there is no room for more.
bool LineBuffer::skipRest() {
    isCut = false;
    kept = at;
    starts.clear();
    for (std::size_t end = held.find('\n', at);; end = held.find('\n', at)) {
        if (end != std::string_view::npos) {
            kept = at = end + 1;
            return true;
        }
        kept = at = held.size();
        if (isWhole || !fill()) {
            return false;
        }
    }
}

bool LineBuffer::next() {
    if (isCut && !skipRest()) {
        return false;
    }
    std::size_t end = held.find('\n', at);
    while (end == std::string_view::npos && !isWhole && held.size() - kept <= kMostBytes) {
        const std::size_t searched = held.size() - at;
        fill();
        end = held.find('\n', at + searched);
    }
    if (at == held.size()) {
        return false;
    }
    isCut = end == std::string_view::npos && !isWhole;
    const std::size_t behind = end == std::string_view::npos ? held.size() : end + 1;
    isTooLong = isLimited && behind - kept > kMostBytes;
    found = withoutEnd(held.substr(at, behind - at));
    starts.push_back(at - kept);
    at = isCut ? at : behind;
    ++lineNumber;
    return true;
}

void LineBuffer::mark() {
    kept += starts.back();
    starts.assign(1, 0);
}

void LineBuffer::goBehind(std::size_t number) {
    const std::size_t back = lineNumber - number;
    if (back == 0) {
        return;
    }
    at = kept + starts[starts.size() - back];
    starts.resize(starts.size() - back);
    lineNumber = number;
    isCut = false;
}

void LineBuffer::passOverEmpty() {
    if (isCut) {
        return;
    }
    do {
        const std::size_t end = std::min(held.find_first_not_of('\n', at), held.size());
        lineNumber += end - at;
        kept = at = end;
        starts.clear();
    } while (at == held.size() && !isWhole && fill());
}

}  // namespace standalone
