#include "standalone/loader/long_text.h"

#include <fmt/format.h>

#include "standalone/text/utf8.h"

namespace standalone::loader {
namespace {

constexpr std::size_t kMostCharacters = 1000;

}  // namespace

std::string tooLong(std::string_view text) {
    if (text.size() <= kMostCharacters) {
        return {};
    }
    const std::size_t count = characters(text);
    if (count <= kMostCharacters) {
        return {};
    }
    return fmt::format(" of {} characters, but at most {} are taken; shorten it", count, kMostCharacters);
}

}  // namespace standalone::loader
