#include "platform/stoppable_files.h"

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/book_file.h"
#include "app/run_time_error.h"
#include "platform/system_files.h"
#include "unit/temp_folder.h"

namespace orvik {
namespace {

using testing::ElementsAre;
using testing::UnorderedElementsAre;

class StoppableFilesTest : public testing::Test {
 protected:
    // Saves, and stops after so many questions. Returns whether it was stopped.
    bool Save(std::size_t stop_after) {
        std::size_t asked = 0;
        StoppableFiles watched(files, [&](std::size_t written) {
            total += written;
            return ++asked <= stop_after;
        });
        bool failed = false;
        TrapFailure([&] { ReplaceFile(watched, book, new_text); },
                    [&](const RunTimeError&) { failed = true; });
        return failed;
    }
    // Saves with a stop after one question more each time, until it is not stopped.
    void StopEverywhere(const std::function<void()>& prepare, const std::string& before) {
        std::size_t stops = 0;
        while (true) {
            prepare();
            const auto there = folder.Files();
            if (!Save(stops)) {
                break;
            }
            ++stops;
            ASSERT_EQ(folder.Files(), there);
            if (!there.empty()) {
                ASSERT_TRUE(test::ReadFile(book) == before) << stops;
            }
            ASSERT_LT(stops, 100U);
        }
        EXPECT_TRUE(test::ReadFile(book) == new_text);
        EXPECT_GT(stops, 3U);
    }

    // Several pieces.
    const std::string old_text = std::string(300'000, 'o');
    const std::string new_text = std::string(700'000, 'n');
    test::TempFolder folder;
    const std::string book = folder.Name("a.vcf");
    SystemFiles files{false};
    std::size_t total = 0;
};

TEST_F(StoppableFilesTest, TellWhatIsWritten) {
    EXPECT_FALSE(Save(1000));
    EXPECT_EQ(total, new_text.size());
    EXPECT_TRUE(test::ReadFile(book) == new_text);
    EXPECT_THAT(folder.Files(), ElementsAre("a.vcf"));
}

TEST_F(StoppableFilesTest, ANewFileThatIsStoppedIsNotThere) {
    StopEverywhere([&] { std::filesystem::remove(book); }, {});
}

TEST_F(StoppableFilesTest, AFileKeepsItsContentsWhenItIsStopped) {
    StopEverywhere([&] { test::WriteFile(book, old_text); }, old_text);
}

TEST_F(StoppableFilesTest, AFileWithTwoNamesGetsItsContentsBack) {
    StopEverywhere(
        [&] {
            test::WriteFile(book, old_text);
            std::error_code is_there;
            std::filesystem::create_hard_link(book, folder.Name("b.vcf"), is_there);
        },
        old_text);
    EXPECT_THAT(folder.Files(), UnorderedElementsAre("a.vcf", "b.vcf"));
    EXPECT_TRUE(test::ReadFile(folder.Name("b.vcf")) == new_text);
}

TEST_F(StoppableFilesTest, WaitingForAnotherProgramIsStopped) {
    std::unique_ptr<FolderLock> other;
    ASSERT_FALSE(files.Lock(folder.Path(), std::chrono::seconds(1), other));
    EXPECT_TRUE(Save(2));
    EXPECT_TRUE(folder.Files().empty());
}

TEST_F(StoppableFilesTest, AKillLeavesTheOldContentsOrTheNew) {
    bool is_new = false;
    std::size_t kills = 0;
    while (!is_new) {
        test::WriteFile(book, old_text);
        const pid_t child = fork();
        if (child == 0) {
            std::size_t asked = 0;
            StoppableFiles watched(
                files, [&](std::size_t) { return ++asked <= kills || raise(SIGKILL) == 0; });
            ReplaceFile(watched, book, new_text);
            _exit(0);
        }
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        is_new = WIFEXITED(status);
        EXPECT_TRUE(test::ReadFile(book) == (is_new ? new_text : old_text)) << kills;
        EXPECT_THAT(folder.Files(), ElementsAre("a.vcf"));
        ++kills;
        ASSERT_LT(kills, 100U);
    }
    EXPECT_GT(kills, 3U);
}

}  // namespace
}  // namespace orvik
