#include "standalone/loader/toml_section.h"

#include <fmt/format.h>

#include <algorithm>

#include "standalone/loader/long_text.h"
#include "standalone/text/escape.h"
#include "standalone/text/utf8.h"
#include "standalone/text/wording.h"

namespace standalone::loader {
namespace {

const char* const kCorrectIt = " was expected; correct it";

std::string found(const toml::node& node) {
    if (const auto* text = node.as_string(); text != nullptr && text->get().empty()) {
        return "is empty";
    }
    if (const auto* text = node.as_string()) {
        return "holds the text " + inQuotes(text->get());
    }
    if (const auto* number = node.as_integer()) {
        return "holds " + std::to_string(number->get());
    }
    if (const auto* flag = node.as_boolean()) {
        return flag->get() ? "holds true" : "holds false";
    }
    if (node.is_table()) {
        return "is a table";
    }
    if (node.is_array()) {
        return "is a list";
    }
    return node.is_floating_point() ? "holds a number with a fraction" : "holds a date or time";
}

std::string range(int low, int high) {
    if (low == high) {
        return std::to_string(low);
    }
    return fmt::format("a whole number from {} to {}", low, high);
}

bool fits(const toml::node& node, int low, int high) {
    const auto* number = node.as_integer();
    return number != nullptr && number->get() >= low && number->get() <= high;
}

}  // namespace

std::string TomlSection::pathTo(std::string_view key) const {
    return name.empty() ? std::string(key) : name + "." + std::string(key);
}

std::string TomlSection::fullName(std::string_view key) const { return inQuotes(pathTo(key)); }

void TomlSection::refuse(ErrorKind kind, std::string_view key, const std::string& message) {
    const toml::node* node = table.get(key);
    const std::size_t line = (node == nullptr ? table.source() : node->source()).begin.line;
    errors.add({file, line, pathTo(key)}, kind, fullName(key) + " " + message);
    isGood = false;
}

const toml::node* TomlSection::take(std::string_view key, KeyNeed need) {
    asked.emplace_back(key);
    const toml::node* node = table.get(key);
    if (node == nullptr && need == KeyNeed::kNeeded) {
        refuse(ErrorKind::kMissingKey, key, "is missing, but it is needed; add it");
    }
    return node;
}

void TomlSection::readInteger(std::string_view key, KeyNeed need, int low, int high, int& value) {
    const toml::node* node = take(key, need);
    if (node == nullptr) {
        return;
    }
    if (fits(*node, low, high)) {
        value = static_cast<int>(node->as_integer()->get());
    } else {
        refuse(ErrorKind::kKeyValue, key, found(*node) + ", but " + range(low, high) + kCorrectIt);
    }
}

void TomlSection::readText(std::string_view key, KeyNeed need, std::string& value) {
    const toml::node* node = take(key, need);
    if (node == nullptr) {
        return;
    }
    const auto* text = node->as_string();
    if (text == nullptr || text->get().empty()) {
        refuse(ErrorKind::kKeyValue, key, found(*node) + ", but a text in quotes" + kCorrectIt);
    } else if (const std::string fault = tooLong(text->get()); !fault.empty()) {
        refuse(ErrorKind::kKeyValue, key, found(*node) + fault);
    } else {
        value = text->get();
    }
}

void TomlSection::readTexts(std::string_view key, KeyNeed need, std::vector<std::string>& values) {
    const toml::node* node = take(key, need);
    if (node == nullptr) {
        return;
    }
    const auto isText = [](const toml::node& each) {
        const auto* text = each.as_string();
        return text != nullptr && !text->get().empty() && tooLong(text->get()).empty();
    };
    const toml::array* list = node->as_array();
    if (list != nullptr && !list->empty() && std::all_of(list->begin(), list->end(), isText)) {
        for (const toml::node& each : *list) {
            values.push_back(each.as_string()->get());
        }
    } else if (list == nullptr && isText(*node)) {
        values.push_back(node->as_string()->get());
    } else {
        refuse(ErrorKind::kKeyValue, key, found(*node) + ", but a text in quotes or a list of such texts" + kCorrectIt);
    }
}

void TomlSection::readFlag(std::string_view key, KeyNeed need, bool& value) {
    const toml::node* node = take(key, need);
    if (node == nullptr) {
        return;
    }
    if (const auto* flag = node->as_boolean()) {
        value = flag->get();
    } else {
        refuse(ErrorKind::kKeyValue, key, found(*node) + ", but true or false" + kCorrectIt);
    }
}

void TomlSection::readIntegers(std::string_view key, int low, int high, std::vector<int>& values) {
    const toml::node* node = take(key, KeyNeed::kOptional);
    if (node == nullptr) {
        return;
    }
    const toml::array* list = node->as_array();
    if (list == nullptr) {
        refuse(ErrorKind::kKeyValue, key, found(*node) + ", but a list of whole numbers such as [9001]" + kCorrectIt);
        return;
    }
    for (const toml::node& element : *list) {
        if (fits(element, low, high)) {
            values.push_back(static_cast<int>(element.as_integer()->get()));
        } else {
            isGood = false;
            errors.add({file, element.source().begin.line, pathTo(key)}, ErrorKind::kKeyValue,
                       fmt::format("an element of {} {}, but {}{}", fullName(key), found(element), range(low, high),
                                   kCorrectIt));
        }
    }
}

void TomlSection::readDay(std::string_view key, KeyNeed need, std::optional<cost::Date>& value) {
    const toml::node* node = take(key, need);
    if (node == nullptr) {
        return;
    }
    const auto* date = node->as_date();
    const auto day =
        date == nullptr ? std::nullopt : cost::Date::of(date->get().year, date->get().month, date->get().day);
    if (day) {
        value = day;
    } else {
        refuse(ErrorKind::kKeyValue, key,
               found(*node) + ", but a day such as 2026-09-30, without quotes," + kCorrectIt);
    }
}

const toml::table* TomlSection::readTable(std::string_view key, KeyNeed need) {
    const toml::node* node = take(key, need);
    if (node == nullptr) {
        return nullptr;
    }
    if (!node->is_table()) {
        refuse(ErrorKind::kKeyValue, key, found(*node) + ", but a table" + kCorrectIt);
    }
    return node->as_table();
}

std::vector<std::string> TomlSection::keys() const {
    std::vector<std::pair<toml::source_position, std::string>> found;
    for (const auto& [key, node] : table) {
        found.emplace_back(key.source().begin, std::string(key.str()));
    }
    std::stable_sort(found.begin(), found.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<std::string> inOrder;
    inOrder.reserve(found.size());
    for (auto& [position, key] : found) {
        inOrder.push_back(std::move(key));
    }
    return inOrder;
}

void TomlSection::refuseOtherKeys() {
    for (const auto& [key, node] : table) {
        if (std::find(asked.begin(), asked.end(), key.str()) != asked.end()) {
            continue;
        }
        errors.add({file, key.source().begin.line, pathTo(key.str())}, ErrorKind::kUnknownKey,
                   fmt::format("{} is not a key of the format, which knows {} here{}", fullName(key.str()),
                               oneOf(asked), suggestion(key.str(), asked)));
        isGood = false;
    }
}

}  // namespace standalone::loader
