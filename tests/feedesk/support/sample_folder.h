#ifndef TESTS_FEEDESK_SUPPORT_SAMPLE_FOLDER_H
#define TESTS_FEEDESK_SUPPORT_SAMPLE_FOLDER_H

#include <filesystem>
#include <string>

namespace feedesk::test {

/// A small market folder in a temporary directory, removed at the end. What it holds is in sample_folder.cpp; the
/// tests' expectations are worked out from it by hand.
class SampleFolder {
public:
    SampleFolder();
    SampleFolder(const SampleFolder&) = delete;
    SampleFolder& operator=(const SampleFolder&) = delete;
    ~SampleFolder();

    /// Removes every file.
    void clear() const;
    /// Replaces one file.
    void write(const std::string& file, const std::string& content) const;

    [[nodiscard]] std::string path() const { return directory.string(); }

private:
    std::filesystem::path directory;
};

}  // namespace feedesk::test

#endif  // TESTS_FEEDESK_SUPPORT_SAMPLE_FOLDER_H
