#include "store/settings_store.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/system_files.h"
#include "unit/process_limits.h"
#include "unit/temp_folder.h"

namespace orvik {
namespace {

using namespace std::string_literals;
namespace fs = std::filesystem;

const std::vector<std::string> kValues = {"5"s,
                                          ""s,
                                          " "s,
                                          ","s,
                                          "\t"s,
                                          " a "s,
                                          "a,b"s,
                                          "\"q\""s,
                                          "'q'"s,
                                          "\xFC"s,
                                          "\xC3\xBC"s,
                                          "\xC3"s,
                                          "\xED\xA0\x80"s,
                                          "\0x"s,
                                          "x\0"s,
                                          "@x"s,
                                          "a\\b;c%d"s,
                                          "  a"s,
                                          "a "s,
                                          "="s,
                                          "a=b"s,
                                          ";a"s,
                                          "#a"s,
                                          "[a]"s,
                                          "a\nb\rc"s,
                                          "\n[Settings]\nAuto=True"s,
                                          "\x80\xFF,\""s,
                                          "c:\\new\\101\\x41.xtr"s,
                                          "\\"s,
                                          "\\\\n"s,
                                          "\xF0\x9F\x93\x96"s,
                                          "\xE2\x80\xA8"s,
                                          "\xC2\x85"s,
                                          "\x7F"s,
                                          "\r\n"s};

class SettingsStoreTest : public testing::Test {
 protected:
    [[nodiscard]] SettingsStore Open() {
        return {files, file, [this](const std::string& problem) { problems.push_back(problem); }};
    }
    void Write(std::string_view contents) const {
        fs::create_directories(fs::path(file).parent_path());
        test::WriteFile(file, contents);
    }

