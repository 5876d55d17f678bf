#ifndef STANDALONE_LOAD_ERROR_H
#define STANDALONE_LOAD_ERROR_H

#include <cstddef>
#include <string>

namespace standalone {

/// What is wrong in a market folder. Errors of one kind are corrected in the same way.
enum class ErrorKind {
    kFolder,           ///< there is no market folder of the name
    kUnknownFile,      ///< a file or folder that the format does not know
    kMissingFile,      ///< a file that is needed is not there
    kUnreadable,       ///< a file or folder inside cannot be read, or is none
    kEmptyFile,        ///< a file without text
    kEncoding,         ///< text that is not UTF-8, or a NUL byte in it
    kLineEnd,          ///< a carriage return that ends no line
    kToml,             ///< market.toml is not TOML
    kNesting,          ///< market.toml is nested too deep
    kUnknownKey,       ///< a key of market.toml that the format does not know
    kMissingKey,       ///< a key of market.toml that is needed is not there
    kKeyValue,         ///< a value of market.toml that its key does not take
    kHeader,           ///< the header of a table
    kCellCount,        ///< a line with too few or too many cells
    kQuoting,          ///< quotes out of place
    kEmptyCell,        ///< an empty cell where every line needs a value
    kTooLong,          ///< a text of too many characters
    kNumber,           ///< a cell that holds no number, or one out of range
    kWord,             ///< a cell that holds none of the words it may hold
    kName,             ///< a cell that is no name, code or fee item
    kUnknownMarket,    ///< a market that market.toml does not have
    kUnknownAccount,   ///< an account that accounts.csv does not have
    kAccountKind,      ///< an account whose kind the table does not take
    kUnknownCode,      ///< an instrument that no catalogue has
    kNoMatch,          ///< a pattern or product that matches no instrument
    kUnknownCategory,  ///< a category that the folder does not have
    kUnusedCategory,   ///< a category that would reach no instrument here
    kDays,             ///< days that end before they begin
    kCharge,           ///< a charging term that contradicts itself or another one
    kRepeated          ///< what may appear once appears twice
};

/// The kind's short name, such as "unknown-code", for programs: it does not change. Lives as long as the program.
const char* nameOf(ErrorKind kind);

/// One thing that is wrong in a market folder.
struct LoadError {
    std::string file;     ///< relative to the market folder; empty when the error is about the folder itself
    std::size_t line{};   ///< from 1; 0 for the file as a whole
    std::string column;   ///< of the table, or the key of market.toml in full; empty when it is about neither
    ErrorKind kind{};     ///< what is wrong
    std::string message;  ///< what was found and what was expected, one sentence on one line

    /// The file as it is opened from the directory in which `folder`, the market folder's name, was given; the
    /// absolute path of the market folder when the error is about the folder itself.
    [[nodiscard]] std::string path(const std::string& folder) const;

    /// "path:line: message", or "path: message" for the file as a whole; on one line, whatever the file's name holds.
    [[nodiscard]] std::string text(const std::string& folder) const;
};

/// Errors of one kind that are counted and not shown one by one.
struct FurtherErrors {
    ErrorKind kind{};       ///< what they have in common
    std::size_t count = 0;  ///< how many
    std::string file;       ///< where the first of them is, as in LoadError
    std::size_t line{};     ///< its line from 1; 0: the file as a whole

    /// "path:line: " and one sentence that says how many errors of which kind follow from here on.
    [[nodiscard]] std::string text(const std::string& folder) const;
};

}  // namespace standalone

#endif  // STANDALONE_LOAD_ERROR_H
