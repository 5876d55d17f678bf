#include "feedesk/statements/repeated_lines.h"

#include <string_view>
#include <unordered_map>

namespace feedesk {

std::vector<RepeatedLine> repeatedLines(const std::vector<StatementLine>& trades,
                                        const std::vector<std::string>& texts) {
    std::vector<RepeatedLine> repeated;
    std::unordered_map<std::string_view, std::size_t> firsts;
    const StatementLine* before = nullptr;
    for (const StatementLine& trade : trades) {
        const std::string& text = texts[trade.line - 1];
        const bool isFill = before != nullptr && !trade.trade.order.empty() && texts[before->line - 1] == text;
        const auto first = firsts.emplace(text, trade.line);
        if (!first.second && !isFill) {
            repeated.push_back({trade.line, first.first->second});
        }
        before = &trade;
    }
    return repeated;
}

}  // namespace feedesk
