#include <fmt/format.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <optional>
#include <tuple>

#include "feedesk/checking/line_faults.h"
#include "feedesk/checking/topics.h"
#include "feedesk/text/numbers.h"
#include "standalone/families.h"
#include "standalone/text/numbers.h"

// What time has passed over: contracts and schedules.

namespace feedesk::checking {
namespace {

// --- contracts

struct Month {
    int year;
    int month;
};

/// The year that ends with this digit and is nearest to the day.
int yearEndingWith(int digit, int today) {
    const int inDecade = today / 10 * 10 + digit;
    const auto distance = [&](int year) { return std::abs(year - today); };
    return std::min({inDecade - 10, inDecade, inDecade + 10},
                    [&](int one, int other) { return distance(one) < distance(other); });
}

/// The month of year and month, as "2610", or as "610" where one digit of the year is written.
std::optional<Month> monthIn(std::string_view digits, int today) {
    if (!standalone::isDigits(digits) || (digits.size() != 4 && digits.size() != 3)) {
        return std::nullopt;
    }
    const int number = standalone::numberIn<int>(digits).value_or(0);
    const int month = number % 100;
    if (month < 1 || month > 12) {
        return std::nullopt;
    }
    return Month{digits.size() == 4 ? 2000 + number / 100 : yearEndingWith(number / 100, today), month};
}

/// The run of digits behind the letters that the text begins with: "2610" of "rb2610" and of "v2610F".
std::string_view digitsBehindLetters(std::string_view text) {
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    const auto* const begin = std::find_if(text.begin(), text.end(), isDigit);
    if (begin == text.begin()) {
        return {};
    }
    const auto* const end = std::find_if_not(begin, text.end(), isDigit);
    return {begin, static_cast<std::size_t>(end - begin)};
}

/// Behind the underlying and C or P of an option's trading code: "2609" of "159915C2609M002950".
std::string_view digitsOfTradingCode(std::string_view name) {
    constexpr std::size_t kUnderlying = 6;
    const bool isCode = name.size() > kUnderlying + 5 && standalone::isDigits(name.substr(0, kUnderlying)) &&
                        (name[kUnderlying] == 'C' || name[kUnderlying] == 'P');
    return isCode ? name.substr(kUnderlying + 1, 4) : std::string_view();
}

/// The month of delivery or expiry, where code or name has it.
std::optional<Month> monthOf(const standalone::ListedInstrument& listed, int today) {
    if (standalone::rateFamilyOf(cost::Family::kFutures).lists.hold(listed)) {
        return monthIn(digitsBehindLetters(listed.record->code), today);
    }
    if (standalone::rateFamilyOf(cost::Family::kOption).lists.hold(listed)) {
        return monthIn(digitsOfTradingCode(listed.record->name), today);
    }
    return std::nullopt;
}

bool hasPassed(const Month& month, cost::Date day) {
    return std::make_tuple(month.year, month.month) < std::make_tuple(day.year(), day.month());
}

}  // namespace

void findExpiredContracts(const FolderFacts& facts, Findings& findings) {
    std::map<std::uint32_t, std::vector<const standalone::ListedInstrument*>> expired;  // by file
    for (const standalone::ListedInstrument& listed : facts.market.instruments) {
        const std::optional<Month> month = monthOf(listed, facts.day.year());
        if (month && hasPassed(*month, facts.day)) {
            expired[listed.position.file].push_back(&listed);
        }
    }
    for (const auto& [file, contracts] : expired) {
        const std::string which = contracts.size() == 1 ? contracts.front()->record->code
                                                        : fmt::format("{} to {}", contracts.front()->record->code,
                                                                      contracts.back()->record->code);
        findings.add({{},
                      contracts.size(),
                      {facts.placeOf(contracts.front()->position)},
                      fmt::format("{} with a delivery month before {}-{:02}: {}", counted(contracts.size(), "contract"),
                                  facts.day.year(), facts.day.month(), which),
                      "take them out, with the lines that are for them alone"});
    }
}

void findUncheckedSchedules(const FolderFacts& facts, Findings& findings) {
    for (const cost::Term& term : facts.folder.schedule().terms()) {
        const bool hasEnded = term.dates.until && *term.dates.until < facts.day;
        if (hasEnded || (term.checked && *term.checked >= facts.oldestCheck)) {
            continue;
        }
        const std::string found =
            term.checked ? fmt::format("the {} schedule was last checked on {}", cost::wordFor(term.family),
                                       term.checked->text())
                         : fmt::format("the {} schedule does not say when it was checked", cost::wordFor(term.family));
        findings.add({accountsOf(term), 1, {Place::of(term.where)}, found, "look it up and write the day in checked"});
    }
}

void findFutureChecks(const FolderFacts& facts, Findings& findings) {
    LineFaults faults;
    for (const cost::Term& term : facts.folder.schedule().terms()) {
        if (term.checked && *term.checked > facts.newestCheck) {
            faults.add(Place::of(term.where), accountsOf(term),
                       fmt::format("the {} schedule says that it was checked on {}, a day to come",
                                   cost::wordFor(term.family), term.checked->text()),
                       "write the day on which it was looked up");
        }
    }
    faults.addTo(findings);
}

}  // namespace feedesk::checking
