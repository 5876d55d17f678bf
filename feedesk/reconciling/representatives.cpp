#include "feedesk/reconciling/representatives.h"

#include <fmt/format.h>

#include <map>
#include <set>
#include <tuple>

#include "feedesk/instruments/instrument_text.h"
#include "standalone/families.h"

namespace feedesk {
namespace {

using standalone::Market;

using CustomCategories = std::map<std::string, std::set<int>>;  // by instrument

CustomCategories customCategoriesIn(const Market& market) {
    CustomCategories categories;
    for (const standalone::CategoryMember& each : market.customCategories) {
        categories[instrumentText(each.market, each.code)].insert(each.category);
    }
    return categories;
}

/// The system categories that take the instrument in, by their lines.
std::set<std::size_t> systemCategoriesOf(const qmservice::CInstrument& instrument, const Market& market) {
    std::set<std::size_t> categories;
    for (std::size_t i = 0; i < market.categories.size(); ++i) {
        if (market.categories[i].takesIn(instrument.market, instrument.code, instrument.productId)) {
            categories.insert(i);
        }
    }
    return categories;
}

/// What has had its representative.
class Represented {
public:
    /// Whether the instrument is the first of its market and product, of a system category, or of all its categories
    /// together where some are custom ones: a group may hold one of them and leave out another.
    bool addNew(const qmservice::CInstrument& instrument, const std::set<std::size_t>& system,
                const std::set<int>& custom) {
        const std::string kind = instrument.market + ' ' + instrument.productId;
        if (!custom.empty()) {
            return combinations.emplace(kind, system, custom).second;
        }
        bool isNew = kinds.insert(kind).second;
        for (const std::size_t each : system) {
            isNew = categories.insert(each).second || isNew;
        }
        return isNew;
    }

private:
    std::set<std::string> kinds;
    std::set<std::size_t> categories;
    std::set<std::tuple<std::string, std::set<std::size_t>, std::set<int>>> combinations;
};

}  // namespace

std::vector<Representative> representativesOf(cost::Family family, const Market& market) {
    const standalone::Lists& traded = standalone::rateFamilyOf(family).lists;
    const CustomCategories customCategories = customCategoriesIn(market);
    std::vector<Representative> chosen;
    Represented represented;
    for (const standalone::ListedInstrument& one : market.instruments) {
        if (!traded.hold(one)) {
            continue;
        }
        const qmservice::CInstrument& record = *one.record;
        const auto found = customCategories.find(instrumentText(record.market, record.code));
        const std::set<int> custom = found == customCategories.end() ? std::set<int>() : found->second;
        if (represented.addNew(record, systemCategoriesOf(record, market), custom)) {
            chosen.push_back({{record.market, record.code}, fmt::format("{}", fmt::join(custom, ", "))});
        }
    }
    return chosen;
}

}  // namespace feedesk
