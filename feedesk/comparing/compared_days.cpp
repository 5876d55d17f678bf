#include "feedesk/comparing/compared_days.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "feedesk/failure.h"
#include "feedesk/text/text.h"

namespace feedesk {
namespace {

/// Throws the sentence that refuses a day of one of the folders, if there is one.
void requireCovered(const ComparedFolder& compared, cost::Date day) {
    const std::string refusal = compared.folder().coverage().refusal(day);
    if (!refusal.empty()) {
        throw Failure(kBadInput,
                      fmt::format("{}: {} with --from and --until", pathText(compared.folder().name()), refusal));
    }
}

/// The last day that both folders cover; empty: all.
std::optional<cost::Date> lastDay(const ComparedFolder& before, const ComparedFolder& after) {
    const auto& one = before.folder().coverage().days.until;
    const auto& other = after.folder().coverage().days.until;
    return one && other ? std::min(one, other) : (one ? one : other);
}

/// Whether all of the days are covered.
bool covers(const cost::DateRange& covered, const cost::DateRange& days) {
    return covered.contains(*days.from) && (!covered.until || (days.until && *days.until <= *covered.until));
}

}  // namespace

cost::DateRange comparedDays(const cost::DateRange& asked, const ComparedFolder& before, const ComparedFolder& after) {
    cost::DateRange days = asked;
    if (!days.from) {
        days.from = std::min(before.folder().defaultDay(), after.folder().defaultDay());
    }
    if (!days.until) {
        days.until = lastDay(before, after);
    }
    for (const cost::Date each : {*days.from, days.until.value_or(*days.from)}) {
        requireCovered(before, each);
        requireCovered(after, each);
    }
    if (days.until && *days.until < *days.from) {
        throw Failure(kBadInput, fmt::format("the days end on {}, before they begin on {}; name others with --from "
                                             "and --until",
                                             days.until->text(), days.from->text()));
    }
    return days;
}

std::vector<std::string> coverageNotes(const ComparedFolder& before, const ComparedFolder& after,
                                       const cost::DateRange& days) {
    std::vector<std::pair<std::string, std::vector<std::string>>> joined;  // what is known, and in which folders
    for (const ComparedFolder* compared : {&before, &after}) {
        const auto addNote = [&](std::string_view what, std::string_view name, const cost::DateRange& covered) {
            if (covers(covered, days)) {
                return;
            }
            const std::string known = fmt::format(
                "the schedules of {} {} are known {}; other days of it are not compared", what, name, covered.text());
            auto same =
                std::find_if(joined.begin(), joined.end(), [&](const auto& each) { return each.first == known; });
            same = same == joined.end() ? joined.insert(same, {known, {}}) : same;
            same->second.push_back(pathText(compared->folder().name()));
        };
        const standalone::Coverage& coverage = compared->folder().coverage();
        for (std::size_t family = 0; family < coverage.familyDays.size(); ++family) {
            addNote("family", cost::wordFor(static_cast<cost::Family>(family)), coverage.familyDays[family]);
        }
        for (const auto& [market, covered] : coverage.marketDays) {
            addNote("market", market, covered);
        }
    }
    std::vector<std::string> notes;
    notes.reserve(joined.size());
    for (const auto& [known, folders] : joined) {
        notes.push_back(folders.size() == 2 ? known : fmt::format("in {} {}", folders.front(), known));
    }
    return notes;
}

}  // namespace feedesk
