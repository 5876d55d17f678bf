#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "cost/place.h"
#include "feedesk/checking/line_faults.h"
#include "feedesk/checking/topics.h"
#include "standalone/families.h"

namespace feedesk::checking {
namespace {

using standalone::RateFamily;
using Terms = std::vector<const cost::Term*>;

/// The charging terms that take their rate from a column.
class RateTerms {
public:
    explicit RateTerms(const FolderFacts& folder) : facts(folder), ahead{folder.day, std::nullopt} {
        for (const cost::Term& term : facts.folder.schedule().terms()) {
            families.insert(term.family);
            if (!term.rate) {
                terms[{term.family, term.charge}].push_back(&term);
            }
        }
    }

    /// Whether a term charges the rate on a day to come, for one who has the line. A family without any term is not
    /// charged by this folder, and none is missed.
    bool use(const FolderLine& line, std::size_t field) {
        bool isMissed = false;
        for (const RateFamily& family : standalone::rateFamilies()) {
            if (families.count(family.charged) == 0 || !mayPay(line, family)) {
                continue;
            }
            if (charges(line, family, field)) {
                return true;
            }
            isMissed = true;
        }
        return !isMissed;
    }

private:
    /// Families with the same records share configured limits, and who trades everything pays by several.
    static bool mayPay(const FolderLine& line, const RateFamily& family) {
        const auto* kind = line.account == nullptr ? nullptr : standalone::findAccountKind(line.account->accountType);
        return family.records == line.kept->line->family->records && (kind == nullptr || kind->trades(family.charged));
    }

    bool charges(const FolderLine& line, const RateFamily& family, std::size_t field) {
        const cost::DateRange& days = line.kept->line->days;
        const Terms& candidates = termsOf(family, field);
        return std::any_of(candidates.begin(), candidates.end(), [&](const cost::Term* term) {
            return term->dates.overlaps(days) && term->dates.overlaps(ahead) &&
                   (line.account == nullptr || cost::isForAccount(*term, line.account->accountId));
        });
    }

    const Terms& termsOf(const RateFamily& family, std::size_t field) {
        const auto found = byColumn.emplace(RateColumn{&family, field}, Terms());
        if (found.second) {
            const std::string charge = standalone::rateColumnNames(facts.market, family).at(field);
            found.first->second = terms[{family.charged, charge}];
        }
        return found.first->second;
    }

    const FolderFacts& facts;
    cost::DateRange ahead;
    std::set<cost::Family> families;
    std::map<std::pair<cost::Family, std::string>, Terms> terms;  // by charge
    std::map<RateColumn, Terms> byColumn;                         // those that have been looked at
};

}  // namespace

void findUnusedRates(const FolderFacts& facts, Findings& findings) {
    RateTerms terms(facts);
    LineFaults faults;
    forEachLine(facts, [&](const FolderLine& line) {
        const RateFamily& family = *line.kept->line->family;
        if (family.records == standalone::RateRecords::kMargin || !isAhead(facts, line)) {
            return;
        }
        for (const RateCell& cell : rateCells(facts, *line.kept)) {
            if (!terms.use(line, cell.field)) {
                faults.add(line, fmt::format("no charging term is for the rate {}", cell.column),
                           fmt::format("add a term of {} to charges.csv, or take the rate out", cell.column));
            }
        }
    });
    faults.addTo(findings);
}

}  // namespace feedesk::checking
