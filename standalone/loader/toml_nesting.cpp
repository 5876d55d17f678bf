#include "standalone/loader/toml_nesting.h"

#include <algorithm>
#include <string>
#include <vector>

namespace standalone::loader {
namespace {

/// Goes through a text once. A dot is a key's when an equals sign or the end of a header follows; the others belong to
/// numbers and times.
class NestingScan {
public:
    explicit NestingScan(std::string_view tomlText) : text(tomlText) {}

    std::optional<std::size_t> run() {
        while (at < text.size()) {
            take(text[at]);
            if (level > kMostLevels) {
                return line;
            }
        }
        return std::nullopt;
    }

private:
    void take(char byte) {
        if (byte == '"' || byte == '\'') {
            return passString(byte);
        }
        if (byte == '#') {
            return passComment();
        }
        ++at;
        if (byte == ' ' || byte == '\t' || byte == '\r') {
            return;
        }
        if (byte == '\n') {
            return endLine();
        }
        const bool wasStart = atStart;
        atStart = false;
        switch (byte) {
            case '.':
                ++dots;
                break;
            case '=':
                endKey();
                break;
            case ',':
                endItem();
                break;
            case '[':
                wasStart || inHeader ? openHeader() : open();
                break;
            case '{':
                open();
                break;
            case ']':
            case '}':
                close();
                break;
            default:
                break;
        }
    }

    void passComment() { at = std::min(text.find('\n', at), text.size()); }

    void passString(char quote) {
        atStart = false;
        if (text.substr(at + 1, 2) == std::string(2, quote)) {
            return passLines(quote);
        }
        for (++at; at < text.size() && text[at] != '\n'; ++at) {
            if (text[at] == quote) {
                ++at;
                return;
            }
            if (isEscape(quote)) {
                ++at;
            }
        }
    }

    /// A string in three quotes. It may end in two more, which are part of it.
    void passLines(char quote) {
        const std::string end(3, quote);
        for (at += 3; at < text.size() && text.substr(at, 3) != end; ++at) {
            if (text[at] == '\n') {
                ++line;
            }
            if (isEscape(quote)) {
                ++at;
            }
        }
        at = std::min(at + 3, text.size());
        for (int more = 0; more < 2 && at < text.size() && text[at] == quote; ++more) {
            ++at;
        }
    }

    [[nodiscard]] bool isEscape(char quote) const {
        return quote == '"' && text[at] == '\\' && at + 1 < text.size() && text[at + 1] != '\n';
    }

    void endLine() {
        ++line;
        dots = 0;
        if (!opened.empty()) {
            return;
        }
        inHeader = false;
        atStart = true;
        level = header;
    }

    void endKey() {
        level += dots + 1;
        dots = 0;
    }

    void endItem() {
        level = opened.empty() ? header : opened.back() + 1;
        dots = 0;
    }

    void openHeader() {
        if (inHeader) {
            return;
        }
        inHeader = true;
        header = level = 0;
    }

    void open() {
        opened.push_back(level);
        ++level;
        dots = 0;
    }

    void close() {
        if (inHeader) {
            if (header == 0) {
                header = level = dots + 1;
            }
        } else if (!opened.empty()) {
            level = opened.back();
            opened.pop_back();
        }
        dots = 0;
    }

    std::string_view text;
    std::size_t at = 0;
    std::size_t line = 1;
    std::size_t level = 0;            ///< of what is read
    std::size_t header = 0;           ///< levels of the header that holds it
    std::size_t dots = 0;             ///< since the last sign that parts keys and values
    std::vector<std::size_t> opened;  ///< the levels at which open brackets stand
    bool inHeader = false;
    bool atStart = true;  ///< nothing but spaces since the line's begin, and no bracket is open
};

}  // namespace

std::optional<std::size_t> lineNestedTooDeep(std::string_view text) { return NestingScan(text).run(); }

}  // namespace standalone::loader
