#include "feedesk/completing/completions.h"

#include <algorithm>
#include <set>

#include "feedesk/completing/expected_word.h"
#include "feedesk/statements/layout.h"
#include "standalone/loader.h"

namespace feedesk {
namespace {

bool beginsWith(const std::string& text, const std::string& begun) { return text.compare(0, begun.size(), begun) == 0; }

/// Keeps the words in one order, each once.
class Candidates {
public:
    explicit Candidates(const std::string& begunWord) : begun(begunWord) {}

    void add(const std::string& word) {
        if (beginsWith(word, begun)) {
            found.insert(word);
        }
    }

    [[nodiscard]] std::vector<std::string> words() const { return {found.begin(), found.end()}; }

    const std::string& begun;

private:
    std::set<std::string> found;
};

/// A market with its colon until one is written, then what is in it. Codes and names without a market once they are
/// begun.
void addInstrument(Candidates& candidates, const qmservice::CInstrument& instrument) {
    const std::string market = instrument.market + ":";
    candidates.add(beginsWith(candidates.begun, market) ? market + instrument.code : market);
    if (!candidates.begun.empty()) {
        candidates.add(instrument.code);
        candidates.add(instrument.name);
    }
}

void addFrom(const standalone::Market& market, WordKind kind, Candidates& candidates) {
    if (kind == WordKind::kAccount) {
        for (const standalone::Account& account : market.accounts) {
            candidates.add(account.record->accountId);
        }
    } else if (kind == WordKind::kMarket) {
        for (const standalone::MarketPlace& place : market.markets) {
            candidates.add(place.market);
        }
    } else {
        for (const standalone::ListedInstrument& listed : market.instruments) {
            addInstrument(candidates, *listed.record);
        }
    }
}

}  // namespace

std::vector<std::string> completions(const CLI::App& app, const Choices& choices, const std::vector<std::string>& words,
                                     const FolderWords& folderWords) {
    const std::string begun = words.empty() ? "" : words.back();
    const std::vector<std::string> before(words.begin(), words.empty() ? words.end() : words.end() - 1);
    const ExpectedWord expected = expectedWord(app, choices, before, begun);
    const std::string begunWord = begun.substr(expected.written.size());
    Candidates candidates(begunWord);
    for (const std::string& word : expected.words) {
        candidates.add(word);
    }
    if (expected.kind == WordKind::kLayout) {
        for (const std::string& name : folderWords.layouts(before)) {
            candidates.add(name);
        }
    } else if (expected.kind != WordKind::kFree && expected.kind != WordKind::kListed) {
        addFrom(folderWords.market(before), expected.kind, candidates);
    }
    std::vector<std::string> found = candidates.words();
    for (std::string& word : found) {
        word.insert(0, expected.written);
    }
    return found;
}

FolderWords namedFolderWords(const std::string& folder) {
    const auto named = [folder](const std::vector<std::string>& words) {
        const auto option = std::find(words.begin(), words.end(), "--market");
        return words.end() - option > 1 ? *(option + 1) : folder;
    };
    return {[named](const auto& words) { return standalone::loadFolder(named(words)).folder.everyDay(); },
            [named](const auto& words) { return layoutNames(named(words)); }};
}

}  // namespace feedesk
