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

template <class Owner, class Value>
struct Field {
    const char* name;
    Value Owner::*member;
};

template <class Owner, class Value>
Field(const char*, Value Owner::*) -> Field<Owner, Value>;

/// Name and fields of one class, specialised below for each.
template <class Record>
struct FieldsOf;

/// Calls visit(field) for every field of a list, in its order.
template <class... Fields, class Visit>
void forEachOf(const std::tuple<Fields...>& list, Visit visit) {
    std::apply([&visit](const auto&... fields) { (visit(fields), ...); }, list);
}

/// Calls visit(field) for every field of the class, in layout order.
template <class Record, class Visit>
void forEachField(Visit visit) {
    forEachOf(FieldsOf<Record>::list, visit);
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
    return std::apply([&test](const auto&... fields) { return (test(fields) && ...); }, FieldsOf<Record>::list);
}

// A list has the name of what it holds, in the style of the fields themselves.
// NOLINTBEGIN(readability-identifier-naming)
// One field per line.
// clang-format off

// Runs of fields that several classes have in common.

template <class Record>
inline constexpr auto commissionRates = std::make_tuple(
    Field{"openRatioByMoney", &Record::openRatioByMoney},
    Field{"openRatioByVolume", &Record::openRatioByVolume},
    Field{"closeRatioByMoney", &Record::closeRatioByMoney},
    Field{"closeRatioByVolume", &Record::closeRatioByVolume},
    Field{"closeTodayRatioByMoney", &Record::closeTodayRatioByMoney},
    Field{"closeTodayRatioByVolume", &Record::closeTodayRatioByVolume},
    Field{"commissionExtra1", &Record::commissionExtra1},
    Field{"commissionExtra2", &Record::commissionExtra2});

template <class Record>
inline constexpr auto marginRatios = std::make_tuple(
    Field{"longMarginRatio", &Record::longMarginRatio},
    Field{"longMarginRatioByVolume", &Record::longMarginRatioByVolume},
    Field{"shortMarginRatio", &Record::shortMarginRatio},
    Field{"shortMarginRatioByVolume", &Record::shortMarginRatioByVolume});

template <class Record>
inline constexpr auto marginExtras = std::make_tuple(
    Field{"marginExtra1", &Record::marginExtra1},
    Field{"marginExtra2", &Record::marginExtra2});

template <class Record>
inline constexpr auto marginRates = std::tuple_cat(marginRatios<Record>, marginExtras<Record>);

template <class Record>
inline constexpr auto marginFields = std::tuple_cat(std::make_tuple(
    Field{"hedgeFlag", &Record::hedgeFlag}),
    marginRatios<Record>,
    std::make_tuple(Field{"marginMode", &Record::marginMode}),
    marginExtras<Record>);

template <class Record>
inline constexpr auto firstStockRate = std::make_tuple(
    Field{"rate1", &Record::rate1});

template <class Record>
inline constexpr auto furtherStockRates = std::make_tuple(
    Field{"rate2", &Record::rate2},
    Field{"rate3", &Record::rate3},
    Field{"rate4", &Record::rate4},
    Field{"rate5", &Record::rate5},
    Field{"rate6", &Record::rate6});

template <class Record>
inline constexpr auto stockRates = std::tuple_cat(firstStockRate<Record>, furtherStockRates<Record>);

template <class Record>
inline constexpr auto optionFees = std::make_tuple(
    Field{"fee1", &Record::fee1},
    Field{"fee2", &Record::fee2},
    Field{"fee3", &Record::fee3},
    Field{"fee4", &Record::fee4},
    Field{"fee5", &Record::fee5});

template <>
inline constexpr auto optionFees<CCustomStkExchangeRateLimit> = std::make_tuple(
    Field{"optionFee1", &CCustomStkExchangeRateLimit::optionFee1},
    Field{"optionFee2", &CCustomStkExchangeRateLimit::optionFee2},
    Field{"optionFee3", &CCustomStkExchangeRateLimit::optionFee3},
    Field{"optionFee4", &CCustomStkExchangeRateLimit::optionFee4},
    Field{"optionFee5", &CCustomStkExchangeRateLimit::optionFee5});

template <class Record>
inline constexpr auto optionKeyCodes = std::make_tuple(
    Field{"secondKeyCode", &Record::secondKeyCode},
    Field{"thirdKeyCode", &Record::thirdKeyCode},
    Field{"firstKeyCode", &Record::firstKeyCode});

