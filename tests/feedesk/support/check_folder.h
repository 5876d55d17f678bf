#ifndef TESTS_FEEDESK_SUPPORT_CHECK_FOLDER_H
#define TESTS_FEEDESK_SUPPORT_CHECK_FOLDER_H

#include <string>

#include "tests/feedesk/support/program.h"
#include "tests/feedesk/support/sample_folder.h"

namespace feedesk::test {

/// A small market folder in which `feedesk check` finds nothing. It is asked as of 2026-09-30. Faults are put into it.
class CheckFolder : public SampleFolder {
public:
    CheckFolder();

    /// Puts `to` in the place of `from`, which the file holds once. Answers whether it did.
    [[nodiscard]] bool replace(const std::string& file, const std::string& from, const std::string& to) const;
    /// The same in every file, as often as it is there.
    void replaceEverywhere(const std::string& from, const std::string& to) const;
    /// Adds lines, each with its end, to a file.
    void append(const std::string& file, const std::string& lines) const;

    /// Runs `feedesk check`.
    [[nodiscard]] Outcome check(const std::string& arguments = "", const std::string& environment = "") const;
};

}  // namespace feedesk::test

#endif  // TESTS_FEEDESK_SUPPORT_CHECK_FOLDER_H
