#include <fmt/format.h>

#include "standalone/load_error.h"

#include <array>
#include <filesystem>
#include <system_error>

#include "standalone/text/escape.h"

namespace standalone {
namespace {

struct KindText {
    ErrorKind kind;
    const char* name;
    const char* many;  ///< what errors of the kind are about
};

constexpr std::array<KindText, 30> kKinds{{
    {ErrorKind::kFolder, "folder", "market folders that are not there"},
    {ErrorKind::kUnknownFile, "unknown-file", "names that the format does not know"},
    {ErrorKind::kMissingFile, "missing-file", "files that are needed and not there"},
    {ErrorKind::kUnreadable, "unreadable", "files that cannot be read"},
    {ErrorKind::kEmptyFile, "empty-file", "files without text"},
    {ErrorKind::kEncoding, "encoding", "files that are not UTF-8 text"},
    {ErrorKind::kLineEnd, "line-end", "carriage returns that stand alone"},
    {ErrorKind::kToml, "toml", "texts that are not TOML"},
    {ErrorKind::kNesting, "nesting", "keys and values that are nested too deep"},
    {ErrorKind::kUnknownKey, "unknown-key", "keys that the format does not know"},
    {ErrorKind::kMissingKey, "missing-key", "keys that are needed and not there"},
    {ErrorKind::kKeyValue, "key-value", "values that their keys do not take"},
    {ErrorKind::kHeader, "header", "headers that are wrong"},
    {ErrorKind::kCellCount, "cell-count", "lines with too few or too many cells"},
    {ErrorKind::kQuoting, "quoting", "quotes out of place"},
    {ErrorKind::kEmptyCell, "empty-cell", "empty cells where a value is needed"},
    {ErrorKind::kTooLong, "too-long", "texts of too many characters"},
    {ErrorKind::kNumber, "number", "cells that hold no number, or one out of range"},
    {ErrorKind::kWord, "word", "cells that hold none of the words they may hold"},
    {ErrorKind::kName, "name", "cells that hold no proper name or code"},
    {ErrorKind::kUnknownMarket, "unknown-market", "markets that market.toml does not have"},
    {ErrorKind::kUnknownAccount, "unknown-account", "accounts that accounts.csv does not have"},
    {ErrorKind::kAccountKind, "account-kind", "accounts whose kind the table does not take"},
    {ErrorKind::kUnknownCode, "unknown-code", "instruments that instruments/*.csv do not have"},
    {ErrorKind::kNoMatch, "no-match", "lines that match no instrument"},
    {ErrorKind::kUnknownCategory, "unknown-category", "categories that the folder does not have"},
    {ErrorKind::kUnusedCategory, "unused-category", "categories that would reach no instrument"},
    {ErrorKind::kDays, "days", "days that end before they begin"},
    {ErrorKind::kCharge, "charge", "charging terms that contradict themselves or others"},
    {ErrorKind::kRepeated, "repeated", "things that may stand once and stand again"},
}};

constexpr bool isInOrder() {
    for (std::size_t i = 0; i < kKinds.size(); ++i) {
        if (kKinds[i].kind != static_cast<ErrorKind>(i)) {
            return false;
        }
    }
    return kKinds.back().kind == ErrorKind::kRepeated;
}
static_assert(isInOrder(), "a kind is looked up by its number");

const KindText& textOf(ErrorKind kind) { return kKinds.at(static_cast<std::size_t>(kind)); }

std::string pathOf(const std::string& folder, const std::string& file) {
    namespace fs = std::filesystem;
    if (!file.empty()) {
        return (fs::path(folder) / file).string();
    }
    if (folder.empty()) {
        return "\"\"";
    }
    std::error_code noDirectory;
    const fs::path whole = fs::absolute(folder, noDirectory);
    return noDirectory ? folder : whole.string();
}

std::string placed(const std::string& path, std::size_t line, const std::string& sentence) {
    return printable(path) + (line == 0 ? "" : ":" + std::to_string(line)) + ": " + sentence;
}

}  // namespace

const char* nameOf(ErrorKind kind) { return textOf(kind).name; }

std::string LoadError::path(const std::string& folder) const { return pathOf(folder, file); }

std::string LoadError::text(const std::string& folder) const { return placed(path(folder), line, message); }

std::string FurtherErrors::text(const std::string& folder) const {
    return placed(pathOf(folder, file), line,
                  fmt::format("from here on {} more of the kind \"{}\": {}", count, nameOf(kind), textOf(kind).many));
}

}  // namespace standalone
