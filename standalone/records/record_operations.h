#ifndef STANDALONE_RECORDS_RECORD_OPERATIONS_H
#define STANDALONE_RECORDS_RECORD_OPERATIONS_H

#include <boost/make_shared.hpp>
#include <cstddef>
#include <ostream>
#include <string>
#include <string_view>
#include <type_traits>
#include <typeinfo>
#include <utility>

#include "host/data.h"
#include "host/record_fields.h"
#include "standalone/records/bson_writer.h"
#include "standalone/records/field_values.h"
#include "standalone/records/hashing.h"
#include "standalone/records/log_writer.h"

// The operations that RecordOf declares, made from each class's list of fields. One source file instantiates them.

namespace qmservice {
namespace records {

template <class Record>
const Record& recordIn(const IData& data) {
    return static_cast<const Record&>(data);
}

/// Distance of a part of the record from the record's start.
template <class Record, class Part>
std::ptrdiff_t offsetIn(const Record& record, const Part& part) {
    return reinterpret_cast<const char*>(&part) - reinterpret_cast<const char*>(&record);
}

}  // namespace records

template <class Record>
boost::shared_ptr<IData> RecordOf<Record>::copy() const {
    const auto made = boost::make_shared<Record>(records::recordIn<Record>(*this));
    records::forEachField<Record>([&](const auto& field) { records::Detaching::from((*made).*field.member); });
    return made;
}

template <class Record>
uint64 RecordOf<Record>::getHashKey(uint64 seed) const {
    const auto& record = records::recordIn<Record>(*this);
    records::HashInput input;
    input.add(std::string_view(records::RecordFields<Record>::className));
    records::forEachField<Record>([&](const auto& field) { input.add(record.*field.member); });
    return input.key(seed);
}

template <class Record>
std::string RecordOf<Record>::getStructDes() const {
    std::string fields;
    records::forEachField<Record>([&](const auto& field) {
        using Value = std::decay_t<decltype(std::declval<const Record&>().*field.member)>;
        if (!fields.empty()) {
            fields += ',';
        }
        fields += std::string(field.name) + ':' + records::TypeName<Value>::text();
    });
    return std::string(records::RecordFields<Record>::className) + '{' + fields + '}';
}

template <class Record>
void RecordOf<Record>::toLogStream(std::ostream& out) const {
    const auto& record = records::recordIn<Record>(*this);
    records::LogWriter writer(out);
    writer.raw(records::RecordFields<Record>::className);
    writer.raw("{");
    bool first = true;
    records::forEachField<Record>([&](const auto& field) {
        writer.separate(first);
        writer.raw(field.name);
        writer.raw("=");
        writer.value(record.*field.member);
    });
    writer.raw("}");
}

template <class Record>
void RecordOf<Record>::toStream(std::ostream& out) const {
    IData::toStream(out);
}

template <class Record>
bool RecordOf<Record>::isEqual(const IData& other) const {
    if (typeid(*this) != typeid(other)) {
        return false;
    }
    const auto& mine = records::recordIn<Record>(*this);
    const auto& theirs = records::recordIn<Record>(other);
    return records::forAllFields<Record>(
        [&](const auto& field) { return records::Equality::of(mine.*field.member, theirs.*field.member); });
}

template <class Record>
std::ptrdiff_t RecordOf<Record>::getOffset(const std::string& field) const {
    const auto& record = records::recordIn<Record>(*this);
    std::ptrdiff_t offset = -1;
    records::forEachField<Record>([&](const auto& candidate) {
        if (field == candidate.name) {
            offset = records::offsetIn(record, record.*candidate.member);
        }
    });
    return offset;
}

template <class Record>
void RecordOf<Record>::toBsonWithBson(_bson_t* document) const {
    records::BsonWriter(document).append("_type", std::string_view(records::RecordFields<Record>::className));
    appendElementsWithNoTypeIdWithBson(document);
}

template <class Record>
void RecordOf<Record>::appendElementsWithNoTypeIdWithBson(_bson_t* document) const {
    const auto& record = records::recordIn<Record>(*this);
    records::BsonWriter writer(document);
    records::forEachField<Record>([&](const auto& field) { writer.append(field.name, record.*field.member); });
}

}  // namespace qmservice

#endif  // STANDALONE_RECORDS_RECORD_OPERATIONS_H
