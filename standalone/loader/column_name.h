#ifndef STANDALONE_LOADER_COLUMN_NAME_H
#define STANDALONE_LOADER_COLUMN_NAME_H

#include <algorithm>
#include <string_view>

namespace standalone::loader {

/// Whether the text is lower-case letters, digits and _ alone: what a folder may call a rate or a charge.
inline bool isColumnName(std::string_view name) {
    return std::all_of(name.begin(), name.end(), [](char byte) {
        return (byte >= 'a' && byte <= 'z') || (byte >= '0' && byte <= '9') || byte == '_';
    });
}

}  // namespace standalone::loader

#endif  // STANDALONE_LOADER_COLUMN_NAME_H
