#include <fmt/format.h>

#include <algorithm>
#include <map>

#include "feedesk/checking/topics.h"
#include "feedesk/text/folding.h"
#include "standalone/loader/spreadsheet_code.h"
#include "standalone/text/nearness.h"
#include "standalone/text/numbers.h"
#include "standalone/text/unseen.h"

// Numbers and codes that are not what they look like.

namespace feedesk::checking {
namespace {

/// A name of the folder that other tables and systems repeat.
struct Name {
    const char* what;
    std::string market;  ///< in which it is one of its kind; empty for an account
    std::string text;
    Place place;
    std::vector<std::string> accounts;
};

std::vector<Name> accountNames(const FolderFacts& facts) {
    std::vector<Name> names;
    for (const standalone::Account& account : facts.market.accounts) {
        const std::string& number = account.record->accountId;
        names.push_back({"account", "", number, facts.placeOf(account.position), {number}});
    }
    return names;
}

std::vector<Name> codeNames(const FolderFacts& facts) {
    std::vector<Name> names;
    for (const standalone::ListedInstrument& listed : facts.market.instruments) {
        names.push_back({"code", listed.record->market, listed.record->code, facts.placeOf(listed.position), {}});
    }
    return names;
}

std::vector<Name> productNames(const FolderFacts& facts) {
    std::vector<Name> names;
    for (const standalone::ListedInstrument& listed : facts.market.instruments) {
        names.push_back(
            {"product", listed.record->market, listed.record->productId, facts.placeOf(listed.position), {}});
    }
    return names;
}

std::vector<Name> accountsAndCodes(const FolderFacts& facts) {
    std::vector<Name> names = accountNames(facts);
    const std::vector<Name> codes = codeNames(facts);
    names.insert(names.end(), codes.begin(), codes.end());
    return names;
}

// --- invisible characters

void addUnseen(const std::vector<Name>& names, Findings& findings) {
    for (const Name& name : names) {
        const standalone::Seen seen = standalone::seenOf(name.text);
        if (seen.first != nullptr) {
            findings.add({name.accounts,
                          1,
                          {name.place},
                          fmt::format("the {} that looks like {} holds a {}", name.what, seen.text, seen.first->name),
                          fmt::format("write {} here and wherever it is repeated", seen.text)});
        }
    }
}

// --- what spreadsheets do to numbers

std::string withoutZeros(const std::string& digits) {
    return digits.substr(std::min(digits.find_first_not_of('0'), digits.size() - 1));
}

/// The numbers of digits alone that are of one kind: the accounts, or the codes of a market.
class DigitNames {
public:
    void add(const std::string& text) {
        ++lengths[text.size()];
        ++count;
        hasLeadingZero = hasLeadingZero || text.front() == '0';
        byValue.emplace(withoutZeros(text), text);
    }

    /// The number that this one was before its zeros were lost; empty when nothing speaks for that.
    [[nodiscard]] std::string before(const std::string& text, bool isCode) const {
        const auto [first, last] = byValue.equal_range(text);
        const auto twin = std::find_if(first, last, [&](const auto& each) { return each.second != text; });
        if (twin != last) {
            return twin->second;
        }
        const auto& [usual, number] = *lengths.rbegin();
        return text.size() < usual && isUsual(number, isCode) ? std::string(usual - text.size(), '0') + text : "";
    }

private:
    /// Whether so many of the numbers say how long one is. A market's codes have one length; accounts need not, unless
    /// some begin with zeros and nearly all are as long.
    [[nodiscard]] bool isUsual(std::size_t number, bool isCode) const {
        return isCode ? number * 2 > count : hasLeadingZero && number * 4 > count * 3;
    }

    std::map<std::size_t, std::size_t> lengths;       // how many numbers there are of each
    std::multimap<std::string, std::string> byValue;  // by the number without zeros
    std::size_t count = 0;
    bool hasLeadingZero = false;
};

/// All numbers of a kind that lost their zeros, each with what it was.
Finding lostZeros(const std::vector<std::pair<Name, std::string>>& lost) {
    const auto& [first, before] = lost.front();
    Finding finding{{},
                    lost.size(),
                    {},
                    fmt::format("the {} {} seems to be {} without its zeros", first.what, first.text, before),
                    "write the zeros, and give the column the format \"text\" in the spreadsheet"};
    for (const auto& [name, was] : lost) {
        finding.places.push_back(name.place);
        finding.accounts.insert(finding.accounts.end(), name.accounts.begin(), name.accounts.end());
    }
    return finding;
}

// --- accounts and codes that are alike

/// The text as a hurried eye reads it.
std::string atAGlance(const Name& name) {
    std::string text = standalone::lowerCase(narrowed(standalone::seenOf(name.text).text));
    if (name.market.empty()) {
        // Codes of futures distinguish products by such letters.
        std::replace(text.begin(), text.end(), 'o', '0');
        std::replace(text.begin(), text.end(), 'l', '1');
        std::replace(text.begin(), text.end(), 'i', '1');
    }
    return text;
}

}  // namespace

void findInvisibleCharacters(const FolderFacts& facts, Findings& findings) {
    addUnseen(accountsAndCodes(facts), findings);
    addUnseen(productNames(facts), findings);
}

void findSpreadsheetNumbers(const FolderFacts& facts, Findings& findings) {
    const std::vector<Name> names = accountsAndCodes(facts);
    std::map<std::string, DigitNames> digits;  // by market
    for (const Name& name : names) {
        if (standalone::isDigits(name.text)) {
            digits[name.market].add(name.text);
        }
    }
    std::map<std::string, std::vector<std::pair<Name, std::string>>> spoilt;  // by market, with what they were
    for (const Name& name : names) {
        const bool isDigits = standalone::isDigits(name.text);
        const std::string before = isDigits ? digits[name.market].before(name.text, !name.market.empty()) : "";
        if (!before.empty()) {
            spoilt[name.market].emplace_back(name, before);
        } else if (!isDigits && standalone::loader::isSpreadsheetNumber(name.text)) {
            findings.add(
                {name.accounts,
                 1,
                 {name.place},
                 fmt::format("the {} {} seems to be a number as a spreadsheet writes it", name.what, name.text),
                 "write it in full, and give the column the format \"text\" in the spreadsheet"});
        }
    }
    for (const auto& [market, lost] : spoilt) {
        findings.add(lostZeros(lost));
    }
}

void findLookAlikes(const FolderFacts& facts, Findings& findings) {
    std::map<std::pair<std::string, std::string>, std::vector<Name>> alike;  // by market and look
    for (const Name& name : accountsAndCodes(facts)) {
        if (standalone::seenOf(name.text).first == nullptr) {
            alike[{name.market, atAGlance(name)}].push_back(name);
        }
    }
    for (const auto& [look, names] : alike) {
        for (std::size_t i = 1; i < names.size(); ++i) {
            findings.add({names[i].accounts,
                          1,
                          {names[i].place},
                          fmt::format("the {} {} looks like {} at {}", names[i].what, names[i].text, names.front().text,
                                      names.front().place.text()),
                          "rename one of them, or remove the one that is a slip"});
        }
    }
}

}  // namespace feedesk::checking
