#include "histories/tables.h"

#include <boost/unordered_map.hpp>
#include <cstddef>
#include <map>
#include <vector>

#include "histories/record_fields.h"
#include "host/services.h"

namespace histories {
namespace {

using model::uint64;

constexpr uint64 kUnsetSlot = ~uint64{0};

/// The key that the fee center gives a record whose values make this text. An empty text is a slot that was never set.
uint64 contentKey(const std::string& text) {
    return text.empty() ? kUnsetSlot : qmservice::crc64(0, text.data(), text.size());
}

class Tables {
public:
    explicit Tables(Sharing& records) : sharing(records) {}

    std::string difference;

    template <class Record>
    void comparePool(const char* pool, const model::Model::Pool<Record>& expected,
                     const boost::unordered_map<uint64, boost::shared_ptr<Record>>& actual) {
        compareSizes(pool, expected.size(), actual.size());
        for (const auto& entry : expected) {
            const auto found = actual.find(contentKey(entry.first));
            if (found == actual.end()) {
                report(pool, "does not hold " + show(entry.second));
            } else {
                compareRecord(pool, entry.second, found->second);
            }
        }
    }

    template <class Expected, class Actual>
    void compareTable(const char* table, const model::Model::Table<Expected>& expected,
                      const std::map<uint64, boost::unordered_map<uint64, Actual>>& actual) {
        compareSizes(table, expected.size(), actual.size());
        for (const auto& account : expected) {
            const auto found = actual.find(account.first);
            if (found == actual.end()) {
                report(table, "has no account " + std::to_string(account.first));
            } else {
                compareEntries(table, account.second, found->second);
            }
        }
    }

    template <class Record>
    void compareRecord(const char* place, const boost::shared_ptr<Record>& expected,
                       const boost::shared_ptr<Record>& actual) {
        if (!actual || !sharing.pair(expected, actual)) {
            return report(place, "has another record in the place of " + show(expected) + ": " + show(actual));
        }
        if (actual.use_count() != 1) {
            report(place, "holds a record that someone else holds too: " + show(actual));
        }
        const auto text = fieldDifference(*expected, *actual);
        if (!text.empty()) {
            report(place, "holds a record with another " + text);
        }
    }

    void compareSizes(const char* place, std::size_t expected, std::size_t actual) {
        if (expected != actual) {
            report(place, "has " + std::to_string(actual) + " entries where the model has " + std::to_string(expected));
        }
    }

private:
    /// Keeps the first.
    void report(const char* place, const std::string& what) {
        if (difference.empty()) {
            difference = std::string(place) + ' ' + what;
        }
    }

    template <class Expected, class Actual>
    void compareEntries(const char* table, const std::map<std::string, Expected>& expected,
                        const boost::unordered_map<uint64, Actual>& actual) {
        compareSizes(table, expected.size(), actual.size());
        for (const auto& entry : expected) {
            const auto found = actual.find(utils::hash(entry.first));
            if (found == actual.end() || !names(entry.second, found->second)) {
                report(table, "does not name the model's record for \"" + entry.first + '"');
            }
        }
    }

    // The pools are equal, so an entry that names what the model's names is in the pool.
    static bool names(const std::string& expected, uint64 actual) { return contentKey(expected) == actual; }

    static bool names(const std::vector<std::string>& expected, const std::vector<uint64>& actual) {
        bool equal = expected.size() == actual.size();
        for (std::size_t i = 0; equal && i < expected.size(); ++i) {
            equal = names(expected[i], actual[i]);
        }
        return equal;
    }

    static bool names(const std::map<std::string, std::string>& expected, const std::map<std::string, uint64>& actual) {
        bool equal = expected.size() == actual.size();
        for (const auto& item : expected) {
            const auto found = actual.find(item.first);
            equal = equal && found != actual.end() && names(item.second, found->second);
        }
        return equal;
    }

