#include "fuzz/day_checks.h"

#include <algorithm>
#include <string>

#include "fuzz/fail.h"
#include "fuzz/market_checks.h"
#include "standalone/market_files.h"

namespace fuzz {
namespace {

using standalone::MarketFolder;

constexpr std::size_t kMostIntervals = 8;

void checkIntervals(const Files& files, const MarketFolder& folder) {
    checkWhole(files, folder.marketOn(cost::Date()));
    std::size_t interval = folder.intervalOf(cost::Date());
    for (const cost::Date change : folder.changeDates()) {
        if (folder.intervalOf(*change.previous()) != interval) {
            fail("a day is in the interval before the change");
        }
        if (folder.intervalOf(change) != ++interval) {
            fail("a change begins the next interval");
        }
        if (interval <= kMostIntervals) {
            checkWhole(files, folder.marketOn(change));
        }
    }
    if (folder.intervalOf(cost::Date::last()) != interval) {
        fail("the last interval does not end");
    }
}

void checkTerms(const Files& files, const MarketFolder& folder) {
    const auto table = files.find(standalone::files::kCharges);
    const auto& terms = folder.schedule().terms();
    if (table == files.end() && !terms.empty()) {
        fail("terms come from a table");
    }
    for (const cost::Term& term : terms) {
        const std::size_t line = std::stoul(term.where.substr(std::string(standalone::files::kCharges).size() + 1));
        const auto lines = static_cast<std::size_t>(std::count(table->second.begin(), table->second.end(), '\n')) + 1;
        if (line < 2 || line > lines) {
            fail("a term is below the header: " + term.where);
        }
        if (!cost::faultsOf(term).empty()) {
            fail("a term has no fault: " + term.where);
        }
    }
}

}  // namespace

void checkDays(const Files& files, const MarketFolder& folder) {
    checkIntervals(files, folder);
    checkTerms(files, folder);
}

}  // namespace fuzz
