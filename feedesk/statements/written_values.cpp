#include "feedesk/statements/written_values.h"

#include <algorithm>
#include <array>

#include "feedesk/text/numbers.h"
#include "standalone/text/numbers.h"

namespace feedesk {
namespace {

/// What is written otherwise and means the same in numbers and days.
struct Form {
    std::string_view written;
    std::string_view plain;
};

constexpr std::array<Form, 8> kForms = {{{"\xC2\xA0", " "},
                                         {"\xE3\x80\x80", " "},         // ideographic space
                                         {"\xE2\x80\x8B", ""},          // zero-width space
                                         {"\xE2\x80\x93", "-"},         // en dash
                                         {"\xE2\x80\x94", "-"},         // em dash
                                         {"\xE2\x88\x92", "-"},         // minus sign
                                         {"\xEF\xBF\xA5", "\xC2\xA5"},  // full-width yen sign
                                         {"\t", " "}}};

/// The ASCII character whose full-width form, U+FF01 to U+FF5E, begins the text; 0 where none does.
char halfWidthOf(std::string_view text) {
    if (text.size() < 3 || text[0] != '\xEF' || (text[1] != '\xBC' && text[1] != '\xBD')) {
        return 0;
    }
    const int low = static_cast<unsigned char>(text[2]) & 0x3F;
    const int place = (text[1] == '\xBD' ? 0x40 : 0) + low;
    return place > 0 && place < 0x5F ? static_cast<char>(0x20 + place) : '\0';
}

std::string halfWidth(std::string_view text) {
    std::string plain;
    while (!text.empty()) {
        const auto* const form = std::find_if(kForms.begin(), kForms.end(), [&](const Form& each) {
            return text.substr(0, each.written.size()) == each.written;
        });
        const char narrow = halfWidthOf(text);
        if (form != kForms.end()) {
            plain += form->plain;
            text.remove_prefix(form->written.size());
        } else {
            plain += narrow == 0 ? text.front() : narrow;
            text.remove_prefix(narrow == 0 ? 1 : 3);
        }
    }
    return plain;
}

/// Blanks between digits group them as commas do; all others go.
std::string withoutBlanks(std::string_view text) {
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != ' ') {
            const bool groups =
                i > 0 && text[i - 1] == ' ' && isDigit(text[i]) && !plain.empty() && isDigit(plain.back());
            plain += (groups ? "," : "") + std::string(1, text[i]);
        }
    }
    return plain;
}

/// "1,234,567.5" without its commas; empty when they stand elsewhere than between groups of three digits.
std::string ungrouped(std::string_view text) {
    const std::size_t point = std::min(text.find('.'), text.size());
    const std::size_t first = text.find(',');
    if (first == std::string_view::npos) {
        return std::string(text);
    }
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != ',') {
            plain += text[i];
        } else if (i > point || i == 0 || first > 3 || (point - i) % 4 != 0) {
            return "";
        }
    }
    return plain;
}

/// Takes the sign and the sign of the currency, one of each, whichever comes first. '-' where there is one.
std::string takenSign(std::string_view& text) {
    constexpr std::string_view kYuan = "\xC2\xA5";
    std::string sign;
    for (bool hasCurrency = false; !text.empty();) {
        if (sign.empty() && (text.front() == '-' || text.front() == '+')) {
            sign = text.front();
            text.remove_prefix(1);
        } else if (!hasCurrency && text.substr(0, kYuan.size()) == kYuan) {
            hasCurrency = true;
            text.remove_prefix(kYuan.size());
        } else {
            break;
        }
    }
    return sign == "-" ? sign : "";
}

/// "2024年5月7日" as "2024-5-7".
std::string withoutCharacters(std::string day) {
    for (const auto& [character, sign] : std::array<Form, 3>{{{"年", "-"}, {"月", "-"}, {"日", ""}}}) {
        const std::size_t place = day.find(character);
        if (place != std::string::npos) {
            day.replace(place, character.size(), sign);
        }
    }
    return day;
}

}  // namespace

std::optional<cost::Decimal> statedNumber(std::string_view cell) {
    const std::string text = withoutBlanks(halfWidth(cell));
    if (text.find_first_not_of('-') == std::string::npos) {
        return cost::Decimal();
    }
    std::string_view digits = text;
    const std::string sign = takenSign(digits);
    std::string plain = ungrouped(digits);
    if (plain.empty() || (!isDigit(plain.front()) && plain.front() != '.')) {
        return std::nullopt;
    }
    if (plain.size() > 1 && plain.back() == '.') {
        plain.pop_back();
    }
    return cost::Decimal::parse(sign + plain);
}

std::optional<cost::Date> statedDay(std::string_view cell) {
    const std::string text = withoutCharacters(halfWidth(cell));
    const std::string_view day = std::string_view(text).substr(0, text.find_first_of(" T"));
    if (const auto compact = cost::Date::parseCompact(day)) {
        return compact;
    }
    const std::size_t first = day.find_first_of("-/.");
    const std::size_t second = first == std::string_view::npos ? first : day.find(day[first], first + 1);
    if (second == std::string_view::npos) {
        return std::nullopt;
    }
    const auto year = standalone::numberIn<int>(day.substr(0, first));
    const auto month = standalone::numberIn<int>(day.substr(first + 1, second - first - 1));
    const auto number = standalone::numberIn<int>(day.substr(second + 1));
    return year && month && number ? cost::Date::of(*year, *month, *number) : std::nullopt;
}

std::string statedOperation(std::string_view cell) {
    std::string word = halfWidth(cell);
    word.erase(std::remove(word.begin(), word.end(), ' '), word.end());
    return word;
}

std::string statedCode(std::string_view cell) { return halfWidth(cell); }

}  // namespace feedesk
