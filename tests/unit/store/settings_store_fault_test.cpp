// What the settings store asks of the disk, and what it does when that fails.

#include <array>
#include <chrono>
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

#include <gtest/gtest.h>

#include "store/settings_store.h"
#include "unit/faulty_files.h"
#include "unit/temp_folder.h"

namespace orvik {
namespace {

namespace fs = std::filesystem;

// The real files, and how often one was opened to be read.
class CountingFiles : public SystemFiles {
 public:
    CountingFiles() : SystemFiles(false) {}
    std::error_code OpenToRead(const Path& path, std::unique_ptr<InputFile>& file) override {
        ++opened;
        return SystemFiles::OpenToRead(path, file);
    }

    int opened = 0;
};

class SettingsStoreFaultTest : public testing::Test {
 protected:
    SettingsStoreFaultTest() { fs::create_directory(folder.Name("orvik")); }

    [[nodiscard]] SettingsStore Open(FileSystem& files) {
        return {files, file, [this](const std::string& problem) { problems.push_back(problem); }};
    }
    void Write(std::string_view contents) const { test::WriteFile(file, contents); }

    test::TempFolder folder;
    std::string file = folder.Name("orvik/orvik.conf");
    std::vector<std::string> problems;
};

TEST_F(SettingsStoreFaultTest, AFileThatStaysTheSameIsReadOnce) {
    Write("[Settings]\nOpen=1\nSep=;\n");
    CountingFiles files;
    SettingsStore store = Open(files);
    for (int i = 0; i < 100; ++i) {
        EXPECT_EQ(store.Get("Settings", "Open"), "1");
        EXPECT_EQ(store.Get("Settings", "Sep"), ";");
        EXPECT_EQ(store.Get("Settings", "none"), std::nullopt);
    }
    EXPECT_EQ(files.opened, 1);
}

TEST_F(SettingsStoreFaultTest, AFileThatIsNotUnderstoodIsReadOnce) {
    Write("no settings at all\n");
    CountingFiles files;
    SettingsStore store = Open(files);
    for (int i = 0; i < 100; ++i) {
        EXPECT_EQ(store.Get("Settings", "Open"), std::nullopt);
    }
    EXPECT_EQ(files.opened, 1);
    EXPECT_EQ(problems.size(), 1);
}

TEST_F(SettingsStoreFaultTest, AFileThatChangesIsReadAgain) {
    CountingFiles files;
    SettingsStore store = Open(files);
    EXPECT_EQ(store.Get("Settings", "Open"), std::nullopt);
    EXPECT_EQ(files.opened, 0);
    Write("[Settings]\nOpen=1\n");
    EXPECT_EQ(store.Get("Settings", "Open"), "1");
    // Another length, another time, another file.
    Write("[Settings]\nOpen=10\n");
    EXPECT_EQ(store.Get("Settings", "Open"), "10");
    Write("[Settings]\nOpen=20\n");
    fs::last_write_time(file, fs::last_write_time(file) + std::chrono::seconds(1));
    EXPECT_EQ(store.Get("Settings", "Open"), "20");
    const fs::file_time_type time = fs::last_write_time(file);
    test::WriteFile(folder.Name("other"), "[Settings]\nOpen=30\n");
    fs::last_write_time(folder.Name("other"), time);
    fs::rename(folder.Name("other"), file);
    EXPECT_EQ(store.Get("Settings", "Open"), "30");
    EXPECT_EQ(files.opened, 4);
    fs::remove(file);
    EXPECT_EQ(store.Get("Settings", "Open"), std::nullopt);
    EXPECT_EQ(files.opened, 4);
}

TEST_F(SettingsStoreFaultTest, EachSaveReadsTheFile) {
    Write("[Settings]\nOpen=1\n");
    CountingFiles files;
    SettingsStore store = Open(files);
    EXPECT_EQ(store.Get("Settings", "Open"), "1");
    store.Save("Settings", "Open", "2");
    store.Save("Settings", "Open", "3");
    EXPECT_EQ(files.opened, 3);
    EXPECT_EQ(store.Get("Settings", "Open"), "3");
    EXPECT_EQ(store.Get("Settings", "Open"), "3");
    EXPECT_EQ(files.opened, 4);
}

// Whatever call fails, the file is whole: the old one, or the new one.
TEST_F(SettingsStoreFaultTest, AnErrorOfAnyCallLeavesAWholeFile) {
    const std::string old_text = "[Settings]\nOpen=1\n";
    const std::string new_text = "[Settings]\nOpen=2\n";
    constexpr std::array kErrors = {std::errc::no_space_on_device,
                                    std::errc::io_error,
                                    std::errc::permission_denied,
                                    std::errc::too_many_files_open,
                                    std::errc::cross_device_link};
    for (const std::errc error : kErrors) {
        for (std::size_t call = 1;; ++call) {
            Write(old_text);
            problems.clear();
            test::FaultyFiles files;
            files.fault.Call = call;
            files.fault.Error = std::make_error_code(error);
            SettingsStore store = Open(files);
            store.Save("Settings", "Open", "2");
            files.fault.Call = 0;
            EXPECT_EQ(store.Get("Settings", "Open"), "2") << files.fault.Failed;
            const std::string text = test::ReadFile(file);
            EXPECT_TRUE(text == old_text || text == new_text) << files.fault.Failed << text;
            EXPECT_LE(problems.size(), 1) << files.fault.Failed;
            EXPECT_TRUE(text == new_text || !problems.empty()) << files.fault.Failed;
            EXPECT_EQ(std::distance(fs::directory_iterator(folder.Name("orvik")), {}), 1)
                << files.fault.Failed;
            if (files.fault.Failed.empty()) {
                EXPECT_GT(call, 12);
                break;
            }
        }
    }
}

TEST_F(SettingsStoreFaultTest, AnInterruptedOrShortCallIsMadeAgain) {
    for (const std::error_code error : {std::make_error_code(std::errc::interrupted), {}}) {
        for (std::size_t call = 1;; ++call) {
            Write("[Settings]\nOpen=1\n");
            test::FaultyFiles files;
            files.fault.Call = call;
            files.fault.Error = error;
            Open(files).Save("Settings", "Open", "2");
            EXPECT_EQ(test::ReadFile(file), "[Settings]\nOpen=2\n") << files.fault.Failed;
            if (files.fault.Failed.empty()) {
                break;
            }
        }
    }
    EXPECT_EQ(problems, std::vector<std::string>());
}

}  // namespace
}  // namespace orvik
