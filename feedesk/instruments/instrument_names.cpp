#include "feedesk/instruments/instrument_names.h"

#include <fmt/format.h>

#include <algorithm>
#include <boost/algorithm/string/predicate.hpp>
#include <boost/make_shared.hpp>
#include <tuple>

#include "feedesk/instruments/instrument_advice.h"
#include "feedesk/instruments/instrument_patterns.h"
#include "feedesk/text/folding.h"
#include "feedesk/text/text.h"
#include "standalone/text/wording.h"

namespace feedesk {
namespace {

constexpr std::size_t kMostCandidates = 8;

/// What is left of the text without a market in front of it, and without one behind it.
std::vector<std::string> withoutMarket(const std::string& text, const std::string& market) {
    std::vector<std::string> rests;
    if (boost::starts_with(text, market)) {
        rests.push_back(text.substr(market.size()));
    }
    if (boost::ends_with(text, market)) {
        rests.push_back(text.substr(0, text.size() - market.size()));
    }
    return rests;
}

/// Adds the instruments that are in the market, each once.
void addFrom(const AskedMarket& asked, const NamedInstruments& named, std::vector<Question>& candidates) {
    for (const NamedInstrument& instrument : named) {
        const bool isThere = std::any_of(candidates.begin(), candidates.end(), [&](const Question& candidate) {
            return candidate.market == asked.name && candidate.code == instrument->code;
        });
        if (instrument->market == asked.market && !isThere) {
            candidates.push_back({asked.name, instrument->code});
        }
    }
}

/// What instruments are sorted by.
std::tuple<const std::string&, const std::string&> placeOf(const InstrumentName& name) {
    return {name.market, name.code};
}

std::string candidatesText(const std::vector<Question>& candidates) {
    std::vector<std::string> texts;
    texts.reserve(candidates.size());
    for (const Question& candidate : candidates) {
        texts.push_back(instrumentText(candidate));
    }
    return standalone::oneOf(texts, kMostCandidates);
}

}  // namespace

InstrumentNames::InstrumentNames(const standalone::Market& market) {
    for (const standalone::ListedInstrument& listed : market.instruments) {
        instruments.push_back(boost::make_shared<InstrumentName>(listed));
    }
    std::sort(instruments.begin(), instruments.end(),
              [](const NamedInstrument& one, const NamedInstrument& other) { return placeOf(*one) < placeOf(*other); });
    markets = askedMarketsOf(instruments);
    for (const NamedInstrument& instrument : instruments) {
        byFoldedCode[instrument->foldedCode].push_back(instrument);
        byFoldedName[instrument->foldedName].push_back(instrument);
    }
}

NamedInstrument InstrumentNames::listed(const standalone::Lists& lists, const std::string& market,
                                        const std::string& code) const {
    const auto wanted = std::tie(market, code);
    auto found = std::lower_bound(instruments.begin(), instruments.end(), wanted,
                                  [](const NamedInstrument& one, const auto& place) { return placeOf(*one) < place; });
    while (found != instruments.end() && placeOf(**found) == wanted && !lists.overlap((*found)->lists)) {
        ++found;
    }
    return found != instruments.end() && placeOf(**found) == wanted ? *found : NamedInstrument();
}

const NamedInstruments& InstrumentNames::under(const Index& index, const std::string& key) {
    static const NamedInstruments none;
    const auto found = index.find(key);
    return key.empty() || found == index.end() ? none : found->second;
}

AskedMarkets InstrumentNames::marketsAsked(bool connect) const {
    AskedMarkets all = markets;
    if (connect) {
        const AskedMarkets more = channels();
        all.insert(all.end(), more.begin(), more.end());
    }
    return all;
}

std::vector<Question> InstrumentNames::withCode(const std::string& code, const AskedMarkets& askedMarkets) const {
    std::vector<Question> found;
    for (const AskedMarket& asked : askedMarkets) {
        addFrom(asked, under(byFoldedCode, folded(code)), found);
    }
    found.erase(
        std::remove_if(found.begin(), found.end(), [&](const Question& question) { return question.code != code; }),
        found.end());
    return found;
}

/// By market and code. What has a code of that very writing means it, whatever else could be meant when it is folded.
std::vector<Question> InstrumentNames::asWritten(const std::string& text, const AskedMarkets& askedMarkets) const {
    for (const MarketAndName& reading : readings(text)) {
        for (const AskedMarket& asked : askedMarkets) {
            if (!asked.isCalled(reading.market)) {
                continue;
            }
            std::vector<Question> found = withCode(reading.name, {asked});
            if (!found.empty()) {
                return found;
            }
        }
    }
    return {};
}

std::vector<Question> InstrumentNames::asFolded(const std::string& text, const AskedMarkets& askedMarkets) const {
    const std::string wanted = folded(text);
    std::vector<Question> found;
    const auto add = [&](const AskedMarket& asked, const std::string& name) {
        addFrom(asked, under(byFoldedCode, name), found);
        addFrom(asked, under(byFoldedName, name), found);
    };
    for (const AskedMarket& asked : markets) {
        add(asked, wanted);
    }
    for (const AskedMarket& asked : askedMarkets) {
        for (const std::string& name : withoutMarket(wanted, folded(asked.name))) {
            add(asked, name);
        }
    }
    return found;
}

/// The instruments that the text may name, more than one when it is not clear which.
std::vector<Question> InstrumentNames::meant(const std::string& text, bool connect) const {
    const AskedMarkets askedMarkets = marketsAsked(connect);
    std::vector<Question> found = withCode(text, markets);
    if (found.empty()) {
        found = asWritten(text, askedMarkets);
    }
    return found.empty() ? asFolded(text, askedMarkets) : found;
}

std::vector<Question> InstrumentNames::find(const std::string& text, bool connect) const {
    std::vector<Question> candidates = meant(text, connect);
    if (candidates.size() == 1) {
        return candidates;
    }
    return isPattern(text) ? questionsLike(text, instruments, marketsAsked(connect)) : std::vector<Question>();
}

std::vector<Question> InstrumentNames::search(const std::string& text) const {
    if (isPattern(text)) {
        return find(text, false);
    }
    std::vector<Question> found = meant(text, false);
    return found.empty() ? questionsWith(text, instruments, markets) : found;
}

std::string InstrumentNames::problem(const std::string& text, bool connect) const {
    if (isPattern(text)) {
        return patternProblem(text, instruments, marketsAsked(connect));
    }
    if (withCode(text, markets).size() > 1) {
        return fmt::format("several markets have the code {}: write {}", text, candidatesText(withCode(text, markets)));
    }
    const std::vector<Question> candidates = meant(text, connect);
    if (!candidates.empty()) {
        return fmt::format("{} may mean several instruments: write {}", echoed(text), candidatesText(candidates));
    }
    return fmt::format("the market folder has no instrument {}{}", echoed(text), instrumentAdvice(text, instruments));
}

}  // namespace feedesk