    Sharing& sharing;
};

void compareFutureDefault(Tables& tables, const char* name, const model::Model::Fee& expected,
                          const model::Model::Fee& actual) {
    tables.compareRecord(name, expected, actual);
    if (tables.difference.empty()) {
        tables.compareRecord(name, expected->commissionDetail, actual->commissionDetail);
        for (std::size_t i = 0; i < expected->marginDetails.size(); ++i) {
            tables.compareRecord(name, expected->marginDetails[i], actual->marginDetails[i]);
        }
    }
}

void compareOptionDefault(Tables& tables, const model::Model& model, const test::OpenFeeCenter& center) {
    tables.compareRecord("defaultStkOptionFeeRate", model.defaultOptionRate, center.defaultStkOptionFeeRate);
    if (tables.difference.empty()) {
        for (const auto& item : model.defaultOptionRate->items) {
            tables.compareRecord("defaultStkOptionFeeRate", item.second,
                                 center.defaultStkOptionFeeRate->items.at(item.first));
        }
    }
}

void compareDefaults(Tables& tables, const model::Model& model, const test::OpenFeeCenter& center) {
    tables.compareRecord("defaultStockRateLimit", model.stock.fallback, center.defaultStockRateLimit);
    tables.compareRecord("defaultCreditRateLimit", model.credit.fallback, center.defaultCreditRateLimit);
    tables.compareRecord("defaultNeeqRateLimit", model.neeq.fallback, center.defaultNeeqRateLimit);
    tables.compareRecord("defaultHgtRateLimit", model.hgt.fallback, center.defaultHgtRateLimit);
    tables.compareRecord("defaultSgtRateLimit", model.sgt.fallback, center.defaultSgtRateLimit);
    compareOptionDefault(tables, model, center);
    compareFutureDefault(tables, "defaultFutureFee", model.defaultFutureFee, center.defaultFutureFee);
    compareFutureDefault(tables, "defaultIncomeSwapFutureFee", model.defaultIncomeSwapFee,
                         center.defaultIncomeSwapFutureFee);
    tables.compareSizes("emptyFee", 0, center.emptyFee ? 1 : 0);
}

}  // namespace

std::string differenceOfTables(Sharing& sharing, const model::Model& model, const test::OpenFeeCenter& center) {
    Tables tables(sharing);
    tables.comparePool("stockRateLimitPool", model.stock.pool, center.stockRateLimitPool);
    tables.comparePool("creditRateLimitPool", model.credit.pool, center.creditRateLimitPool);
    tables.comparePool("neeqRateLimitPool", model.neeq.pool, center.neeqRateLimitPool);
    tables.comparePool("hgtRateLimitPool", model.hgt.pool, center.hgtRateLimitPool);
    tables.comparePool("sgtRateLimitPool", model.sgt.pool, center.sgtRateLimitPool);
    tables.comparePool("stkOptionItemPool", model.optionItems, center.stkOptionItemPool);
    tables.comparePool("futureCommissionDetails", model.commissions, center.futureCommissionDetails);
    tables.comparePool("futureMarginDetails", model.margins, center.futureMarginDetails);
    tables.compareTable("stockAccountTable", model.stock.table, center.stockAccountTable);
    tables.compareTable("creditAccountTable", model.credit.table, center.creditAccountTable);
    tables.compareTable("neeqAccountTable", model.neeq.table, center.neeqAccountTable);
    tables.compareTable("hgtAccountTable", model.hgt.table, center.hgtAccountTable);
    tables.compareTable("sgtAccountTable", model.sgt.table, center.sgtAccountTable);
    tables.compareTable("stkOptionAccountTable", model.optionTable, center.stkOptionAccountTable);
    tables.compareTable("futureCommissionKeys", model.commissionTable, center.futureCommissionKeys);
    tables.compareTable("futureMarginKeys", model.marginTable, center.futureMarginKeys);
    tables.compareSizes("stkOptionBaseRateTable", 0, center.stkOptionBaseRateTable.size());
    compareDefaults(tables, model, center);
    return tables.difference;
}

}  // namespace histories
