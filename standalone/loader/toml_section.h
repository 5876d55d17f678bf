#ifndef STANDALONE_LOADER_TOML_SECTION_H
#define STANDALONE_LOADER_TOML_SECTION_H

#include <toml++/toml.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cost/date.h"
#include "standalone/loader/error_log.h"

namespace standalone::loader {

/// One table of a TOML file, read key by key. Every complaint names the key in full and carries its line. A key that is
/// absent, or has a bad value, leaves the caller's value as it was. For one thread.
class TomlSection {
public:
    enum class KeyNeed { kNeeded, kOptional };

    /// `name` is the table's own name, such as "markets.SH"; empty for the whole file. `table` outlives the section.
    TomlSection(const toml::table& sectionTable, std::string sectionName, std::string fileName, ErrorLog& log)
        : table(sectionTable), name(std::move(sectionName)), file(std::move(fileName)), errors(log) {}

    void readInteger(std::string_view key, KeyNeed need, int low, int high, int& value);
    void readText(std::string_view key, KeyNeed need, std::string& value);
    /// Texts in a list, or one text by itself.
    void readTexts(std::string_view key, KeyNeed need, std::vector<std::string>& values);
    void readFlag(std::string_view key, KeyNeed need, bool& value);
    void readIntegers(std::string_view key, int low, int high, std::vector<int>& values);

    /// A day by itself, without a time.
    void readDay(std::string_view key, KeyNeed need, std::optional<cost::Date>& value);

    /// The table under a key; null when it is absent or no table.
    const toml::table* readTable(std::string_view key, KeyNeed need);

    /// The keys in the order of the file, for a table whose keys are the file's own.
    [[nodiscard]] std::vector<std::string> keys() const;

    /// Reports every key that was not asked for.
    void refuseOtherKeys();

    /// Reports something about one key, or about the table when it has no such key.
    void refuse(ErrorKind kind, std::string_view key, const std::string& message);

    [[nodiscard]] bool good() const { return isGood; }

private:
    const toml::node* take(std::string_view key, KeyNeed need);
    [[nodiscard]] std::string pathTo(std::string_view key) const;
    [[nodiscard]] std::string fullName(std::string_view key) const;

    const toml::table& table;
    std::string name;
    std::string file;
    ErrorLog& errors;
    std::vector<std::string> asked;
    bool isGood = true;
};

}  // namespace standalone::loader

#endif  // STANDALONE_LOADER_TOML_SECTION_H