template <>
inline constexpr auto optionKeyCodes<CCustomStkExchangeRateLimit> = std::make_tuple(
    Field{"optionSecondKeyCode", &CCustomStkExchangeRateLimit::optionSecondKeyCode},
    Field{"optionThirdKeyCode", &CCustomStkExchangeRateLimit::optionThirdKeyCode},
    Field{"optionFirstKeyCode", &CCustomStkExchangeRateLimit::optionFirstKeyCode});

template <class Record>
inline constexpr auto categoryFields = std::make_tuple(
    Field{"customCategories", &Record::customCategories},
    Field{"groupCategories", &Record::groupCategories});

template <class Record>
inline constexpr auto connectRates = std::make_tuple(
    Field{"rate1", &Record::rate1},
    Field{"rate2", &Record::rate2},
    Field{"rate3", &Record::rate3},
    Field{"rate4", &Record::rate4},
    Field{"rate5", &Record::rate5},
    Field{"rate6", &Record::rate6},
    Field{"rate7", &Record::rate7},
    Field{"rate8", &Record::rate8},
    Field{"rate9", &Record::rate9},
    Field{"rate10", &Record::rate10},
    Field{"rate11", &Record::rate11},
    Field{"rate12", &Record::rate12},
    Field{"rate13", &Record::rate13},
    Field{"rate14", &Record::rate14});

template <class Record>
inline constexpr auto connectFields = std::tuple_cat(std::make_tuple(
    Field{"category", &Record::category}),
    connectRates<Record>,
    std::make_tuple(Field{"tradeMinUnit", &Record::tradeMinUnit}),
    categoryFields<Record>);

template <>
struct FieldsOf<CAccountInfo> {
    using Record = CAccountInfo;
    static constexpr const char* className = "CAccountInfo";
    static constexpr auto list = std::make_tuple(
        Field{"accountType", &Record::accountType},
        Field{"platformId", &Record::platformId},
        Field{"accountId", &Record::accountId},
        Field{"accountName", &Record::accountName});
};

template <>
struct FieldsOf<CInstrument> {
    using Record = CInstrument;
    static constexpr const char* className = "CInstrument";
    static constexpr auto list = std::make_tuple(
        Field{"market", &Record::market},
        Field{"code", &Record::code},
        Field{"productId", &Record::productId},
        Field{"name", &Record::name},
        Field{"volumeMultiple", &Record::volumeMultiple},
        Field{"priceTick", &Record::priceTick},
        Field{"feeType", &Record::feeType},
        Field{"openFee", &Record::openFee},
        Field{"closeFee", &Record::closeFee},
        Field{"closeTodayFee", &Record::closeTodayFee});
};

template <>
struct FieldsOf<CInstrumentFee> {
    using Record = CInstrumentFee;
    static constexpr const char* className = "CInstrumentFee";
    static constexpr auto list = std::make_tuple(
        Field{"instrument", &Record::instrument},
        Field{"commissionDetail", &Record::commissionDetail},
        Field{"marginDetails", &Record::marginDetails},
        Field{"account", &Record::account},
        Field{"stkRateLimit", &Record::stkRateLimit},
        Field{"stkOptionFeeRate", &Record::stkOptionFeeRate},
        Field{"hgtRateLimit", &Record::hgtRateLimit},
        Field{"sgtRateLimit", &Record::sgtRateLimit});
};

template <>
struct FieldsOf<CGroupCategorySubInfo> {
    using Record = CGroupCategorySubInfo;
    static constexpr const char* className = "CGroupCategorySubInfo";
    static constexpr auto list = std::make_tuple(
        Field{"category", &Record::category},
        Field{"excluded", &Record::excluded});
};

template <>
struct FieldsOf<CCommissionRateDetail> {
    using Record = CCommissionRateDetail;
    static constexpr const char* className = "CCommissionRateDetail";
    static constexpr auto list = std::tuple_cat(std::make_tuple(
        Field{"instrumentId", &Record::instrumentId}),
        commissionRates<Record>);
};

template <>
struct FieldsOf<CMarginRateDetail> {
    using Record = CMarginRateDetail;
    static constexpr const char* className = "CMarginRateDetail";
    static constexpr auto list = marginFields<Record>;
};

