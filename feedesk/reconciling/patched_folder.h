#ifndef FEEDESK_RECONCILING_PATCHED_FOLDER_H
#define FEEDESK_RECONCILING_PATCHED_FOLDER_H

#include <filesystem>
#include <list>
#include <map>
#include <string>

#include "feedesk/terminal/interruption.h"

namespace feedesk {

/// A market folder as it would be with other texts in some of its files: a temporary folder with links to the others,
/// which is taken away with this object, and by an interruption. For the main thread.
class PatchedFolder {
public:
    /// `files`: new texts by the paths in the folder. Throws std::system_error where no such folder can be made.
    PatchedFolder(const std::string& marketFolder, const std::map<std::string, std::string>& files);
    PatchedFolder(const PatchedFolder&) = delete;
    PatchedFolder& operator=(const PatchedFolder&) = delete;
    ~PatchedFolder();

    [[nodiscard]] std::string path() const { return place.string(); }

private:
    void fill(const std::filesystem::path& marketFolder, const std::map<std::string, std::string>& files);
    void remove() const;

    std::filesystem::path place;
    std::list<RemovedWhenInterrupted> made;  // of the folder and of all that is in it
};

}  // namespace feedesk

#endif  // FEEDESK_RECONCILING_PATCHED_FOLDER_H
