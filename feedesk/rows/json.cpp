#include "feedesk/rows/json.h"

#include <fmt/format.h>

#include <cmath>
#include <string_view>

#include "feedesk/text/numbers.h"
#include "standalone/text/escape.h"

namespace feedesk {
namespace {

using standalone::replaceUnprintable;
using JsonWriter = rapidjson::Writer<rapidjson::StringBuffer>;

bool isWholeCharacter(std::string_view character) {
    return character.size() > 1 || static_cast<unsigned char>(character.front()) < 0x80;
}

/// The number of a character, which has two or three bytes in UTF-8 or is ASCII.
unsigned codePoint(std::string_view character) {
    const std::size_t length = character.size();
    unsigned code = static_cast<unsigned char>(character[0]) & (length == 1 ? 0x7FU : length == 2 ? 0x1FU : 0x0FU);
    for (const char byte : character.substr(1)) {
        code = code << 6U | (static_cast<unsigned char>(byte) & 0x3FU);
    }
    return code;
}

std::string asUtf8(std::string_view text) {
    return replaceUnprintable(text, [](std::string_view character) {
        return isWholeCharacter(character) ? std::string(character) : standalone::printable(character);
    });
}

/// JSON may hold these characters as they are; escaped, they mean the same and no terminal obeys them.
std::string withoutUnprintable(std::string_view text) {
    return replaceUnprintable(
        text, [](std::string_view character) { return fmt::format("\\u{:04X}", codePoint(character)); });
}

std::string quotedJson(const std::string& text) {
    const std::string valid = asUtf8(text);
    rapidjson::StringBuffer buffer;
    JsonWriter(buffer).String(valid.data(), static_cast<rapidjson::SizeType>(valid.size()));
    return withoutUnprintable({buffer.GetString(), buffer.GetSize()});
}

void writeRaw(JsonWriter& writer, const std::string& json, rapidjson::Type type) {
    writer.RawValue(json.data(), json.size(), type);
}

/// A number is written as its decimal text: the library's own would have up to 17 digits.
struct WriteValue {
    JsonWriter& writer;

    void operator()(const Nothing& /*nothing*/) const { writer.Null(); }
    void operator()(const std::string& text) const { writeRaw(writer, quotedJson(text), rapidjson::kStringType); }
    void operator()(const Label& label) const { (*this)(label.name); }
    void operator()(const Source& source) const { (*this)(source.place); }
    void operator()(const cost::Date& day) const { (*this)(day.text()); }
    void operator()(std::size_t count) const { writer.Uint64(count); }
    void operator()(const Money& money) const { writeRaw(writer, money.decimal, rapidjson::kNumberType); }
    void operator()(const Rate& rate) const { writeRaw(writer, rate.decimal, rapidjson::kNumberType); }
    void operator()(const Sources& sources) const { (*this)(Names(sources.places)); }
    void operator()(const Sentences& sentences) const { (*this)(Names(sentences.texts)); }
    void operator()(double number) const {
        std::isfinite(number) ? writeRaw(writer, plainNumber(number), rapidjson::kNumberType) : (*this)(Nothing());
    }
    void operator()(const Names& names) const {
        writer.StartArray();
        for (const std::string& name : names) {
            (*this)(name);
        }
        writer.EndArray();
    }
};

}  // namespace

JsonObject& JsonObject::member(const std::string& name, const Value& value) {
    writeRaw(writer, quotedJson(name), rapidjson::kStringType);
    std::visit(WriteValue{writer}, value);
    return *this;
}

JsonObject& JsonObject::open(const std::string& name) {
    writeRaw(writer, quotedJson(name), rapidjson::kStringType);
    writer.StartObject();
    return *this;
}

JsonObject& JsonObject::close() {
    writer.EndObject();
    return *this;
}

std::string JsonObject::text() {
    writer.EndObject();
    return {buffer.GetString(), buffer.GetSize()};
}

}  // namespace feedesk
