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

/// The instruments' codes that a large custom category holds.
const std::vector<std::string> kLargeCategory{"600000", "600001", "rb2605", "00700", "830400", "510050"};

/// So many categories, with members in those of the given numbers.
Members manyCategories(int count, const std::vector<int>& filled) {
    Members members;
    for (const int number : filled) {
        members[number] = kLargeCategory;
    }
    for (int number = 0; members.size() < static_cast<std::size_t>(count); ++number) {
        members[number];
    }
    return members;
}

/// The first has the only number that its size lets through, the second has it not, and the third lets every number
/// through and has members at the edges of the range.
const Members& largeMembers(std::size_t which) {
    static const std::array<Members, 3> large{manyCategories(10002, {10001}), manyCategories(10002, {20002}),
                                              manyCategories(20004, {10000, 10001, 15000, 20001, 20002})};
    return large[which];
}

/// The numbers at the edges of the custom categories' range, and a name for one of them.
constexpr std::array<const char*, 6> kEdges{"mine", "10001", "20001", "10000", "20002", "15000"};

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
    constexpr std::size_t kRarely = 12;  // copies of the large map are slow
    if (bytes.oneIn(kRarely)) {
        category = bytes.of(kEdges);
        limit.customCategories = largeMembers(bytes.pick(3));
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

template <class Limit>
Record chooseCustomEntry(Bytes& bytes) {
    return chooseCustomLimit(bytes, static_cast<Limit*>(nullptr));
}

template Record chooseCustomEntry<CCustomStkExchangeRateLimit>(Bytes&);
template Record chooseCustomEntry<CCustomHGTExchangeRateLimit>(Bytes&);
template Record chooseCustomEntry<CCustomSgtExchangeRateLimit>(Bytes&);
template Record chooseCustomEntry<CCustomCommissionRateDetail>(Bytes&);
template Record chooseCustomEntry<CCustomMarginRateDetail>(Bytes&);

}  // namespace histories
