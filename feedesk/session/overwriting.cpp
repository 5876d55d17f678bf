#include "feedesk/session/overwriting.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "feedesk/failure.h"
#include "feedesk/text/text.h"

namespace feedesk {
namespace {

namespace fs = std::filesystem;

/// With links followed, as far as there is something.
fs::path realPath(const std::string& name) {
    std::error_code ignored;
    return fs::weakly_canonical(fs::absolute(name, ignored), ignored);
}

}  // namespace

bool isSameFile(const std::string& one, const std::string& other) {
    if (one.empty() || other.empty()) {
        return false;
    }
    std::error_code ignored;
    return realPath(one) == realPath(other) || fs::equivalent(one, other, ignored);
}

void refuseToOverwrite(const std::string& target, const std::string& input, const char* whatItIs) {
    if (input != "-" && isSameFile(target, input)) {
        throw Failure(kBadInput,
                      fmt::format("{} is {} and would be written over; name another file", pathText(target), whatItIs));
    }
}

void refuseToWriteInto(const std::string& folder, const std::string& target) {
    if (target.empty() || folder.empty()) {
        return;
    }
    const fs::path path = realPath(target);
    const fs::path root = realPath(folder);
    if (std::mismatch(root.begin(), root.end(), path.begin(), path.end()).first == root.end()) {
        throw Failure(kBadInput, fmt::format("{} is in the market folder, which is not written to; name another file",
                                             pathText(target)));
    }
}

}  // namespace feedesk