    test::TempFolder folder;
    SystemFiles files{false};
    std::string file = folder.Name("orvik/orvik.conf");
    std::vector<std::string> problems;
};

TEST_F(SettingsStoreTest, AMissingKeyHasNoValue) {
    EXPECT_EQ(Open().Get("Settings", "Open"), std::nullopt);
    EXPECT_TRUE(problems.empty());
    EXPECT_TRUE(folder.Files().empty());
}

TEST_F(SettingsStoreTest, EachValueComesBackFromTheFile) {
    for (const std::string& value : kValues) {
        Open().Save("Settings", "Sep", value);
        EXPECT_EQ(Open().Get("Settings", "Sep"), value) << testing::PrintToString(value);
    }
    EXPECT_TRUE(problems.empty());
}

TEST_F(SettingsStoreTest, EachByteComesBackFromTheFile) {
    for (int byte = 0; byte < 256; ++byte) {
        const std::string value = {'a', static_cast<char>(byte), 'b'};
        Open().Save("Settings", "Sep", value);
        ASSERT_EQ(Open().Get("Settings", "Sep"), value) << byte;
    }
}

TEST_F(SettingsStoreTest, EachTextMayBeAKey) {
    for (const std::string& name : kValues) {
        if (!name.empty()) {
            Open().Save("Settings\\" + name, name, name);
            EXPECT_EQ(Open().Get("Settings\\" + name, name), name) << testing::PrintToString(name);
        }
    }
    EXPECT_TRUE(problems.empty());
}

TEST_F(SettingsStoreTest, TheFileCanBeReadByAPerson) {
    Open().Save("Settings", "textSep", "5");
    Open().Save("Settings", "aOpenName", "/home/j\xC3\xBCrg/my book.ldif");
    Open().Save("Settings\\AutoSteps", "1", "5");
    EXPECT_EQ(test::ReadFile(file),
              "[Settings]\ntextSep=5\naOpenName=/home/j\xC3\xBCrg/my book.ldif\n\n"
              "[Settings\\AutoSteps]\n1=5\n");
}

TEST_F(SettingsStoreTest, KeysHaveNoCase) {
    Open().Save("Settings", "textSep", "5");
    EXPECT_EQ(Open().Get("settings", "TEXTSEP"), "5");
    Open().Save("Settings", "TextSep", "6");
    EXPECT_EQ(Open().Get("Settings", "textSep"), "6");
}

TEST_F(SettingsStoreTest, ASectionInsideAnotherIsApart) {
    Open().Save("Settings\\AutoSteps", "info", "1");
    EXPECT_EQ(Open().Get("Settings\\AutoSteps", "Info"), "1");
    EXPECT_EQ(Open().Get("Settings", "info"), std::nullopt);
}

TEST_F(SettingsStoreTest, AnEmptyValueIsNotMissing) {
    Open().Save("Settings\\AutoSteps", "5", "");
    EXPECT_EQ(Open().Get("Settings\\AutoSteps", "5"), "");
    EXPECT_EQ(Open().Get("Settings\\AutoSteps", "4"), std::nullopt);
}

TEST_F(SettingsStoreTest, NothingIsLeftAfterClearing) {
    SettingsStore store = Open();
    store.Save("Settings", "Open", "2");
    store.Save("Settings\\AutoSteps", "1", "5");
    store.Clear();
    EXPECT_EQ(store.Get("Settings", "Open"), std::nullopt);
    EXPECT_EQ(Open().Get("Settings", "Open"), std::nullopt);
    EXPECT_EQ(Open().Get("Settings\\AutoSteps", "1"), std::nullopt);
    store.Save("Settings", "Open", "3");
    EXPECT_EQ(Open().Get("Settings", "Open"), "3");
}

TEST_F(SettingsStoreTest, ClearingWithoutAFileMakesNone) {
    Open().Clear();
    EXPECT_TRUE(folder.Files().empty());
}

TEST_F(SettingsStoreTest, WhatAUserWroteIsReadAndKept) {
    Write(
        "# "
        "mine\n[settings]\ntextsep=5\nSep=,\nname=a,b\nname[de]=c\npath=c:\\quenvale\n\n[Other]\nx="
        "1\n");
    SettingsStore store = Open();
    EXPECT_EQ(store.Get("Settings", "textSep"), "5");
    EXPECT_EQ(store.Get("Settings", "Sep"), ",");
    EXPECT_EQ(store.Get("Settings", "name"), "a,b");
    EXPECT_EQ(store.Get("Settings", "path"), "c:\\quenvale");
    store.Save("Settings", "Open", "2");
    const std::string saved = test::ReadFile(file);
    EXPECT_EQ(saved,
              "# mine\n\n[settings]\ntextsep=5\nSep=,\nname=a,b\nname[de]=c\n"
              "path=c:\\quenvale\n\nOpen=2\n\n[Other]\nx=1\n");
    store.Save("Settings", "Open", "2");
    EXPECT_EQ(test::ReadFile(file), saved);
}

TEST_F(SettingsStoreTest, OfTwoSpellingsTheLastOneHolds) {
    Write("[Settings]\nopen=1\nOPEN=2\n");
    EXPECT_EQ(Open().Get("Settings", "Open"), "2");
    Open().Save("Settings", "Open", "3");
    EXPECT_EQ(Open().Get("Settings", "Open"), "3");
}

TEST_F(SettingsStoreTest, TwoProgramsKeepEachOthersKeys) {
    SettingsStore first = Open();
    SettingsStore second = Open();
    first.Save("Settings", "Open", "1");
    second.Save("Settings", "Sep", ";");
    second.Save("Settings", "Open", "2");
    EXPECT_EQ(first.Get("Settings", "Open"), "2");
    EXPECT_EQ(first.Get("Settings", "Sep"), ";");
    first.Save("Settings", "Open", "3");
    EXPECT_EQ(second.Get("Settings", "Open"), "3");
    EXPECT_EQ(second.Get("Settings", "Sep"), ";");
}

TEST_F(SettingsStoreTest, ProgramsThatSaveAtOnceLoseNothing) {
    constexpr int kPrograms = 4;
    constexpr int kKeys = 25;
    std::vector<pid_t> programs;
    for (int program = 0; program < kPrograms; ++program) {
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            bool told = false;
            SettingsStore store(files, file, [&told](const std::string&) { told = true; });
            for (int key = 0; key < kKeys; ++key) {
                store.Save("Settings", std::to_string(program * kKeys + key), "x");
            }
            _exit(told ? 1 : 0);
        }
        programs.push_back(child);
    }
    for (const pid_t child : programs) {
        int status = -1;
        EXPECT_EQ(waitpid(child, &status, 0), child);
        EXPECT_EQ(status, 0);
    }
    for (int key = 0; key < kPrograms * kKeys; ++key) {
        EXPECT_EQ(Open().Get("Settings", std::to_string(key)), "x") << key;
    }
}

TEST_F(SettingsStoreTest, AProgramThatHoldsTheLockForEverIsNotWaitedFor) {
    Write("[Settings]\nOpen=1\n");
    const int holder = open(folder.Name("orvik").c_str(), O_RDONLY | O_DIRECTORY);
    ASSERT_EQ(flock(holder, LOCK_EX), 0);
    SettingsStore store = Open();
    store.Save("Settings", "Open", "2");
    close(holder);
    EXPECT_EQ(problems, std::vector{"The settings file " + file + " cannot be written."});
    EXPECT_EQ(store.Get("Settings", "Open"), "2");
    EXPECT_EQ(Open().Get("Settings", "Open"), "1");
    store.Save("Settings", "Open", "3");
    EXPECT_EQ(Open().Get("Settings", "Open"), "3");
}

TEST_F(SettingsStoreTest, OthersCannotReadANewFile) {
    Open().Save("Settings", "Open", "1");
    EXPECT_EQ(fs::status(file).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(fs::status(folder.Name("orvik")).permissions(), fs::perms::owner_all);
}

TEST_F(SettingsStoreTest, AFileKeepsItsPermissions) {
    Write("[Settings]\nOpen=1\n");
    fs::permissions(file, fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
    Open().Save("Settings", "Open", "2");
    EXPECT_EQ(fs::status(file).permissions(),
              fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
}

TEST_F(SettingsStoreTest, ANameInAMessageIsPlainText) {
    file = folder.Name("a\x1B[2J\xE2\x80\xAE");
    fs::create_directory(file);
    EXPECT_EQ(Open().Get("Settings", "Open"), std::nullopt);
    EXPECT_EQ(
        problems,
        std::vector{"The settings file " + folder.Name("a\\x1B[2J\\u202E") + " cannot be read."});
}

TEST_F(SettingsStoreTest, ALinkStaysALink) {
    Write("[Settings]\nOpen=1\n");
    const std::string real = folder.Name("dotfiles.conf");
    fs::rename(file, real);
    fs::create_symlink(real, file);
    Open().Save("Settings", "Open", "2");
    EXPECT_TRUE(fs::is_symlink(file));
    EXPECT_EQ(test::ReadFile(real), "[Settings]\nOpen=2\n");
}

TEST_F(SettingsStoreTest, ALinkToNothingYetGetsItsFile) {
    const std::string real = folder.Name("dotfiles.conf");
    fs::create_directories(fs::path(file).parent_path());
    fs::create_symlink(real, file);
    Open().Save("Settings", "Open", "2");
    EXPECT_TRUE(fs::is_symlink(file));
    EXPECT_EQ(test::ReadFile(real), "[Settings]\nOpen=2\n");
}

TEST_F(SettingsStoreTest, NoLockIsHeldWhileAProblemIsTold) {
    Write("no settings at all\n");
    int told = 0;
    SettingsStore store(files, file, [&](const std::string&) {
        ++told;
        const int other = open(folder.Name("orvik").c_str(), O_RDONLY | O_DIRECTORY);
        EXPECT_EQ(flock(other, LOCK_EX | LOCK_NB), 0);
        close(other);
    });
    store.Save("Settings", "Open", "2");
    EXPECT_EQ(told, 1);
}

TEST_F(SettingsStoreTest, WhatIsNoFileIsToldOnceAndKeptForTheRun) {
    fs::create_directories(file);
    SettingsStore store = Open();
    store.Save("Settings", "Open", "2");
    store.Save("Settings", "Open", "3");
    EXPECT_EQ(store.Get("Settings", "open"), "3");
    EXPECT_EQ(problems, std::vector{"The settings file " + file + " cannot be read."});
}

TEST_F(SettingsStoreTest, APipeIsNotWaitedFor) {
    fs::create_directories(fs::path(file).parent_path());
    ASSERT_EQ(mkfifo(file.c_str(), 0600), 0);
    EXPECT_EQ(Open().Get("Settings", "Open"), std::nullopt);
    EXPECT_EQ(problems.size(), 1);
}

TEST_F(SettingsStoreTest, AFileThatIsNotUnderstoodIsNotWritten) {
    Write("no settings at all\n");
    SettingsStore store = Open();
    EXPECT_EQ(store.Get("Settings", "Open"), std::nullopt);
    store.Save("Settings", "Open", "2");
    EXPECT_EQ(store.Get("Settings", "open"), "2");
    EXPECT_EQ(problems.size(), 1);
    store.Clear();
    EXPECT_EQ(store.Get("Settings", "Open"), std::nullopt);
    EXPECT_EQ(test::ReadFile(file), "no settings at all\n");
}

TEST_F(SettingsStoreTest, AFullDiskLeavesTheOldFile) {
    Write("[Settings]\nOpen=1\n");
    {
        const test::FileSizeLimit limit(0);
        SettingsStore store = Open();
        store.Save("Settings", "Open", "2");
        EXPECT_EQ(store.Get("Settings", "Open"), "2");
    }
    EXPECT_EQ(problems, std::vector{"The settings file " + file + " cannot be written."});
    EXPECT_EQ(test::ReadFile(file), "[Settings]\nOpen=1\n");
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.Name("orvik")), {}), 1);
}

TEST_F(SettingsStoreTest, TheUsersFileIsInTheConfigurationFolder) {
    const test::Environment config("XDG_CONFIG_HOME", folder.Path());
    EXPECT_EQ(SettingsStore::UserFile(), folder.Name("orvik/orvik.conf"));
    const test::Environment relative("XDG_CONFIG_HOME", "here");
    const test::Environment home("HOME", folder.Path());
    EXPECT_EQ(SettingsStore::UserFile(), folder.Name(".config/orvik/orvik.conf"));
}

}  // namespace
}  // namespace orvik
