#include "histories/custom_choices.h"

#include <array>
#include <boost/smart_ptr/make_shared.hpp>
#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "histories/choices.h"
#include "histories/values.h"

namespace histories {
namespace {

using namespace qmservice;

using Members = std::map<int, std::vector<std::string>>;

constexpr std::array<int, 16> kFirstKeyCodes{'0', '0', '0', '0', '0', '1', '1', '1',
                                             '1', '1', 'D', 'A', 0,   -1,  -1,  '0' + 256};
constexpr std::array<int, 16> kSecondKeyCodes{'0', '0', '0', 'D', 'D', 'D', '1', '1',
                                              '1', '1', 'd', 'E', 'C', 0,   -1,  'D' + 256};

/// More categories than the least custom category's number. `last` is the number of the last one.
Members manyCategories(int last) {
    constexpr int kCount = 10002;
    Members members;
    for (int number = 0; number < kCount - 1; ++number) {
        members[number];
    }
    members[last] = {"600000", "600001", "rb2605", "00700", "830400", "510050"};
    return members;
}

/// The first has the number that its size lets through, the second has it not.
const Members& largeMembers(std::size_t which) {
    static const std::array<Members, 2> large{manyCategories(10001), manyCategories(20002)};
    return large[which];
}

const Members& smallMembers(std::size_t which) {
    static const std::array<Members, 8> small{
        Members{},
        Members{},
        Members{},
        Members{{7, {"600000"}}},
        Members{{3, {"600000"}}},
        Members{{10001, {"600000", "300750", "00700", "rb2605", "510050", "830400"}}},
        Members{{10001, {}}, {15000, {"600000"}}, {20001, {"rb2605", "00700"}}},
        Members{{5, {""}}, {70001, {"600000"}}}};
    return small[which];
}

boost::shared_ptr<CGroupCategorySubInfo> choosePart(Bytes& bytes) {
    if (bytes.oneIn(4)) {
        return {};
    }
    auto part = boost::make_shared<CGroupCategorySubInfo>();
    part->category = bytes.of(kCategoryNumbers);
    part->excluded = bytes.oneIn(4) ? 1 : 0;
    return part;
}

/// What a custom limit or detail applies to.
template <class Limit>
void chooseCategory(Bytes& bytes, std::string& category, Limit& limit) {
    constexpr std::size_t kRarely = 32;  // copies of the large map are slow
    if (bytes.oneIn(kRarely)) {
        category = bytes.oneIn(2) ? "mine" : "10001";
        limit.customCategories = largeMembers(bytes.pick(2));
        return;
    }
    category = bytes.of(kCategoryTexts);
    limit.customCategories = smallMembers(bytes.pick(8));
    constexpr std::array<std::size_t, 4> kPartCounts{0, 1, 1, 2};
    for (std::size_t parts = bytes.of(kPartCounts); parts > 0; --parts) {
        limit.groupCategories.push_back(choosePart(bytes));
    }
}

boost::shared_ptr<CCustomStkExchangeRateLimit> chooseCustomLimit(Bytes& bytes, CCustomStkExchangeRateLimit* /*class*/) {
    auto limit = boost::make_shared<CCustomStkExchangeRateLimit>();
    chooseCategory(bytes, limit->category, *limit);
    chooseRates(bytes, *limit);
    limit->optionFirstKeyCode = bytes.of(kFirstKeyCodes);
    limit->optionSecondKeyCode = bytes.of(kSecondKeyCodes);
    limit->optionThirdKeyCode = bytes.of(kFirstKeyCodes);
    return limit;
}

template <class Limit>
boost::shared_ptr<Limit> chooseCustomLimit(Bytes& bytes, Limit* /*class*/) {
    return chooseConnectLimit<Limit>(bytes);
}

boost::shared_ptr<CCustomCommissionRateDetail> chooseCustomLimit(Bytes& bytes, CCustomCommissionRateDetail* /*class*/) {
    auto detail = boost::make_shared<CCustomCommissionRateDetail>();
    chooseCategory(bytes, detail->categoryId, *detail);
    chooseRates(bytes, *detail);
    return detail;
}

boost::shared_ptr<CCustomMarginRateDetail> chooseCustomLimit(Bytes& bytes, CCustomMarginRateDetail* /*class*/) {
    auto detail = boost::make_shared<CCustomMarginRateDetail>();
    chooseCategory(bytes, detail->categoryId, *detail);
    chooseMarginValues(bytes, *detail);
    return detail;
}

/// Fills a list of a custom fee: mostly one or two entries, sometimes none, sometimes an empty one among them.
template <class Limit>
void chooseLimits(Bytes& bytes, std::vector<boost::shared_ptr<Limit>>& limits) {
    constexpr std::array<std::size_t, 8> kCounts{1, 1, 1, 2, 2, 2, 3, 0};
    for (std::size_t count = bytes.of(kCounts); count > 0; --count) {
        limits.push_back(bytes.oneIn(12) ? nullptr : chooseCustomLimit(bytes, static_cast<Limit*>(nullptr)));
    }
}

}  // namespace

template <class Limit>
boost::shared_ptr<Limit> chooseConnectLimit(Bytes& bytes) {
    auto limit = boost::make_shared<Limit>();
    chooseCategory(bytes, limit->category, *limit);
    chooseRates(bytes, *limit);
    limit->tradeMinUnit = chooseTradeUnit(bytes);
    return limit;
}

template boost::shared_ptr<CCustomHGTExchangeRateLimit> chooseConnectLimit(Bytes&);
template boost::shared_ptr<CCustomSgtExchangeRateLimit> chooseConnectLimit(Bytes&);

template <class Fee>
Record chooseLimitFee(Bytes& bytes) {
    auto fee = boost::make_shared<Fee>();
    chooseLimits(bytes, fee->rateLimits);
    return fee;
}

template Record chooseLimitFee<CCustomStockInstrumentFee>(Bytes&);
template Record chooseLimitFee<CCustomHGTInstrumentFee>(Bytes&);
template Record chooseLimitFee<CCustomSgtInstrumentFee>(Bytes&);

Record chooseFutureFee(Bytes& bytes) {
    auto fee = boost::make_shared<CCustomFutureInstrumentFee>();
    chooseLimits(bytes, fee->commissionDetails);
    chooseLimits(bytes, fee->marginDetails);
    return fee;
}

}  // namespace histories
