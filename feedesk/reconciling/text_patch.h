#ifndef FEEDESK_RECONCILING_TEXT_PATCH_H
#define FEEDESK_RECONCILING_TEXT_PATCH_H

#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace feedesk {

/// What takes the place of a file's lines, by their index from 0; no line end is part of a line.
using Replacements = std::map<std::size_t, std::vector<std::string>>;

/// A text in lines.
struct TextOfLines {
    explicit TextOfLines(const std::string& text);

    std::vector<std::string> lines;
    bool endsWithLine = true;  ///< the last line has its line end
};

/// The change as a unified patch of the file, with three lines around it; empty without replacements.
std::string unifiedPatch(const std::string& file, const TextOfLines& text, const Replacements& replacements);

}  // namespace feedesk

#endif  // FEEDESK_RECONCILING_TEXT_PATCH_H
