// A folder for states, and what programs have left there.

#pragma once

#include <sys/stat.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "store/recovery_store.h"
#include "unit/faulty_files.h"
#include "unit/temp_folder.h"

namespace orvik::test {

namespace fs = std::filesystem;

class RecoveryStoreTest : public testing::Test {
 protected:
    static RecoveryCopy CopyOf(const char* text, std::int64_t seconds = 1) {
        return {
            .Text = text, .Mode = "Native", .Caption = "Orvik", .Entries = 1, .Seconds = seconds};
    }
    RecoveryStoreTest() { files.state_folder = folder.Path(); }

    [[nodiscard]] static std::vector<std::string> Texts(
        const std::vector<RecoveryStore::Left>& left) {
        std::vector<std::string> texts;
        for (const RecoveryStore::Left& one : left) {
            texts.emplace_back(one.Copy.Text.View());
        }
        return texts;
    }
    [[nodiscard]] std::vector<std::string> Offered() {
        return Texts(RecoveryStore(files).LeftBooks());
    }
    // What a program leaves that is killed.
    void Leave(const char* text, std::int64_t seconds = 1) {
        RecoveryStore store(files);
        store.Keep(CopyOf(text, seconds));
    }
    // The files below the folder of copies.
    [[nodiscard]] std::vector<fs::path> Files() const {
        std::vector<fs::path> found;
        if (fs::exists(root)) {
            for (const auto& entry : fs::recursive_directory_iterator(root)) {
                found.push_back(entry.path());
            }
        }
        return found;
    }
    [[nodiscard]] fs::path OnlyFolder() const { return fs::directory_iterator(root)->path(); }
    static unsigned ModeOf(const fs::path& file) {
        struct stat status {};
        EXPECT_EQ(stat(file.c_str(), &status), 0) << file;
        return status.st_mode & 0777U;
    }
    static void MakeOld(const fs::path& file) {
        fs::last_write_time(file, fs::file_time_type::clock::now() - std::chrono::hours(2));
    }

    TempFolder folder;
    const fs::path root = folder.Name("orvik/recovery");
    FaultyFiles files;
};

}  // namespace orvik::test
