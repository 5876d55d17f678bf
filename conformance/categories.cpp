#include <boost/smart_ptr/make_shared.hpp>
#include <limits>

#include "conformance/asking.h"
#include "conformance/promise.h"

namespace conformance {
namespace {

using namespace qmservice;

CppCategory& categories() { return *utils::CSingletonT<CppCategory>::instance(); }

const char* yesOrNo(bool answer) { return answer ? "gave true" : "gave false"; }

void custom(const Sample& /*sample*/, Witness& witness) {
    const std::vector<std::string> holding = {utils::voStockKey("SZ", "000001"), utils::voStockKey("SH", "600519")};
    const std::vector<std::string> without = {utils::voStockKey("SZ", "600519")};
    const auto expectAnswer = [&](const char* members, const std::vector<std::string>& list, bool expected) {
        const bool answer =
            witness.call(std::string("CppCategory::isStockInCustomCategory(\"SH\", \"600519\", ") + members + ")",
                         [&] { return categories().isStockInCustomCategory("SH", "600519", list); });
        Witness::expect(answer == expected, yesOrNo(answer));
    };
    expectAnswer("a list with its joined key", holding, true);
    expectAnswer("a list with the joined key of another market", without, false);
    expectAnswer("an empty list", {}, false);
}

boost::shared_ptr<CGroupCategorySubInfo> part(int category, int excluded) {
    auto made = boost::make_shared<CGroupCategorySubInfo>();
    made->category = category;
    made->excluded = excluded;
    return made;
}

void group(const Sample& /*sample*/, Witness& witness) {
    using Parts = std::vector<boost::shared_ptr<CGroupCategorySubInfo>>;
    const std::string key = utils::voStockKey("SH", "600519");
    const std::map<int, std::vector<std::string>> customLists = {{10001, {key}}, {10002, {key}}, {10003, {}}};
    const auto expectAnswer = [&](const char* description, const Parts& parts, bool expected) {
        const bool answer =
            witness.call(std::string("CppCategory::isStockInGroupCategory(\"SH\", \"600519\", ") + description + ")",
                         [&] { return categories().isStockInGroupCategory("SH", "600519", "", parts, customLists); });
        Witness::expect(answer == expected, yesOrNo(answer));
    };
    expectAnswer("a part that takes it in", {part(10003, 0), part(10001, 0)}, true);
    expectAnswer("a part that takes it in and one that leaves it out", {part(10001, 0), part(10002, 1)}, false);
    expectAnswer("a part that has others", {part(10003, 0)}, false);
    expectAnswer("no parts", {}, false);
}

// The system category is asked whatever the number.
void anyNumber(const Sample& sample, Witness& witness) {
    for (const SampleInstrument& known : instrumentsOf(sample)) {
        for (const int number :
             {0, -1, 1, 10001, 70001, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
            const auto ask = [&] {
                return witness.call(
                    "CppCategory::isStockInCategoryForTS(" + inQuotes(known.market) + ", " + inQuotes(known.code) +
                        ", \"\", " + std::to_string(number) + ")",
                    [&] { return categories().isStockInCategoryForTS(known.market, known.code, "", number); });
            };
            const bool before = ask();
            Witness::expect(ask() == before, before ? "gave true and then false" : "gave false and then true");
        }
    }
}

void anyName(const Sample& /*sample*/, Witness& witness) {
    for (const char* name : {"", "5", "conformance: no such category"}) {
        const auto ask = [&] {
            return witness.call("CppCategory::getCategorId(" + inQuotes(name) + ")",
                                [&] { return categories().getCategorId(name); });
        };
        const int before = ask();
        const int after = ask();
        Witness::expect(before == after, "gave " + std::to_string(before) + " and then " + std::to_string(after));
    }
}

void homeMarkets(const Sample& /*sample*/, Witness& witness) {
    for (const char* market : {"SH", "SZ", "BJ", "HK", "SHFE", "DCE", "CZCE", ""}) {
        const bool foreign = witness.call("StockTypeCenter::isWPMarket(" + inQuotes(market) + ")", [&] {
            return utils::CSingletonT<StockTypeCenter>::instance()->isWPMarket(market);
        });
        Witness::expect(!foreign, "gave true");
    }
}

}  // namespace

Promises categoryPromises() {
    constexpr const char* kPresent = "services.present";
    return {
        {"categories.custom",
         "a custom category holds the instruments whose joined keys its list has, and no other",
         "compare utils::voStockKey(market, code) with the members",
         custom,
         {kPresent}},
        {"categories.group",
         "an instrument is in a group when a part takes it in and no part leaves it out",
         "look through all parts, and look a part's number up in the custom categories that are handed in",
         group,
         {kPresent}},
        {"categories.any-number",
         "any number may be asked for and must be answered the same way each time",
         "return false for a number that is no system category",
         anyNumber,
         {kPresent}},
        {"categories.any-name",
         "any name may be asked for and must have the same number each time",
         "return one number, such as -1, for every name that you do not know",
         anyName,
         {kPresent}},
        {"markets.home",
         "only a foreign futures market is one",
         "return false for every other market",
         homeMarkets,
         {kPresent}},
    };
}

}  // namespace conformance
