#include "feedesk/json.h"

#include <bson/bson.h>
#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <string_view>

#include "feedesk/numbers.h"
#include "feedesk/text.h"
#include "standalone/loader/words.h"

namespace feedesk {
namespace {

using standalone::loader::replaceUnprintable;

bool isUtf8(std::string_view character) {
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

/// JSON has no way to hold a byte that is not UTF-8; it becomes the text that a message shows for it.
std::string asUtf8(std::string_view text) {
    return replaceUnprintable(text, [](std::string_view character) {
        return isUtf8(character) ? std::string(character) : singleLine(character);
    });
}

/// JSON may hold these characters as they are; escaped, they mean the same and no terminal obeys them.
std::string withoutUnprintable(std::string_view text) {
    return replaceUnprintable(
        text, [](std::string_view character) { return fmt::format("\\u{:04x}", codePoint(character)); });
}

// libbson's own writer gives 17 digits and more to every number (0.00025000000000000000520); its escaping of texts is
// used as it is.
std::string quoted(const std::string& text) {
    const std::string valid = asUtf8(text);
    const std::unique_ptr<char, decltype(&bson_free)> escaped(
        bson_utf8_escape_for_json(valid.data(), static_cast<ssize_t>(valid.size())), &bson_free);
    return fmt::format("\"{}\"", withoutUnprintable(escaped ? escaped.get() : ""));
}

}  // namespace

JsonObject& JsonObject::text(const std::string& name, const std::string& value) { return add(name, quoted(value)); }

JsonObject& JsonObject::texts(const std::string& name, const std::vector<std::string>& values) {
    std::vector<std::string> elements(values.size());
    std::transform(values.begin(), values.end(), elements.begin(), quoted);
    return add(name, fmt::format("[{}]", fmt::join(elements, ",")));
}

JsonObject& JsonObject::number(const std::string& name, double value) {
    return add(name, std::isfinite(value) ? plainNumber(value) : "null");
}

JsonObject& JsonObject::number(const std::string& name, std::size_t value) {
    return add(name, fmt::format("{}", value));
}

JsonObject& JsonObject::null(const std::string& name) { return add(name, "null"); }

JsonObject& JsonObject::object(const std::string& name, const JsonObject& value) { return add(name, value.str()); }

JsonObject& JsonObject::add(const std::string& name, const std::string& value) {
    members += fmt::format("{}{}:{}", members.empty() ? "" : ",", quoted(name), value);
    return *this;
}

std::string jsonArray(const std::vector<JsonObject>& objects) {
    std::string text;
    for (const JsonObject& object : objects) {
        text += (text.empty() ? "[\n" : ",\n") + object.str();
    }
    return text.empty() ? "[]\n" : text + "\n]\n";
}

}  // namespace feedesk
