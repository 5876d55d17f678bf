#include "feedesk/text/text.h"

#include <fmt/format.h>

#include <algorithm>

#include "standalone/text/escape.h"
#include "standalone/text/shell_word.h"
#include "standalone/text/utf8.h"

namespace feedesk {
namespace {

constexpr std::size_t kLongestCharacter = 4;  // bytes
constexpr std::size_t kLongestEcho = 40;

}  // namespace

std::string marked(const std::string& text) { return kMarks.front() + text + kMarks.back(); }

std::size_t displayWidth(std::string_view text) {
    // fmt knows the width of every character and shows it by how much it pads; no character is wider than its bytes.
    const std::size_t field = text.size() + 1;
    const std::size_t padding = fmt::formatted_size("{:<{}}", text, field) - text.size();
    const auto isMark = [](char c) { return kMarks.find(c) != std::string_view::npos; };
    return field - padding - static_cast<std::size_t>(std::count_if(text.begin(), text.end(), isMark));
}

std::string shortened(std::string_view text, std::size_t width) {
    // A text of more bytes is too wide whatever it holds.
    if (text.size() / kLongestCharacter <= width && displayWidth(text) <= width) {
        return std::string(text);
    }
    std::string out;
    std::size_t used = 1;  // the ellipsis
    for (std::string_view next = standalone::firstCharacter(text); !next.empty();
         next = standalone::firstCharacter(text)) {
        used += displayWidth(next);
        if (used > width) {
            break;
        }
        out += next;
        text.remove_prefix(next.size());
    }
    return out + "…";
}

std::string printableLines(std::string_view text) {
    return standalone::replaceUnprintable(text, [](std::string_view character) {
        return character == "\n" ? std::string(character) : standalone::printable(character);
    });
}

std::string echoed(const std::string& text) {
    const bool plain = !text.empty() && text.size() <= kLongestEcho && text.find('"') == std::string::npos &&
                       standalone::printable(text) == text;
    return plain ? text : standalone::inQuotes(text);
}

std::string pathText(const std::string& path) {
    const std::string shown = standalone::printable(path);
    return shown == path ? standalone::shellWord(path) : '"' + shown + '"';
}

std::vector<std::string> words(std::string_view text) {
    std::vector<std::string> found;
    while (!text.empty()) {
        const std::string_view word = text.substr(0, text.find(' '));
        if (!word.empty()) {
            found.emplace_back(word);
        }
        text.remove_prefix(std::min(text.size(), word.size() + 1));
    }
    return found;
}

std::string asTitle(const std::string& name) {
    std::string title = name;
    std::replace(title.begin(), title.end(), '_', ' ');
    if (!title.empty() && title.front() >= 'a' && title.front() <= 'z') {
        title.front() = static_cast<char>(title.front() - 'a' + 'A');
    }
    return title;
}

std::vector<std::string> fillLines(const std::vector<std::string>& pieces, std::size_t width) {
    std::vector<std::string> lines;
    for (const std::string& piece : pieces) {
        if (!lines.empty() && displayWidth(lines.back()) + 1 + displayWidth(piece) <= width) {
            lines.back() += " " + piece;
        } else {
            lines.push_back(piece);
        }
    }
    return lines;
}

std::string filledText(const std::string& text, std::size_t width) {
    std::string filled;
    for (const std::string& line : fillLines(words(text), width)) {
        filled += (line.find('/') == std::string::npos ? shortened(line, width) : line) + "\n";
    }
    return filled;
}

}  // namespace feedesk
