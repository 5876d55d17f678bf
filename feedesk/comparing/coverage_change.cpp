#include "feedesk/comparing/coverage_change.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>
#include <set>

#include "feedesk/text/text.h"

namespace feedesk {
namespace {

using cost::Date;
using cost::DateRange;

/// One end of the days that two folders know.
struct Ends {
    const char* verb;
    const char* none;  ///< said of a folder without that end
    std::optional<Date> DateRange::*day;
};

constexpr Ends kBegin = {"begin", "have no first day", &DateRange::from};
constexpr Ends kEnd = {"end", "have no last day", &DateRange::until};

/// The days of `all` that lie before those of `rest`.
std::optional<DateRange> daysBefore(const DateRange& all, const DateRange& rest) {
    if (!rest.from || (all.from && *all.from >= *rest.from)) {
        return std::nullopt;
    }
    DateRange lost{all.from, rest.from->previous()};
    lost.until = all.until ? std::min(lost.until, all.until) : lost.until;
    return lost;
}

/// The days of `all` that lie behind those of `rest`.
std::optional<DateRange> daysBehind(const DateRange& all, const DateRange& rest) {
    if (!rest.until || (all.until && *all.until <= *rest.until)) {
        return std::nullopt;
    }
    DateRange lost{rest.until->next(), all.until};
    lost.from = all.from ? std::max(lost.from, all.from) : lost.from;
    return lost;
}

bool isWithin(const DateRange& days, const DateRange& others) {
    return (!others.from || (days.from && *days.from >= *others.from)) &&
           (!others.until || (days.until && *days.until <= *others.until));
}

/// Adds what is lost of two folders' coverage, one part after another.
class Losses {
public:
    Losses(const ComparedFolder& fromFolder, const ComparedFolder& toFolder, const DateRange& askedDays)
        : from(fromFolder), to(toFolder), asked(askedDays) {}

    void add(const std::string& family, const std::string& market, const DateRange& before, const DateRange& after) {
        add({family, market, {}, ""}, daysBefore(before, after), kBegin, before, after);
        add({family, market, {}, ""}, daysBehind(before, after), kEnd, before, after);
    }

    std::vector<CoverageLoss> found;

private:
    /// What the folder loses as a whole is not said of its parts again.
    [[nodiscard]] bool isSaid(const DateRange& days) const {
        return std::any_of(found.begin(), found.end(), [&](const CoverageLoss& each) {
            return each.family.empty() && each.market.empty() && isWithin(days, each.days);
        });
    }

    void add(CoverageLoss loss, const std::optional<DateRange>& days, const Ends& end, const DateRange& before,
             const DateRange& after) {
        if (!days || !days->overlaps(asked) || isSaid(*days)) {
            return;
        }
        const std::string of = !loss.family.empty()   ? " of family " + loss.family
                               : !loss.market.empty() ? " of market " + loss.market
                                                      : "";
        const std::optional<Date>& old = before.*end.day;
        loss.days = *days;
        loss.sentence =
            fmt::format("{}'s schedules{} {} on {}, those of {} {}", pathText(to.folder().name()), of, end.verb,
                        (after.*end.day)->text(), pathText(from.folder().name()), old ? "on " + old->text() : end.none);
        found.push_back(std::move(loss));
    }

    const ComparedFolder& from;
    const ComparedFolder& to;
    const DateRange& asked;
};

/// The days that are known of a market.
const DateRange& daysOf(const standalone::Coverage& coverage, const std::string& market) {
    const auto own = coverage.marketDays.find(market);
    return own == coverage.marketDays.end() ? coverage.days : own->second;
}

}  // namespace

std::vector<CoverageLoss> lostCoverage(const ComparedFolder& from, const ComparedFolder& to, const DateRange& asked) {
    const standalone::Coverage& before = from.folder().coverage();
    const standalone::Coverage& after = to.folder().coverage();
    Losses losses(from, to, asked);
    losses.add("", "", before.days, after.days);
    for (std::size_t family = 0; family < before.familyDays.size(); ++family) {
        losses.add(std::string(cost::wordFor(static_cast<cost::Family>(family))), "", before.familyDays[family],
                   after.familyDays[family]);
    }
    std::set<std::string> markets;
    for (const standalone::Coverage* coverage : {&before, &after}) {
        for (const auto& [market, days] : coverage->marketDays) {
            markets.insert(market);
        }
    }
    for (const std::string& market : markets) {
        losses.add("", market, daysOf(before, market), daysOf(after, market));
    }
    return losses.found;
}

}  // namespace feedesk
