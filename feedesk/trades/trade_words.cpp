#include "feedesk/trades/trade_words.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "cost/refused.h"
#include "feedesk/text/text.h"
#include "standalone/text/escape.h"
#include "standalone/text/nearness.h"
#include "standalone/text/wording.h"

namespace feedesk {
namespace {

using cost::Side;
using cost::WrongTrade;

constexpr std::array<const char*, qmservice::kHedgeFlags.size()> kHedgeNames = {"speculation", "arbitrage", "hedging"};

/// "open_long" for "Open-Long".
std::string wordFrom(const std::string& text) {
    std::string word = standalone::lowerCase(text);
    std::replace(word.begin(), word.end(), '-', '_');
    return word;
}

/// What buying and selling with an offset does; buying to close gives back a short position.
struct TwoWords {
    const char* side;
    const char* offset;
    Side meaning;
};

constexpr std::array<TwoWords, 6> kTwoWords = {{{"buy", "open", Side::kOpenLong},
                                                {"sell", "open", Side::kOpenShort},
                                                {"buy", "close", Side::kCloseShort},
                                                {"sell", "close", Side::kCloseLong},
                                                {"buy", "close_today", Side::kCloseTodayShort},
                                                {"sell", "close_today", Side::kCloseTodayLong}}};

Side sideOfTwoWords(const std::string& side, const std::string& offset) {
    const auto* const found = std::find_if(kTwoWords.begin(), kTwoWords.end(), [&](const TwoWords& words) {
        return words.side == wordFrom(side) && words.offset == wordFrom(offset);
    });
    if (found == kTwoWords.end()) {
        throw WrongTrade(
            fmt::format("the side is {} and the offset {}; buy or sell was expected with open, close or "
                        "close_today, or one of both alone",
                        echoed(side), echoed(offset)));
    }
    return found->meaning;
}

cost::Decimal numberFrom(const char* what, const std::string& text) {
    const auto number = cost::Decimal::parse(text);
    if (!number) {
        throw WrongTrade(fmt::format("the {} is {}, and a plain number such as {} was expected, of at most 18 digits",
                                     what, echoed(text), what[0] == 'q' ? "300" : "1488.50"));
    }
    return *number;
}

}  // namespace

Side sideFrom(const std::string& side, const std::string& offset) {
    if (!side.empty() && !offset.empty()) {
        return sideOfTwoWords(side, offset);
    }
    const std::string& word = side.empty() ? offset : side;
    const auto found = cost::fromWord<Side>(wordFrom(word));
    if (!found) {
        throw WrongTrade(fmt::format(
            "the side is {}, and one of {} was expected{}", echoed(word), cost::allWords<Side>(),
            standalone::suggestion(wordFrom(word), {cost::kWords<Side>.begin(), cost::kWords<Side>.end()})));
    }
    return *found;
}

char hedgeFlagFrom(const std::string& text) {
    if (text.empty()) {
        return qmservice::kSpeculation;
    }
    for (std::size_t i = 0; i < kHedgeNames.size(); ++i) {
        const char flag = static_cast<char>(qmservice::kHedgeFlags.at(i));
        if (wordFrom(text) == kHedgeNames[i] || text == std::string(1, flag)) {
            return flag;
        }
    }
    throw WrongTrade(
        fmt::format("the hedge flag is {}, and {} was expected", echoed(text), fmt::join(kHedgeNames, " or ")));
}

std::string hedgeName(char flag) {
    const std::optional<std::size_t> slot = qmservice::hedgeSlot(flag);
    return slot ? kHedgeNames.at(*slot) : std::string(1, flag);
}

std::vector<std::string> hedgeNames() { return {kHedgeNames.begin(), kHedgeNames.end()}; }

cost::Decimal quantityFrom(const std::string& text) { return numberFrom("quantity", text); }

cost::Decimal priceFrom(const std::string& text) { return numberFrom("price", text); }

cost::Date dateFrom(const std::string& text) {
    const auto written = cost::Date::parse(text);
    const auto date = written ? written : cost::Date::parseCompact(text);
    if (!date) {
        throw WrongTrade(fmt::format("the date is {}, and a day such as 2023-08-28 was expected", echoed(text)));
    }
    return *date;
}

void readQuantityAndPrice(const std::string& text, bool asksQuantity, cost::Trade& trade) {
    const std::size_t at = std::min(text.find('@'), text.size());
    const std::string price = text.substr(std::min(at + 1, text.size()));
    const bool needsPrice = trade.side != Side::kExercise;
    if (at == 0 && !asksQuantity) {
        throw WrongTrade(fmt::format("{} has no quantity; write it in front, as in 300{}", echoed(text),
                                     standalone::printable(text)));
    }
    if (price.empty() && needsPrice) {
        throw WrongTrade(fmt::format("{} has no price; write it behind @, as in 300@1488.50", echoed(text)));
    }
    if (at > 0) {
        trade.quantity = quantityFrom(text.substr(0, at));
    }
    if (!price.empty()) {
        trade.price = priceFrom(price);
    }
}

}  // namespace feedesk
