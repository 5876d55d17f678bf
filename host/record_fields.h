#ifndef HOST_RECORD_FIELDS_H
#define HOST_RECORD_FIELDS_H

#include <cstddef>
#include <tuple>
#include <utility>

#include "host/records.h"

// The fields of every record class in layout order, and the rates among them. Whoever copies, folds, writes or shows
// the fields of a record takes them from these lists: a field that is added to a class needs one line here. A
// convenience of the boundary: no class is changed by it.

namespace qmservice::records {

/// A field of a record class.
template <class Owner, class Value>
struct RecordField {
    const char* name;      ///< as the class calls it; lives as long as the program
    Value Owner::*member;  ///< where it is
};

/// A field by its name and place.
template <class Owner, class Value>
RecordField(const char*, Value Owner::*) -> RecordField<Owner, Value>;

/// Name and fields of one class, specialised below for each.
template <class Record>
struct RecordFields;

/// Calls visit(field) for every field of a list, in its order.
template <class... Fields, class Visit>
void forEachOf(const std::tuple<Fields...>& list, Visit visit) {
    std::apply([&visit](const auto&... fields) { (visit(fields), ...); }, list);
}

/// Calls visit(field) for every field of the class, in layout order.
template <class Record, class Visit>
void forEachField(Visit visit) {
    forEachOf(RecordFields<Record>::list, visit);
}

/// Copies the fields of one list into those of another, one by one; both lists have as many.
template <class From, class... FromFields, class To, class... ToFields>
void copyFields(const From& from, const std::tuple<FromFields...>& fromList, To& to,
                const std::tuple<ToFields...>& toList) {
    static_assert(sizeof...(FromFields) == sizeof...(ToFields));
    std::apply(
        [&](const auto&... fromFields) {
            std::apply([&](const auto&... toFields) { ((to.*toFields.member = from.*fromFields.member), ...); },
                       toList);
        },
        fromList);
}

/// Whether test(field) holds for every field of the class; stops at the first for which it does not.
template <class Record, class Test>
bool forAllFields(Test test) {
    return std::apply([&test](const auto&... fields) { return (test(fields) && ...); }, RecordFields<Record>::list);
}

/// @cond
// A list has the name of what it holds, in the style of the fields themselves.
// NOLINTBEGIN(readability-identifier-naming)
// One field per line.
// clang-format off

// Runs of fields that several classes have in common.

template <class Record>
inline constexpr auto commissionRates = std::make_tuple(
    RecordField{"openRatioByMoney", &Record::openRatioByMoney},
    RecordField{"openRatioByVolume", &Record::openRatioByVolume},
    RecordField{"closeRatioByMoney", &Record::closeRatioByMoney},
    RecordField{"closeRatioByVolume", &Record::closeRatioByVolume},
    RecordField{"closeTodayRatioByMoney", &Record::closeTodayRatioByMoney},
    RecordField{"closeTodayRatioByVolume", &Record::closeTodayRatioByVolume},
    RecordField{"commissionExtra1", &Record::commissionExtra1},
    RecordField{"commissionExtra2", &Record::commissionExtra2});

template <class Record>
inline constexpr auto marginRatios = std::make_tuple(
    RecordField{"longMarginRatio", &Record::longMarginRatio},
    RecordField{"longMarginRatioByVolume", &Record::longMarginRatioByVolume},
    RecordField{"shortMarginRatio", &Record::shortMarginRatio},
    RecordField{"shortMarginRatioByVolume", &Record::shortMarginRatioByVolume});

template <class Record>
inline constexpr auto marginExtras = std::make_tuple(
    RecordField{"marginExtra1", &Record::marginExtra1},
    RecordField{"marginExtra2", &Record::marginExtra2});

template <class Record>
inline constexpr auto marginRates = std::tuple_cat(marginRatios<Record>, marginExtras<Record>);

template <class Record>
inline constexpr auto marginFields = std::tuple_cat(std::make_tuple(
    RecordField{"hedgeFlag", &Record::hedgeFlag}),
    marginRatios<Record>,
    std::make_tuple(RecordField{"marginMode", &Record::marginMode}),
    marginExtras<Record>);

template <class Record>
inline constexpr auto firstStockRate = std::make_tuple(
    RecordField{"rate1", &Record::rate1});

template <class Record>
inline constexpr auto furtherStockRates = std::make_tuple(
    RecordField{"rate2", &Record::rate2},
    RecordField{"rate3", &Record::rate3},
    RecordField{"rate4", &Record::rate4},
    RecordField{"rate5", &Record::rate5},
    RecordField{"rate6", &Record::rate6});

template <class Record>
inline constexpr auto stockRates = std::tuple_cat(firstStockRate<Record>, furtherStockRates<Record>);

template <class Record>
inline constexpr auto optionFees = std::make_tuple(
    RecordField{"fee1", &Record::fee1},
    RecordField{"fee2", &Record::fee2},
    RecordField{"fee3", &Record::fee3},
    RecordField{"fee4", &Record::fee4},
    RecordField{"fee5", &Record::fee5});

template <>
inline constexpr auto optionFees<CCustomStkExchangeRateLimit> = std::make_tuple(
    RecordField{"optionFee1", &CCustomStkExchangeRateLimit::optionFee1},
    RecordField{"optionFee2", &CCustomStkExchangeRateLimit::optionFee2},
    RecordField{"optionFee3", &CCustomStkExchangeRateLimit::optionFee3},
    RecordField{"optionFee4", &CCustomStkExchangeRateLimit::optionFee4},
    RecordField{"optionFee5", &CCustomStkExchangeRateLimit::optionFee5});

template <class Record>
inline constexpr auto optionKeyCodes = std::make_tuple(
    RecordField{"secondKeyCode", &Record::secondKeyCode},
    RecordField{"thirdKeyCode", &Record::thirdKeyCode},
    RecordField{"firstKeyCode", &Record::firstKeyCode});

template <>
inline constexpr auto optionKeyCodes<CCustomStkExchangeRateLimit> = std::make_tuple(
    RecordField{"optionSecondKeyCode", &CCustomStkExchangeRateLimit::optionSecondKeyCode},
    RecordField{"optionThirdKeyCode", &CCustomStkExchangeRateLimit::optionThirdKeyCode},
    RecordField{"optionFirstKeyCode", &CCustomStkExchangeRateLimit::optionFirstKeyCode});

template <class Record>
inline constexpr auto categoryFields = std::make_tuple(
    RecordField{"customCategories", &Record::customCategories},
    RecordField{"groupCategories", &Record::groupCategories});

template <class Record>
inline constexpr auto connectRates = std::make_tuple(
    RecordField{"rate1", &Record::rate1},
    RecordField{"rate2", &Record::rate2},
    RecordField{"rate3", &Record::rate3},
    RecordField{"rate4", &Record::rate4},
    RecordField{"rate5", &Record::rate5},
    RecordField{"rate6", &Record::rate6},
    RecordField{"rate7", &Record::rate7},
    RecordField{"rate8", &Record::rate8},
    RecordField{"rate9", &Record::rate9},
    RecordField{"rate10", &Record::rate10},
    RecordField{"rate11", &Record::rate11},
    RecordField{"rate12", &Record::rate12},
    RecordField{"rate13", &Record::rate13},
    RecordField{"rate14", &Record::rate14});

template <class Record>
inline constexpr auto connectFields = std::tuple_cat(std::make_tuple(
    RecordField{"category", &Record::category}),
    connectRates<Record>,
    std::make_tuple(RecordField{"tradeMinUnit", &Record::tradeMinUnit}),
    categoryFields<Record>);

template <>
struct RecordFields<CAccountInfo> {
    using Record = CAccountInfo;
    static constexpr const char* className = "CAccountInfo";
    static constexpr auto list = std::make_tuple(
        RecordField{"accountType", &Record::accountType},
        RecordField{"platformId", &Record::platformId},
        RecordField{"accountId", &Record::accountId},
        RecordField{"accountName", &Record::accountName});
};

template <>
struct RecordFields<CInstrument> {
    using Record = CInstrument;
    static constexpr const char* className = "CInstrument";
    static constexpr auto list = std::make_tuple(
        RecordField{"market", &Record::market},
        RecordField{"code", &Record::code},
        RecordField{"productId", &Record::productId},
        RecordField{"name", &Record::name},
        RecordField{"volumeMultiple", &Record::volumeMultiple},
        RecordField{"priceTick", &Record::priceTick},
        RecordField{"feeType", &Record::feeType},
        RecordField{"openFee", &Record::openFee},
        RecordField{"closeFee", &Record::closeFee},
        RecordField{"closeTodayFee", &Record::closeTodayFee});
};

template <>
struct RecordFields<CInstrumentFee> {
    using Record = CInstrumentFee;
    static constexpr const char* className = "CInstrumentFee";
    static constexpr auto list = std::make_tuple(
        RecordField{"instrument", &Record::instrument},
        RecordField{"commissionDetail", &Record::commissionDetail},
        RecordField{"marginDetails", &Record::marginDetails},
        RecordField{"account", &Record::account},
        RecordField{"stkRateLimit", &Record::stkRateLimit},
        RecordField{"stkOptionFeeRate", &Record::stkOptionFeeRate},
        RecordField{"hgtRateLimit", &Record::hgtRateLimit},
        RecordField{"sgtRateLimit", &Record::sgtRateLimit});
};

template <>
struct RecordFields<CGroupCategorySubInfo> {
    using Record = CGroupCategorySubInfo;
    static constexpr const char* className = "CGroupCategorySubInfo";
    static constexpr auto list = std::make_tuple(
        RecordField{"category", &Record::category},
        RecordField{"excluded", &Record::excluded});
};

template <>
struct RecordFields<CCommissionRateDetail> {
    using Record = CCommissionRateDetail;
    static constexpr const char* className = "CCommissionRateDetail";
    static constexpr auto list = std::tuple_cat(std::make_tuple(
        RecordField{"instrumentId", &Record::instrumentId}),
        commissionRates<Record>);
};

template <>
struct RecordFields<CMarginRateDetail> {
    using Record = CMarginRateDetail;
    static constexpr const char* className = "CMarginRateDetail";
    static constexpr auto list = marginFields<Record>;
};

template <>
struct RecordFields<CStkExchangeRateLimit> {
    using Record = CStkExchangeRateLimit;
    static constexpr const char* className = "CStkExchangeRateLimit";
    static constexpr auto list = std::tuple_cat(
        stockRates<Record>,
        std::make_tuple(RecordField{"unitVolume", &Record::unitVolume}));
};

template <>
struct RecordFields<CStockOptionFeeItem> {
    using Record = CStockOptionFeeItem;
    static constexpr const char* className = "CStockOptionFeeItem";
    static constexpr auto list = std::tuple_cat(optionFees<Record>, optionKeyCodes<Record>);
};

template <>
struct RecordFields<CStockOptionFeeRate> {
    using Record = CStockOptionFeeRate;
    static constexpr const char* className = "CStockOptionFeeRate";
    static constexpr auto list = std::make_tuple(
        RecordField{"baseRate", &Record::baseRate},
        RecordField{"items", &Record::items});
};

template <>
struct RecordFields<CCustomStkExchangeRateLimit> {
    using Record = CCustomStkExchangeRateLimit;
    static constexpr const char* className = "CCustomStkExchangeRateLimit";
    static constexpr auto list = std::tuple_cat(std::make_tuple(
        RecordField{"category", &Record::category}),
        firstStockRate<Record>,
        std::make_tuple(RecordField{"unusedRate1", &Record::unusedRate1}),
        furtherStockRates<Record>,
        std::make_tuple(RecordField{"unusedRate2", &Record::unusedRate2}),
        optionFees<Record>,
        optionKeyCodes<Record>,
        categoryFields<Record>);
};

template <>
struct RecordFields<CCustomHGTExchangeRateLimit> {
    using Record = CCustomHGTExchangeRateLimit;
    static constexpr const char* className = "CCustomHGTExchangeRateLimit";
    static constexpr auto list = connectFields<Record>;
};

template <>
struct RecordFields<CCustomSgtExchangeRateLimit> {
    using Record = CCustomSgtExchangeRateLimit;
    static constexpr const char* className = "CCustomSgtExchangeRateLimit";
    static constexpr auto list = connectFields<Record>;
};

template <>
struct RecordFields<CCustomCommissionRateDetail> {
    using Record = CCustomCommissionRateDetail;
    static constexpr const char* className = "CCustomCommissionRateDetail";
    static constexpr auto list = std::tuple_cat(std::make_tuple(
        RecordField{"categoryId", &Record::categoryId}),
        commissionRates<Record>,
        categoryFields<Record>);
};

template <>
struct RecordFields<CCustomMarginRateDetail> {
    using Record = CCustomMarginRateDetail;
    static constexpr const char* className = "CCustomMarginRateDetail";
    static constexpr auto list = std::tuple_cat(std::make_tuple(
        RecordField{"categoryId", &Record::categoryId}),
        marginFields<Record>,
        categoryFields<Record>);
};

template <>
struct RecordFields<CCustomStockInstrumentFee> {
    using Record = CCustomStockInstrumentFee;
    static constexpr const char* className = "CCustomStockInstrumentFee";
    static constexpr auto list = std::make_tuple(
        RecordField{"rateLimits", &Record::rateLimits});
};

template <>
struct RecordFields<CCustomHGTInstrumentFee> {
    using Record = CCustomHGTInstrumentFee;
    static constexpr const char* className = "CCustomHGTInstrumentFee";
    static constexpr auto list = std::make_tuple(
        RecordField{"rateLimits", &Record::rateLimits});
};

template <>
struct RecordFields<CCustomSgtInstrumentFee> {
    using Record = CCustomSgtInstrumentFee;
    static constexpr const char* className = "CCustomSgtInstrumentFee";
    static constexpr auto list = std::make_tuple(
        RecordField{"rateLimits", &Record::rateLimits});
};

template <>
struct RecordFields<CCustomFutureInstrumentFee> {
    using Record = CCustomFutureInstrumentFee;
    static constexpr const char* className = "CCustomFutureInstrumentFee";
    static constexpr auto list = std::make_tuple(
        RecordField{"commissionDetails", &Record::commissionDetails},
        RecordField{"marginDetails", &Record::marginDetails});
};

// clang-format on
// NOLINTEND(readability-identifier-naming)
/// @endcond

}  // namespace qmservice::records

#endif  // HOST_RECORD_FIELDS_H
