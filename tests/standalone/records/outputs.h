#ifndef TESTS_STANDALONE_RECORDS_OUTPUTS_H
#define TESTS_STANDALONE_RECORDS_OUTPUTS_H

#include <bson/bson.h>

#include <sstream>
#include <string>
#include <utility>

#include "host/data.h"

namespace records_test {

/// Owner of a document of libbson's; may be empty.
class Bson {
public:
    explicit Bson(bson_t* owned) : document(owned) {}
    Bson(Bson&& other) noexcept : document(std::exchange(other.document, nullptr)) {}
    Bson& operator=(Bson&&) = delete;
    ~Bson() {
        if (document != nullptr) {
            bson_destroy(document);
        }
    }

    explicit operator bool() const { return document != nullptr; }
    [[nodiscard]] bson_t* get() const { return document; }

private:
    bson_t* document;
};

inline Bson emptyBson() { return Bson(bson_new()); }

inline Bson bsonOf(const qmservice::IData& data) {
    Bson document = emptyBson();
    data.toBsonWithBson(document.get());
    return document;
}

inline std::string logTextOf(const qmservice::IData& data) {
    std::ostringstream out;
    data.toLogStream(out);
    return out.str();
}

inline std::string jsonTextOf(const qmservice::IData& data) {
    std::ostringstream out;
    data.toStream(out);
    return out.str();
}

/// The document that the JSON text describes; empty, with the reader's complaint in `complaint`, when it is not JSON.
inline Bson parseJson(const std::string& json, std::string& complaint) {
    bson_error_t error{};
    const auto* text = reinterpret_cast<const std::uint8_t*>(json.data());
    Bson document(bson_new_from_json(text, static_cast<ssize_t>(json.size()), &error));
    if (!document) {
        complaint = error.message;
    }
    return document;
}

}  // namespace records_test

#endif  // TESTS_STANDALONE_RECORDS_OUTPUTS_H
