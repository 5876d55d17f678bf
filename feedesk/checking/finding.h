#ifndef FEEDESK_CHECKING_FINDING_H
#define FEEDESK_CHECKING_FINDING_H

#include <array>
#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

namespace feedesk::checking {

enum class Severity {
    kNote,     ///< worth knowing; costs nothing by itself
    kWarning,  ///< an amount may be wrong, or is one that nobody agreed on
    kError     ///< an amount is wrong
};

inline constexpr std::array kSeverities = {Severity::kError, Severity::kWarning, Severity::kNote};

/// "error", "warning", "note".
std::string_view wordFor(Severity severity);

/// A line of the market folder, as people and editors write it.
struct Place {
    std::string file;  ///< relative to the folder
    std::size_t line = 0;

    /// Reads "fees/stock.csv:12"; without a number the file as a whole.
    static Place of(const std::string& text);
    [[nodiscard]] std::string text() const;
};

bool operator==(const Place& one, const Place& other);
/// By file, then line.
bool operator<(const Place& one, const Place& other);

/// One fault, with every line that has it.
struct Finding {
    std::vector<std::string> accounts;  ///< whose money it is; none: every account's, or nobody's in particular
    std::size_t count = 0;              ///< how many instruments, or else lines, it is about
    std::vector<Place> places;          ///< the first is the one to begin with; never empty
    std::string found;                  ///< what was found, a clause
    std::string remedy;                 ///< how to correct it, an imperative clause
};

/// The findings of one check. What is found again on another line is one finding with two places.
class Findings {
public:
    /// Adds a finding with one place. Where the same was found before, its lines, accounts and count are added to that
    /// one instead.
    void add(const Finding& finding);

    /// By place.
    [[nodiscard]] std::vector<Finding> sorted() const;

private:
    /// What makes two findings the same: the file, what was found and how to correct it.
    using Key = std::tuple<std::string, std::string, std::string>;

    std::map<Key, Finding> all;
};

}  // namespace feedesk::checking

#endif  // FEEDESK_CHECKING_FINDING_H
