#ifndef STANDALONE_LOADER_TOML_NESTING_H
#define STANDALONE_LOADER_TOML_NESTING_H

#include <cstddef>
#include <optional>
#include <string_view>

namespace standalone::loader {

/// How deep a TOML text may nest. A part of a key is a level, those of the table's header included, and so is a list
/// and an inline table: `[a.b]` with `c = [{ d = 1 }]` has six.
constexpr std::size_t kMostLevels = 32;

/// The line, from 1, where a TOML text first nests deeper than kMostLevels. The parser, and the destruction of what it
/// makes, take stack for each level of a text; this takes none, and memory for kMostLevels. Of a text that is not TOML
/// it judges what the parser would take in before it gives up. `text` has LF or CRLF line ends. Safe from any thread.
std::optional<std::size_t> lineNestedTooDeep(std::string_view text);

}  // namespace standalone::loader

#endif  // STANDALONE_LOADER_TOML_NESTING_H
