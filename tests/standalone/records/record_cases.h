#ifndef TESTS_STANDALONE_RECORDS_RECORD_CASES_H
#define TESTS_STANDALONE_RECORDS_RECORD_CASES_H

#include <boost/make_shared.hpp>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <type_traits>
#include <vector>

#include "host/records.h"

// What every record class is expected to hold, written down by hand: class name, field names, types and order.

namespace records_test {

inline void setSample(double& value) { value = 1.5; }
inline void setSample(std::int32_t& value) { value = 7; }
inline void setSample(std::string& value) { value = "sample"; }

template <class Record>
void setSample(boost::shared_ptr<Record>& value) {
    value = boost::make_shared<Record>();
}

template <class Record>
void setSample(std::vector<boost::shared_ptr<Record>>& values) {
    values.push_back(boost::make_shared<Record>());
}

template <class Record>
void setSample(std::map<std::string, boost::shared_ptr<Record>>& values) {
    values["C12"] = boost::make_shared<Record>();
}

inline void setSample(std::map<int, std::vector<std::string>>& values) { values[30001] = {"SH600000", "SZ000001"}; }

template <class Value>
bool isZeroOrEmpty(const Value& value) {
    if constexpr (std::is_arithmetic_v<Value>) {
        return value == 0;
    } else if constexpr (std::is_constructible_v<bool, Value>) {
        return !value;
    } else {
        return value.empty();
    }
}

template <class Record>
struct FieldCase {
    std::string name;
    std::string type;
    std::size_t size = 0;
    std::size_t alignment = 0;
    std::function<const void*(const Record&)> place;
    std::function<bool(const Record&)> isZero;
    std::function<void(Record&)> change;  ///< to the same value each time, other than the initial one
};

/// The fields of one class in the order of the calls.
template <class Record>
class FieldCases {
public:
    template <class Owner, class Value>
    FieldCases& add(const char* name, const char* type, Value Owner::*member) {
        cases.push_back({name, type, sizeof(Value), alignof(Value),
                         [member](const Record& record) -> const void* { return &(record.*member); },
                         [member](const Record& record) { return isZeroOrEmpty(record.*member); },
                         [member](Record& record) { setSample(record.*member); }});
        return *this;
    }

