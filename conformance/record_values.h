#ifndef CONFORMANCE_RECORD_VALUES_H
#define CONFORMANCE_RECORD_VALUES_H

#include <algorithm>
#include <boost/shared_ptr.hpp>
#include <boost/smart_ptr/make_shared.hpp>
#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "host/record_fields.h"

// Records with a value in every field, made, changed and compared without the host's operations.

namespace conformance {

template <class Record>
boost::shared_ptr<Record> filled();

/// Gives every field a value of its own; the same values each time.
class Filling {
public:
    void fill(double& value) { value = next() + 0.5; }
    void fill(std::int32_t& value) { value = next(); }
    void fill(std::string& value) { value = "text " + std::to_string(next()); }

    template <class Record>
    void fill(boost::shared_ptr<Record>& value) {
        value = filled<Record>();
    }
    template <class Value>
    void fill(std::vector<Value>& values) {
        values.resize(2);
        for (Value& value : values) {
            fill(value);
        }
    }
    template <class Value>
    void fill(std::map<int, Value>& values) {
        fill(values[next()]);
    }
    template <class Value>
    void fill(std::map<std::string, Value>& values) {
        fill(values["D" + std::to_string(next())]);
    }

private:
    int next() { return ++count; }
    int count = 0;
};

template <class Record>
boost::shared_ptr<Record> filled() {
    auto record = boost::make_shared<Record>();
    Filling filling;
    qmservice::records::forEachField<Record>([&](const auto& field) { filling.fill((*record).*field.member); });
    return record;
}

/// Changes a value in its place, inside of a list or a record where it is one.
struct Change {
    static void of(double& value) { value += 1; }
    static void of(std::int32_t& value) { value += 1; }
    static void of(std::string& value) { value += "x"; }

    template <class Record>
    static void of(boost::shared_ptr<Record>& record) {
        using First = std::decay_t<decltype(std::get<0>(qmservice::records::RecordFields<Record>::list))>;
        const First& field = std::get<0>(qmservice::records::RecordFields<Record>::list);
        of((*record).*field.member);
    }
    template <class Value>
    static void of(std::vector<Value>& values) {
        of(values.back());
    }
    template <class Key, class Value>
    static void of(std::map<Key, Value>& values) {
        of(values.begin()->second);
    }
};

/// Equality of contents.
struct Same {
    template <class Value>
    static bool of(const Value& one, const Value& other) {
        return one == other;
    }
    template <class Record>
    static bool of(const boost::shared_ptr<Record>& one, const boost::shared_ptr<Record>& other) {
        return (!one || !other) ? !one && !other : record(*one, *other);
    }
    template <class Value>
    static bool of(const std::vector<Value>& one, const std::vector<Value>& other) {
        return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                          [](const Value& left, const Value& right) { return of(left, right); });
    }
    template <class Key, class Value>
    static bool of(const std::map<Key, Value>& one, const std::map<Key, Value>& other) {
        return std::equal(one.begin(), one.end(), other.begin(), other.end(), [](const auto& left, const auto& right) {
            return left.first == right.first && of(left.second, right.second);
        });
    }
    template <class Record>
    static bool record(const Record& one, const Record& other) {
        return qmservice::records::forAllFields<Record>(
            [&](const auto& field) { return of(one.*field.member, other.*field.member); });
    }
};

}  // namespace conformance

#endif  // CONFORMANCE_RECORD_VALUES_H
