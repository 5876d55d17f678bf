#include "standalone/loader/reading_order.h"

#include <algorithm>
#include <array>
#include <tuple>

namespace standalone::loader {
namespace {

constexpr std::array<std::string_view, 10> kReadInOrder = {
    "market.toml",          "accounts.csv", "instruments", "categories.csv", "custom_categories.csv",
    "group_categories.csv", "configured",   "fees",        "custom",         "charges.csv"};

/// Of the file, or of the folder that it is in: from 1; 0 for what is never read.
std::size_t turn(std::string_view file) {
    const std::string_view top = file.substr(0, file.find('/'));
    const auto* const found = std::find(kReadInOrder.begin(), kReadInOrder.end(), top);
    return found == kReadInOrder.end() ? 0 : 1 + static_cast<std::size_t>(found - kReadInOrder.begin());
}

}  // namespace

bool comesBefore(std::string_view file, std::size_t line, std::string_view otherFile, std::size_t otherLine) {
    if (file == otherFile) {
        return line < otherLine;
    }
    return std::make_tuple(turn(file), file) < std::make_tuple(turn(otherFile), otherFile);
}

}  // namespace standalone::loader
