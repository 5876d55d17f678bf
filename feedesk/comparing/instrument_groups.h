#ifndef FEEDESK_COMPARING_INSTRUMENT_GROUPS_H
#define FEEDESK_COMPARING_INSTRUMENT_GROUPS_H

#include <string>
#include <vector>

namespace feedesk {

/// An instrument of a list, and whether it is one of those that are meant.
struct ListedName {
    std::string market;
    std::string code;
    bool isMeant = false;
};

/// What a person reads in place of those that are meant: "SH:600519", "SH:60*, SH:68* (2,314 instruments)" where all of
/// the list that are like the patterns are meant, "SH:600000, SH:600004, SH:600006 and 20 more".
std::string instrumentGroup(std::vector<ListedName> list);

/// "1000001, 1000002, 1000003 and 997 more"
std::string firstFew(const std::vector<std::string>& names);

}  // namespace feedesk

#endif  // FEEDESK_COMPARING_INSTRUMENT_GROUPS_H
