#include "feedesk/json.h"

#include <bson/bson.h>
#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <string_view>

#include "feedesk/numbers.h"
#include "standalone/loader/words.h"

namespace feedesk {
namespace {

/// The number of the first character, which has two or three bytes in UTF-8 or is ASCII.
unsigned codePoint(std::string_view text, std::size_t length) {
    unsigned code = static_cast<unsigned char>(text[0]) & (length == 1 ? 0x7FU : length == 2 ? 0x1FU : 0x0FU);
    for (std::size_t i = 1; i < length; ++i) {
        code = code << 6U | (static_cast<unsigned char>(text[i]) & 0x3FU);
    }
    return code;
}

/// JSON may hold these characters as they are; escaped, they mean the same and no terminal obeys them.
std::string withoutUnprintable(std::string_view text) {
    std::string out;
    while (!text.empty()) {
        const std::size_t length = standalone::loader::unprintable(text);
        out += length == 0 ? std::string(1, text.front()) : fmt::format("\\u{:04x}", codePoint(text, length));
        text.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return out;
}

// libbson's own writer gives 17 digits and more to every number (0.00025000000000000000520); its escaping of texts is
// used as it is.
std::string quoted(const std::string& text) {
    const std::unique_ptr<char, decltype(&bson_free)> escaped(
        bson_utf8_escape_for_json(text.c_str(), static_cast<ssize_t>(text.size())), &bson_free);
    return fmt::format("\"{}\"", withoutUnprintable(escaped ? escaped.get() : ""));
}

}  // namespace

JsonObject& JsonObject::text(const std::string& name, const std::string& value) { return add(name, quoted(value)); }

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
