// Runs a fuzz target over inputs from files and folders, without a fuzzer: for builds that have none.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

namespace fs = std::filesystem;

std::vector<std::uint8_t> bytesOf(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    in.exceptions(std::ios::badbit | std::ios::failbit);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

void run(const fs::path& file) {
    const std::vector<std::uint8_t> bytes = bytesOf(file);
    std::fprintf(stderr, "%s\n", file.c_str());  // before it runs: the last name is that of the input that crashed
    LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
}

std::size_t runAll(const fs::path& place) {
    if (!fs::is_directory(place)) {
        run(place);
        return 1;
    }
    std::size_t count = 0;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(place)) {
        if (!entry.is_regular_file()) {
            continue;
        }
        run(entry.path());
        ++count;
    }
    return count;
}

}  // namespace

int main(int argc, char** argv) {
    try {
        std::size_t count = 0;
        for (int i = 1; i < argc; ++i) {
            count += runAll(argv[i]);
        }
        std::printf("%zu inputs\n", count);
        return count == 0 ? 1 : 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
