#include "feedesk/instrument_names.h"

#include <fmt/format.h>

#include <algorithm>
#include <boost/algorithm/string/case_conv.hpp>
#include <locale>
#include <utility>

#include "feedesk/text.h"

namespace feedesk {
namespace {

constexpr std::size_t kMostSuggestions = 3;

/// The text in small letters without what stands between market and code.
std::string letters(std::string text) {
    text.erase(std::remove_if(text.begin(), text.end(), [](char c) { return c == ':' || c == '.' || c == ' '; }),
               text.end());
    return boost::to_lower_copy(text, std::locale::classic());
}

struct WrittenName {
    std::string market;  ///< empty: none is named
    std::string code;
};

WrittenName parts(const std::string& text) {
    const std::size_t colon = text.find(':');
    const std::size_t point = text.rfind('.');
    WrittenName written{"", text};
    if (colon != std::string::npos) {
        written = {text.substr(0, colon), text.substr(colon + 1)};
    } else if (point != std::string::npos) {
        written = {text.substr(point + 1), text.substr(0, point)};
    }
    boost::to_upper(written.market, std::locale::classic());
    return written;
}

std::vector<std::string> firstFew(std::vector<std::string> names) {
    std::sort(names.begin(), names.end());
    names.resize(std::min(names.size(), kMostSuggestions));
    return names;
}

bool isChannel(const std::string& market) { return market == "HGT" || market == "SGT"; }

}  // namespace

std::string instrumentText(const std::string& market, const std::string& code) { return market + ":" + code; }

InstrumentNames::InstrumentNames(const standalone::Market& market) {
    for (const auto& listed : market.instruments) {
        marketsByCode[listed.record->code].push_back(listed.record->market);
    }
}

bool InstrumentNames::has(const std::string& market, const std::string& code) const {
    const auto found = marketsByCode.find(code);
    return found != marketsByCode.end() &&
           std::find(found->second.begin(), found->second.end(), market) != found->second.end();
}

std::optional<Question> InstrumentNames::inMarket(const std::string& market, const std::string& code,
                                                  bool connect) const {
    for (const std::string& name : {market, boost::to_upper_copy(market, std::locale::classic())}) {
        if (has(connect && isChannel(name) ? "HK" : name, code)) {
            return Question{name, code};
        }
    }
    return {};
}

NamedInstrument InstrumentNames::find(const std::string& text, bool connect) const {
    const auto byCode = marketsByCode.find(text);
    if (byCode != marketsByCode.end() && byCode->second.size() == 1) {
        return {Question{byCode->second.front(), text}, ""};
    }
    if (byCode != marketsByCode.end()) {
        std::vector<std::string> candidates;
        for (const std::string& market : byCode->second) {
            candidates.push_back(instrumentText(market, text));
        }
        return {{}, fmt::format("several markets have the code {}: write {}", text, fmt::join(candidates, " or "))};
    }
    const std::size_t colon = text.find(':');
    const std::size_t point = text.rfind('.');
    std::optional<Question> question;
    if (colon != std::string::npos) {
        question = inMarket(text.substr(0, colon), text.substr(colon + 1), connect);
    }
    if (!question && point != std::string::npos) {
        question = inMarket(text.substr(point + 1), text.substr(0, point), connect);
    }
    if (question) {
        return {question, ""};
    }
    return {{}, fmt::format("the market folder has no instrument {}{}", echoed(text), advice(text))};
}

std::string InstrumentNames::advice(const std::string& text) const {
    const std::vector<std::string> same = differentlyWritten(text);
    if (!same.empty()) {
        return fmt::format("; write {}", fmt::join(same, " or "));
    }
    const std::vector<std::string> near = nearInstruments(text);
    return near.empty() ? "" : fmt::format("; did you mean {}?", fmt::join(near, " or "));
}

/// The instruments that the text names but for the letters' case and what stands between market and code.
std::vector<std::string> InstrumentNames::differentlyWritten(const std::string& text) const {
    const std::string wanted = letters(text);
    std::vector<std::string> found;
    for (const auto& [code, markets] : marketsByCode) {
        if (wanted.find(letters(code)) == std::string::npos) {
            continue;
        }
        for (const std::string& market : markets) {
            if (wanted == letters(code) || wanted == letters(market + code) || wanted == letters(code + market)) {
                found.push_back(instrumentText(market, code));
            }
        }
    }
    return firstFew(std::move(found));
}

/// The instruments of other markets with the code that the text holds, else those with a code near to it.
std::vector<std::string> InstrumentNames::nearInstruments(const std::string& text) const {
    const WrittenName written = parts(text);
    if (written.code.empty()) {
        return {};
    }
    std::vector<std::string> codes;
    for (const auto& [code, markets] : marketsByCode) {
        const bool inMarket = std::find(markets.begin(), markets.end(), written.market) != markets.end();
        if (code == written.code || written.market.empty() || inMarket) {
            codes.push_back(code);
        }
    }
    std::vector<std::string> found;
    for (const std::string& code : nearNames(written.code, codes)) {
        for (const std::string& market : marketsByCode.at(code)) {
            const bool wanted = code == written.code || written.market.empty() || market == written.market;
            if (wanted) {
                found.push_back(instrumentText(market, code));
            }
        }
        if (code == written.code) {
            break;
        }
    }
    found.resize(std::min(found.size(), kMostSuggestions));
    return found;
}

}  // namespace feedesk
