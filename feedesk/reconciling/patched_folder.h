#ifndef FEEDESK_RECONCILING_PATCHED_FOLDER_H
#define FEEDESK_RECONCILING_PATCHED_FOLDER_H

#include <filesystem>
#include <map>
#include <string>

namespace feedesk {

/// A market folder as it would be with other texts in some of its files: a temporary folder with links to the others,
/// which is taken away with this object.
class PatchedFolder {
public:
    /// `files`: new texts by the paths in the folder. Throws std::system_error where no such folder can be made.
    PatchedFolder(const std::string& marketFolder, const std::map<std::string, std::string>& files);
    PatchedFolder(const PatchedFolder&) = delete;
    PatchedFolder& operator=(const PatchedFolder&) = delete;
    ~PatchedFolder();

    [[nodiscard]] std::string path() const { return place.string(); }

private:
    void fill(const std::filesystem::path& marketFolder, const std::map<std::string, std::string>& files) const;
    void remove() const;

    std::filesystem::path place;
};

}  // namespace feedesk

#endif  // FEEDESK_RECONCILING_PATCHED_FOLDER_H
