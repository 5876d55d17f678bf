#include <sstream>
#include <tuple>
#include <type_traits>
#include <typeinfo>

#include "conformance/asking.h"
#include "conformance/promise.h"
#include "conformance/record_values.h"

namespace conformance {
namespace {

using namespace qmservice;
using records::forEachField;
using records::RecordFields;

template <class Record>
struct ClassOf {
    using type = Record;
};

/// Calls visit(ClassOf<Record>()) for every record class; a class that is part of others comes before them, so that it
/// is named where it is at fault.
template <class Visit>
void forEachClass(const Visit& visit) {
    const auto visitEach = [&](auto... classes) { (visit(classes), ...); };
    visitEach(ClassOf<CAccountInfo>(), ClassOf<CInstrument>(), ClassOf<CGroupCategorySubInfo>(),
              ClassOf<CCommissionRateDetail>(), ClassOf<CMarginRateDetail>(), ClassOf<CStkExchangeRateLimit>(),
              ClassOf<CStockOptionFeeItem>(), ClassOf<CStockOptionFeeRate>(), ClassOf<CCustomStkExchangeRateLimit>(),
              ClassOf<CCustomHGTExchangeRateLimit>(), ClassOf<CCustomSgtExchangeRateLimit>(),
              ClassOf<CCustomCommissionRateDetail>(), ClassOf<CCustomMarginRateDetail>(), ClassOf<CInstrumentFee>(),
              ClassOf<CCustomStockInstrumentFee>(), ClassOf<CCustomHGTInstrumentFee>(),
              ClassOf<CCustomSgtInstrumentFee>(), ClassOf<CCustomFutureInstrumentFee>());
}

template <class Record>
std::string callOn(const char* operation) {
    return std::string(RecordFields<Record>::className) + "::" + operation;
}

template <class Record>
boost::shared_ptr<Record> copyOf(Witness& witness, const Record& record) {
    const boost::shared_ptr<IData> copy = witness.call(callOn<Record>("copy()"), [&] { return record.copy(); });
    const IData* const made = copy.get();
    Witness::expect(made != nullptr && typeid(*made) == typeid(Record), "gave no record of its own class");
    return boost::static_pointer_cast<Record>(copy);
}

/// The account and the instrument of a fee are the host's own: a copy shares them.
template <class Field>
constexpr bool kIsShared =
    std::is_same_v<Field, records::RecordField<CInstrumentFee, boost::shared_ptr<CAccountInfo>>> ||
    std::is_same_v<Field, records::RecordField<CInstrumentFee, boost::shared_ptr<CInstrument>>>;

void copyEquals(const Sample& /*sample*/, Witness& witness) {
    forEachClass([&](auto of) {
        using Record = typename decltype(of)::type;
        const auto record = filled<Record>();
        const auto copy = copyOf(witness, *record);
        Witness::expect(copy != record, "gave the record itself");
        forEachField<Record>([&](const auto& field) {
            Witness::expect(Same::of((*record).*field.member, (*copy).*field.member),
                            std::string("gave a record whose ") + field.name + " is another");
        });
    });
}

void copyIsIndependent(const Sample& /*sample*/, Witness& witness) {
    forEachClass([&](auto of) {
        using Record = typename decltype(of)::type;
        const auto record = filled<Record>();
        const auto untouched = filled<Record>();
        const auto copy = copyOf(witness, *record);
        forEachField<Record>([&](const auto& field) {
            if constexpr (kIsShared<std::decay_t<decltype(field)>>) {
                Witness::expect((*copy).*field.member == (*record).*field.member,
                                std::string("gave a record with a ") + field.name + " of its own");
            } else {
                Change::of((*copy).*field.member);
                Witness::expect(Same::of((*record).*field.member, (*untouched).*field.member),
                                std::string("gave a record that shares ") + field.name + " with the original");
            }
        });
    });
}

void equalityIsComplete(const Sample& /*sample*/, Witness& witness) {
    forEachClass([&](auto of) {
        using Record = typename decltype(of)::type;
        const auto isEqual = [&](const IData& one, const IData& other, const char* what) {
            return witness.call(callOn<Record>("isEqual(") + what + ")", [&] { return one.isEqual(other); });
        };
        const auto record = filled<Record>();
        Witness::expect(isEqual(*record, *filled<Record>(), "a record with the same fields"), "gave false");
        forEachField<Record>([&](const auto& field) {
            const auto other = filled<Record>();
            Change::of((*other).*field.member);
            const std::string what = std::string("a record with another ") + field.name;
            Witness::expect(!isEqual(*record, *other, what.c_str()), "gave true");
        });
        using Other = std::conditional_t<std::is_same_v<Record, CInstrument>, CAccountInfo, CInstrument>;
        Witness::expect(!isEqual(*record, *filled<Other>(), "a record of another class"), "gave true");
    });
}

void equalKeys(const Sample& /*sample*/, Witness& witness) {
    forEachClass([&](auto of) {
        using Record = typename decltype(of)::type;
        for (const uint64 seed : {uint64{0}, uint64{7}}) {
            const auto record = filled<Record>();
            const auto other = filled<Record>();
            const uint64 key = record->getHashKey(seed);
            const uint64 otherKey = witness.call(callOn<Record>("getHashKey(") + std::to_string(seed) + ")",
                                                 [&] { return other->getHashKey(seed); });
            Witness::expect(key == otherKey, "gave " + hex(key) + " and " + hex(otherKey) + " for two equal records");
        }
    });
}

void offsets(const Sample& /*sample*/, Witness& witness) {
    forEachClass([&](auto of) {
        using Record = typename decltype(of)::type;
        const auto record = filled<Record>();
        const auto expectOffset = [&](const char* name, std::ptrdiff_t expected) {
            const std::ptrdiff_t offset = witness.call(callOn<Record>("getOffset(") + inQuotes(name) + ")",
                                                       [&] { return record->getOffset(name); });
            Witness::expect(offset == expected,
                            "gave " + std::to_string(offset) + " and not " + std::to_string(expected));
        };
        forEachField<Record>([&](const auto& field) {
            const auto& place = (*record).*field.member;
            expectOffset(field.name,
                         reinterpret_cast<const char*>(&place) - reinterpret_cast<const char*>(record.get()));
        });
        expectOffset("no such field", -1);
    });
}

bool beginsWith(const std::string& text, const std::string& start) { return text.compare(0, start.size(), start) == 0; }

void texts(const Sample& /*sample*/, Witness& witness) {
    forEachClass([&](auto of) {
        using Record = typename decltype(of)::type;
        const std::string className = RecordFields<Record>::className;
        const auto record = filled<Record>();
        const std::string description =
            witness.call(callOn<Record>("getStructDes()"), [&] { return record->getStructDes(); });
        Witness::expect(beginsWith(description, className + "{"), "gave " + beginningOf(description));
        forEachField<Record>([&](const auto& field) {
            Witness::expect(description.find(std::string(field.name) + ":") != std::string::npos,
                            "left out " + std::string(field.name));
        });
        std::ostringstream log;
        witness.call(callOn<Record>("toLogStream"), [&] { record->toLogStream(log); });
        Witness::expect(beginsWith(log.str(), className + "{") && log.str().find('\n') == std::string::npos,
                        "wrote " + beginningOf(log.str()));
        std::ostringstream json;
        witness.call(callOn<Record>("toStream"), [&] { record->toStream(json); });
        Witness::expect(
            beginsWith(json.str(), "{") && json.str().back() == '}' && json.str().find('\n') == std::string::npos,
            "wrote " + beginningOf(json.str()));
    });
}

}  // namespace

Promises recordPromises() {
    return {
        {"records.copy-equals", "a copy must be a new record of the same class with the same fields",
         "copy every field", copyEquals},
        {"records.copy-independent",
         "writing into a copy must never show in the original, and only the account and instrument of a fee stay "
         "shared",
         "copy the records behind pointers too", copyIsIndependent},
        {"records.equality", "records are equal when they are of one class and all their fields are",
         "compare every field, and records behind pointers by their contents", equalityIsComplete},
        {"records.keys", "equal records must have equal keys",
         "let the fields alone into the key, and of a record inside its own key and not its address", equalKeys},
        {"records.offsets",
         "it must be the field's distance from the start of the record in bytes, and -1 for a name "
         "that is no field",
         "name every field of host/record_fields.h", offsets},
        {"records.texts", "the description, the log line and the JSON object must have the form that host/data.h gives",
         "write the class name and every field, on one line", texts},
    };
}

}  // namespace conformance
