#include "feedesk/statements/encoding.h"

#include <fmt/format.h>
#include <iconv.h>

#include <algorithm>
#include <array>
#include <new>

#include "feedesk/failure.h"
#include "standalone/text/encoding.h"
#include "standalone/text/nearness.h"
#include "standalone/text/utf8.h"

namespace feedesk {
namespace {

/// The most bytes of UTF-8 that one byte of GB18030 becomes; a pair becomes three at most, a group of four four.
constexpr std::size_t kGrowth = 3;

/// What is mistaken for a text because of its name, by its first bytes.
struct Other {
    std::string_view beginning;
    const char* what;
};

constexpr std::array<Other, 4> kOthers = {{{"\xD0\xCF\x11\xE0", "a workbook"},
                                           {"PK\x03\x04", "a workbook"},
                                           {"<html", "a web page"},
                                           {"<table", "a web page"}}};

[[noreturn]] void refuse(const TextLines& file, std::size_t line, const std::string& why) {
    throw Failure(kBadInput, fmt::format("{}:{}: {}", file.name(), line, why));
}

void refuseOthers(const TextLines& file, const std::string& first) {
    const std::string lower = standalone::lowerCase(first.substr(0, 8));
    for (const Other& other : kOthers) {
        if (first.compare(0, other.beginning.size(), other.beginning) == 0 ||
            lower.compare(0, other.beginning.size(), other.beginning) == 0) {
            refuse(file, 1,
                   fmt::format("the file is {}, and a text of cells was expected; save it as CSV or as text with tabs",
                               other.what));
        }
    }
    if (standalone::beginsAsUtf16(first)) {
        refuse(file, 1,
               "the file looks like UTF-16, but UTF-8 or GB18030 was expected; convert it: iconv -f UTF-16 -t UTF-8 "
               "FILE");
    }
}

/// Converts GB18030 to UTF-8 by the C library's own tables. One thread.
class Converter {
public:
    Converter() : handle(iconv_open("UTF-8", "GB18030")) {
        // That is how iconv_open() says no. NOLINTNEXTLINE(performance-no-int-to-ptr)
        if (handle == reinterpret_cast<iconv_t>(-1)) {
            throw Failure(kBadInput,
                          "the C library of this machine cannot convert GB18030; convert the statement to "
                          "UTF-8 elsewhere");
        }
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;
    ~Converter() { iconv_close(handle); }

    /// Nothing when the text is no GB18030.
    std::optional<std::string> converted(std::string text) {
        std::string target(text.size() * kGrowth + 1, '\0');
        char* from = text.data();
        char* to = target.data();
        std::size_t left = text.size();
        std::size_t room = target.size();
        iconv(handle, nullptr, nullptr, nullptr, nullptr);  // from the beginning, whatever came before
        if (iconv(handle, &from, &left, &to, &room) == static_cast<std::size_t>(-1)) {
            return std::nullopt;
        }
        target.resize(target.size() - room);
        return target;
    }

private:
    iconv_t handle;
};

/// A line of the file, which is several where carriage returns alone end them, as old spreadsheets write.
void addLines(std::string_view text, std::vector<std::string>& lines) {
    for (std::size_t end = text.find('\r'); end != std::string_view::npos; end = text.find('\r')) {
        lines.emplace_back(text.substr(0, end));
        text.remove_prefix(end + 1);
    }
    lines.emplace_back(text);
}

std::vector<std::string> allLines(TextLines& file) {
    std::vector<std::string> lines;
    while (file.next()) {
        if (lines.empty()) {
            refuseOthers(file, file.line());
        }
        if (file.line().find('\0') != std::string::npos) {
            refuse(file, file.number(), "there is a NUL byte here, so that the file is no text; save it as CSV");
        }
        addLines(file.line(), lines);
    }
    return lines;
}

std::size_t firstLineNotUtf8(const std::vector<std::string>& lines) {
    const auto wrong =
        std::find_if(lines.begin(), lines.end(), [](const std::string& line) { return !standalone::isUtf8(line); });
    return static_cast<std::size_t>(wrong - lines.begin()) + 1;
}

void convert(const TextLines& file, std::vector<std::string>& lines, bool wasNamed) {
    Converter converter;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        std::optional<std::string> text = converter.converted(std::move(lines[i]));
        if (!text) {
            refuse(file, i + 1,
                   wasNamed ? "the line is not GB18030, which --encoding names; leave --encoding out, or name utf-8"
                            : "the line is neither UTF-8 nor GB18030; save the statement in one of them");
        }
        lines[i] = std::move(*text);
    }
}

}  // namespace

std::optional<Encoding> encodingFrom(std::string_view text) {
    const std::string word = standalone::lowerCase(text);
    if (word == "utf-8" || word == "utf8") {
        return Encoding::kUtf8;
    }
    return word == "gb18030" || word == "gbk" || word == "gb2312" ? std::optional(Encoding::kGb18030) : std::nullopt;
}

std::vector<std::string> linesAsUtf8(TextLines& file, std::optional<Encoding> named) {
    std::vector<std::string> lines = allLines(file);
    const std::size_t wrong = firstLineNotUtf8(lines);
    const bool isUtf8 = wrong > lines.size();
    if (named == Encoding::kUtf8 && !isUtf8) {
        refuse(file, wrong, "the line is not UTF-8, which --encoding names; leave --encoding out, or name gb18030");
    }
    if (named == Encoding::kGb18030 || !isUtf8) {
        convert(file, lines, named.has_value());
    }
    return lines;
}

}  // namespace feedesk
