#ifndef TESTS_HISTORIES_RECORD_FIELDS_H
#define TESTS_HISTORIES_RECORD_FIELDS_H

#include <array>
#include <boost/shared_ptr.hpp>
#include <charconv>
#include <cstddef>
#include <cstring>
#include <map>
#include <string>
#include <type_traits>
#include <typeinfo>
#include <vector>

#include "host/record_fields.h"
#include "host/records.h"
#include "tests/standalone/records/record_classes.h"

// Comparing and describing records field by field.

namespace histories {

/// Bit by bit, so that the sign of a zero counts; a NaN is the same as any other.
inline bool same(double a, double b) { return std::memcmp(&a, &b, sizeof a) == 0 || (a != a && b != b); }
inline bool same(int a, int b) { return a == b; }
inline bool same(const std::string& a, const std::string& b) { return a == b; }
inline bool same(const std::map<int, std::vector<std::string>>& a, const std::map<int, std::vector<std::string>>& b) {
    return a == b;
}
// Whose record it is that a fee is for, not what is in it.
inline bool same(const boost::shared_ptr<qmservice::CAccountInfo>& a,
                 const boost::shared_ptr<qmservice::CAccountInfo>& b) {
    return a == b;
}
inline bool same(const boost::shared_ptr<qmservice::CInstrument>& a,
                 const boost::shared_ptr<qmservice::CInstrument>& b) {
    return a == b;
}
template <class Record>
bool same(const boost::shared_ptr<Record>& a, const boost::shared_ptr<Record>& b);
template <class Value>
bool same(const std::vector<Value>& a, const std::vector<Value>& b);
template <class Value>
bool same(const std::map<std::string, Value>& a, const std::map<std::string, Value>& b);

template <class Record>
bool sameFields(const Record& a, const Record& b) {
    return qmservice::records::forAllFields<Record>(
        [&](const auto& field) { return same(a.*field.member, b.*field.member); });
}

template <class Record>
bool same(const boost::shared_ptr<Record>& a, const boost::shared_ptr<Record>& b) {
    return a && b ? sameFields(*a, *b) : !a && !b;
}

template <class Value>
bool same(const std::vector<Value>& a, const std::vector<Value>& b) {
    bool equal = a.size() == b.size();
    for (std::size_t i = 0; equal && i < a.size(); ++i) {
        equal = same(a[i], b[i]);
    }
    return equal;
}

template <class Value>
bool same(const std::map<std::string, Value>& a, const std::map<std::string, Value>& b) {
    if (a.size() != b.size()) {
        return false;
    }
    auto other = b.begin();
    for (const auto& entry : a) {
        if (entry.first != other->first || !same(entry.second, other->second)) {
            return false;
        }
        ++other;
    }
    return true;
}

/// The shortest text that reads as the same number.
inline std::string show(double value) {
    std::array<char, 32> text{};
    return {text.data(), std::to_chars(text.data(), text.data() + text.size(), value).ptr};
}
inline std::string show(int value) { return std::to_string(value); }
inline std::string show(const std::string& value) { return '"' + value + '"'; }
std::string show(const std::map<int, std::vector<std::string>>& members);
std::string show(const boost::shared_ptr<qmservice::CAccountInfo>& account);
std::string show(const boost::shared_ptr<qmservice::CInstrument>& instrument);
template <class Record>
std::string show(const boost::shared_ptr<Record>& record);

template <class Value>
std::string show(const std::vector<Value>& values) {
    std::string text;
    for (const auto& value : values) {
        text += (text.empty() ? "" : ", ") + show(value);
    }
    return '[' + text + ']';
}

template <class Value>
std::string show(const std::map<std::string, Value>& values) {
    std::string text;
    for (const auto& value : values) {
        text += (text.empty() ? "" : ", ") + value.first + ": " + show(value.second);
    }
    return '{' + text + '}';
}

/// The class and what it holds other than a new record does.
template <class Record>
std::string showRecord(const Record& record) {
    const Record byDefault;
    std::string text;
    qmservice::records::forEachField<Record>([&](const auto& field) {
        if (!same(record.*field.member, byDefault.*field.member)) {
            text += (text.empty() ? "" : ", ") + std::string(field.name) + ' ' + show(record.*field.member);
        }
    });
    return qmservice::records::RecordFields<Record>::className + ('{' + text) + '}';
}

template <class Record>
std::string show(const boost::shared_ptr<Record>& record) {
    return record ? showRecord(*record) : "nothing";
}

/// "what: the model says ..., the fee center says ..."
template <class Value>
std::string saying(const char* what, const Value& expected, const Value& actual) {
    return std::string(what) + ": the model says " + show(expected) + ", the fee center says " + show(actual);
}

/// The same of the first field that differs; empty when none does.
template <class Record>
std::string fieldDifference(const Record& expected, const Record& actual) {
    std::string text;
    qmservice::records::forAllFields<Record>([&](const auto& field) {
        if (same(expected.*field.member, actual.*field.member)) {
            return true;
        }
        text = saying(field.name, expected.*field.member, actual.*field.member);
        return false;
    });
    return text;
}

template <class... Classes>
struct RecordClasses {
    template <class Visit>
    static bool visit(const qmservice::IData& record, const Visit& visitor) {
        const auto visitAs = [&](const auto* typed) {
            const bool isIts = typed != nullptr && typeid(*typed) == typeid(record);
            if (isIts) {
                visitor(*typed);
            }
            return isIts;
        };
        return (visitAs(dynamic_cast<const Classes*>(&record)) || ...);
    }
};

/// Calls `visitor(record)` with the record as what it is. False, and no call, when it is of no known class.
template <class Visit>
bool asItsClass(const qmservice::IData& record, const Visit& visitor) {
    return records_test::EveryRecordClass<RecordClasses>::visit(record, visitor);
}

/// A record of any class in words.
std::string describe(const qmservice::IData* record);

}  // namespace histories

#endif  // TESTS_HISTORIES_RECORD_FIELDS_H
