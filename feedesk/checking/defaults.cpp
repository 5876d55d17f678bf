#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <set>

#include "feedesk/checking/duty_cuts.h"
#include "feedesk/checking/topics.h"
#include "feedesk/text/numbers.h"
#include "standalone/families.h"

namespace feedesk::checking {
namespace {

/// How many instruments there are of each market and product, the most first.
class GroupCounts {
public:
    void add(const qmservice::CInstrument& instrument) {
        ++counts[instrument.productId.empty() ? instrument.market
                                              : fmt::format("{} {}", instrument.market, instrument.productId)];
    }

    [[nodiscard]] std::size_t total() const {
        std::size_t sum = 0;
        for (const auto& [group, count] : counts) {
            sum += count;
        }
        return sum;
    }

    /// "SH ETF 889, BJ BSE 315 and 40 of 3 other groups".
    [[nodiscard]] std::string text() const {
        constexpr std::size_t kShownGroups = 4;
        std::vector<std::pair<std::string, std::size_t>> ordered(counts.begin(), counts.end());
        std::stable_sort(ordered.begin(), ordered.end(),
                         [](const auto& one, const auto& other) { return one.second > other.second; });
        std::vector<std::string> shown;
        std::size_t rest = total();
        for (std::size_t i = 0; i < std::min(ordered.size(), kShownGroups); ++i) {
            shown.push_back(fmt::format("{} {}", ordered[i].first, grouped(ordered[i].second)));
            rest -= ordered[i].second;
        }
        return fmt::format("{}", fmt::join(shown, ", ")) +
               (rest == 0 ? ""
                          : fmt::format(" and {} of {}", grouped(rest),
                                        counted(ordered.size() - kShownGroups, "other group")));
    }

private:
    std::map<std::string, std::size_t> counts;
};

/// What of an account's answers is built in.
struct Defaults {
    GroupCounts groups;
    std::set<std::string> parts;
    std::set<std::string> oldDuties;
};

void addOldDuties(const FeeLine& line, cost::Date day, std::set<std::string>& texts) {
    const standalone::RateFamily& family = standalone::rateFamily(line.part);
    for (const TitledRates& titled : line.rates) {
        for (const ShownRate& rate : titled.rates) {
            const DutyCut* cut = dutyCutOf(family, rate.column, rate.value);
            if (cut != nullptr && day >= cut->from) {
                texts.insert(cut->text());
            }
        }
    }
}

Defaults defaultsOf(const AccountFacts& facts) {
    Defaults defaults;
    for (const Answer& answer : facts.answers()) {
        bool isBuiltIn = false;
        for (const FeeLine& line : answer.lines) {
            if (line.origin.level == Level::kBuiltInDefault) {
                isBuiltIn = true;
                defaults.parts.insert(line.part);
                addOldDuties(line, facts.folder().day, defaults.oldDuties);
            }
        }
        if (isBuiltIn) {
            defaults.groups.add(*answer.instrument);
        }
    }
    return defaults;
}

/// The tables that would answer for it, such as "fees/stock.csv".
std::string tablesOf(const std::set<std::string>& parts) {
    std::vector<std::string> tables;
    for (const std::string& part : parts) {
        const standalone::RateFamily& family = standalone::rateFamily(part);
        tables.push_back(family.feeAccounts.empty() ? family.customTable() : family.feeTable());
    }
    return fmt::format("{}", fmt::join(tables, " and "));
}

std::string shareOf(std::size_t count, std::size_t all) {
    return count == all ? fmt::format("all {}", counted(all, "instrument"))
                        : fmt::format("{} of {}", grouped(count), counted(all, "instrument"));
}

bool tradesByLists(const AccountFacts& facts) {
    return standalone::tradedFamily(facts.account().record->accountType) != nullptr;
}

}  // namespace

void findDefaults(AccountFacts& facts, Findings& findings) {
    const Defaults defaults = defaultsOf(facts);
    const std::size_t count = defaults.groups.total();
    if (count == 0 || !tradesByLists(facts)) {
        return;
    }
    std::string found = fmt::format("{} fall to the built-in {} rates: {}", shareOf(count, facts.questions()),
                                    fmt::join(defaults.parts, " and "), defaults.groups.text());
    for (const std::string& duty : defaults.oldDuties) {
        found += ", with " + duty;
    }
    findings.add({{facts.number()},
                  count,
                  {facts.place()},
                  found,
                  fmt::format("add lines to {} for them", tablesOf(defaults.parts))});
}

void findUnsetCommissions(AccountFacts& facts, Findings& findings) {
    GroupCounts groups;
    for (const Answer& answer : facts.answers()) {
        const auto unset = std::find_if(answer.lines.begin(), answer.lines.end(), [](const FeeLine& line) {
            return line.part == kCommissionPart && line.origin.level == Level::kNotSet;
        });
        if (unset != answer.lines.end()) {
            groups.add(*answer.instrument);
        }
    }
    if (groups.total() != 0) {
        findings.add({{facts.number()},
                      groups.total(),
                      {facts.place()},
                      fmt::format("{} with margins and without a commission: {}", counted(groups.total(), "instrument"),
                                  groups.text()),
                      "add their commission to fees/commission.csv or custom/commission.csv"});
    }
}

}  // namespace feedesk::checking
