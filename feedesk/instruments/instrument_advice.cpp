#include "feedesk/instruments/instrument_advice.h"

#include <fmt/format.h>

#include <algorithm>
#include <boost/algorithm/string/predicate.hpp>
#include <iterator>
#include <map>
#include <set>
#include <utility>
#include <vector>

#include "feedesk/instruments/instrument_patterns.h"
#include "feedesk/text/folding.h"
#include "feedesk/text/patterns.h"
#include "standalone/text/nearness.h"

namespace feedesk {
namespace {

constexpr std::size_t kMostSuggestions = 3;

using Folded = std::string InstrumentName::*;
using Suggestions = std::vector<std::string>;

/// A name and where to look for what is like it.
struct Search {
    std::string name;
    NamedInstruments instruments;
};

template <class Wanted>
NamedInstruments only(const NamedInstruments& instruments, const Wanted& isWanted) {
    NamedInstruments found;
    std::copy_if(instruments.begin(), instruments.end(), std::back_inserter(found), isWanted);
    return found;
}

/// The text in the markets that it names, in front or behind, even without a mark between; else in all.
std::vector<Search> searches(const std::string& text, const NamedInstruments& instruments) {
    std::vector<Search> found;
    const std::string wanted = folded(text);
    for (const AskedMarket& asked : askedMarketsOf(instruments)) {
        const std::string market = folded(asked.market);
        const auto add = [&](const std::string& name) {
            found.push_back(
                {name, only(instruments, [&](const NamedInstrument& each) { return each->market == asked.market; })});
        };
        if (boost::starts_with(wanted, market)) {
            add(wanted.substr(market.size()));
        }
        if (boost::ends_with(wanted, market)) {
            add(wanted.substr(0, wanted.size() - market.size()));
        }
    }
    found.push_back({wanted, instruments});
    return found;
}

Suggestions codesOf(const NamedInstruments& instruments) {
    Suggestions texts;
    for (const NamedInstrument& each : instruments) {
        texts.push_back(instrumentText(*each));
    }
    return texts;
}

Suggestions codesAndNamesOf(const NamedInstruments& instruments) {
    Suggestions texts;
    for (const NamedInstrument& each : instruments) {
        texts.push_back(fmt::format("{} ({})", instrumentText(*each), each->name));
    }
    return texts;
}

/// The instruments whose code or name, folded, is near to the search's, nearest first.
NamedInstruments near(Folded member, const Search& search) {
    std::map<std::string, NamedInstruments> byText;
    for (const NamedInstrument& each : search.instruments) {
        byText[(*each).*member].push_back(each);
    }
    std::vector<std::string> known;
    known.reserve(byText.size());
    for (const auto& [text, instruments] : byText) {
        known.push_back(text);
    }
    NamedInstruments found;
    for (const std::string& text : standalone::nearNames(search.name, known)) {
        found.insert(found.end(), byText[text].begin(), byText[text].end());
    }
    return found;
}

std::string didYouMean(Suggestions suggestions) {
    suggestions.resize(std::min(suggestions.size(), kMostSuggestions));
    return fmt::format("; did you mean {}?", fmt::join(suggestions, " or "));
}

/// The instruments with the code that the text holds together with a market that does not have it.
NamedInstruments inOtherMarkets(const std::string& text, const NamedInstruments& instruments) {
    std::set<std::string> codes;
    for (const MarketAndName& reading : readings(narrowed(text))) {
        codes.insert(folded(reading.name));
    }
    for (const Search& search : searches(text, instruments)) {
        codes.insert(search.name);
    }
    return only(instruments, [&](const NamedInstrument& each) { return codes.count(each->foldedCode) != 0; });
}

std::string adviceOf(const Search& search) {
    if (search.name.empty()) {
        return "";
    }
    if (const NamedInstruments codes = near(&InstrumentName::foldedCode, search); !codes.empty()) {
        return didYouMean(codesOf(codes));
    }
    const std::string inside = widened(search.name);
    const NamedInstruments holding = instrumentsLike(inside, search.instruments);
    if (holding.size() > kMostSuggestions) {
        return insideAdvice("'" + inside + "'");
    }
    const NamedInstruments named = holding.empty() ? near(&InstrumentName::foldedName, search) : holding;
    return named.empty() ? "" : didYouMean(codesAndNamesOf(named));
}

}  // namespace

std::string instrumentAdvice(const std::string& text, const NamedInstruments& instruments) {
    if (const NamedInstruments elsewhere = inOtherMarkets(text, instruments); !elsewhere.empty()) {
        return didYouMean(codesOf(elsewhere));
    }
    for (const Search& search : searches(text, instruments)) {
        std::string advice = adviceOf(search);
        if (!advice.empty()) {
            return advice;
        }
    }
    return "";
}

}  // namespace feedesk
