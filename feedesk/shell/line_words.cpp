#include "feedesk/shell/line_words.h"

#include <algorithm>

namespace feedesk {
namespace {

constexpr std::string_view kBlanks = " \t\r\n\v\f";
constexpr std::string_view kNeedQuotes = " \t\r\n\v\f'\"\\#";

bool isBlank(char each) { return kBlanks.find(each) != std::string_view::npos; }

/// Reads a line from left to right.
class Cutter {
public:
    explicit Cutter(std::string_view wholeLine) : line(wholeLine) {}

    LineWords cut() {
        while (at < line.size()) {
            if (isBlank(line[at])) {
                result.endsBetween = true;
                ++at;
            } else if (line[at] == '#') {
                break;
            } else {
                word();
            }
        }
        return result;
    }

private:
    void word() {
        result.lastBegin = at;
        result.endsBetween = false;
        result.words.emplace_back();
        for (; at < line.size() && !isBlank(line[at]); ++at) {
            if (line[at] == '\'' || line[at] == '"') {
                quoted(line[at]);
            } else {
                one(line[at] == '\\');
            }
        }
    }

    /// One character; behind a backslash the next one.
    void one(bool isEscape) {
        if (isEscape && ++at == line.size()) {
            result.openQuote = '\\';
            return;
        }
        result.words.back() += line[at];
    }

    /// Up to the closing quote, on which it stops.
    void quoted(char quote) {
        for (++at; at < line.size() && line[at] != quote; ++at) {
            one(quote == '"' && line[at] == '\\');
        }
        if (at >= line.size()) {
            result.openQuote = quote;
        }
    }

    std::string_view line;
    std::size_t at = 0;
    LineWords result;
};

bool needsQuotes(const std::string& word) {
    return word.empty() || word.find_first_of(kNeedQuotes) != std::string::npos;
}

std::string opened(const std::string& word) {
    std::string text = "'";
    for (const char each : word) {
        text += each == '\'' ? "'\\''" : std::string(1, each);
    }
    return text;
}

}  // namespace

LineWords lineWords(std::string_view line) { return Cutter(line).cut(); }

std::string quotedWord(const std::string& word) { return needsQuotes(word) ? opened(word) + "'" : word; }

std::string quotedBeginning(const std::string& begun) {
    return !begun.empty() && needsQuotes(begun) ? opened(begun) : begun;
}

}  // namespace feedesk
