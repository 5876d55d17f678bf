#include "feedesk/commands/cost_marks.h"

#include <fmt/format.h>

#include <algorithm>

#include "feedesk/answers/provenance.h"
#include "feedesk/text/numbers.h"

namespace feedesk {
namespace {

bool isBuiltIn(const std::string& level) {
    static const std::string builtIn = levelName(Level::kBuiltInDefault);
    return level == builtIn;
}

/// By the rates of its items; without items by all, since rates of 0 may be the built-in ones.
bool isChargedAtDefault(const cost::Bill& bill) {
    const std::vector<cost::Rate>& rates = bill.tariff.rates().charges;
    const bool ofItems = std::any_of(bill.items.begin(), bill.items.end(), [](const cost::BillItem& item) {
        return item.rate != nullptr && isBuiltIn(item.rate->level);
    });
    const bool ofAll = bill.items.empty() && std::any_of(rates.begin(), rates.end(),
                                                         [](const cost::Rate& rate) { return isBuiltIn(rate.level); });
    return ofItems || ofAll || (bill.margin && isBuiltIn(bill.margin->rate->level));
}

}  // namespace

void MarkedTrades::add(const ChargedTrade& charged) {
    ++trades;
    const auto& margin = charged.bill.margin;
    builtIn += isChargedAtDefault(charged.bill) ? 1 : 0;
    zeroMargin += margin && margin->amount.isZero() ? 1 : 0;
    unknownMargin += charged.lacksMargin() ? 1 : 0;
}

std::string MarkedTrades::sentence() const {
    std::string text;
    const auto add = [&](std::size_t count, const char* what) {
        if (count > 0) {
            text += fmt::format("{}{} of {} {}", text.empty() ? "" : "; ", grouped(count),
                                text.empty() ? counted(trades, "trade") : grouped(trades), what);
        }
    };
    add(builtIn, "charged at the built-in default");
    add(zeroMargin, "with a margin of 0");
    add(unknownMargin, "opened without a margin rate of its hedge flag");
    return text;
}

}  // namespace feedesk
