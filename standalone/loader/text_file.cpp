#include "standalone/loader/text_file.h"

#include <fmt/format.h>
#include <xxhash.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <memory>
#include <string_view>
#include <system_error>
#include <utility>

#include "standalone/market_files.h"
#include "standalone/text/encoding.h"
#include "standalone/text/shell_word.h"
#include "standalone/text/utf8.h"

namespace standalone::loader {

namespace fs = std::filesystem;

/// Reads a file from its beginning and sums up what it has read.
class CheckedText::Reader {
public:
    /// `error` is why it cannot be read, or 0.
    explicit Reader(const fs::path& path) : state(XXH3_createState()) {
        static_cast<void>(XXH3_64bits_reset(state.get()));
        errno = 0;
        file.reset(std::fopen(path.c_str(), "rb"));
        error = file ? 0 : errno;
    }

    std::size_t read(char* to, std::size_t most) {
        if (!file) {
            return 0;
        }
        errno = 0;
        const std::size_t count = std::fread(to, 1, most, file.get());
        error = std::ferror(file.get()) != 0 ? errno : 0;
        static_cast<void>(XXH3_64bits_update(state.get(), to, count));
        return count;
    }

    [[nodiscard]] std::uint64_t digest() const { return XXH3_64bits_digest(state.get()); }

    /// Behind the mark, if there is one.
    void passOverMark() {
        std::array<char, kUtf8Mark.size()> first{};
        if (utf8MarkLength({first.data(), read(first.data(), first.size())}) == 0 && file) {
            std::rewind(file.get());
            static_cast<void>(XXH3_64bits_reset(state.get()));
        }
    }

    int error = 0;

private:
    struct Close {
        void operator()(std::FILE* open) const { static_cast<void>(std::fclose(open)); }
    };
    struct Free {
        void operator()(XXH3_state_t* made) const { static_cast<void>(XXH3_freeState(made)); }
    };

