#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <set>
#include <string_view>
#include <utility>

#include "feedesk/checking/duty_cuts.h"
#include "feedesk/checking/topics.h"
#include "feedesk/text/numbers.h"
#include "standalone/families.h"

namespace feedesk::checking {
namespace {

/// How many instruments there are of each market and product, the most first.
class GroupCounts {
public:
    /// Of the market, which outlives it.
    void add(const InstrumentList& instruments) {
        for (const qmservice::CInstrument* instrument : instruments) {
            ++counts[{instrument->market, instrument->productId}];
        }
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
        std::vector<std::pair<Group, std::size_t>> ordered(counts.begin(), counts.end());
        std::stable_sort(ordered.begin(), ordered.end(),
                         [](const auto& one, const auto& other) { return one.second > other.second; });
        std::vector<std::string> shown;
        std::size_t rest = total();
        for (std::size_t i = 0; i < std::min(ordered.size(), kShownGroups); ++i) {
            shown.push_back(fmt::format("{} {}", nameOf(ordered[i].first), grouped(ordered[i].second)));
            rest -= ordered[i].second;
        }
        return fmt::format("{}", fmt::join(shown, ", ")) +
               (rest == 0 ? ""
                          : fmt::format(" and {} of {}", grouped(rest),
                                        counted(ordered.size() - kShownGroups, "other group")));
    }

private:
    using Group = std::pair<std::string_view, std::string_view>;  // market and product

    static std::string nameOf(const Group& group) {
        return group.second.empty() ? std::string(group.first) : fmt::format("{} {}", group.first, group.second);
    }

    std::map<Group, std::size_t> counts;
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
    for (const AlikeAnswer& alike : facts.answers()) {
        bool isBuiltIn = false;
        for (const FeeLine& line : alike.answer.lines) {
            if (line.origin.level == Level::kBuiltInDefault) {
                isBuiltIn = true;
                defaults.parts.insert(line.part);
                addOldDuties(line, facts.folder().day, defaults.oldDuties);
            }
        }
        if (isBuiltIn) {
            defaults.groups.add(*alike.instruments);
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
    for (const AlikeAnswer& alike : facts.answers()) {
        const std::vector<FeeLine>& lines = alike.answer.lines;
        if (std::any_of(lines.begin(), lines.end(), [](const FeeLine& line) {
                return line.part == kCommissionPart && line.origin.level == Level::kNotSet;
            })) {
            groups.add(*alike.instruments);
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
