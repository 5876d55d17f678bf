#ifndef STANDALONE_RECORDS_BSON_WRITER_H
#define STANDALONE_RECORDS_BSON_WRITER_H

#include <bson/bson.h>

#include <boost/shared_ptr.hpp>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "host/data.h"

namespace qmservice::records {

/// An empty BSON document of its own.
class BsonDocument {
public:
    BsonDocument() { bson_init(&document); }
    BsonDocument(const BsonDocument&) = delete;
    BsonDocument& operator=(const BsonDocument&) = delete;
    ~BsonDocument() { bson_destroy(&document); }

    [[nodiscard]] bson_t* get() { return &document; }
    [[nodiscard]] const bson_t* get() const { return &document; }

private:
    bson_t document;
};

/// The document as one line of relaxed extended JSON, whatever the locale; a number that JSON has no form for becomes
/// {"$numberDouble": "NaN"}. Throws std::runtime_error when the document is not valid BSON.
std::string jsonText(const BsonDocument& document);

/// Appends fields to a BSON document that it does not own. Every operation throws std::length_error when the document
/// has no room left; it stays valid and keeps the fields that it had.
///
/// A text that is not UTF-8 goes in as binary with its bytes unchanged. The keys of a map become field names: numbers
/// as decimal text, texts as escaped() writes them, so that any bytes make a valid name. An empty pointer becomes null.
class BsonWriter {
public:
    /// The plain struct is what the records' interface declares; libbson's typedef adds an alignment to it.
    explicit BsonWriter(_bson_t* target) : document(static_cast<bson_t*>(target)) {}

    void append(std::string_view name, double value);
    void append(std::string_view name, std::int32_t value);
    void append(std::string_view name, std::string_view text);

    template <class Record>
    void append(std::string_view name, const boost::shared_ptr<Record>& record) {
        appendRecord(name, record.get());
    }

    template <class Value>
    void append(std::string_view name, const std::vector<Value>& values) {
        BsonDocument array;
        BsonWriter writer(array.get());
        std::size_t index = 0;
        for (const auto& value : values) {
            writer.append(std::to_string(index++), value);
        }
        appendArray(name, array);
    }

    template <class Key, class Value>
    void append(std::string_view name, const std::map<Key, Value>& values) {
        BsonDocument fields;
        BsonWriter writer(fields.get());
        for (const auto& [key, value] : values) {
            writer.append(fieldName(key), value);
        }
        appendDocument(name, fields);
    }

private:
    static std::string fieldName(std::int32_t key);
    static std::string fieldName(std::string_view key);

    void appendBinary(std::string_view name, std::string_view bytes);
    void appendRecord(std::string_view name, const IData* record);
    void appendArray(std::string_view name, const BsonDocument& array);
    void appendDocument(std::string_view name, const BsonDocument& fields);

    bson_t* document;
};

}  // namespace qmservice::records

#endif  // STANDALONE_RECORDS_BSON_WRITER_H
