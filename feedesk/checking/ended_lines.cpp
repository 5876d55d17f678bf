#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>

#include "feedesk/checking/topics.h"
#include "feedesk/instruments/instrument_text.h"
#include "feedesk/text/numbers.h"
#include "standalone/families.h"

// Lines whose days end: what the fee center answers for their instruments on the next day.

namespace feedesk::checking {
namespace {

using standalone::Position;

/// Calls `visit` with each line that can give the account rates, whatever its days.
template <class Visit>
void forEachLineOf(const AccountFacts& facts, const Visit& visit) {
    const standalone::loader::AccountLines& own = facts.lines();
    std::for_each(own.fees.begin(), own.fees.end(), visit);
    std::for_each(own.customFees.begin(), own.customFees.end(), visit);
    const standalone::RateFamily* traded = standalone::tradedFamily(facts.account().record->accountType);
    for (const standalone::loader::ConfiguredLine& kept : facts.folder().folder.content().configuredLines) {
        if (traded != nullptr && kept.line->family->records == traded->records) {
            visit(kept);
        }
    }
}

/// The last days of lines from the asked day on behind which the account's schedules go on.
std::set<cost::Date> lastDays(const AccountFacts& facts) {
    const cost::DateRange covered = facts.folder().folder.coverage().of(askedFamily(facts.account()));
    std::set<cost::Date> last;
    forEachLineOf(facts, [&](const standalone::loader::KeptLine& kept) {
        const std::optional<cost::Date>& until = kept.line->days.until;
        const auto next = until && *until >= facts.folder().day ? until->next() : std::nullopt;
        if (next && covered.contains(*next)) {
            last.insert(*until);
        }
    });
    return last;
}

/// The days of each line.
using LineDays = std::map<Position, cost::DateRange>;

/// None where no line ends.
LineDays lineDays(const AccountFacts& facts) {
    LineDays days;
    if (!lastDays(facts).empty()) {
        forEachLineOf(facts, [&](const standalone::loader::KeptLine& kept) { days[kept.position] = kept.line->days; });
    }
    return days;
}

/// A line of an answer that ended, and the answer for the next day where it stood; null where there is none.
struct Step {
    Position ended;
    cost::Date next;
    const FeeLine& before;
    const FeeLine* after;
};

/// Instruments that one thing becomes of.
struct Fallen {
    std::size_t count = 0;
    std::string example;

    void add(const qmservice::CInstrument& instrument) {
        example = count == 0 ? instrumentText(instrument.market, instrument.code) : example;
        ++count;
    }
    [[nodiscard]] std::string text() const {
        return fmt::format("{}, such as {}", counted(count, "instrument"), example);
    }
};

const FeeLine* lineLike(const Answer& answer, const FeeLine& wanted) {
    const auto found = std::find_if(answer.lines.begin(), answer.lines.end(), [&](const FeeLine& line) {
        return line.part == wanted.part && line.item == wanted.item;
    });
    return found == answer.lines.end() ? nullptr : &*found;
}

/// Calls `visit` with each line of an answer that ends on the day, and with each instrument that has an answer on the
/// next one.
template <class Visit>
void forEachStep(AccountFacts& facts, const LineDays& days, cost::Date last, const Visit& visit) {
    const cost::Date next = last.next().value_or(last);
    const AccountAnswers& before = facts.answersOn(last);
    std::unordered_map<const qmservice::CInstrument*, const Answer*> after;
    for (const AlikeAnswer& alike : facts.answersOn(next).answers) {
        for (const qmservice::CInstrument* instrument : *alike.instruments) {
            after.emplace(instrument, &alike.answer);
        }
    }
    for (const AlikeAnswer& alike : before.answers) {
        for (const FeeLine& line : alike.answer.lines) {
            const auto ended = line.origin.position ? days.find(*line.origin.position) : days.end();
            if (ended == days.end() || ended->second.until != last) {
                continue;
            }
            for (const qmservice::CInstrument* instrument : *alike.instruments) {
                const auto answer = after.find(instrument);
                if (answer != after.end()) {
                    visit(*instrument, Step{ended->first, next, line, lineLike(*answer->second, line)});
                }
            }
        }
    }
}

template <class Visit>
void forEachStep(AccountFacts& facts, const LineDays& days, const Visit& visit) {
    for (const cost::Date last : lastDays(facts)) {
        forEachStep(facts, days, last, visit);
    }
}

bool sameRates(const FeeLine& one, const FeeLine& other) {
    const auto sameRate = [](const ShownRate& a, const ShownRate& b) { return a.value == b.value; };
    return std::equal(one.rates.begin(), one.rates.end(), other.rates.begin(), other.rates.end(),
                      [&](const TitledRates& a, const TitledRates& b) {
                          return std::equal(a.rates.begin(), a.rates.end(), b.rates.begin(), b.rates.end(), sameRate);
                      });
}

/// Whether the line that answers next was there all the while and gives other rates.
bool isFallback(const Step& step, const LineDays& days) {
    if (sameRates(step.before, *step.after)) {
        return false;
    }
    const auto line = days.find(*step.after->origin.position);
    return line == days.end() || line->second.contains(*days.at(step.ended).until);
}

/// A line that ended, and what answers in its place: a line, or what is said where none does.
using Fallback = std::pair<Position, std::string>;
using Fallbacks = std::map<Fallback, Fallen>;

/// `found`: from the days and the instruments to a clause.
template <class Found>
void addFindings(const AccountFacts& facts, const LineDays& days, const Fallbacks& fallbacks, const Found& found,
                 Findings& findings) {
    for (const auto& [fallback, fallen] : fallbacks) {
        const cost::Date last = *days.at(fallback.first).until;
        const std::string next = last.next().value_or(last).text();
        findings.add({{facts.number()},
                      fallen.count,
                      {facts.folder().placeOf(fallback.first)},
                      fmt::format("ends on {}, and from {} on {}", last.text(), next, found(fallback.second, fallen)),
                      fmt::format("add a line from {}, or see that this is meant", next)});
    }
}

}  // namespace

void findEndedLines(AccountFacts& facts, Findings& findings) {
    const LineDays days = lineDays(facts);
    Fallbacks fallbacks;
    forEachStep(facts, days, [&](const qmservice::CInstrument& instrument, const Step& step) {
        if (step.after == nullptr || !step.after->origin.position) {
            const Level level = step.after == nullptr ? Level::kNotSet : step.after->origin.level;
            fallbacks[{step.ended, levelName(level)}].add(instrument);
        }
    });
    addFindings(
        facts, days, fallbacks,
        [](const std::string& level, const Fallen& fallen) {
            return fmt::format("no line follows for {}: {}", fallen.text(), level);
        },
        findings);
}

void findEndedExceptions(AccountFacts& facts, Findings& findings) {
    const LineDays days = lineDays(facts);
    Fallbacks fallbacks;
    forEachStep(facts, days, [&](const qmservice::CInstrument& instrument, const Step& step) {
        if (step.after != nullptr && step.after->origin.position && isFallback(step, days)) {
            fallbacks[{step.ended, facts.folder().placeOf(*step.after->origin.position).text()}].add(instrument);
        }
    });
    addFindings(
        facts, days, fallbacks,
        [](const std::string& place, const Fallen& fallen) {
            return fmt::format("{} answers for {}, with other rates", place, fallen.text());
        },
        findings);
}

}  // namespace feedesk::checking
