#include "standalone/loader/reading_order.h"

#include <algorithm>
#include <tuple>

#include "standalone/market_files.h"

namespace standalone::loader {
namespace {

/// Of the file, or of the folder that it is in: from 1; 0 for what is never read.
std::size_t turn(std::string_view file) {
    const std::string_view top = file.substr(0, file.find('/'));
    const auto* const found = std::find(files::kReadInOrder.begin(), files::kReadInOrder.end(), top);
    return found == files::kReadInOrder.end() ? 0 : 1 + static_cast<std::size_t>(found - files::kReadInOrder.begin());
}

}  // namespace

bool comesBefore(std::string_view file, std::size_t line, std::string_view otherFile, std::size_t otherLine) {
    if (file == otherFile) {
        return line < otherLine;
    }
    return std::make_tuple(turn(file), file) < std::make_tuple(turn(otherFile), otherFile);
}

}  // namespace standalone::loader
