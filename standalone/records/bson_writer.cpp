#include "standalone/records/bson_writer.h"

#include <locale.h>  // NOLINT(modernize-deprecated-headers): uselocale is POSIX, not C++

#include <limits>
#include <memory>
#include <stdexcept>

#include "standalone/text/escape.h"
#include "standalone/text/utf8.h"

namespace qmservice::records {
namespace {

// libbson prints numbers with the calling thread's locale, and a decimal comma is not JSON.
class PlainLocale {
public:
    PlainLocale() : previous(uselocale(plain())) {}
    PlainLocale(const PlainLocale&) = delete;
    PlainLocale& operator=(const PlainLocale&) = delete;
    ~PlainLocale() { uselocale(previous); }

private:
    static locale_t plain() {
        static const locale_t locale = newlocale(LC_ALL_MASK, "C", nullptr);
        return locale;
    }

    locale_t previous;
};

[[noreturn]] void throwNoRoom(std::string_view name) {
    throw std::length_error("The field \"" + standalone::escaped(name) +
                            "\" does not fit into its BSON document, which holds at most 2147483647 bytes; "
                            "write fewer records into one document.");
}

void require(bool appended, std::string_view name) {
    if (!appended) {
        throwNoRoom(name);
    }
}

int intLength(std::string_view text, std::string_view name) {
    require(text.size() <= static_cast<std::size_t>(std::numeric_limits<int>::max()), name);
    return static_cast<int>(text.size());
}

int nameLength(std::string_view name) { return intLength(name, name.substr(0, 64)); }

}  // namespace

std::string jsonText(const BsonDocument& document) {
    const PlainLocale locale;
    std::size_t length = 0;
    const std::unique_ptr<char, void (*)(void*)> text(bson_as_relaxed_extended_json(document.get(), &length),
                                                      bson_free);
    if (!text) {
        throw std::runtime_error("The BSON document of a record has no JSON form: it is not valid BSON.");
    }
    return {text.get(), length};
}

void BsonWriter::append(std::string_view name, double value) {
    require(bson_append_double(document, name.data(), nameLength(name), value), name);
}

void BsonWriter::append(std::string_view name, std::int32_t value) {
    require(bson_append_int32(document, name.data(), nameLength(name), value), name);
}

void BsonWriter::append(std::string_view name, std::string_view text) {
    if (!standalone::isUtf8(text)) {
        return appendBinary(name, text);
    }
    require(bson_append_utf8(document, name.data(), nameLength(name), text.data(), intLength(text, name)), name);
}

void BsonWriter::appendBinary(std::string_view name, std::string_view bytes) {
    // libbson takes the bytes as unsigned; a char may be read as one.
    const auto* data = reinterpret_cast<const std::uint8_t*>(bytes.data());
    const auto length = static_cast<std::uint32_t>(intLength(bytes, name));
    require(bson_append_binary(document, name.data(), nameLength(name), BSON_SUBTYPE_BINARY, data, length), name);
}

void BsonWriter::appendRecord(std::string_view name, const IData* record) {
    if (record == nullptr) {
        return require(bson_append_null(document, name.data(), nameLength(name)), name);
    }
    BsonDocument fields;
    record->toBsonWithBson(fields.get());
    appendDocument(name, fields);
}

void BsonWriter::appendArray(std::string_view name, const BsonDocument& array) {
    require(bson_append_array(document, name.data(), nameLength(name), array.get()), name);
}

void BsonWriter::appendDocument(std::string_view name, const BsonDocument& fields) {
    require(bson_append_document(document, name.data(), nameLength(name), fields.get()), name);
}

std::string BsonWriter::fieldName(std::int32_t key) { return std::to_string(key); }

std::string BsonWriter::fieldName(std::string_view key) { return standalone::escaped(key); }

}  // namespace qmservice::records
