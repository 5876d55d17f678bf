#include "feedesk/reconciling/patched_folder.h"

#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <system_error>

namespace feedesk {
namespace {

namespace fs = std::filesystem;

fs::path newPlace() {
    std::string name = (fs::temp_directory_path() / "feedesk_patched_XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) {
        throw std::system_error(errno, std::generic_category(), name);
    }
    return name;
}

void writeText(const fs::path& path, const std::string& text) {
    std::ofstream file(path, std::ios::binary);
    if (!(file << text << std::flush)) {
        throw std::system_error(errno, std::generic_category(), path.string());
    }
}

}  // namespace

PatchedFolder::PatchedFolder(const std::string& marketFolder, const std::map<std::string, std::string>& files) {
    const InterruptionHeld held;
    place = newPlace();
    try {
        made.emplace_back(place.string());
        fill(fs::absolute(marketFolder), files);
    } catch (...) {
        remove();
        throw;
    }
}

PatchedFolder::~PatchedFolder() { remove(); }

void PatchedFolder::fill(const fs::path& marketFolder, const std::map<std::string, std::string>& files) {
    for (const fs::directory_entry& each : fs::recursive_directory_iterator(marketFolder)) {
        const fs::path name = each.path().lexically_relative(marketFolder);
        made.emplace_back((place / name).string());
        const auto changed = files.find(name.generic_string());
        if (each.is_directory()) {
            fs::create_directory(place / name);
        } else if (changed != files.end()) {
            writeText(place / name, changed->second);
        } else {
            fs::create_symlink(each.path(), place / name);
        }
    }
}

void PatchedFolder::remove() const {
    std::error_code ignored;
    fs::remove_all(place, ignored);
}

}  // namespace feedesk
