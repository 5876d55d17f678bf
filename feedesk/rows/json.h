#ifndef FEEDESK_ROWS_JSON_H
#define FEEDESK_ROWS_JSON_H

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <string>

#include "feedesk/rows/value.h"

namespace feedesk {

/// One JSON object on one line, its members in the order in which they are added.
///
/// Texts are valid UTF-8 whatever they are made of: a byte that is not becomes the text that messages show for it,
/// "\x9b", because JSON has no way to hold it. Characters that a terminal would obey are escaped. Numbers are as
/// plainNumber() shows them; what is no number is null.
class JsonObject {
public:
    JsonObject() { writer.StartObject(); }
    JsonObject(const JsonObject&) = delete;
    JsonObject& operator=(const JsonObject&) = delete;
    ~JsonObject() = default;

    JsonObject& member(const std::string& name, const Value& value);

    /// Members go into a new object of that name, until it is closed.
    JsonObject& open(const std::string& name);
    JsonObject& close();

    /// Ends the object; nothing may be added behind it.
    [[nodiscard]] std::string text();

private:
    rapidjson::StringBuffer buffer;
    rapidjson::Writer<rapidjson::StringBuffer> writer{buffer};
};

}  // namespace feedesk

#endif  // FEEDESK_ROWS_JSON_H
