#ifndef STANDALONE_RECORDS_FIELD_VALUES_H
#define STANDALONE_RECORDS_FIELD_VALUES_H

#include <algorithm>
#include <boost/shared_ptr.hpp>
#include <cstdint>
#include <map>
#include <string>
#include <typeinfo>
#include <utility>
#include <vector>

#include "host/record_fields.h"

// What comparing, copying and naming mean for each kind of field. Each is a struct of overloads, because the overloads
// for lists and maps call the ones for their entries.

namespace qmservice::records {

/// Equality of contents. The same record on both sides is compared all the same: a NaN in it equals nothing.
struct Equality {
    template <class Value>
    static bool of(const Value& left, const Value& right) {
        return left == right;
    }

    template <class Record>
    static bool of(const boost::shared_ptr<Record>& left, const boost::shared_ptr<Record>& right) {
        if (!left || !right) {
            return !left && !right;
        }
        return left->isEqual(*right);
    }

    template <class Value>
    static bool of(const std::vector<Value>& left, const std::vector<Value>& right) {
        return ofEntries(left, right);
    }

    template <class Key, class Value>
    static bool of(const std::map<Key, Value>& left, const std::map<Key, Value>& right) {
        return ofEntries(left, right);
    }

    template <class Key, class Value>
    static bool of(const std::pair<const Key, Value>& left, const std::pair<const Key, Value>& right) {
        return of(left.first, right.first) && of(left.second, right.second);
    }

private:
    template <class Entries>
    static bool ofEntries(const Entries& left, const Entries& right) {
        return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                          [](const auto& mine, const auto& theirs) { return of(mine, theirs); });
    }
};

/// Replaces the records that a copied field still shares with the original by copies of their own.
struct Detaching {
    template <class Value>
    static void from(Value& /*field*/) {}

    template <class Record>
    static void from(boost::shared_ptr<Record>& record) {
        if (record) {
            record = copyOf(*record);
        }
    }

    // The account and the instrument of a fee are the host's own, not part of the fee.
    static void from(boost::shared_ptr<CAccountInfo>& /*account*/) {}
    static void from(boost::shared_ptr<CInstrument>& /*instrument*/) {}

    template <class Value>
    static void from(std::vector<Value>& values) {
        for (auto& value : values) {
            from(value);
        }
    }

    template <class Key, class Value>
    static void from(std::map<Key, Value>& values) {
        for (auto& entry : values) {
            from(entry.second);
        }
    }

private:
    // The record may be of a derived class with a copy() of its own; one of a foreign class has no place in the field.
    template <class Record>
    static boost::shared_ptr<Record> copyOf(const Record& record) {
        auto copy = boost::dynamic_pointer_cast<Record>(record.copy());
        if (!copy) {
            throw std::bad_cast();
        }
        return copy;
    }
};

/// Name of a field's type in a class's description.
template <class Value>
struct TypeName;

template <>
struct TypeName<double> {
    static std::string text() { return "double"; }
};

template <>
struct TypeName<std::int32_t> {
    static std::string text() { return "int32"; }
};

template <>
struct TypeName<std::string> {
    static std::string text() { return "string"; }
};

template <class Record>
struct TypeName<boost::shared_ptr<Record>> {
    static std::string text() { return std::string("shared_ptr<") + RecordFields<Record>::className + ">"; }
};

template <class Value>
struct TypeName<std::vector<Value>> {
    static std::string text() { return "vector<" + TypeName<Value>::text() + ">"; }
};

template <class Key, class Value>
struct TypeName<std::map<Key, Value>> {
    static std::string text() { return "map<" + TypeName<Key>::text() + "," + TypeName<Value>::text() + ">"; }
};

}  // namespace qmservice::records

#endif  // STANDALONE_RECORDS_FIELD_VALUES_H
