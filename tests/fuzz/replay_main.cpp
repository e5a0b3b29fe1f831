// Runs a fuzz target on every file of the folders given on the command line.

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "fuzz/fuzz_target.h"

namespace {

namespace fs = std::filesystem;

std::vector<fs::path> FilesIn(const fs::path& folder) {
    std::vector<fs::path> files;
    for (const auto& entry : fs::directory_iterator(folder)) {
        if (entry.is_regular_file()) {
            files.push_back(entry.path());
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}

void Replay(const fs::path& name) {
    // The name comes before the run, so that it is seen when a check ends the program.
    std::printf("%s\n", name.c_str());
    std::fflush(stdout);
    std::ifstream file(name, std::ios::binary);
    const std::string bytes(std::istreambuf_iterator<char>(file), {});
    const std::vector<std::uint8_t> data(bytes.begin(), bytes.end());
    LLVMFuzzerTestOneInput(data.data(), data.size());
}

}  // namespace

int main(int argc, char** argv) {
    try {
        std::size_t inputs = 0;
        for (int i = 1; i < argc; ++i) {
            for (const fs::path& name : FilesIn(argv[i])) {
                Replay(name);
                ++inputs;
            }
        }
        std::printf("%zu inputs replayed\n", inputs);
        return inputs == 0 ? EXIT_FAILURE : EXIT_SUCCESS;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return EXIT_FAILURE;
    }
}
