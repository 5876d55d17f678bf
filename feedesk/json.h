#ifndef FEEDESK_JSON_H
#define FEEDESK_JSON_H

#include <cstddef>
#include <string>
#include <vector>

namespace feedesk {

/// One JSON object on one line, its members in the order in which they are added.
class JsonObject {
public:
    /// A byte that is not UTF-8 becomes the text that messages show for it, "\x9b": JSON has no way to hold it.
    JsonObject& text(const std::string& name, const std::string& value);
    /// An array.
    JsonObject& texts(const std::string& name, const std::vector<std::string>& values);
    /// As plainNumber shows it; null for what is no number.
    JsonObject& number(const std::string& name, double value);
    JsonObject& number(const std::string& name, std::size_t value);
    JsonObject& null(const std::string& name);
    JsonObject& object(const std::string& name, const JsonObject& value);

    [[nodiscard]] std::string str() const { return "{" + members + "}"; }

private:
    JsonObject& add(const std::string& name, const std::string& value);

    std::string members;
};

/// An array with one object a line, and a line end.
std::string jsonArray(const std::vector<JsonObject>& objects);

}  // namespace feedesk

#endif  // FEEDESK_JSON_H