template <>
struct FieldsOf<CStkExchangeRateLimit> {
    using Record = CStkExchangeRateLimit;
    static constexpr const char* className = "CStkExchangeRateLimit";
    static constexpr auto list = std::tuple_cat(
        stockRates<Record>,
        std::make_tuple(Field{"unitVolume", &Record::unitVolume}));
};

template <>
struct FieldsOf<CStockOptionFeeItem> {
    using Record = CStockOptionFeeItem;
    static constexpr const char* className = "CStockOptionFeeItem";
    static constexpr auto list = std::tuple_cat(optionFees<Record>, optionKeyCodes<Record>);
};

template <>
struct FieldsOf<CStockOptionFeeRate> {
    using Record = CStockOptionFeeRate;
    static constexpr const char* className = "CStockOptionFeeRate";
    static constexpr auto list = std::make_tuple(
        Field{"baseRate", &Record::baseRate},
        Field{"items", &Record::items});
};

template <>
struct FieldsOf<CCustomStkExchangeRateLimit> {
    using Record = CCustomStkExchangeRateLimit;
    static constexpr const char* className = "CCustomStkExchangeRateLimit";
    static constexpr auto list = std::tuple_cat(std::make_tuple(
        Field{"category", &Record::category}),
        firstStockRate<Record>,
        std::make_tuple(Field{"unusedRate1", &Record::unusedRate1}),
        furtherStockRates<Record>,
        std::make_tuple(Field{"unusedRate2", &Record::unusedRate2}),
        optionFees<Record>,
        optionKeyCodes<Record>,
        categoryFields<Record>);
};

template <>
struct FieldsOf<CCustomHGTExchangeRateLimit> {
    using Record = CCustomHGTExchangeRateLimit;
    static constexpr const char* className = "CCustomHGTExchangeRateLimit";
    static constexpr auto list = connectFields<Record>;
};

template <>
struct FieldsOf<CCustomSgtExchangeRateLimit> {
    using Record = CCustomSgtExchangeRateLimit;
    static constexpr const char* className = "CCustomSgtExchangeRateLimit";
    static constexpr auto list = connectFields<Record>;
};

template <>
struct FieldsOf<CCustomCommissionRateDetail> {
    using Record = CCustomCommissionRateDetail;
    static constexpr const char* className = "CCustomCommissionRateDetail";
    static constexpr auto list = std::tuple_cat(std::make_tuple(
        Field{"categoryId", &Record::categoryId}),
        commissionRates<Record>,
        categoryFields<Record>);
};

template <>
struct FieldsOf<CCustomMarginRateDetail> {
    using Record = CCustomMarginRateDetail;
    static constexpr const char* className = "CCustomMarginRateDetail";
    static constexpr auto list = std::tuple_cat(std::make_tuple(
        Field{"categoryId", &Record::categoryId}),
        marginFields<Record>,
        categoryFields<Record>);
};

template <>
struct FieldsOf<CCustomStockInstrumentFee> {
    using Record = CCustomStockInstrumentFee;
    static constexpr const char* className = "CCustomStockInstrumentFee";
    static constexpr auto list = std::make_tuple(
        Field{"rateLimits", &Record::rateLimits});
};

template <>
struct FieldsOf<CCustomHGTInstrumentFee> {
    using Record = CCustomHGTInstrumentFee;
    static constexpr const char* className = "CCustomHGTInstrumentFee";
    static constexpr auto list = std::make_tuple(
        Field{"rateLimits", &Record::rateLimits});
};

template <>
struct FieldsOf<CCustomSgtInstrumentFee> {
    using Record = CCustomSgtInstrumentFee;
    static constexpr const char* className = "CCustomSgtInstrumentFee";
    static constexpr auto list = std::make_tuple(
        Field{"rateLimits", &Record::rateLimits});
};

template <>
struct FieldsOf<CCustomFutureInstrumentFee> {
    using Record = CCustomFutureInstrumentFee;
    static constexpr const char* className = "CCustomFutureInstrumentFee";
    static constexpr auto list = std::make_tuple(
        Field{"commissionDetails", &Record::commissionDetails},
        Field{"marginDetails", &Record::marginDetails});
};

// clang-format on
// NOLINTEND(readability-identifier-naming)

}  // namespace qmservice::records

#endif  // HOST_RECORD_FIELDS_H
