#ifndef STANDALONE_LOADER_LOAD_H
#define STANDALONE_LOADER_LOAD_H

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "standalone/loader/checked_folder.h"
#include "standalone/loader/error_log.h"
#include "standalone/loader/instrument_index.h"
#include "standalone/loader/line_contents.h"

namespace standalone::loader {

/// Names that other tables refer to, each with a value. While it is not complete, because something could not be read,
/// an unknown name is no error: the missing part is reported where it is.
template <class Value>
struct Register {
    std::unordered_map<std::string, Value> known;
    bool complete = true;

    [[nodiscard]] const Value* find(const std::string& name) const {
        const auto found = known.find(name);
        return found == known.end() ? nullptr : &found->second;
    }
};

/// One load under way: the folder as far as it is read, and what its tables refer to.
struct Load : CheckedFolder {
    std::filesystem::path folder;
    std::vector<std::string> tables;           ///< the tables that the folder has, instruments aside
    std::vector<std::string> misspelt;         ///< the names that unknown ones, reported already, were taken for
    std::vector<std::string> instrumentFiles;  ///< instruments/*.csv by name
    ErrorLog errors;
    Register<std::size_t> markets;   ///< to Market::markets
    Register<std::size_t> accounts;  ///< to Market::accounts
    std::vector<std::string> marketNames;
    std::vector<std::string> accountNames;
    InstrumentIndex instruments;
    std::unordered_map<std::string, Places> matches;  ///< of the lines so far that match any, by what they match
    LineContents contents{*rates};                    ///< of the lines so far
    std::vector<cost::Term> terms;
    bool instrumentsComplete = true;  ///< market and code of every instrument are known
    bool instrumentsWhole = true;     ///< and everything else of them too
    bool ratesComplete = true;        ///< the rate columns of the tables are known

    /// Adds a file to the market's list; the answer is its number.
    std::uint32_t addFile(const std::string& file) {
        market.files.push_back(file);
        return static_cast<std::uint32_t>(market.files.size() - 1);
    }

    [[nodiscard]] bool hasFile(const std::string& file) const;
    /// Whether the folder has no such file, under a misspelt name neither.
    [[nodiscard]] bool lacks(const std::string& file) const;
};

}  // namespace standalone::loader

#endif  // STANDALONE_LOADER_LOAD_H
