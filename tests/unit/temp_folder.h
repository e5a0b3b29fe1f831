// A folder of a test's own, and its files.

#pragma once

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

namespace orvik::test {

inline void WriteFile(const std::string& name, std::string_view contents) {
    std::ofstream file(name, std::ios::binary);
    file << contents;
    ASSERT_TRUE(file.flush()) << name;
}

[[nodiscard]] inline std::string ReadFile(const std::string& name) {
    std::ifstream file(name, std::ios::binary);
    EXPECT_TRUE(file) << name;
    return {std::istreambuf_iterator<char>(file), {}};
}

class TempFolder {
 public:
    TempFolder() : path_(testing::TempDir() + "orvik-unit-XXXXXX") {
        if (mkdtemp(path_.data()) == nullptr) {
            throw std::runtime_error("no folder " + path_);
        }
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    TempFolder(TempFolder&&) = delete;
    TempFolder& operator=(TempFolder&&) = delete;
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    // The full name of a file in the folder.
    [[nodiscard]] std::string Name(std::string_view file) const {
        return path_ + "/" + std::string(file);
    }
    [[nodiscard]] const std::string& Path() const { return path_; }

    // What the folder holds, hidden files included, sorted.
    [[nodiscard]] std::vector<std::string> Files() const {
        std::vector<std::string> files;
        for (const auto& entry : std::filesystem::directory_iterator(path_)) {
            files.push_back(entry.path().filename().string());
        }
        std::sort(files.begin(), files.end());
        return files;
    }

 private:
    std::string path_;
};

}  // namespace orvik::test
