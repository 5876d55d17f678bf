#ifndef STANDALONE_LOADER_CHECKED_FOLDER_H
#define STANDALONE_LOADER_CHECKED_FOLDER_H

#include <map>
#include <memory>
#include <memory_resource>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "cost/schedule.h"
#include "standalone/coverage.h"
#include "standalone/loader/kept_lines.h"

namespace standalone::loader {

/// Numbered categories of the folder; the flags say whether the tables were read whole.
struct CategoryRegister {
    std::unordered_map<int, std::size_t> system;  ///< to the first rule in Market::categories
    std::map<int, std::vector<std::string>> custom;
    std::map<int, std::vector<qmservice::CGroupCategorySubInfo>> groups;
    bool membersComplete = true;  ///< system and custom categories
    bool groupsComplete = true;
};

/// A market folder of which every line has been read and checked, whatever its days.
struct CheckedFolder {
    Market market;  ///< what is the same on every day: all but fees, custom fees and configured limits
    CategoryRegister categories;
    /// The rates of the lines. Who copies lines keeps it alive.
    std::shared_ptr<std::pmr::memory_resource> rates = std::make_shared<std::pmr::monotonic_buffer_resource>();
    std::vector<ConfiguredLine> configuredLines;  ///< by family, then in the order of the file
    std::vector<AccountLines> accountLines;       ///< as Market::accounts
    cost::Schedule schedule;
    Coverage coverage;
    std::optional<cost::Date> asOf;
    std::vector<cost::Date> changeDates;  ///< ascending: the first day of each interval but the first
};

}  // namespace standalone::loader

#endif  // STANDALONE_LOADER_CHECKED_FOLDER_H