    std::vector<FieldCase<Record>> cases;
};

template <class Record>
struct RecordCase;

inline constexpr const char* kCustomCategories = "map<int32,vector<string>>";
inline constexpr const char* kGroupCategories = "vector<shared_ptr<CGroupCategorySubInfo>>";

template <>
struct RecordCase<qmservice::CAccountInfo> {
    using Record = qmservice::CAccountInfo;
    static constexpr const char* name = "CAccountInfo";
    static void fields(FieldCases<Record>& list) {
        list.add("accountType", "int32", &Record::accountType)
            .add("platformId", "int32", &Record::platformId)
            .add("accountId", "string", &Record::accountId)
            .add("accountName", "string", &Record::accountName);
    }
};

template <>
struct RecordCase<qmservice::CInstrument> {
    using Record = qmservice::CInstrument;
    static constexpr const char* name = "CInstrument";
    static void fields(FieldCases<Record>& list) {
        list.add("market", "string", &Record::market)
            .add("code", "string", &Record::code)
            .add("productId", "string", &Record::productId)
            .add("name", "string", &Record::name)
            .add("volumeMultiple", "double", &Record::volumeMultiple)
            .add("priceTick", "double", &Record::priceTick)
            .add("feeType", "int32", &Record::feeType)
            .add("openFee", "double", &Record::openFee)
            .add("closeFee", "double", &Record::closeFee)
            .add("closeTodayFee", "double", &Record::closeTodayFee);
    }
};

template <>
struct RecordCase<qmservice::CInstrumentFee> {
    using Record = qmservice::CInstrumentFee;
    static constexpr const char* name = "CInstrumentFee";
    static void fields(FieldCases<Record>& list) {
        list.add("instrument", "shared_ptr<CInstrument>", &Record::instrument)
            .add("commissionDetail", "shared_ptr<CCommissionRateDetail>", &Record::commissionDetail)
            .add("marginDetails", "vector<shared_ptr<CMarginRateDetail>>", &Record::marginDetails)
            .add("account", "shared_ptr<CAccountInfo>", &Record::account)
            .add("stkRateLimit", "shared_ptr<CStkExchangeRateLimit>", &Record::stkRateLimit)
            .add("stkOptionFeeRate", "shared_ptr<CStockOptionFeeRate>", &Record::stkOptionFeeRate)
            .add("hgtRateLimit", "shared_ptr<CCustomHGTExchangeRateLimit>", &Record::hgtRateLimit)
            .add("sgtRateLimit", "shared_ptr<CCustomSgtExchangeRateLimit>", &Record::sgtRateLimit);
    }
};

template <>
struct RecordCase<qmservice::CCommissionRateDetail> {
    using Record = qmservice::CCommissionRateDetail;
    static constexpr const char* name = "CCommissionRateDetail";
    static void fields(FieldCases<Record>& list) {
        list.add("instrumentId", "string", &Record::instrumentId)
            .add("openRatioByMoney", "double", &Record::openRatioByMoney)
            .add("openRatioByVolume", "double", &Record::openRatioByVolume)
            .add("closeRatioByMoney", "double", &Record::closeRatioByMoney)
            .add("closeRatioByVolume", "double", &Record::closeRatioByVolume)
            .add("closeTodayRatioByMoney", "double", &Record::closeTodayRatioByMoney)
            .add("closeTodayRatioByVolume", "double", &Record::closeTodayRatioByVolume)
            .add("commissionExtra1", "double", &Record::commissionExtra1)
            .add("commissionExtra2", "double", &Record::commissionExtra2);
    }
};

template <>
struct RecordCase<qmservice::CMarginRateDetail> {
    using Record = qmservice::CMarginRateDetail;
    static constexpr const char* name = "CMarginRateDetail";
    static void fields(FieldCases<Record>& list) {
        list.add("hedgeFlag", "int32", &Record::hedgeFlag)
            .add("longMarginRatio", "double", &Record::longMarginRatio)
            .add("longMarginRatioByVolume", "double", &Record::longMarginRatioByVolume)
            .add("shortMarginRatio", "double", &Record::shortMarginRatio)
            .add("shortMarginRatioByVolume", "double", &Record::shortMarginRatioByVolume)
            .add("marginMode", "int32", &Record::marginMode)
            .add("marginExtra1", "double", &Record::marginExtra1)
            .add("marginExtra2", "double", &Record::marginExtra2);
    }
};

template <>
struct RecordCase<qmservice::CStkExchangeRateLimit> {
    using Record = qmservice::CStkExchangeRateLimit;
    static constexpr const char* name = "CStkExchangeRateLimit";
    static void fields(FieldCases<Record>& list) {
        list.add("rate1", "double", &Record::rate1)
            .add("rate2", "double", &Record::rate2)
            .add("rate3", "double", &Record::rate3)
            .add("rate4", "double", &Record::rate4)
            .add("rate5", "double", &Record::rate5)
            .add("rate6", "double", &Record::rate6)
            .add("unitVolume", "int32", &Record::unitVolume);
    }
};

template <>
struct RecordCase<qmservice::CStockOptionFeeItem> {
    using Record = qmservice::CStockOptionFeeItem;
    static constexpr const char* name = "CStockOptionFeeItem";
    static void fields(FieldCases<Record>& list) {
        list.add("fee1", "double", &Record::fee1)
            .add("fee2", "double", &Record::fee2)
            .add("fee3", "double", &Record::fee3)
            .add("fee4", "double", &Record::fee4)
            .add("fee5", "double", &Record::fee5)
            .add("secondKeyCode", "int32", &Record::secondKeyCode)
            .add("thirdKeyCode", "int32", &Record::thirdKeyCode)
            .add("firstKeyCode", "int32", &Record::firstKeyCode);
    }
};

template <>
struct RecordCase<qmservice::CStockOptionFeeRate> {
    using Record = qmservice::CStockOptionFeeRate;
    static constexpr const char* name = "CStockOptionFeeRate";
    static void fields(FieldCases<Record>& list) {
        list.add("baseRate", "double", &Record::baseRate)
            .add("items", "map<string,shared_ptr<CStockOptionFeeItem>>", &Record::items);
    }
};

template <>
struct RecordCase<qmservice::CGroupCategorySubInfo> {
    using Record = qmservice::CGroupCategorySubInfo;
    static constexpr const char* name = "CGroupCategorySubInfo";
    static void fields(FieldCases<Record>& list) {
        list.add("category", "int32", &Record::category).add("excluded", "int32", &Record::excluded);
    }
};

template <>
struct RecordCase<qmservice::CCustomStkExchangeRateLimit> {
    using Record = qmservice::CCustomStkExchangeRateLimit;
    static constexpr const char* name = "CCustomStkExchangeRateLimit";
    static void fields(FieldCases<Record>& list) {
        list.add("category", "string", &Record::category)
            .add("rate1", "double", &Record::rate1)
            .add("unusedRate1", "double", &Record::unusedRate1)
            .add("rate2", "double", &Record::rate2)
            .add("rate3", "double", &Record::rate3)
            .add("rate4", "double", &Record::rate4)
            .add("rate5", "double", &Record::rate5)
            .add("rate6", "double", &Record::rate6)
            .add("unusedRate2", "double", &Record::unusedRate2)
            .add("optionFee1", "double", &Record::optionFee1)
            .add("optionFee2", "double", &Record::optionFee2)
            .add("optionFee3", "double", &Record::optionFee3)
            .add("optionFee4", "double", &Record::optionFee4)
            .add("optionFee5", "double", &Record::optionFee5)
            .add("optionSecondKeyCode", "int32", &Record::optionSecondKeyCode)
            .add("optionThirdKeyCode", "int32", &Record::optionThirdKeyCode)
            .add("optionFirstKeyCode", "int32", &Record::optionFirstKeyCode)
            .add("customCategories", kCustomCategories, &Record::customCategories)
            .add("groupCategories", kGroupCategories, &Record::groupCategories);
    }
};

template <class Limit>
void addConnectFields(FieldCases<Limit>& list) {
    list.add("category", "string", &Limit::category)
        .add("rate1", "double", &Limit::rate1)
        .add("rate2", "double", &Limit::rate2)
        .add("rate3", "double", &Limit::rate3)
        .add("rate4", "double", &Limit::rate4)
        .add("rate5", "double", &Limit::rate5)
        .add("rate6", "double", &Limit::rate6)
        .add("rate7", "double", &Limit::rate7)
        .add("rate8", "double", &Limit::rate8)
        .add("rate9", "double", &Limit::rate9)
        .add("rate10", "double", &Limit::rate10)
        .add("rate11", "double", &Limit::rate11)
        .add("rate12", "double", &Limit::rate12)
        .add("rate13", "double", &Limit::rate13)
        .add("rate14", "double", &Limit::rate14)
        .add("tradeMinUnit", "int32", &Limit::tradeMinUnit)
        .add("customCategories", kCustomCategories, &Limit::customCategories)
        .add("groupCategories", kGroupCategories, &Limit::groupCategories);
}

template <>
struct RecordCase<qmservice::CCustomHGTExchangeRateLimit> {
    static constexpr const char* name = "CCustomHGTExchangeRateLimit";
    static void fields(FieldCases<qmservice::CCustomHGTExchangeRateLimit>& list) { addConnectFields(list); }
};

template <>
struct RecordCase<qmservice::CCustomSgtExchangeRateLimit> {
    static constexpr const char* name = "CCustomSgtExchangeRateLimit";
    static void fields(FieldCases<qmservice::CCustomSgtExchangeRateLimit>& list) { addConnectFields(list); }
};

template <>
struct RecordCase<qmservice::CCustomCommissionRateDetail> {
    using Record = qmservice::CCustomCommissionRateDetail;
    static constexpr const char* name = "CCustomCommissionRateDetail";
    static void fields(FieldCases<Record>& list) {
        list.add("categoryId", "string", &Record::categoryId)
            .add("openRatioByMoney", "double", &Record::openRatioByMoney)
            .add("openRatioByVolume", "double", &Record::openRatioByVolume)
            .add("closeRatioByMoney", "double", &Record::closeRatioByMoney)
            .add("closeRatioByVolume", "double", &Record::closeRatioByVolume)
            .add("closeTodayRatioByMoney", "double", &Record::closeTodayRatioByMoney)
            .add("closeTodayRatioByVolume", "double", &Record::closeTodayRatioByVolume)
            .add("commissionExtra1", "double", &Record::commissionExtra1)
            .add("commissionExtra2", "double", &Record::commissionExtra2)
            .add("customCategories", kCustomCategories, &Record::customCategories)
            .add("groupCategories", kGroupCategories, &Record::groupCategories);
    }
};

template <>
struct RecordCase<qmservice::CCustomMarginRateDetail> {
    using Record = qmservice::CCustomMarginRateDetail;
    static constexpr const char* name = "CCustomMarginRateDetail";
    static void fields(FieldCases<Record>& list) {
        list.add("categoryId", "string", &Record::categoryId)
            .add("hedgeFlag", "int32", &Record::hedgeFlag)
            .add("longMarginRatio", "double", &Record::longMarginRatio)
            .add("longMarginRatioByVolume", "double", &Record::longMarginRatioByVolume)
            .add("shortMarginRatio", "double", &Record::shortMarginRatio)
            .add("shortMarginRatioByVolume", "double", &Record::shortMarginRatioByVolume)
            .add("marginMode", "int32", &Record::marginMode)
            .add("marginExtra1", "double", &Record::marginExtra1)
            .add("marginExtra2", "double", &Record::marginExtra2)
            .add("customCategories", kCustomCategories, &Record::customCategories)
            .add("groupCategories", kGroupCategories, &Record::groupCategories);
    }
};

template <>
struct RecordCase<qmservice::CCustomStockInstrumentFee> {
    using Record = qmservice::CCustomStockInstrumentFee;
    static constexpr const char* name = "CCustomStockInstrumentFee";
    static void fields(FieldCases<Record>& list) {
        list.add("rateLimits", "vector<shared_ptr<CCustomStkExchangeRateLimit>>", &Record::rateLimits);
    }
};

template <>
struct RecordCase<qmservice::CCustomHGTInstrumentFee> {
    using Record = qmservice::CCustomHGTInstrumentFee;
    static constexpr const char* name = "CCustomHGTInstrumentFee";
    static void fields(FieldCases<Record>& list) {
        list.add("rateLimits", "vector<shared_ptr<CCustomHGTExchangeRateLimit>>", &Record::rateLimits);
    }
};

template <>
struct RecordCase<qmservice::CCustomSgtInstrumentFee> {
    using Record = qmservice::CCustomSgtInstrumentFee;
    static constexpr const char* name = "CCustomSgtInstrumentFee";
    static void fields(FieldCases<Record>& list) {
        list.add("rateLimits", "vector<shared_ptr<CCustomSgtExchangeRateLimit>>", &Record::rateLimits);
    }
};

template <>
struct RecordCase<qmservice::CCustomFutureInstrumentFee> {
    using Record = qmservice::CCustomFutureInstrumentFee;
    static constexpr const char* name = "CCustomFutureInstrumentFee";
    static void fields(FieldCases<Record>& list) {
        list.add("commissionDetails", "vector<shared_ptr<CCustomCommissionRateDetail>>", &Record::commissionDetails)
            .add("marginDetails", "vector<shared_ptr<CCustomMarginRateDetail>>", &Record::marginDetails);
    }
};

template <class Record>
std::vector<FieldCase<Record>> fieldCases() {
    FieldCases<Record> list;
    RecordCase<Record>::fields(list);
    return list.cases;
}

/// A record in which every field has its sample value.
template <class Record>
Record filled() {
    Record record;
    for (const auto& field : fieldCases<Record>()) {
        field.change(record);
    }
    return record;
}

}  // namespace records_test

#endif  // TESTS_STANDALONE_RECORDS_RECORD_CASES_H
