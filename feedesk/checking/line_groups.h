#ifndef FEEDESK_CHECKING_LINE_GROUPS_H
#define FEEDESK_CHECKING_LINE_GROUPS_H

#include <map>
#include <string>

#include "feedesk/checking/folder_facts.h"

namespace feedesk::checking {

/// What the instruments have in common that a line of rates is for.
struct LineGroup {
    std::string market;   ///< empty: they are of several, or there are none
    std::string product;  ///< empty: they are of several, or have none
};

/// The groups of a folder's lines. Refers to the facts, which outlive it. One thread.
class LineGroups {
public:
    explicit LineGroups(const FolderFacts& folder) : facts(folder) {}

    /// The group of a line of the folder; it lives as long as this.
    const LineGroup& of(const FolderLine& line);

private:
    const LineGroup& ofCategory(int number);
    [[nodiscard]] LineGroup ofPlaces(const standalone::loader::Places& places) const;

    const FolderFacts& facts;
    std::map<standalone::loader::Places, LineGroup> byPattern;  // lines of one pattern share their places
    std::map<std::size_t, LineGroup> byInstrument;
    std::map<int, LineGroup> byCategory;  // of all once one is asked for
};

}  // namespace feedesk::checking

#endif  // FEEDESK_CHECKING_LINE_GROUPS_H
