#include "cost/ties.h"

#include <algorithm>
#include <array>
#include <map>
#include <tuple>
#include <utility>

namespace cost {
namespace {

using Texts = std::array<std::string_view, 4>;

Texts textsOf(const Term& term) {
    return {pattern(term.account), pattern(term.code), pattern(term.product), pattern(term.market)};
}

bool isExact(std::string_view text) { return !text.empty() && text.find('*') == std::string_view::npos; }

/// The texts that two terms of one tie share: those that name one thing.
Texts exactTextsOf(const Term& term) {
    Texts texts = textsOf(term);
    for (std::string_view& text : texts) {
        text = isExact(text) ? text : std::string_view("*");
    }
    return texts;
}

/// Whether the shorter of two beginnings (from the first character) or ends (from the last) is that of the longer.
template <class Iterator>
bool agree(Iterator one, Iterator oneEnd, Iterator other, Iterator otherEnd) {
    for (; one != oneEnd && other != otherEnd && *one != '*' && *other != '*'; ++one, ++other) {
        if (*one != *other) {
            return false;
        }
    }
    return true;
}

bool mayMeet(std::string_view one, std::string_view other) {
    return agree(one.begin(), one.end(), other.begin(), other.end()) &&
           agree(one.rbegin(), one.rend(), other.rbegin(), other.rend());
}

bool mayMeet(const Term& one, const Term& other) {
    const Texts texts = textsOf(one);
    const Texts others = textsOf(other);
    return texts != others && one.dates.overlaps(other.dates) &&
           std::equal(texts.begin(), texts.end(), others.begin(),
                      [](std::string_view a, std::string_view b) { return mayMeet(a, b); });
}

using Charge = std::tuple<Family, std::string_view, std::string_view>;

Charge chargeOf(const Term& term) { return {term.family, term.charge, term.item}; }

std::vector<std::size_t> aboveOf(const std::vector<Term>& terms, const Term& tied) {
    std::vector<std::size_t> above;
    for (std::size_t index = 0; index < terms.size(); ++index) {
        if (chargeOf(terms[index]) == chargeOf(tied) && specificity(terms[index]) > specificity(tied)) {
            above.push_back(index);
        }
    }
    return above;
}

Date laterStart(const DateRange& one, const DateRange& other) {
    return std::max(one.from.value_or(Date()), other.from.value_or(Date()));
}

/// The days on which the answer may change: the first common one, and those after an applying term has ended.
std::vector<Date> daysOf(const std::vector<Term>& terms, const Tie& tie, const std::vector<std::size_t>& applying) {
    std::vector<Date> days = {laterStart(terms[tie.earlier].dates, terms[tie.later].dates)};
    for (const std::size_t index : applying) {
        const std::optional<Date>& until = terms[index].dates.until;
        if (const auto after = until ? until->next() : std::nullopt) {
            days.push_back(*after);
        }
    }
    return days;
}

}  // namespace

std::vector<Tie> tiesOf(const std::vector<Term>& terms) {
    std::map<std::tuple<Charge, TermSide, Specificity, Texts>, std::vector<std::size_t>> alike;
    std::vector<Tie> ties;
    for (std::size_t index = 0; index < terms.size(); ++index) {
        const Term& term = terms[index];
        std::vector<std::size_t>& group = alike[{chargeOf(term), term.side, specificity(term), exactTextsOf(term)}];
        for (const std::size_t earlier : group) {
            if (mayMeet(terms[earlier], term)) {
                ties.push_back({earlier, index, aboveOf(terms, term)});
            }
        }
        group.push_back(index);
    }
    return ties;
}

bool isSettled(const std::vector<Term>& terms, const Tie& tie, const std::vector<std::size_t>& applying) {
    const Term& one = terms[tie.earlier];
    const Term& other = terms[tie.later];
    const auto isSettledOn = [&](Side side, Date day) {
        return std::any_of(applying.begin(), applying.end(), [&](std::size_t index) {
            return covers(terms[index].side, side) && terms[index].dates.contains(day);
        });
    };
    for (const Date day : daysOf(terms, tie, applying)) {
        for (std::size_t side = 0; side < kSideCount; ++side) {
            const bool isTied = covers(one.side, sideAt(side)) && one.dates.contains(day) && other.dates.contains(day);
            if (isTied && !isSettledOn(sideAt(side), day)) {
                return false;
            }
        }
    }
    return true;
}

std::string tieSentence(const std::vector<Term>& terms, const Tie& tie, const Place& place) {
    return "the line charges \"" + terms[tie.later].charge + "\" of " + place.instrument() + " for account " +
           place.account + " as " + terms[tie.earlier].where +
           " does, and neither is more specific; make one of them so, or add a line that is more specific than both";
}

}  // namespace cost
