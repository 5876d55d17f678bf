#include "fuzz/folder_text.h"

#include <bson/bson.h>

#include <algorithm>

namespace fuzz {
namespace {

constexpr std::string_view kMark = "=== ";
constexpr std::size_t kLongestPath = 200;

bool beginsWith(std::string_view text, std::string_view start) { return text.substr(0, start.size()) == start; }

/// Takes the first line off the text, line end included.
std::string_view takeLine(std::string_view& text) {
    const std::size_t length = std::min(text.find('\n'), text.size() - 1) + 1;
    const std::string_view line = text.substr(0, length);
    text.remove_prefix(length);
    return line;
}

std::string_view pathOf(std::string_view markLine) {
    std::string_view path = markLine.substr(kMark.size());
    while (!path.empty() && (path.back() == '\n' || path.back() == '\r')) {
        path.remove_suffix(1);
    }
    return path;
}

bool isName(std::string_view name) { return !name.empty() && name != "." && name != ".."; }

/// Whether the path stays below the folder and every part of it is a name.
bool isPath(std::string_view path) {
    if (path.empty() || path.size() > kLongestPath) {
        return false;
    }
    if (!bson_utf8_validate(path.data(), path.size(), false)) {
        return false;
    }
    for (std::size_t start = 0; start <= path.size();) {
        const std::size_t end = std::min(path.find('/', start), path.size());
        if (!isName(path.substr(start, end - start))) {
            return false;
        }
        start = end + 1;
    }
    return true;
}

/// Whether one of the paths is a folder on the way of the other.
bool collides(const Files& files, const std::string& path) {
    return std::any_of(files.begin(), files.end(), [&](const auto& file) {
        return beginsWith(file.first, path + "/") || beginsWith(path, file.first + "/");
    });
}

}  // namespace

Files filesOf(std::string_view text) {
    Files files;
    std::string* file = nullptr;  // where the lines go; null for none
    while (!text.empty()) {
        const std::string_view line = takeLine(text);
        if (!beginsWith(line, kMark)) {
            if (file != nullptr) {
                file->append(line);
            }
            continue;
        }
        const std::string path(pathOf(line));
        const bool isNew = isPath(path) && !collides(files, path) && files.count(path) == 0;
        file = isNew ? &files[path] : nullptr;
    }
    return files;
}

}  // namespace fuzz
