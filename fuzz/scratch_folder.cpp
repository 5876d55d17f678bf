#include "fuzz/scratch_folder.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <system_error>

#include "fuzz/fail.h"

namespace fuzz {
namespace {

namespace fs = std::filesystem;

fs::path place() {
    const fs::path memory = "/dev/shm";
    return std::getenv("TMPDIR") == nullptr && fs::is_directory(memory) ? memory : fs::temp_directory_path();
}

struct Close {
    void operator()(std::FILE* file) const { static_cast<void>(std::fclose(file)); }
};

}  // namespace

ScratchFolder::ScratchFolder() : folder(place() / ("fuzz_market_folder." + std::to_string(getpid()))) {
    fs::remove_all(folder);
    fs::create_directory(folder);
}

ScratchFolder::~ScratchFolder() {
    std::error_code ignored;
    fs::remove_all(folder, ignored);
}

void ScratchFolder::hold(const Files& wanted) {
    fs::remove_all(folder);
    fs::create_directory(folder);
    for (const auto& [file, text] : wanted) {
        write(file, text);
    }
}

void ScratchFolder::write(const std::string& file, const std::string& text) const {
    fs::create_directories((folder / file).parent_path());
    const std::unique_ptr<std::FILE, Close> out(std::fopen((folder / file).c_str(), "wb"));
    if (!out || std::fwrite(text.data(), 1, text.size(), out.get()) != text.size()) {
        fail("cannot write " + file);
    }
}

}  // namespace fuzz
