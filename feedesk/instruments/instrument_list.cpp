#include "feedesk/instruments/instrument_list.h"

#include <fmt/format.h>

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include "feedesk/failure.h"
#include "feedesk/text/numbers.h"
#include "standalone/text/encoding.h"
#include "standalone/text/utf8.h"

namespace feedesk {
namespace {

constexpr const char* kStandardInput = "standard input";
constexpr const char* kListArgument = "-";
constexpr std::string_view kListBlanks = " \t\r\v\f";
constexpr std::size_t kMostInstruments = 100'000;
constexpr std::size_t kMostBytes = 16'000'000;

[[noreturn]] void refuse(const std::string& problem) { throw Failure(kBadInput, kStandardInput + (" " + problem)); }

/// Never more than the bytes that a list may have, so that an endless input ends.
std::string standardInput() {
    std::string text;
    std::array<char, 65536> piece{};
    std::size_t length = piece.size();
    while (length == piece.size() && text.size() <= kMostBytes) {
        length = std::fread(piece.data(), 1, piece.size(), stdin);
        text.append(piece.data(), length);
    }
    if (std::ferror(stdin) != 0) {
        refuse(fmt::format("cannot be read: {}", std::strerror(errno)));
    }
    if (text.size() > kMostBytes) {
        refuse(fmt::format("holds more than the {} bytes that a list of instruments may have; ask in parts",
                           grouped(kMostBytes)));
    }
    return text;
}

/// What is written in ASCII is understood, whatever encoding the comments next to it have.
bool isUnderstood(const std::vector<AskedInstrument>& list) {
    return std::all_of(list.begin(), list.end(),
                       [](const AskedInstrument& each) { return standalone::isUtf8(each.text); });
}

[[noreturn]] void refuseEncoding(const std::string& name, const std::string& iconvName) {
    refuse(fmt::format(
        "looks like {}, but UTF-8 was expected; convert it: iconv -f {} -t UTF-8 LIST | feedesk fee ACCOUNT -", name,
        iconvName));
}

void checkEncoding(const std::string& text, const std::vector<AskedInstrument>& list) {
    if (standalone::beginsAsUtf16(text)) {
        refuseEncoding("UTF-16", "UTF-16");
    }
    if (!isUnderstood(list) && standalone::looksLikeGb18030(text)) {
        refuseEncoding("GB18030 (GBK)", "GB18030");
    }
}

void addWords(std::string_view line, std::size_t number, std::vector<AskedInstrument>& words) {
    while (!line.empty() && line.front() != '#') {
        const std::size_t length = std::min(line.find_first_of(kListBlanks), line.size());
        if (length > 0) {
            words.push_back({std::string(line.substr(0, length)), number});
        }
        line.remove_prefix(std::min(length + 1, line.size()));
    }
}

std::vector<AskedInstrument> readList() {
    if (isatty(STDIN_FILENO) != 0) {
        tellNote("the instruments are read from this terminal; a line with Ctrl-D ends them");
    }
    const std::string text = standardInput();
    std::vector<AskedInstrument> list = parsedList(text);
    checkEncoding(text, list);
    if (list.empty()) {
        throw Failure(kNoAnswer, fmt::format("{} names no instrument", kStandardInput));
    }
    if (list.size() > kMostInstruments) {
        refuse(fmt::format("names {}; no more than {} may be asked for at once", counted(list.size(), "instrument"),
                           grouped(kMostInstruments)));
    }
    return list;
}

}  // namespace

std::vector<AskedInstrument> parsedList(std::string_view text) {
    text.remove_prefix(standalone::utf8MarkLength(text));
    std::vector<AskedInstrument> words;
    for (std::size_t number = 1; !text.empty(); ++number) {
        const std::size_t length = std::min(text.find('\n'), text.size());
        addWords(text.substr(0, length), number, words);
        text.remove_prefix(std::min(length + 1, text.size()));
    }
    return words;
}

std::vector<AskedInstrument> askedInstruments(const std::vector<std::string>& arguments) {
    if (std::count(arguments.begin(), arguments.end(), kListArgument) > 1) {
        throw Failure(kBadInput, "the argument - was given twice; standard input is one list of instruments");
    }
    std::vector<AskedInstrument> asked;
    for (const std::string& argument : arguments) {
        if (argument == kListArgument) {
            const std::vector<AskedInstrument> list = readList();
            asked.insert(asked.end(), list.begin(), list.end());
        } else {
            asked.push_back({argument, 0});
        }
    }
    return asked;
}

void tellAskedProblem(const AskedInstrument& asked, const std::string& sentence) {
    if (asked.line == 0) {
        reportProblem(sentence);
    } else {
        reportProblem(InputLine{kStandardInput, asked.line}, sentence);
    }
}

}  // namespace feedesk
