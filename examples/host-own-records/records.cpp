// The operations of the record classes, written by the host: all that feecenter::records would give.
//
// The fee center calls two of them, getHashKey() of an account and copy() of a fee. The others are the host's to use;
// the virtual tables name them, so each must be defined. Each is written here once, over the list of a class's fields.

#include <algorithm>
#include <array>
#include <boost/make_shared.hpp>
#include <boost/shared_ptr.hpp>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <map>
#include <ostream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <typeinfo>
#include <utility>
#include <vector>

#include "host/record_fields.h"
#include "host/records.h"
#include "host/services.h"

using boost::shared_ptr;

namespace qmservice {

// Not a namespace without a name: operations that the library finds are made of what is in it, of which g++ warns in a
// build that compiles several sources as one.
inline namespace own_records {

// Copies: what a field holds behind pointers becomes the copy's own, but for the account and the instrument of a fee,
// which stay shared.

struct Detaching {
    template <class Value>
    static void from(Value& /*number or text*/) {}

    static void from(shared_ptr<CAccountInfo>& /*shared*/) {}
    static void from(shared_ptr<CInstrument>& /*shared*/) {}

    template <class Record>
    static void from(shared_ptr<Record>& record) {
        if (record) {
            record = boost::dynamic_pointer_cast<Record>(record->copy());
        }
    }

    template <class Value>
    static void from(std::vector<Value>& values) {
        for (Value& value : values) {
            from(value);
        }
    }

    template <class Key, class Value>
    static void from(std::map<Key, Value>& values) {
        for (auto& entry : values) {
            from(entry.second);
        }
    }
};

// Texts, of two forms: a JSON object, and a line for a log. Numbers have the digits that they need to be had back,
// whatever the locale.

enum class Form { kJson, kLog };

class Text {
public:
    Text(std::ostream& target, Form textForm) : out(target), form(textForm) {}

    /// What is before a field's value.
    void name(const std::string& field) {
        if (form == Form::kJson) {
            value(field);
            out << ':';
        } else {
            out << field << '=';
        }
    }

    void value(double number) {
        std::array<char, 32> digits{};
        out.write(digits.data(), std::to_chars(digits.begin(), digits.end(), number).ptr - digits.data());
    }

    void value(std::int32_t number) { out << std::to_string(number); }

    void value(const std::string& text) {
        out << '"';
        for (const char letter : text) {
            if (letter == '"' || letter == '\\') {
                out << '\\' << letter;
            } else if (static_cast<unsigned char>(letter) < 0x20) {
                std::array<char, 8> escape{};
                std::snprintf(escape.data(), escape.size(), "\\u%04x", static_cast<unsigned>(letter));
                out << escape.data();
            } else {
                out << letter;
            }
        }
        out << '"';
    }

    template <class Record>
    void value(const shared_ptr<Record>& record) {
        if (!record) {
            out << "null";
        } else if (form == Form::kJson) {
            record->toStream(out);
        } else {
            record->toLogStream(out);
        }
    }

    template <class Value>
    void value(const std::vector<Value>& values) {
        const char* before = "";
        out << '[';
        for (const Value& each : values) {
            out << before;
            value(each);
            before = ", ";
        }
        out << ']';
    }

    template <class Key, class Value>
    void value(const std::map<Key, Value>& values) {
        const char* before = "";
        out << '{';
        for (const auto& [key, each] : values) {
            std::ostringstream keyText;
            keyText << key;
            out << before;
            value(keyText.str());
            out << ": ";
            value(each);
            before = ", ";
        }
        out << '}';
    }

private:
    std::ostream& out;
    Form form;
};

/// What a field is, in the description of its class.
template <class Value>
std::string typeName(const Value& /*field*/) {
    return std::is_same_v<Value, double>         ? "double"
           : std::is_same_v<Value, std::int32_t> ? "int32"
           : std::is_same_v<Value, std::string>  ? "string"
                                                 : "records";
}

// Comparing: by what is behind the pointers.

struct Equality {
    template <class Value>
    static bool of(const Value& one, const Value& other) {
        return one == other;
    }

    template <class Record>
    static bool of(const shared_ptr<Record>& one, const shared_ptr<Record>& other) {
        return one && other ? one->isEqual(*other) : one == other;
    }

    template <class Value>
    static bool of(const std::vector<Value>& one, const std::vector<Value>& other) {
        return ofLists(one, other);
    }

    template <class Key, class Value>
    static bool of(const std::map<Key, Value>& one, const std::map<Key, Value>& other) {
        return ofLists(one, other);
    }

    template <class Key, class Value>
    static bool of(const std::pair<const Key, Value>& one, const std::pair<const Key, Value>& other) {
        return one.first == other.first && of(one.second, other.second);
    }

private:
    template <class List>
    static bool ofLists(const List& one, const List& other) {
        return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                          [](const auto& mine, const auto& theirs) { return of(mine, theirs); });
    }
};

}  // namespace own_records

template <class Record>
shared_ptr<IData> RecordOf<Record>::copy() const {
    const auto made = boost::make_shared<Record>(static_cast<const Record&>(*this));
    records::forEachField<Record>([&](const auto& field) { Detaching::from((*made).*field.member); });
    return made;
}