    std::unique_ptr<std::FILE, Close> file;
    std::unique_ptr<XXH3_state_t, Free> state;
};

namespace {

constexpr std::size_t kBlockBytes = 65536;

struct Fault {
    ErrorKind kind;
    std::size_t line = 0;
    std::string message;
};

Fault cannotRead(int error) {
    return {
        ErrorKind::kUnreadable, 0,
        "the file cannot be read (" + std::generic_category().message(error) + "); make it a file that you may read"};
}

std::optional<Fault> noPlainFile(const fs::path& path) {
    std::error_code ignored;
    const fs::file_status status = fs::status(path, ignored);
    if (fs::is_directory(status)) {
        return Fault{ErrorKind::kUnreadable, 0, "there is a folder where a file of this name was expected; rename it"};
    }
    if (fs::exists(status) && !fs::is_regular_file(status)) {
        return Fault{ErrorKind::kUnreadable, 0, "this is not a plain file; put a text file in its place"};
    }
    return std::nullopt;
}

std::size_t linesIn(std::string_view text) {
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

/// The lines of the text that come before its first one that is not UTF-8.
std::size_t goodLinesOf(std::string_view text) {
    std::size_t lines = 0;
    for (std::size_t start = 0; start < text.size(); ++lines) {
        const std::size_t end = std::min(text.find('\n', start), text.size() - 1) + 1;
        if (!isUtf8(text.substr(start, end - start))) {
            break;
        }
        start = end;
    }
    return lines;
}

/// The first carriage return that ends no line.
std::size_t loneReturn(std::string_view text) {
    std::size_t at = text.find('\r');
    while (at != std::string_view::npos && at + 1 < text.size() && text[at + 1] == '\n') {
        at = text.find('\r', at + 1);
    }
    return at;
}

/// How much of a block can be looked at by itself: it ends behind a whole character, and not between CR and LF.
std::size_t wholePart(std::string_view text) {
    std::size_t end = text.size();
    for (std::size_t back = 1; back <= std::min<std::size_t>(3, text.size()); ++back) {
        if (!isContinuation(text[text.size() - back])) {
            end = characterLength(text.substr(text.size() - back)) == 0 ? text.size() - back : end;
            break;
        }
    }
    return end > 0 && text[end - 1] == '\r' ? end - 1 : end;
}

/// What is wrong with a text that is looked at part by part: the lines where each fault is first.
class TextFaults {
public:
    void add(std::string_view part) {
        const std::size_t nulAt = part.find('\0');
        if (!nul && nulAt != std::string_view::npos) {
            nul = lines + linesIn(part.substr(0, nulAt)) + 1;
        }
        if (!notUtf8 && !isUtf8(part)) {
            notUtf8 = lines + goodLinesOf(part) + 1;
        }
        const std::size_t returnAt = loneReturn(part);
        if (!lone && returnAt != std::string_view::npos) {
            lone = lines + linesIn(part.substr(0, returnAt)) + 1;
        }
        isBlank = isBlank && part.find_first_not_of(" \t\r\n") == std::string_view::npos;
        lines += linesIn(part);
    }

    std::optional<std::size_t> nul;
    std::optional<std::size_t> notUtf8;
    std::optional<std::size_t> lone;
    bool isBlank = true;

private:
    std::size_t lines = 0;  // so far
};

/// `encoding` is the name that iconv knows, `alsoKnown` another that a person may know.
std::string convertFrom(const std::string& encoding, const std::string& alsoKnown, const fs::path& path) {
    const std::string file = shellWord(path.string());
    return fmt::format(
        "the text looks like {}{}, but UTF-8 was expected; save it as UTF-8, or convert it: iconv -f {} -t UTF-8 {} > "
        "utf8 && mv utf8 {}",
        encoding, alsoKnown, encoding, file, file);
}

/// All that is left of a text.
std::string rest(const ReadBlock& blocks) {
    std::string text;
    std::array<char, kBlockBytes> block{};
    while (const std::size_t count = blocks(block.data(), block.size())) {
        text.append(block.data(), count);
    }
    return text;
}

bool isNeeded(const std::string& name) {
    return std::find(files::kNeeded.begin(), files::kNeeded.end(), name) != files::kNeeded.end();
}

/// `first` is what the text begins with, `again` gives all of it.
std::optional<Fault> faultOf(const TextFaults& found, std::string_view first, const fs::path& path,
                             const std::string& name, const std::function<std::string()>& again) {
    if (beginsAsUtf16(first)) {
        return Fault{ErrorKind::kEncoding, 1, convertFrom("UTF-16", "", path)};
    }
    if (found.nul) {
        return Fault{ErrorKind::kEncoding, *found.nul,
                     "there is a NUL byte here, but UTF-8 text was expected; remove it"};
    }
    if (found.notUtf8) {
        return Fault{ErrorKind::kEncoding, *found.notUtf8,
                     looksLikeGb18030(again()) ? convertFrom("GB18030", " (GBK)", path)
                                               : "the text is not UTF-8, which was expected; save it as UTF-8"};
    }
    if (found.isBlank) {
        return Fault{ErrorKind::kEmptyFile, 0,
                     std::string("the file is empty; fill it in") + (isNeeded(name) ? "" : " or remove it")};
    }
    if (found.lone) {
        return Fault{
            ErrorKind::kLineEnd, *found.lone,
            "a carriage return is alone here, but lines end with LF or CRLF; save the file with such line ends"};
    }
    return std::nullopt;
}

/// Looks at all of a text; the answer is what it begins with.
std::string lookAt(const ReadBlock& blocks, TextFaults& faults) {
    std::string held;
    std::string first;
    std::size_t left = 0;
    for (bool more = true; more;) {
        held.resize(left + kBlockBytes);
        const std::size_t count = blocks(held.data() + left, kBlockBytes);
        more = count != 0;
        held.resize(left + count);
        if (first.empty()) {
            first = held.substr(0, 4);
        }
        const std::size_t whole = more ? wholePart(held) : held.size();
        faults.add(std::string_view(held).substr(0, whole));
        left = held.size() - whole;
        held.erase(0, whole);
    }
    return first;
}

}  // namespace

ReadBlock CheckedText::blocks() {
    reader = std::make_shared<Reader>(file);
    reader->passOverMark();
    return [from = reader](char* to, std::size_t most) { return from->read(to, most); };
}

bool CheckedText::isUnchanged() const { return reader->digest() == digest; }

std::optional<CheckedText> CheckedText::of(const fs::path& path, const std::string& name, ErrorLog& errors) {
    CheckedText text;
    text.file = path;
    std::optional<Fault> fault = noPlainFile(path);
    if (!fault) {
        TextFaults found;
        const std::string first = lookAt(text.blocks(), found);
        text.digest = text.reader->digest();
        fault = text.reader->error != 0 ? cannotRead(text.reader->error)
                                        : faultOf(found, first, path, name, [&] { return rest(text.blocks()); });
    }
    if (!fault) {
        return text;
    }
    errors.add({name, fault->line}, fault->kind, fault->message);
    return std::nullopt;
}

std::optional<std::string> readText(const fs::path& path, const std::string& name, ErrorLog& errors) {
    std::optional<CheckedText> checked = CheckedText::of(path, name, errors);
    if (!checked) {
        return std::nullopt;
    }
    std::string text = rest(checked->blocks());
    if (checked->isUnchanged()) {
        return text;
    }
    reportChanged(name, errors);
    return std::nullopt;
}

void reportChanged(const std::string& name, ErrorLog& errors) {
    errors.add({name}, ErrorKind::kUnreadable, "the file was changed while it was read; load the folder once more");
}

}  // namespace standalone::loader
