#ifndef FUZZ_SCRATCH_FOLDER_H
#define FUZZ_SCRATCH_FOLDER_H

#include <filesystem>
#include <string>

#include "fuzz/folder_text.h"

namespace fuzz {

/// A folder of this process for what one input after the other describes; removed when the process ends by itself. It
/// is made in TMPDIR, without which in memory where the system has a place for that. Throws what <filesystem> throws.
class ScratchFolder {
public:
    ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    ~ScratchFolder();

    /// Makes these files, and nothing else, the contents of the folder.
    void hold(const Files& wanted);

    [[nodiscard]] const std::string& path() const { return folder.native(); }

private:
    void write(const std::string& file, const std::string& text) const;

    std::filesystem::path folder;
};

}  // namespace fuzz

#endif  // FUZZ_SCRATCH_FOLDER_H
