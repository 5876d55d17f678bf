#include "feedesk/csv.h"

#include <csv.h>

namespace feedesk {
namespace {

std::string quoted(const std::string& text) {
    std::string target(text.size() * 2 + 2, '\0');
    target.resize(csv_write(target.data(), target.size(), text.data(), text.size()));
    return target;
}

bool needsQuotes(const std::string& text) { return text.find_first_of(",\"\r\n") != std::string::npos; }

}  // namespace

std::string csvLine(const std::vector<std::string>& cells) {
    std::string line;
    for (const std::string& cell : cells) {
        line += needsQuotes(cell) ? quoted(cell) : cell;
        line += ',';
    }
    line.back() = '\n';
    return line;
}

}  // namespace feedesk