template <class Record>
uint64 RecordOf<Record>::getHashKey(uint64 seed) const {
    std::ostringstream text;
    toStream(text);
    return crc64(seed, text.str().data(), text.str().size());
}

template <class Record>
std::string RecordOf<Record>::getStructDes() const {
    const auto& record = static_cast<const Record&>(*this);
    std::string fields;
    records::forEachField<Record>([&](const auto& field) {
        fields += (fields.empty() ? "" : ",") + std::string(field.name) + ':' + typeName(record.*field.member);
    });
    return std::string(records::RecordFields<Record>::className) + '{' + fields + '}';
}

template <class Record>
void RecordOf<Record>::toLogStream(std::ostream& out) const {
    const auto& record = static_cast<const Record&>(*this);
    Text text(out, Form::kLog);
    const char* before = "{";
    out << records::RecordFields<Record>::className;
    records::forEachField<Record>([&](const auto& field) {
        out << before;
        text.name(field.name);
        text.value(record.*field.member);
        before = ", ";
    });
    out << '}';
}

template <class Record>
void RecordOf<Record>::toStream(std::ostream& out) const {
    const auto& record = static_cast<const Record&>(*this);
    Text text(out, Form::kJson);
    out << '{';
    text.name("_type");
    text.value(std::string(records::RecordFields<Record>::className));
    records::forEachField<Record>([&](const auto& field) {
        out << ',';
        text.name(field.name);
        text.value(record.*field.member);
    });
    out << '}';
}

template <class Record>
bool RecordOf<Record>::isEqual(const IData& other) const {
    const auto& mine = static_cast<const Record&>(*this);
    const auto* theirs = dynamic_cast<const Record*>(&other);
    return theirs != nullptr && typeid(mine) == typeid(*theirs) &&
           records::forAllFields<Record>(
               [&](const auto& field) { return Equality::of(mine.*field.member, theirs->*field.member); });
}

template <class Record>
std::ptrdiff_t RecordOf<Record>::getOffset(const std::string& name) const {
    const auto& record = static_cast<const Record&>(*this);
    std::ptrdiff_t offset = -1;
    records::forEachField<Record>([&](const auto& field) {
        if (name == field.name) {
            offset = reinterpret_cast<const char*>(&(record.*field.member)) - reinterpret_cast<const char*>(&record);
        }
    });
    return offset;
}

// This host writes no BSON; one that does includes <bson/bson.h> and appends the fields.

template <class Record>
void RecordOf<Record>::toBsonWithBson(_bson_t* document) const {
    appendElementsWithNoTypeIdWithBson(document);
}

template <class Record>
void RecordOf<Record>::appendElementsWithNoTypeIdWithBson(_bson_t* /*document*/) const {
    throw std::logic_error("this host writes no BSON");
}

// What a class without fields has.

IData::~IData() = default;
std::string IData::getStructDes() const { return "{}"; }
void IData::toLogStream(std::ostream& out) const { toStream(out); }
void IData::toStream(std::ostream& out) const { out << "{}"; }
bool IData::isEqual(const IData& other) const { return typeid(*this) == typeid(other); }
std::ptrdiff_t IData::getOffset(const std::string& /*field*/) const { return -1; }
void IData::toBsonWithBson(_bson_t* document) const { appendElementsWithNoTypeIdWithBson(document); }
void IData::appendElementsWithNoTypeIdWithBson(_bson_t* /*document*/) const {
    throw std::logic_error("this host writes no BSON");
}

// What the classes have of their own. The key of an account is that of its number alone, and asked for with every
// query.

uint64 CAccountInfo::getHashKey(uint64 seed) const { return crc64(seed, accountId.data(), accountId.size()); }

std::int32_t CInstrument::getFeeType() const { return feeType; }
double CInstrument::getOpenFee() const { return openFee; }
double CInstrument::getCloseFee() const { return closeFee; }
double CInstrument::getCloseTodayFee() const { return closeTodayFee; }

// The destructors, which are the last of what the virtual tables name, and the operations of each class.
#define DEFINE_RECORD(Class)   \
    Class::~Class() = default; \
    template class RecordOf<Class>

DEFINE_RECORD(CAccountInfo);
DEFINE_RECORD(CInstrument);
DEFINE_RECORD(CInstrumentFee);
DEFINE_RECORD(CGroupCategorySubInfo);
DEFINE_RECORD(CCommissionRateDetail);
DEFINE_RECORD(CMarginRateDetail);
DEFINE_RECORD(CStkExchangeRateLimit);
DEFINE_RECORD(CStockOptionFeeItem);
DEFINE_RECORD(CStockOptionFeeRate);
DEFINE_RECORD(CCustomStkExchangeRateLimit);
DEFINE_RECORD(CCustomHGTExchangeRateLimit);
DEFINE_RECORD(CCustomSgtExchangeRateLimit);
DEFINE_RECORD(CCustomCommissionRateDetail);
DEFINE_RECORD(CCustomMarginRateDetail);
DEFINE_RECORD(CCustomStockInstrumentFee);
DEFINE_RECORD(CCustomHGTInstrumentFee);
DEFINE_RECORD(CCustomSgtInstrumentFee);
DEFINE_RECORD(CCustomFutureInstrumentFee);

}  // namespace qmservice
