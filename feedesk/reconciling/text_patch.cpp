#include "feedesk/reconciling/text_patch.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>

namespace feedesk {
namespace {

constexpr std::size_t kContext = 3;

/// Writes the hunks of one file, from the first to the last.
class Hunks {
public:
    Hunks(const TextOfLines& oldText, const Replacements& newLines) : text(oldText), replacements(newLines) {}

    std::string all() {
        std::string written;
        for (auto first = replacements.begin(); first != replacements.end();) {
            const auto behind = endOfHunk(first);
            written += hunk(first->first, std::prev(behind)->first);
            first = behind;
        }
        return written;
    }

private:
    using Place = Replacements::const_iterator;

    /// Changes whose surroundings touch are one hunk.
    [[nodiscard]] Place endOfHunk(Place first) const {
        auto last = first;
        for (auto next = std::next(first); next != replacements.end() && next->first <= last->first + 2 * kContext + 1;
             ++next) {
            last = next;
        }
        return std::next(last);
    }

    /// Whether the line stays, and others follow it now.
    [[nodiscard]] bool stays(std::size_t index, const std::vector<std::string>& newLines) const {
        return !isUnended(index) && newLines.size() > 1 && newLines.front() == text.lines[index];
    }

    std::string hunk(std::size_t first, std::size_t last) {
        // A line that stays is context. With more of it ahead than behind, patch(1) looks for the end of the file.
        const std::size_t ahead = first + (stays(first, replacements.at(first)) ? 1 : 0);
        const std::size_t begin = ahead - std::min(ahead, kContext);
        const std::size_t end = std::min(last + kContext + 1, text.lines.size());
        std::string body;
        std::size_t newCount = 0;
        for (std::size_t i = begin; i < end; ++i) {
            const auto replaced = replacements.find(i);
            if (replaced == replacements.end()) {
                body += line(' ', text.lines[i], i);
                ++newCount;
                continue;
            }
            const bool isKept = stays(i, replaced->second);
            body += line(isKept ? ' ' : '-', text.lines[i], i);
            newCount += isKept ? 1 : 0;
            for (std::size_t made = isKept ? 1 : 0; made < replaced->second.size(); ++made) {
                const bool isLast = made + 1 == replaced->second.size();
                body += isLast ? line('+', replaced->second[made], i) : '+' + replaced->second[made] + '\n';
                ++newCount;
            }
        }
        const std::string head =
            fmt::format("@@ -{},{} +{},{} @@\n", begin + 1, end - begin, begin + 1 + grown, newCount);
        grown += newCount - (end - begin);
        return head + body;
    }

    /// Whether it is the last line, and has no line end.
    [[nodiscard]] bool isUnended(std::size_t index) const {
        return !text.endsWithLine && index + 1 == text.lines.size();
    }

    [[nodiscard]] std::string line(char sign, const std::string& content, std::size_t index) const {
        return sign + content + (isUnended(index) ? "\n\\ No newline at end of file\n" : "\n");
    }

    const TextOfLines& text;
    const Replacements& replacements;
    std::size_t grown = 0;  // by how many lines the text above is longer now; no change takes lines away
};

}  // namespace

TextOfLines::TextOfLines(const std::string& text) {
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = text.find('\n', start);
        endsWithLine = end != std::string::npos;
        lines.push_back(text.substr(start, endsWithLine ? end - start : end));
        start = endsWithLine ? end + 1 : text.size();
    }
}

std::string unifiedPatch(const std::string& file, const TextOfLines& text, const Replacements& replacements) {
    return replacements.empty() ? "" : fmt::format("--- a/{0}\n+++ b/{0}\n", file) + Hunks(text, replacements).all();
}

}  // namespace feedesk
