#ifndef TESTS_FEEDESK_SUPPORT_COST_FOLDER_H
#define TESTS_FEEDESK_SUPPORT_COST_FOLDER_H

#include <string>

#include "tests/feedesk/support/program.h"
#include "tests/feedesk/support/sample_folder.h"

namespace feedesk::test {

/// The small market folder with charging terms, multipliers and ticks, of which amounts are worked out by hand. It is
/// known from 2021 to 2026 and asked as of 2024-01-02.
class CostFolder : public SampleFolder {
public:
    CostFolder();
    CostFolder(const CostFolder&) = delete;
    CostFolder& operator=(const CostFolder&) = delete;
    ~CostFolder();

    /// Runs `feedesk cost`.
    [[nodiscard]] Outcome cost(const std::string& arguments, const std::string& environment = "") const;
    /// The same with a file of trades, whose name is in the messages. It lies next to the folder.
    [[nodiscard]] Outcome costOf(const std::string& trades, const std::string& arguments = "") const;
    [[nodiscard]] std::string tradesFile() const { return path() + ".trades"; }
    void writeTrades(const std::string& trades) const;
};

}  // namespace feedesk::test

#endif  // TESTS_FEEDESK_SUPPORT_COST_FOLDER_H
