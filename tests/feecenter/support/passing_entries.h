#ifndef TESTS_FEECENTER_SUPPORT_PASSING_ENTRIES_H
#define TESTS_FEECENTER_SUPPORT_PASSING_ENTRIES_H

#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "support/scene.h"
#include "support/table_checks.h"

namespace test {

/// Entries of a scene's new account that are in a family's tables for as long as a test wants and no longer: the
/// bystander's. What somebody kept of them stays at its address when they vanish, and names the known account's record.
class PassingEntries {
public:
    explicit PassingEntries(OpenFeeCenter& center) {
        add({"stock"}, center.stockRateLimitPool, center.stockAccountTable);
        add({"credit"}, center.creditRateLimitPool, center.creditAccountTable);
        add({"neeq"}, center.neeqRateLimitPool, center.neeqAccountTable);
        add({"hgt"}, center.hgtRateLimitPool, center.hgtAccountTable);
        add({"sgt"}, center.sgtRateLimitPool, center.sgtAccountTable);
        add({"stkOption", "stkOptionTable"}, center.stkOptionItemPool, center.stkOptionAccountTable);
        add({"future"}, center.futureCommissionDetails, center.futureCommissionKeys);
        add({"future"}, center.futureMarginDetails, center.futureMarginKeys);
        addBaseRates(center);
    }

    /// In the tables that the lock guards.
    void appear(const std::string& lock) { each(lock, &Tables::appear); }
    void vanish(const std::string& lock) { each(lock, &Tables::vanish); }

private:
    struct Tables {
        std::set<std::string> locks;
        std::function<void()> appear;
        std::function<void()> vanish;
    };

    void each(const std::string& lock, std::function<void()> Tables::*act) {
        for (const Tables& one : tables) {
            if (one.locks.count(lock) != 0) {
                (one.*act)();
            }
        }
    }

    template <class Pool, class Table>
    void add(const std::set<std::string>& locks, Pool& pool, Table& table) {
        const auto appear = [&table, &pool, records = pool] {
            for (const auto& record : records) {
                pool[record.first] = record.second;
            }
            table[kNew] = table.at(kBystander);
        };
        const auto kept = std::make_shared<std::vector<typename Table::node_type>>();
        const auto vanish = [&table, &pool, records = pool, kept] {
            for (auto& entry : table.at(kNew)) {
                entry.second = table.at(kKnown).begin()->second;
            }
            for (const auto& bystanders : table.at(kBystander)) {
                for (const uint64 key : keysIn(bystanders.second)) {
                    pool[key] = records.at(keysIn(table.at(kKnown).begin()->second).front());
                }
            }
            kept->push_back(table.extract(kNew));
        };
        tables.push_back({locks, appear, vanish});
    }

    /// A rate that answerText() takes for torn is there whenever the entries are not.
    void addBaseRates(OpenFeeCenter& center) {
        const auto set = [&center](double rate) {
            for (const auto& entry : center.stkOptionAccountTable.at(kBystander)) {
                center.stkOptionBaseRateTable[kNew][entry.first] = rate;
            }
        };
        set(0.2);
        tables.push_back({{"stkOption", "stkOptionTable"}, [set] { set(0.3); }, [set] { set(0.2); }});
    }

    std::vector<Tables> tables;
};

}  // namespace test

#endif  // TESTS_FEECENTER_SUPPORT_PASSING_ENTRIES_H
